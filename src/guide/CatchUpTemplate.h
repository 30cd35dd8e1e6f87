#pragma once

#include "guide/CatchUp.h"

#include <QString>
#include <QTimeZone>

/// Fills the placeholders of an address. Each may begin with "{" or "${":
///
///     {utc} {start}               the programme's start, in seconds since the epoch
///     {utcend} {end}              its end
///     {lutc} {now} {timestamp}    now
///     {utc:YmdHMS}                any of these as a date; the letters as below, in UTC for the
///                                 names with "utc", otherwise in `zone`
///     {Y} {m} {d} {H} {M} {S}     the start's year, month, day, hour, minute, second in `zone`
///     {(b)yyyyMMddHHmmss} {(e)..} start and end as dates in `zone`, or in UTC with "|UTC" behind
///     {duration} {duration:60}    the length in seconds, or in units of so many, rounded up
///     {offset} {offset:60}        how long ago the start was, likewise
///     {catchup-id}                the programme's own id
///
/// What is none of these stays as it is.
QString filledCatchUpTemplate(const QString &text, const ArchivedProgramme &programme,
                              const QTimeZone &zone);
