#pragma once

#include "model/CatalogText.h"

#include <QList>
#include <QString>
#include <QtGlobal>

/// The kinds of stream, as stored in the catalog cache.
namespace StreamKind {
inline constexpr qint32 Live = 0;
inline constexpr qint32 Movie = 1;
inline constexpr qint32 Series = 2;
/// An episode converted to a playable entry; never stored.
inline constexpr qint32 Episode = 3;
/// A programme from a channel's archive; never stored.
inline constexpr qint32 Archive = 4;

/// True for the kinds that have a duration and can be seeked.
constexpr bool isSeekable(qint32 kind)
{
    return kind == Movie || kind == Episode || kind == Archive;
}
} // namespace StreamKind

/// One category of one stream kind.
struct Category
{
    QString id;
    QString name;

    bool operator==(const Category &) const = default;
};

/// One entry of the catalog: a live channel, a movie, a show, or a playable episode. There may be
/// hundreds of thousands, so each is kept small.
struct MediaItem
{
    qint32 type = StreamKind::Live;
    /// The provider's stream or series id; for playlists the URL.
    CatalogText id;
    CatalogText name;
    CatalogText categoryId;
    CatalogText iconUrl;
    CatalogText containerExtension;
    /// Complete URL where the source gives one; empty for account entries.
    CatalogText streamUrl;
    /// The provider's rating; 0 when absent.
    double rating = 0.0;
    /// Seconds since the epoch when the provider added or changed the entry; 0 when absent.
    qint64 addedAt = 0;
    /// The headers that a playlist names for the stream beside its URL, as textOfHeaders() writes
    /// them; usually empty.
    CatalogText headers{};

    bool operator==(const MediaItem &) const = default;
};

Q_DECLARE_TYPEINFO(MediaItem, Q_RELOCATABLE_TYPE);

/// One episode of one show.
struct Episode
{
    QString id;
    QString seriesName;
    qint32 season = 0;
    qint32 episodeNumber = 0;
    QString title;
    QString containerExtension;

    bool operator==(const Episode &) const = default;
};
