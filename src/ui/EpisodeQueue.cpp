#include "ui/EpisodeQueue.h"

#include "ui/EpisodeItem.h"

void EpisodeQueue::start(const LibraryEntry &show, const QList<Episode> &episodes,
                         const XtreamAccount &account, qint32 index)
{
    Q_ASSERT(index >= 0 && index < episodes.size());
    playingShow = show;
    episodePlaylist = episodes;
    playingAccount = account;
    currentEpisodeIndex = index;
}

void EpisodeQueue::clear()
{
    *this = {};
}

bool EpisodeQueue::hasNext() const
{
    return currentEpisodeIndex >= 0 && currentEpisodeIndex + 1 < episodePlaylist.size();
}

bool EpisodeQueue::next()
{
    if (!hasNext()) {
        return false;
    }
    ++currentEpisodeIndex;
    return true;
}

bool EpisodeQueue::previous()
{
    if (!hasPrevious()) {
        return false;
    }
    --currentEpisodeIndex;
    return true;
}

MediaItem EpisodeQueue::current() const
{
    return mediaItemFromEpisode(episodePlaylist.at(currentEpisodeIndex), playingShow.name);
}

Progress EpisodeQueue::currentProgress() const
{
    return progressOf(playingShow.source, playingShow.id, episodePlaylist.at(currentEpisodeIndex),
                      !hasNext());
}

std::optional<XtreamAccount> EpisodeQueue::account() const
{
    return currentEpisodeIndex < 0 ? std::nullopt : std::optional(playingAccount);
}
