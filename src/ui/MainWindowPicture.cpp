#include "ui/BrowseTab.h"
#include "ui/MainWindow.h"
#include "ui/PlaybackSession.h"

// The list that plays, and what keys do with the picture.

void MainWindow::createPlayingList()
{
    playingList = new PlayingList(this);
}

std::optional<PlayingPlace> MainWindow::placeOf(CatalogSection section, const MediaItem &item) const
{
    PlayingPlace place{currentOrigin(), section, {}, -1};
    place.entries = browseTab(section).entriesAround(item, place.row);
    return place.row >= 0 ? std::optional(place) : std::nullopt;
}

void MainWindow::playPlace(const std::optional<PlayingPlace> &place)
{
    if (!place) {
        return;
    }
    // A copy: the list can change while a dialog that playing opens runs the event loop.
    const MediaItem item = place->item();
    const QString &source = place->origin.source.name;
    const LibraryEntry entry =
        source.isEmpty() ? LibraryEntry() : libraryEntry(source, entryKind(place->section), item);
    if (entryUrl(item, place->origin).isEmpty()) {
        return;
    }
    episodeQueue.clear();
    playingList->setPlaying(*place);
    startPlaying(item, entry, place->origin);
}

bool MainWindow::hasNextEntry() const
{
    return episodeQueue.hasNext() || playingList->next().has_value();
}

bool MainWindow::hasPreviousEntry() const
{
    return episodeQueue.hasPrevious() || playingList->previous().has_value();
}

void MainWindow::playNextEntry()
{
    if (episodeQueue.account()) {
        playNextEpisode();
    } else {
        playPlace(playingList->next());
    }
}

void MainWindow::playPreviousEntry()
{
    if (!episodeQueue.account()) {
        playPlace(playingList->previous());
    } else if (episodeQueue.previous()) {
        startPlaying(episodeQueue.current(), episodeQueue.show(), playingOrigin);
    }
}

void MainWindow::playLastChannel()
{
    playPlace(playingList->lastChannel());
}

void MainWindow::playChannelNumber(int number)
{
    playPlace(playingList->channel(number));
}
