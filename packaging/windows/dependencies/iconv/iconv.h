#pragma once
// The iconv interface over Windows' own code pages, for libVLC's subtitles and programme texts.

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct iconv_state *iconv_t;

/// Fails with EINVAL for a charset that Windows does not know. The suffixes "//TRANSLIT" and
/// "//IGNORE" make characters that the target lacks into its substitute.
iconv_t iconv_open(const char *to, const char *from);

/// Converts until the input ends (0) or fails with E2BIG, EINVAL (cut short) or EILSEQ; the four
/// values then tell how far it came.
size_t iconv(iconv_t state, char **in, size_t *inLeft, char **out, size_t *outLeft);

int iconv_close(iconv_t state);

#ifdef __cplusplus
}
#endif
