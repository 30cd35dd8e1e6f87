#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

/// Why a guide was not taken from one of its addresses. The guide of the last update stays.
enum class GuideProblem
{
    None,
    NotReachable,     ///< `detail` is the network layer's reason
    FileNotOpened,    ///< `detail` is the system's reason
    NotAGuide,        ///< a page, an error message, nothing at all
    UnknownPacking,   ///< packed, but not with gzip
    Damaged,          ///< its packing is broken
    CutShort,         ///< it ends early
    TooLarge,         ///< beyond the limits of bytes or programmes
    NothingMatches,   ///< none of its programmes is of a channel of this source
    NotStored,        ///< the disk is full or cannot be written; `detail` is the reason
    ChannelsNotLoaded ///< what the source tells of its channels; `detail` is the reason
};

/// What came of one address.
struct GuideAddressResult
{
    QString address; ///< to be shown: without credentials
    GuideProblem problem = GuideProblem::None;
    QString detail;
    qint64 programmes = 0;         ///< of this source's channels
    bool tookUnknownZones = false; ///< times named a zone that is not known, and were taken as UTC

    bool operator==(const GuideAddressResult &) const = default;
};

/// What came of an update, or of the last one.
struct GuideResult
{
    qint64 finishedAt = 0; ///< seconds since the epoch; 0 when there was none
    qint64 programmes = 0; ///< that are stored
    qint64 channels = 0;   ///< of the source
    qint64 matched = 0;    ///< of these, that have a channel in the guide; suggestions included
    qint64 suggested = 0;  ///< of these, by looser rules
    qint64 newest = 0;     ///< when the last programme starts, in seconds since the epoch
    QList<GuideAddressResult> addresses; ///< in the order of preference
    bool cancelled = false;

    bool operator==(const GuideResult &) const = default;
};

/// As one text, to be kept.
QString guideResultToJson(const GuideResult &result);
/// Of such a text; of any other, that of no update.
GuideResult guideResultOfJson(const QString &json);
