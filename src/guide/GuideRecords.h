#pragma once

#include "guide/GuideAttributes.h"
#include "guide/GuideMatcher.h"

#include <QList>
#include <QString>
#include <QtGlobal>

#include <optional>

/// A programme, at the times at which it is broadcast.
struct GuideProgramme
{
    qint64 start = 0; ///< seconds since the epoch
    qint64 stop = 0;  ///< after `start`, and not after the start of the next one
    QString title;
    QString description; ///< empty where a query leaves it out

    bool operator==(const GuideProgramme &) const = default;
};

/// What a guide and the source tell of one entry of the catalog.
struct GuideEntry
{
    GuideMatch match;     ///< its channel in the guide; a suggestion until the user confirms it
    CatchUpRules catchUp; ///< its archive, with the source's defaults

    bool operator==(const GuideEntry &) const = default;
};

/// What runs on an entry's channel, and what follows.
struct OnNow
{
    GuideEntry entry;
    std::optional<GuideProgramme> now; ///< none in a gap of the guide
    std::optional<GuideProgramme> next;

    bool operator==(const OnNow &) const = default;
};

/// An entry's programmes, in the order of their starts.
struct GuideSchedule
{
    GuideEntry entry;
    QList<GuideProgramme> programmes;

    bool operator==(const GuideSchedule &) const = default;
};

/// A programme that a search has found. Where entries share a channel of the guide, each has one.
struct GuideHit
{
    QString entryId;
    QString entryName;
    GuideProgramme programme;

    bool operator==(const GuideHit &) const = default;
};

/// A channel of the guide, to choose from.
struct GuideChannel
{
    QString id;
    QString name; ///< the first of its names; its id when it has none

    bool operator==(const GuideChannel &) const = default;
};
