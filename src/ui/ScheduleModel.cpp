#include "ui/ScheduleModel.h"

#include "guide/CatchUp.h"
#include "ui/GuideTexts.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 secondsOfDay = 24LL * 60 * 60;
constexpr qint64 secondsOfHour = 60LL * 60;

ScheduleRow::Phase phaseOf(const GuideProgramme &programme, qint64 now)
{
    if (programme.start > now) {
        return ScheduleRow::Phase::Upcoming;
    }
    return programme.stop > now ? ScheduleRow::Phase::Running : ScheduleRow::Phase::Over;
}

} // namespace

ScheduleModel::ScheduleModel(GuideSchedule guideSchedule, const QTimeZone &localZone)
    : schedule(std::move(guideSchedule))
    , zone(localZone)
{}

bool ScheduleModel::isEmpty() const
{
    return schedule.programmes.isEmpty() && archiveSeconds(schedule.entry.catchUp) <= 0;
}

QList<QDate> ScheduleModel::days(qint64 now, QDate oldest) const
{
    const QDate today = dayOf(now);
    QDate first = std::min(today, dayOf(oldestArchived(now)));
    if (oldest.isValid()) {
        first = std::min(first, oldest);
    }
    const QDate last = schedule.programmes.isEmpty()
                           ? today
                           : std::max(today, dayOf(schedule.programmes.constLast().start));
    QList<QDate> days;
    for (QDate day = first; day <= last; day = day.addDays(1)) {
        days.append(day);
    }
    return days;
}

QList<ScheduleRow> ScheduleModel::rows(QDate day, qint64 now) const
{
    const qint64 begin = startOf(day);
    const qint64 end = startOf(day.addDays(1));
    QList<ScheduleRow> rows;
    for (const GuideProgramme &programme : schedule.programmes) {
        if (programme.stop > begin && programme.start < end) {
            rows.append({programme, phaseOf(programme, now), holds(programme, now), false});
        }
    }
    return rows.isEmpty() ? hours(day, now) : rows;
}

qint64 ScheduleModel::nextChange(qint64 now) const
{
    qint64 next = nextFullHour(now);
    for (const GuideProgramme &programme : schedule.programmes) {
        for (const qint64 time : {programme.start, programme.stop}) {
            if (time > now) {
                next = std::min(next, time);
            }
        }
    }
    return next;
}

QDate ScheduleModel::dayOf(qint64 seconds) const
{
    return QDateTime::fromSecsSinceEpoch(seconds, zone).date();
}

qint64 ScheduleModel::startOf(QDate day) const
{
    return day.startOfDay(zone).toSecsSinceEpoch();
}

/// Of the local clock, which a change of summer time may move by half an hour.
qint64 ScheduleModel::nextFullHour(qint64 seconds) const
{
    const QTime time = QDateTime::fromSecsSinceEpoch(seconds, zone).time();
    return seconds + secondsOfHour - time.msecsSinceStartOfDay() / 1000 % secondsOfHour;
}

qint64 ScheduleModel::oldestArchived(qint64 now) const
{
    return now - std::clamp<qint64>(archiveSeconds(schedule.entry.catchUp), 0,
                                    mostArchiveDays * secondsOfDay);
}

bool ScheduleModel::holds(const GuideProgramme &programme, qint64 now) const
{
    return archiveHolds(schedule.entry.catchUp, {programme.start, programme.stop, {}, now});
}

QList<ScheduleRow> ScheduleModel::hours(QDate day, qint64 now) const
{
    const qint64 end = startOf(day.addDays(1));
    QList<ScheduleRow> rows;
    for (qint64 start = startOf(day); start < end && start <= now;) {
        const qint64 stop = nextFullHour(start);
        GuideProgramme hour{start, stop, {}, {}};
        if (holds(hour, now)) {
            hour.title = spanText(hour, zone);
            rows.append({hour, phaseOf(hour, now), true, true});
        }
        start = stop;
    }
    return rows;
}

qsizetype runningRow(const QList<ScheduleRow> &rows)
{
    const auto running = std::find_if(rows.begin(), rows.end(), [](const ScheduleRow &row) {
        return row.phase == ScheduleRow::Phase::Running;
    });
    return running == rows.end() ? -1 : running - rows.begin();
}
