#pragma once

#include "model/CatalogRecords.h"
#include "providers/XtreamAccount.h"

#include <QList>
#include <QString>

#include <optional>

/// The show that plays: its episodes in the provider's order, and which of them plays. It keeps the
/// account that the show was opened with, so that the show goes on after a change of source.
class EpisodeQueue final
{
public:
    /// Replaces the show; `index` is the playing episode, a valid index of `episodes`.
    void start(const QString &seriesName, const QList<Episode> &episodes,
               const XtreamAccount &account, qint32 index);
    void clear();

    bool hasNext() const;
    /// Moves on to the next episode. False, with no change, when there is none.
    bool next();

    /// The playable entry of the playing episode; only while a show plays.
    MediaItem current() const;
    /// The account of the show; none while no show plays.
    std::optional<XtreamAccount> account() const;

private:
    QString playingSeriesName;
    QList<Episode> episodePlaylist;
    XtreamAccount playingAccount;
    /// -1 while no show plays.
    qint32 currentEpisodeIndex = -1;
};
