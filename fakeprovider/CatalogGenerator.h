#pragma once

#include "model/CatalogRecords.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// Makes catalogs as large and irregular as those of real providers. The same seed gives
/// the same catalog.
///
/// Names have 10 to 60 characters, a tenth of them not only ASCII. JSON items have 12 to 15 keys.
class CatalogGenerator
{
public:
    explicit CatalogGenerator(quint32 seed = 1);

    /// Where the posters and logos of the generated entries point to; empty leaves them out.
    void setIconBase(const QString &base);

    QString name();

    /// @name Replies of "player_api.php", compact JSON
    /// @{
    QByteArray categoriesReply(int count);
    QByteArray liveReply(int count, int categories);
    QByteArray vodReply(int count, int categories);
    QByteArray seriesReply(int count, int categories);
    QByteArray seriesInfoReply(const QString &showName, int seasons, int episodesPerSeason);
    /// @}

    /// The text of an extended M3U playlist; every URL begins with `urlBase`.
    QByteArray playlist(int count, int groups, const QString &urlBase);

    /// A guide of the playlist's first channels as XMLTV, with so many programmes of each from that
    /// time on, in seconds since the epoch. A programme has about 300 bytes.
    QByteArray guide(int channels, int programmesOfEach, qint64 from);

    /// Records as a movie tab holds them.
    QList<MediaItem> movies(int count, int categories);

private:
    quint32 below(quint32 limit);
    QByteArray itemHead(int number);
    QByteArray icon(int number);

    quint64 state;
    QByteArray iconBase;
};
