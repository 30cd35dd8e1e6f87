#pragma once

#include "guide/GuideRecords.h"

#include <QDate>
#include <QString>
#include <QTimeZone>
#include <QtGlobal>

/// @file
/// How the times of a guide read, in the user's format and in a zone's local time. Times are
/// seconds since the epoch.

/// "20:15"
QString clockText(qint64 time, const QTimeZone &zone);

/// "20:15 - 21:45"
QString spanText(const GuideProgramme &programme, const QTimeZone &zone);

/// "Yesterday", "Today", "Tomorrow", otherwise "Wed 25/11/2026"
QString dayText(const QDate &day, const QDate &today);

/// "Today 20:15", "Tomorrow 20:15", "Wednesday 20:15" up to six days ahead, otherwise the date and
/// the time.
QString whenText(qint64 time, qint64 now, const QTimeZone &zone);
