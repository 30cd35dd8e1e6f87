#include "ui/GuideGridLayout.h"

#include <QDateTime>

#include <algorithm>

namespace {

constexpr qint64 secondsPerHour = 3600;
constexpr qint64 halfHour = 1800;

/// Rounded down, also below zero.
qint64 quotient(qint64 value, qint64 divisor)
{
    const qint64 rounded = value / divisor;
    return value % divisor < 0 ? rounded - 1 : rounded;
}

QDateTime clock(qint64 time, const QTimeZone &zone)
{
    return QDateTime::fromSecsSinceEpoch(time, zone);
}

/// How long ago the last half hour of the clock was.
qint64 sinceHalfHour(qint64 time, const QTimeZone &zone)
{
    const qint64 local = time + clock(time, zone).offsetFromUtc();
    return local - quotient(local, halfHour) * halfHour;
}

qint64 halfHourAfter(qint64 time, const QTimeZone &zone)
{
    const qint64 next = time + halfHour - sinceHalfHour(time, zone);
    const qint64 beyond = sinceHalfHour(next, zone);
    // Zones have moved their clocks by other times than half hours.
    return beyond == 0 ? next : next + halfHour - beyond;
}

/// The first programme that starts after the time.
QList<GuideProgramme>::const_iterator firstAfter(const QList<GuideProgramme> &programmes,
                                                 qint64 time)
{
    return std::upper_bound(
        programmes.cbegin(), programmes.cend(), time,
        [](qint64 value, const GuideProgramme &programme) { return value < programme.start; });
}

} // namespace

int GuideGridLayout::mostX() const
{
    const qint64 width = quotient((end - begin) * hourWidth, secondsPerHour);
    return static_cast<int>(std::max<qint64>(0, width - cells().width()));
}

int GuideGridLayout::mostY() const
{
    return std::max(0, rows * rowHeight - cells().height());
}

int GuideGridLayout::xOf(qint64 time) const
{
    // What is far outside must not leave the range of an int.
    constexpr qint64 farthest = 1'000'000'000;
    const qint64 x = quotient((time - begin) * hourWidth, secondsPerHour);
    return namesWidth + static_cast<int>(std::clamp(x, -farthest, farthest)) - scrolledX;
}

qint64 GuideGridLayout::timeAt(int x) const
{
    // Rounded up, so that xOf() of it is the place again.
    return begin - quotient(-(qint64(x) - namesWidth + scrolledX) * secondsPerHour, hourWidth);
}

int GuideGridLayout::rowAt(int y) const
{
    const int row = (y - headerHeight + scrolledY) / rowHeight;
    return y >= headerHeight && row < rows ? row : -1;
}

int GuideGridLayout::lastRow() const
{
    const int height = cells().height();
    return height > 0 ? std::min(rows - 1, (scrolledY + height - 1) / rowHeight) : firstRow() - 1;
}

int GuideGridLayout::rowsOfPage() const
{
    return std::max(1, cells().height() / rowHeight);
}

QRect GuideGridLayout::cells() const
{
    return {namesWidth, headerHeight, std::max(0, viewport.width() - namesWidth),
            std::max(0, viewport.height() - headerHeight)};
}

QRect GuideGridLayout::nameOf(int row) const
{
    return {0, yOf(row), namesWidth, rowHeight};
}

QRect GuideGridLayout::cellOf(int row, qint64 start, qint64 stop) const
{
    const int left = xOf(start);
    return {left, yOf(row), xOf(stop) - left, rowHeight};
}

QRect GuideGridLayout::mirrored(const QRect &area) const
{
    return {viewport.width() - area.x() - area.width(), area.y(), area.width(), area.height()};
}

int GuideGridLayout::scrolledToRow(int row) const
{
    const int top = row * rowHeight;
    const int lowest = std::min(top, top + rowHeight - cells().height());
    return std::clamp(scrolledY, lowest, top);
}

int GuideGridLayout::scrolledToTime(qint64 time) const
{
    return xOf(time) - namesWidth + scrolledX;
}

int GuideGridLayout::scrolledToSpan(qint64 start, qint64 stop) const
{
    const int left = scrolledToTime(start);
    const int lowest = std::min(left, scrolledToTime(stop) - cells().width());
    return std::clamp(scrolledX, lowest, left);
}

QList<qint64> halfHours(qint64 from, qint64 to, const QTimeZone &zone)
{
    QList<qint64> times;
    for (qint64 time = halfHourAfter(from - 1, zone); time < to; time = halfHourAfter(time, zone)) {
        times.append(time);
    }
    return times;
}

qint64 halfHourBefore(qint64 time, const QTimeZone &zone)
{
    return time - sinceHalfHour(time, zone);
}

qint64 daysLater(qint64 time, int days, const QTimeZone &zone)
{
    return clock(time, zone).addDays(days).toSecsSinceEpoch();
}

QDate dayOf(qint64 time, const QTimeZone &zone)
{
    return clock(time, zone).date();
}

qint64 startOfDay(const QDate &day, const QTimeZone &zone)
{
    return day.startOfDay(zone).toSecsSinceEpoch();
}

qsizetype programmeAt(const QList<GuideProgramme> &programmes, qint64 time)
{
    const qsizetype index = firstAfter(programmes, time) - programmes.cbegin() - 1;
    return index >= 0 && time < programmes.at(index).stop ? index : -1;
}

qint64 timeOfNext(const QList<GuideProgramme> &programmes, qint64 time, const QTimeZone &zone)
{
    const auto next = firstAfter(programmes, time);
    if (next != programmes.cend()) {
        return next->start;
    }
    const qsizetype running = programmeAt(programmes, time);
    return running >= 0 ? programmes.at(running).stop : halfHourAfter(time, zone);
}

qint64 timeOfPrevious(const QList<GuideProgramme> &programmes, qint64 time, const QTimeZone &zone)
{
    const qsizetype running = programmeAt(programmes, time);
    const qint64 from = running >= 0 ? programmes.at(running).start : time;
    const auto after = firstAfter(programmes, from - 1);
    return after != programmes.cbegin() ? std::prev(after)->start : halfHourBefore(from - 1, zone);
}
