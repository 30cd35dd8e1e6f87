#pragma once

#include "library/LibraryRecords.h"
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
    void start(const LibraryEntry &show, const QList<Episode> &episodes,
               const XtreamAccount &account, qint32 index);
    void clear();

    bool hasNext() const;
    /// Moves on to the next episode. False, with no change, when there is none.
    bool next();
    bool hasPrevious() const { return currentEpisodeIndex > 0; }
    /// Moves back to the episode before, likewise.
    bool previous();

    /// The playable entry of the playing episode; only while a show plays.
    MediaItem current() const;
    /// How the library knows the playing episode; only while a show plays.
    Progress currentProgress() const;
    /// How the library knows the show; empty while no show plays.
    const LibraryEntry &show() const { return playingShow; }
    const QList<Episode> &episodes() const { return episodePlaylist; }
    /// The show's source has another name now.
    void renameSource(const QString &name) { playingShow.source = name; }
    /// The account of the show; none while no show plays.
    std::optional<XtreamAccount> account() const;

private:
    LibraryEntry playingShow;
    QList<Episode> episodePlaylist;
    XtreamAccount playingAccount;
    /// -1 while no show plays.
    qint32 currentEpisodeIndex = -1;
};
