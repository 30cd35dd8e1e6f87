#include "ui/MainWindow.h"

#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "providers/XtreamClient.h"
#include "ui/EntryUrl.h"
#include "ui/FullscreenChrome.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/ResumeKeeper.h"
#include "ui/SourceBar.h"

#include <QBoxLayout>
#include <QEvent>
#include <QTabWidget>
#include <QTimer>

void MainWindow::createPlayer()
{
    player = new VlcPlayer(playerPanel->surface(), this);
    session = new PlaybackSession(player, this);
    playerPanel->setPlayback(player, session);
    createResumeKeeper();
    createPlayingList();
    connect(session, &PlaybackSession::entryChanged, this, &MainWindow::updateNextEpisodeButton);
    connect(session, &PlaybackSession::failed, this, &MainWindow::onPlaybackError);
    connect(playerPanel, &PlayerPanel::nextEpisodeRequested, this, &MainWindow::playNextEpisode);
    connect(fullscreenChrome, &FullscreenChrome::fullscreenChanged, this,
            [this](bool fullscreen) { setBrowsingVisible(!fullscreen); });
}

void MainWindow::playMediaItem(const MediaItem &item)
{
    if (startPlaying(item, {}, currentOrigin())) {
        playingList->clear();
    }
}

EntryOrigin MainWindow::currentOrigin() const
{
    const XtreamClient *client = catalogLoader->accountClient();
    return {currentSource, client != nullptr ? std::optional(client->account()) : std::nullopt};
}

bool MainWindow::startPlaying(const MediaItem &item, const LibraryEntry &entry,
                              const EntryOrigin &origin)
{
    const QString url = entryUrl(item, origin);
    if (url.isEmpty()) {
        return false;
    }
    playingOrigin = origin;
    playingEntry = entry;
    playingChannel = item;
    channelToWatch.reset();
    resumeKeeper->follow(keptProgress(item, entry));
    session->play(item.type, url, item.name, entryHeaders(item, origin));
    playerPanel->setFocus(Qt::OtherFocusReason);
    return true;
}

void MainWindow::setBrowsingVisible(bool visible)
{
    if (!visible) {
        rememberWindow();
    }
    sourceBar->setVisible(visible);
    tabs->setVisible(visible);
    const int margin = visible ? centralMargin : 0;
    centralLayout->setContentsMargins(margin, margin, margin, margin);
}

void MainWindow::onPlaybackError(const QString &message)
{
    if (errorBox.asksToRetry(this, message, session->canReplay())) {
        session->replay();
    }
}

void MainWindow::onPlaybackInterrupted(const QString &reason)
{
    session->interrupt(reason);
}

void MainWindow::togglePlayPause()
{
    playerPanel->togglePlayPause();
}

void MainWindow::toggleFullscreen()
{
    fullscreenChrome->toggle();
}

void MainWindow::onVolumeChanged(int value)
{
    playerPanel->setVolume(value);
}

void MainWindow::onPositionChanged(qint64 currentMs, qint64 totalMs)
{
    playerPanel->showPosition(currentMs, totalMs);
}

void MainWindow::onSeekSliderPressed()
{
    playerPanel->beginSeek();
}

void MainWindow::onSeekSliderReleased()
{
    playerPanel->finishSeek();
}

void MainWindow::showStreamInfo()
{
    playerPanel->showStreamInfo();
}

void MainWindow::loadSubtitleFile()
{
    playerPanel->loadSubtitleFile();
}

void MainWindow::showSubtitleMenu()
{
    playerPanel->showSubtitleMenu();
}

void MainWindow::showAudioMenu()
{
    playerPanel->showAudioMenu();
}

bool MainWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowBlocked:
        // A dialog opens, and the release of the mouse will go to it.
        playerPanel->endSeekHold();
        break;
    case QEvent::WindowUnblocked:
        QMetaObject::invokeMethod(this, &MainWindow::showWaitingDialogs, Qt::QueuedConnection);
        break;
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        // What is known first is how the desktop has placed the window.
        if (isVisible() && (windowMemory.hasState() || !rememberTimer->isActive())) {
            rememberTimer->start();
        }
        break;
    default:
        break;
    }
    return QMainWindow::event(event);
}
