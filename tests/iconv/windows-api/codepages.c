#include "codepages.h"

#include "windows.h"

#include <iconv.h>
#include <stddef.h>
#include <string.h>

static const struct
{
    UINT page;
    const char *name;
    const char *leadBytes; ///< pairs of first and last; null for a single-byte page
} pages[] = {
    {437, "CP437", NULL},         {850, "CP850", NULL},        {852, "CP852", NULL},
    {866, "CP866", NULL},         {874, "CP874", NULL},        {932, "CP932", "\x81\x9F\xE0\xFC"},
    {936, "CP936", "\x81\xFE"},   {949, "CP949", "\x81\xFE"},  {950, "CP950", "\x81\xFE"},
    {1250, "CP1250", NULL},       {1251, "CP1251", NULL},      {1252, "CP1252", NULL},
    {1253, "CP1253", NULL},       {1254, "CP1254", NULL},      {1255, "CP1255", NULL},
    {1256, "CP1256", NULL},       {1257, "CP1257", NULL},      {1258, "CP1258", NULL},
    {10000, "MACINTOSH", NULL},   {20127, "ASCII", NULL},      {20866, "KOI8-R", NULL},
    {21866, "KOI8-U", NULL},      {28591, "ISO-8859-1", NULL}, {28592, "ISO-8859-2", NULL},
    {28595, "ISO-8859-5", NULL},  {28597, "ISO-8859-7", NULL}, {28599, "ISO-8859-9", NULL},
    {28605, "ISO-8859-15", NULL}, {CP_UTF8, "UTF-8", NULL},
};

static int indexOf(UINT page)
{
    for (int i = 0; i < (int)(sizeof pages / sizeof pages[0]); ++i) {
        if (pages[i].page == page)
            return i;
    }
    return -1;
}

const char *codePageName(unsigned page)
{
    const int index = indexOf(page);
    return index < 0 ? NULL : pages[index].name;
}

int convertWithGlibc(const char *from, const char *to, const void *in, int size, void *out,
                     int capacity, int *consumed)
{
    const iconv_t converter = iconv_open(to, from);
    if (converter == (iconv_t)-1)
        return -1;
    char *inBytes = (char *)in;
    char *outBytes = out;
    size_t inLeft = (size_t)size;
    size_t outLeft = (size_t)capacity;
    const size_t result = iconv(converter, &inBytes, &inLeft, &outBytes, &outLeft);
    iconv_close(converter);
    if (consumed != NULL)
        *consumed = size - (int)inLeft;
    return result == (size_t)-1 ? -1 : capacity - (int)outLeft;
}

BOOL IsValidCodePage(UINT page)
{
    return indexOf(page) >= 0;
}

BOOL GetCPInfo(UINT page, CPINFO *info)
{
    const int index = indexOf(page);
    if (index < 0)
        return FALSE;
    info->MaxCharSize = pages[index].leadBytes != NULL ? 2 : 1;
    return TRUE;
}

BOOL IsDBCSLeadByteEx(UINT page, BYTE byte)
{
    const int index = indexOf(page);
    if (index < 0 || pages[index].leadBytes == NULL)
        return FALSE;
    for (const BYTE *range = (const BYTE *)pages[index].leadBytes; *range != 0; range += 2) {
        if (byte >= range[0] && byte <= range[1])
            return TRUE;
    }
    return FALSE;
}

int MultiByteToWideChar(UINT page, DWORD flags, const char *in, int size, WCHAR *out, int capacity)
{
    (void)flags;
    const int bytes = convertWithGlibc(codePageName(page), "UTF-16LE", in, size, out,
                                       capacity * (int)sizeof(WCHAR), NULL);
    return bytes < 0 ? 0 : bytes / (int)sizeof(WCHAR);
}

int WideCharToMultiByte(UINT page, DWORD flags, const WCHAR *in, int count, char *out, int capacity,
                        const char *substitute, BOOL *substituted)
{
    (void)flags;
    (void)substitute;
    const int bytes = convertWithGlibc("UTF-16LE", codePageName(page), in,
                                       count * (int)sizeof(WCHAR), out, capacity, NULL);
    if (bytes >= 0 || substituted == NULL)
        return bytes < 0 ? 0 : bytes;
    *substituted = TRUE;
    out[0] = '?';
    return 1;
}
