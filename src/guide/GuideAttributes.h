#pragma once

#include <QByteArrayView>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

/// @file
/// What a source tells of a channel's guide and archive, beside the channel itself. Catalogs do not
/// keep it: only a source with a guide needs it.

/// How the address of a past programme is made; see CatchUp.h.
enum class CatchUpForm : quint8
{
    None,         ///< the channel has no archive
    Default,      ///< the template is the whole address
    Append,       ///< the template is appended to the channel's address
    Shift,        ///< "utc" and "lutc" are added to the channel's address
    Flussonic,    ///< the last part of the channel's address tells the kind of stream
    FlussonicHls, ///< as Flussonic, and other last parts are HLS
    FlussonicTs,  ///< as Flussonic, and other last parts are MPEG-TS
    Xtream,       ///< a playlist's address that holds an account
    Account,      ///< the source is an account itself
    Vod           ///< the template, or the programme's own id, is the address
};

/// A channel's archive.
struct CatchUpRules
{
    std::optional<CatchUpForm> form;  ///< none when the source does not tell
    QString source;                   ///< the template of the addresses
    std::optional<double> days;       ///< how far back the archive reaches
    std::optional<qint64> correction; ///< seconds to add to the times in its addresses

    bool operator==(const CatchUpRules &) const = default;
};

/// What a source tells of one channel, or of all.
struct GuideAttributes
{
    QString guideId;             ///< the channel's id in the guide
    QString guideName;           ///< the channel's name in the guide
    std::optional<qint64> shift; ///< seconds to add to the guide's times; 0 is a value
    CatchUpRules catchUp;

    bool operator==(const GuideAttributes &) const = default;
};

/// What a playlist's first line tells.
struct PlaylistGuide
{
    QStringList addresses; ///< of guides, by HTTP or HTTPS, in the playlist's order
    GuideAttributes defaults;

    bool operator==(const PlaylistGuide &) const = default;
};

/// Reads an "#EXTINF" line in UTF-8. Keys may be in any case, values in double quotes, single ones
/// or none; of two attributes of one name the first counts. What follows the last comma outside a
/// value is the channel's name and not read.
GuideAttributes guideAttributesOfLine(QByteArrayView line);

/// Reads an "#EXTM3U" line.
PlaylistGuide playlistGuideOfLine(QByteArrayView line);

/// Reads a live channel of an account's catalog.
GuideAttributes guideAttributesOfChannel(const QJsonObject &channel);

/// A channel's attributes, with those of the playlist where the channel has none.
GuideAttributes withDefaults(GuideAttributes channel, const GuideAttributes &defaults);
