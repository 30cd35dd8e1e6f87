// QProcess starts a program with clone(), in a child that shares its memory until then. The thread
// sanitizer of Clang 14 takes that for fork(): the child ends its record of the parent's thread,
// and the parent stops with "CHECK failed: tsan_rtl.cpp". Here the child gets a copy of the memory.
//
// The sanitizer's own clone() is weak, so this one replaces it in programs that are linked with it.

#include <cstdarg>
#include <sched.h>

extern "C" {

using CloneFunction = int (*)(void *);

// NOLINTNEXTLINE: the name is the sanitizer's
int __interceptor_clone(CloneFunction function, void *stack, int flags, void *argument,
                        pid_t *parentTid, void *threadStorage, pid_t *childTid);

// NOLINTNEXTLINE: as the C library declares it
int clone(CloneFunction function, void *stack, int flags, void *argument, ...) noexcept
{
    std::va_list others;
    va_start(others, argument);
    pid_t *const parentTid = va_arg(others, pid_t *);
    void *const threadStorage = va_arg(others, void *);
    pid_t *const childTid = va_arg(others, pid_t *);
    va_end(others);
    return __interceptor_clone(function, stack, flags & ~(CLONE_VM | CLONE_VFORK), argument,
                               parentTid, threadStorage, childTid);
}
}
