#pragma once

#include <QDateTime>
#include <QtGlobal>

#include <limits>

/// Seconds from `stamp` (seconds since the epoch) until now; negative for a stamp in the future.
/// Stamps come from files, so the result saturates instead of overflowing.
inline qint64 secondsSince(qint64 stamp)
{
    qint64 age = 0;
    if (qSubOverflow(QDateTime::currentSecsSinceEpoch(), stamp, &age)) {
        return stamp < 0 ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
    }
    return age;
}
