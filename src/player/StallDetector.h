#pragma once

#include <QtGlobal>

/// Detects from regular samples of a stream's media time whether the stream stalls. A stream that
/// has never advanced is not judged. A backward jump, as after a seek, is not a stall.
class StallDetector final
{
public:
    enum class Verdict
    {
        Unknown,   ///< this sample allows no verdict
        Advancing, ///< the time moved forward since the last sample
        Stalled    ///< unchanged for stallSamples samples; reported once until it advances again
    };

    /// This many samples in a row without a change are a stall.
    static constexpr qint32 stallSamples = 30;

    /// Adds a sample of the media time, in ms.
    Verdict sample(qint64 timeMs);
    /// Forgets all samples. To be called for a new stream, and while nothing plays.
    void reset();
    /// Whether the time has advanced since the last reset or stall.
    bool sawProgress() const { return armed; }

private:
    /// -1 if there is no valid sample.
    qint64 lastTimeMs = -1;
    qint32 stallTicks = 0;
    bool armed = false;
};
