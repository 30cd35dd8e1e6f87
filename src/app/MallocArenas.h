#pragma once

#ifdef __linux__
#include <malloc.h>
#endif

/// Makes the threads of a program share two arenas of glibc's malloc. To be called before there are
/// any threads.
///
/// Each stream has its own threads in libVLC. By default they spread over up to eight arenas per
/// processor, and each arena keeps what a stream has freed: pictures and compressed data of many
/// megabytes. Threads rarely wait for each other, since each has a cache of small blocks.
inline void limitMallocArenas()
{
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 2);
#endif
}
