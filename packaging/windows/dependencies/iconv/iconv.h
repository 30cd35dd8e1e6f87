#pragma once
// The iconv interface on top of Windows' code pages, for libVLC's subtitles and programme texts.

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct iconv_state *iconv_t;

/// Fails with EINVAL for an encoding that Windows does not know. With a suffix such as "//TRANSLIT"
/// or
/// "//IGNORE" to `to`, characters that it lacks become its substitute character.
iconv_t iconv_open(const char *to, const char *from);

/// Converts until the input ends and returns 0, or fails with E2BIG (output full), EINVAL (input
/// cut short) or EILSEQ (invalid). The pointers and sizes then show how far it got.
size_t iconv(iconv_t state, char **in, size_t *inLeft, char **out, size_t *outLeft);

int iconv_close(iconv_t state);

#ifdef __cplusplus
}
#endif
