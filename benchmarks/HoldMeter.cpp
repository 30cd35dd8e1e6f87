#include "HoldMeter.h"

#include <algorithm>
#include <ctime>

#include <dlfcn.h>
#include <poll.h>
#include <unistd.h>

namespace {

/// Now, in seconds of a clock.
double now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// A clock, when the thread came back from its last wait, and the longest hold since restart().
struct Watch
{
    clockid_t clock;
    double awakeSince = 0;
    double longest = 0;

    void wake() { awakeSince = now(clock); }
    void noteHold() { longest = std::max(longest, now(clock) - awakeSince); }
};

Watch wall{CLOCK_MONOTONIC};
Watch cpu{CLOCK_THREAD_CPUTIME_ID};

bool isMainThread()
{
    return gettid() == getpid();
}

template <typename Function, typename... Arguments>
int waitWith(const char *name, Arguments... arguments)
{
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
    if (!isMainThread()) {
        return original(arguments...);
    }
    wall.noteHold();
    cpu.noteHold();
    const int result = original(arguments...);
    wall.wake();
    cpu.wake();
    return result;
}

} // namespace

extern "C" int poll(pollfd *descriptors, nfds_t count, int timeoutMs)
{
    return waitWith<decltype(&poll)>("poll", descriptors, count, timeoutMs);
}

extern "C" int ppoll(pollfd *descriptors, nfds_t count, const timespec *timeout,
                     const sigset_t *signals)
{
    return waitWith<decltype(&ppoll)>("ppoll", descriptors, count, timeout, signals);
}

void HoldMeter::restart()
{
    for (Watch *watch : {&wall, &cpu}) {
        watch->longest = 0;
        watch->wake();
    }
}

HoldMeter::Hold HoldMeter::longest()
{
    wall.noteHold();
    cpu.noteHold();
    return {wall.longest * 1000, cpu.longest * 1000};
}
