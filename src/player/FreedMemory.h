#pragma once

#ifdef __linux__
#include <malloc.h>
#endif

/// Returns to the system what a stream has freed, which glibc's malloc otherwise keeps wherever
/// something small lies behind it: some 40 MB of pictures and compressed data. Takes milliseconds,
/// on any thread.
inline void returnFreedMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
