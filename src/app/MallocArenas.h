#pragma once

#ifdef __linux__
#include <malloc.h>
#endif

/// Makes glibc's malloc return what streams have freed. To be called before there are any threads.
///
/// Each stream has its own threads in libVLC. By default they spread over up to eight arenas per
/// processor, and each arena that once held a stream keeps the room for it, some 16 MB, while the
/// next stream may take another arena. One arena does for the few threads that allocate at a time;
/// each has a cache of small blocks besides. By default malloc also stops returning blocks of a
/// size that was freed once: a set threshold prevents that. A low one keeps such blocks out of the
/// heap, which would grow by the holes that they leave.
inline void limitMallocArenas()
{
#ifdef __GLIBC__
    constexpr int largeBlock = 128 * 1024;
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_TRIM_THRESHOLD, 16 * largeBlock);
#endif
}
