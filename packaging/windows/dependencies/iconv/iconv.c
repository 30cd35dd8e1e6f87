#include "iconv.h"

#include <ctype.h>
#include <errno.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

enum
{
    asciiPage = 20127
};

enum Kind
{
    CodePage,
    Utf8,
    Utf16,
    Utf32
};

struct Charset
{
    enum Kind kind;
    bool bigEndian;
    UINT page;
};

struct iconv_state
{
    struct Charset from;
    struct Charset to;
    bool substitute;
};

static const struct
{
    const char *name;
    struct Charset charset;
} names[] = {
    {"UTF8", {Utf8, false, 0}},
    {"UTF16", {Utf16, false, 0}},
    {"UTF16LE", {Utf16, false, 0}},
    {"UTF16BE", {Utf16, true, 0}},
    {"UCS2", {Utf16, false, 0}},
    {"UCS2LE", {Utf16, false, 0}},
    {"UCS2BE", {Utf16, true, 0}},
    {"UTF32", {Utf32, false, 0}},
    {"UTF32LE", {Utf32, false, 0}},
    {"UTF32BE", {Utf32, true, 0}},
    {"UCS4", {Utf32, true, 0}},
    {"UCS4LE", {Utf32, false, 0}},
    {"UCS4BE", {Utf32, true, 0}},
    {"ASCII", {CodePage, false, asciiPage}},
    {"USASCII", {CodePage, false, asciiPage}},
    {"LATIN1", {CodePage, false, 28591}},
    {"ISO885911", {CodePage, false, 874}},
    {"TIS620", {CodePage, false, 874}},
    {"KOI8R", {CodePage, false, 20866}},
    {"KOI8U", {CodePage, false, 21866}},
    {"SHIFTJIS", {CodePage, false, 932}},
    {"SJIS", {CodePage, false, 932}},
    {"EUCJP", {CodePage, false, 20932}},
    {"GB2312", {CodePage, false, 936}},
    {"GBK", {CodePage, false, 936}},
    {"GB18030", {CodePage, false, 936}},
    {"BIG5", {CodePage, false, 950}},
    {"BIG5HKSCS", {CodePage, false, 950}},
    {"EUCKR", {CodePage, false, 949}},
    {"MACINTOSH", {CodePage, false, 10000}},
};

/// Whether the name is known. Ignores letter case, "-", "_" and anything from "/" on.
static bool findCharset(const char *name, struct Charset *charset)
{
    char plain[32];
    size_t length = 0;
    for (; *name != '\0' && *name != '/'; ++name) {
        if (*name == '-' || *name == '_')
            continue;
        if (length + 1 == sizeof plain)
            return false;
        plain[length++] = (char)toupper((unsigned char)*name);
    }
    plain[length] = '\0';
    for (size_t i = 0; i < sizeof names / sizeof names[0]; ++i) {
        if (strcmp(plain, names[i].name) == 0) {
            *charset = names[i].charset;
            return true;
        }
    }
    static const struct
    {
        const char *prefix;
        UINT base;
    } families[] = {{"CP", 0}, {"WINDOWS", 0}, {"ISO8859", 28590}};
    for (size_t i = 0; i < sizeof families / sizeof families[0]; ++i) {
        const size_t skip = strlen(families[i].prefix);
        const UINT number = strncmp(plain, families[i].prefix, skip) == 0
                                ? (UINT)strtoul(plain + skip, NULL, 10)
                                : 0;
        if (number == 0)
            continue;
        const UINT page = families[i].base + number;
        *charset = (struct Charset){page == CP_UTF8 ? Utf8 : CodePage, false, page};
        return IsValidCodePage(page);
    }
    return false;
}

iconv_t iconv_open(const char *to, const char *from)
{
    struct iconv_state state = {.substitute = strstr(to, "//") != NULL};
    if (!findCharset(to, &state.to) || !findCharset(from, &state.from)) {
        errno = EINVAL;
        return (iconv_t)-1;
    }
    iconv_t result = malloc(sizeof state);
    if (result == NULL)
        return (iconv_t)-1;
    *result = state;
    return result;
}

int iconv_close(iconv_t state)
{
    free(state);
    return 0;
}

static uint32_t readUnit(const unsigned char *in, size_t size, bool bigEndian)
{
    uint32_t unit = 0;
    for (size_t i = 0; i < size; ++i)
        unit |= (uint32_t)in[i] << (8 * (bigEndian ? size - 1 - i : i));
    return unit;
}

static void writeUnit(unsigned char *out, size_t size, bool bigEndian, uint32_t unit)
{
    for (size_t i = 0; i < size; ++i)
        out[i] = (unsigned char)(unit >> (8 * (bigEndian ? size - 1 - i : i)));
}

