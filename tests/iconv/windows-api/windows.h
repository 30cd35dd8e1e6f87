#pragma once
// The part of Windows' API that packaging/windows/dependencies/iconv uses, served by glibc's iconv.

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned long DWORD;
typedef unsigned int UINT;
typedef unsigned short WCHAR;

typedef struct
{
    UINT MaxCharSize;
} CPINFO;

enum
{
    FALSE = 0,
    TRUE = 1,
    CP_UTF8 = 65001,
    MB_ERR_INVALID_CHARS = 8
};

BOOL IsValidCodePage(UINT page);
BOOL GetCPInfo(UINT page, CPINFO *info);
BOOL IsDBCSLeadByteEx(UINT page, BYTE byte);
int MultiByteToWideChar(UINT page, DWORD flags, const char *in, int size, WCHAR *out, int capacity);
int WideCharToMultiByte(UINT page, DWORD flags, const WCHAR *in, int count, char *out, int capacity,
                        const char *substitute, BOOL *substituted);

#ifdef __cplusplus
}
#endif
