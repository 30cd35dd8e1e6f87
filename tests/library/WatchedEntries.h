#pragma once

#include "library/LibraryFixture.h"

#include <QString>
#include <QStringList>

/// @file
/// Films and episodes of one source that were watched, for the tests of the library.

using namespace Qt::StringLiterals; // for tests only

inline const QString source = u"S"_s;
inline constexpr qint64 second = 1000;
inline constexpr qint64 minute = 60 * second;

inline Progress film(const QString &id, qint64 positionMs, qint64 durationMs = 100 * minute)
{
    Progress at = progressOf(makeEntry(id));
    at.positionMs = positionMs;
    at.durationMs = durationMs;
    return at;
}

/// Episode `number` of show "s", which has three.
inline Progress episode(int number, qint64 positionMs = 0, const QString &show = u"s"_s)
{
    const QString id = show + u'e' + QString::number(number);
    Progress at = progressOf(source, show, {id, show, 1, number, u"T"_s, u"mp4"_s}, number == 3);
    at.positionMs = positionMs;
    at.durationMs = 100 * minute;
    return at;
}
inline const QStringList threeEpisodes{u"se1"_s, u"se2"_s, u"se3"_s};

inline LibraryEntry show(const QString &id = u"s"_s)
{
    return makeEntry(id, EntryKind::Show);
}
