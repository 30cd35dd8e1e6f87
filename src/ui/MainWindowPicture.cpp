#include "ui/BrowseTab.h"
#include "ui/FullscreenChrome.h"
#include "ui/LanguageKeeper.h"
#include "ui/MainWindow.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerCommands.h"
#include "ui/PlayerMenu.h"
#include "ui/PlayerPanel.h"
#include "ui/SmallWindow.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

// The list that plays, and what keys do with the picture.

void MainWindow::createPlayingList()
{
    playingList = new PlayingList(this);
    new LanguageKeeper(
        player, session, library, [this] { return playingEntry.source; }, this);
    auto *commands = new PlayerCommands(playerPanel, player, session);
    addPlayerMenu(playerPanel, commands, player);
    // Of several keys and clicks only the commands' are told of: who clicks sees the name.
    const auto tellWhatPlays = [this, commands] {
        const auto &place = playingList->playing();
        commands->tell(place && place->item().type == StreamKind::Live
                           ? u"%1  %2"_s.arg(QString::number(place->row + 1), session->title())
                           : session->title());
    };
    connect(commands, &PlayerCommands::nextEntryRequested, this, [this, tellWhatPlays] {
        if (hasNextEntry()) {
            playNextEntry();
            tellWhatPlays();
        }
    });
    connect(commands, &PlayerCommands::previousEntryRequested, this, [this, tellWhatPlays] {
        if (hasPreviousEntry()) {
            playPreviousEntry();
            tellWhatPlays();
        }
    });
    connect(commands, &PlayerCommands::lastChannelRequested, this, [this, tellWhatPlays] {
        if (playingList->lastChannel()) {
            playLastChannel();
            tellWhatPlays();
        }
    });
    connect(commands, &PlayerCommands::channelRequested, this,
            [this, commands, tellWhatPlays](int number) {
                if (playingList->channel(number)) {
                    playChannelNumber(number);
                    tellWhatPlays();
                } else {
                    commands->tell(tr("No channel %1").arg(number));
                }
            });

    auto *smallWindow = new SmallWindow(playerPanel, this);
    connect(smallWindow, &SmallWindow::changed, this, [this, commands](bool active) {
        commands->showSmallWindow(active);
        setBrowsingVisible(!active);
    });
    connect(fullscreenChrome, &FullscreenChrome::fullscreenChanged, smallWindow,
            &SmallWindow::leave);
    connect(commands, &PlayerCommands::smallWindowToggled, smallWindow,
            [this, commands, smallWindow] {
                if (fullscreenChrome->isFullscreen()) {
                    commands->showSmallWindow(false);
                    commands->tell(tr("Leave fullscreen first"));
                    return;
                }
                smallWindow->toggle();
                if (smallWindow->isActive()) {
                    commands->tell(tr("Shift+P or Escape leaves the small window"));
                }
            });

    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WindowShortcut);
    escape->setAutoRepeat(false);
    connect(escape, &QShortcut::activated, fullscreenChrome, &FullscreenChrome::leave);
    connect(escape, &QShortcut::activated, smallWindow, &SmallWindow::leave);
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
