#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// glibc's name of a code page of Windows; null for one that is not served.
const char *codePageName(unsigned page);

/// Converts all of `in` with glibc. Returns the size of the output, or -1 if any part of the input
/// cannot be converted. `consumed` then tells how much of it was.
int convertWithGlibc(const char *from, const char *to, const void *in, int size, void *out,
                     int capacity, int *consumed);

#ifdef __cplusplus
}
#endif