static uint32_t joined(uint32_t high, uint32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

static bool isSurrogate(uint32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

// The decoders return the size of one character in bytes, 0 if it is cut short, or -1 if invalid.

static int decodeUtf8(const unsigned char *in, size_t left, uint32_t *c)
{
    const int size = in[0] < 0x80                     ? 1
                     : in[0] >= 0xC2 && in[0] <= 0xDF ? 2
                     : in[0] >= 0xE0 && in[0] <= 0xEF ? 3
                     : in[0] >= 0xF0 && in[0] <= 0xF4 ? 4
                                                      : -1;
    static const unsigned char masks[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    static const uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (size < 0)
        return -1;
    *c = in[0] & masks[size];
    for (int i = 1; i < size; ++i) {
        if ((size_t)i == left)
            return 0;
        if ((in[i] & 0xC0) != 0x80)
            return -1;
        *c = *c << 6 | (in[i] & 0x3F);
    }
    return *c < smallest[size] || *c > 0x10FFFF || isSurrogate(*c) ? -1 : size;
}

static int decodeUtf16(const unsigned char *in, size_t left, bool bigEndian, uint32_t *c)
{
    if (left < 2)
        return 0;
    *c = readUnit(in, 2, bigEndian);
    if (!isSurrogate(*c))
        return 2;
    if (*c >= 0xDC00)
        return -1;
    if (left < 4)
        return 0;
    const uint32_t low = readUnit(in + 2, 2, bigEndian);
    if (low < 0xDC00 || low > 0xDFFF)
        return -1;
    *c = joined(*c, low);
    return 4;
}

static int decodePage(const unsigned char *in, size_t left, UINT page, uint32_t *c)
{
    // Windows would ignore the highest bit.
    if (page == asciiPage && in[0] >= 0x80)
        return -1;
    CPINFO info;
    const int longest = GetCPInfo(page, &info) ? (int)info.MaxCharSize : 1;
    for (int size = 1; size <= longest; ++size) {
        if ((size_t)size > left)
            return 0;
        if (size == 1 && IsDBCSLeadByteEx(page, in[0]))
            continue;
        WCHAR wide[2];
        const int count =
            MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, (const char *)in, size, wide, 2);
        if (count == 1 && !isSurrogate(wide[0])) {
            *c = wide[0];
            return size;
        }
        if (count == 2 && isSurrogate(wide[0])) {
            *c = joined(wide[0], wide[1]);
            return size;
        }
    }
    return -1;
}

static int decode(const struct Charset *from, const unsigned char *in, size_t left, uint32_t *c)
{
    switch (from->kind) {
    case Utf8:
        return decodeUtf8(in, left, c);
    case Utf16:
        return decodeUtf16(in, left, from->bigEndian, c);
    case Utf32:
        if (left < 4)
            return 0;
        *c = readUnit(in, 4, from->bigEndian);
        return *c > 0x10FFFF || isSurrogate(*c) ? -1 : 4;
    default:
        return decodePage(in, left, from->page, c);
    }
}

/// Writes c to out (8 bytes). Returns the size, or -1 if the target lacks it.
static int encode(const struct iconv_state *state, uint32_t c, unsigned char *out)
{
    const struct Charset *to = &state->to;
    if (to->kind == Utf32) {
        writeUnit(out, 4, to->bigEndian, c);
        return 4;
    }
    WCHAR wide[2] = {(WCHAR)c, 0};
    const int count = c < 0x10000 ? 1 : 2;
    if (count == 2) {
        wide[0] = (WCHAR)(0xD800 + ((c - 0x10000) >> 10));
        wide[1] = (WCHAR)(0xDC00 + (c & 0x3FF));
    }
    if (to->kind == Utf16) {
        for (int i = 0; i < count; ++i)
            writeUnit(out + 2 * i, 2, to->bigEndian, wide[i]);
        return 2 * count;
    }
    const bool utf8 = to->kind == Utf8;
    BOOL missing = FALSE;
    const int size = WideCharToMultiByte(utf8 ? CP_UTF8 : to->page, 0, wide, count, (char *)out, 8,
                                         NULL, utf8 ? NULL : &missing);
    return size == 0 || (missing && !state->substitute) ? -1 : size;
}

size_t iconv(iconv_t state, char **in, size_t *inLeft, char **out, size_t *outLeft)
{
    if (in == NULL || *in == NULL)
        return 0;
    while (*inLeft > 0) {
        uint32_t c = 0;
        unsigned char code[8];
        const int taken = decode(&state->from, (const unsigned char *)*in, *inLeft, &c);
        const int size = taken > 0 ? encode(state, c, code) : 0;
        if (taken <= 0 || size < 0) {
            errno = taken == 0 ? EINVAL : EILSEQ;
            return (size_t)-1;
        }
        if ((size_t)size > *outLeft) {
            errno = E2BIG;
            return (size_t)-1;
        }
        memcpy(*out, code, (size_t)size);
        *out += size;
        *outLeft -= (size_t)size;
        *in += taken;
        *inLeft -= (size_t)taken;
    }
    return 0;
}
