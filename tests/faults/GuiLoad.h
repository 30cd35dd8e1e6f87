#pragma once

#include <QTimer>

#include <algorithm>
#include <ctime>

/// How much longer the code under test takes when it is sanitized.
#if defined(__SANITIZE_ADDRESS__)
#define VANTIRO_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VANTIRO_SANITIZED
#endif
#endif
#ifdef VANTIRO_SANITIZED
inline constexpr double slowness = 4;
#else
inline constexpr double slowness = 1;
#endif

/// Measures, while the event loop runs, how much processor time the calling thread spends at a time
/// without coming back to the loop. Unlike the time by the clock it does not depend on what else
/// the machine does.
class GuiLoad final
{
public:
    GuiLoad()
    {
        timer.callOnTimeout(&timer, [this] { measure(); });
        timer.setTimerType(Qt::PreciseTimer);
        timer.start(beatMs);
    }

    /// In ms, since the beginning.
    double longestMs()
    {
        measure();
        return longest;
    }

private:
    static constexpr int beatMs = 2;

    static double processorMs()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    void measure()
    {
        const double now = processorMs();
        longest = std::max(longest, now - last);
        last = now;
    }

    QTimer timer;
    double last = processorMs();
    double longest = 0;
};
