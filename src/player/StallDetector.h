#pragma once

#include <QtGlobal>

/// Judges from regular looks at a stream's media time whether it advances. What never advanced is
/// not judged, and neither is a jump back, as a seek makes it.
class StallDetector final
{
public:
    enum class Verdict
    {
        Unknown,   ///< nothing to say of this look
        Advancing, ///< the time moved forward since the last look
        Stalled    ///< it stood still for stallLooks looks in a row; told once until it advances
    };

    /// So many looks in a row without any change are a stall.
    static constexpr qint32 stallLooks = 30;

    /// Takes the media time of one look, in ms.
    Verdict look(qint64 timeMs);
    /// Forgets the stream: for a new one, and whenever nothing plays.
    void reset();
    /// Whether the time has advanced since the last reset or stall.
    bool sawProgress() const { return armed; }

private:
    /// -1 when there is no valid sample.
    qint64 lastTimeMs = -1;
    qint32 stillLooks = 0;
    bool armed = false;
};
