// libVLC ends its threads by cancelling them where they wait. The thread sanitizer ignores what a
// library without instrumentation does while a function that it intercepts runs, and a thread that
// never returns from one ends the program: "finished with ignores enabled". The functions in which
// libVLC's threads are cancelled are not intercepted here. They hand nothing over to another
// thread.

#include <ctime>
#include <dlfcn.h>
#include <poll.h>

namespace {

template <typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int poll(pollfd *files, nfds_t count, int ms)
{
    static const auto next = original<decltype(&poll)>("poll");
    return next(files, count, ms);
}

int nanosleep(const timespec *time, timespec *left)
{
    static const auto next = original<decltype(&nanosleep)>("nanosleep");
    return next(time, left);
}

int clock_nanosleep(clockid_t clock, int flags, const timespec *time, timespec *left)
{
    static const auto next = original<decltype(&clock_nanosleep)>("clock_nanosleep");
    return next(clock, flags, time, left);
}
}
