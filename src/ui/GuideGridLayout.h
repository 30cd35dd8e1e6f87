#pragma once

#include "guide/GuideRecords.h"

#include <QDate>
#include <QList>
#include <QRect>
#include <QSize>
#include <QTimeZone>
#include <QtGlobal>

/// @file
/// The arithmetic of the guide's grid, without a widget. Times are seconds since the epoch.

/// Where the channels and times of a guide's grid show: names at the left and half hours at the
/// top, both fixed, and the cells beside and below them, which scroll.
///
/// Places are pixels of the viewport for writing from left to right; mirrored() gives those for the
/// other direction.
struct GuideGridLayout
{
    // What the grid looks like, in pixels.
    int namesWidth = 0;
    int headerHeight = 0;
    int rowHeight = 1;
    int hourWidth = 1;
    QSize viewport;

    // What it shows.
    int rows = 0;
    qint64 begin = 0; ///< of what can be scrolled to
    qint64 end = 0;

    // How far it is scrolled, in pixels from `begin` and from row 0.
    int scrolledX = 0;
    int scrolledY = 0;

    /// How far it can be scrolled.
    int mostX() const;
    int mostY() const;

    int xOf(qint64 time) const;
    /// The time at a place, also of one beside the cells.
    qint64 timeAt(int x) const;
    /// The times that show: from the first to before the last.
    qint64 firstTime() const { return timeAt(namesWidth); }
    qint64 lastTime() const { return timeAt(viewport.width()); }

    int yOf(int row) const { return headerHeight + row * rowHeight - scrolledY; }
    /// The row at a height; -1 for the header and below the last row.
    int rowAt(int y) const;
    /// The rows of which a part shows. The last one is less than the first when there is none.
    int firstRow() const { return scrolledY / rowHeight; }
    int lastRow() const;
    /// How many rows show in full, at least 1.
    int rowsOfPage() const;

    QRect cells() const;
    QRect nameOf(int row) const;
    /// The whole cell of what runs between these times, whatever of it shows.
    QRect cellOf(int row, qint64 start, qint64 stop) const;
    QRect mirrored(const QRect &area) const;

    /// How far it is to be scrolled so that the row shows in full; as now when it does.
    int scrolledToRow(int row) const;
    /// How far it is to be scrolled so that the time is the first one.
    int scrolledToTime(qint64 time) const;
    /// How far it is to be scrolled so that what runs between these times shows, its beginning when
    /// not all fits; as now when it does.
    int scrolledToSpan(qint64 start, qint64 stop) const;
};

/// The half hours of the clock in that zone, from the first time to before the last.
QList<qint64> halfHours(qint64 from, qint64 to, const QTimeZone &zone);

/// The latest half hour of the clock that is not after the time.
qint64 halfHourBefore(qint64 time, const QTimeZone &zone);

/// The same time of the clock so many days later, or before.
qint64 daysLater(qint64 time, int days, const QTimeZone &zone);

QDate dayOf(qint64 time, const QTimeZone &zone);
qint64 startOfDay(const QDate &day, const QTimeZone &zone);

/// The index of the programme that runs at a time; -1 in a gap. The programmes are in the order of
/// their starts.
qsizetype programmeAt(const QList<GuideProgramme> &programmes, qint64 time);

/// Where the user gets to from a time by one step to the right or left: the next programme's start
/// or the one before, otherwise the next or previous half hour of the clock.
qint64 timeOfNext(const QList<GuideProgramme> &programmes, qint64 time, const QTimeZone &zone);
qint64 timeOfPrevious(const QList<GuideProgramme> &programmes, qint64 time, const QTimeZone &zone);
