#include "ui/FormatMs.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString twoDigits(qint64 number)
{
    return u"%1"_s.arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

QString formatMs(qint64 ms)
{
    const qint64 seconds = std::max<qint64>(ms, 0) / 1000;
    const qint64 hours = seconds / 3600;
    const QString minutesAndSeconds = twoDigits(seconds / 60 % 60) + u':' + twoDigits(seconds % 60);
    return hours == 0 ? minutesAndSeconds : QString::number(hours) + u':' + minutesAndSeconds;
}
