#include "player/StallDetector.h"

StallDetector::Verdict StallDetector::sample(qint64 timeMs)
{
    if (timeMs != lastTimeMs) {
        const bool movedForward = lastTimeMs >= 0 && lastTimeMs < timeMs;
        lastTimeMs = timeMs;
        stallTicks = 0;
        armed = armed || movedForward;
        return movedForward ? Verdict::Advancing : Verdict::Unknown;
    }
    if (!armed) {
        return Verdict::Unknown;
    }
    ++stallTicks;
    if (stallTicks < stallSamples) {
        return Verdict::Unknown;
    }
    reset();
    return Verdict::Stalled;
}

void StallDetector::reset()
{
    *this = {};
}
