#pragma once

#include "guide/GuideRecords.h"

#include <QDate>
#include <QList>
#include <QTimeZone>

/// A row of a channel's schedule: a programme, or an hour of the archive where the guide has none.
struct ScheduleRow
{
    enum class Phase
    {
        Over,
        Running,
        Upcoming
    };

    GuideProgramme programme; ///< of an hour, its title is its times
    Phase phase = Phase::Upcoming;
    bool inArchive = false; ///< the archive holds it from its beginning
    bool isHour = false;

    bool operator==(const ScheduleRow &) const = default;
};

/// The days and rows of a channel's schedule. Days are those of `zone`; all times are seconds since
/// the epoch. Any thread.
class ScheduleModel final
{
public:
    /// An archive is shown no further back, whatever its source says.
    static constexpr int mostArchiveDays = 60;

    ScheduleModel(GuideSchedule guideSchedule, const QTimeZone &localZone);

    const GuideEntry &entry() const { return schedule.entry; }
    /// Neither programmes nor an archive.
    bool isEmpty() const;
    /// From the oldest day of the archive, or from `oldest` where that is earlier, to the last one
    /// of the guide; today is always among them. `oldest` may be null.
    QList<QDate> days(qint64 now, QDate oldest) const;
    /// What runs on that day, also what began the day before; without programmes, the hours that
    /// the archive holds.
    QList<ScheduleRow> rows(QDate day, qint64 now) const;
    /// When rows() or days() next tell something else; at most an hour after `now`.
    qint64 nextChange(qint64 now) const;

    QDate dayOf(qint64 seconds) const;
    const QTimeZone &timeZone() const { return zone; }

private:
    qint64 startOf(QDate day) const;
    qint64 nextFullHour(qint64 seconds) const;
    qint64 oldestArchived(qint64 now) const;
    bool holds(const GuideProgramme &programme, qint64 now) const;
    QList<ScheduleRow> hours(QDate day, qint64 now) const;

    GuideSchedule schedule;
    QTimeZone zone;
};

/// The place of the row that runs, -1 if there is none.
qsizetype runningRow(const QList<ScheduleRow> &rows);
