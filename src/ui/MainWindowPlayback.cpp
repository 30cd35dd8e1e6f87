#include "ui/MainWindow.h"

#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "ui/ClickToSeekSlider.h"
#include "ui/EntryUrl.h"
#include "ui/FormatMs.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackSession.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSlider>

void MainWindow::followSession()
{
    connect(session, &PlaybackSession::entryChanged, this, [this] {
        resetPosition();
        updateNextEpisodeButton();
    });
    connect(session, &PlaybackSession::starting, this, [this] {
        // What the user drags to is a time of the stream before.
        endSeekHold();
        updatePlayerChrome();
        nowPlayingLabel->setText(tr("Playing: %1").arg(session->title()));
    });
    connect(session, &PlaybackSession::started, this,
            [this] { player->setVolume(volumeSlider->value()); });
    connect(session, &PlaybackSession::reconnectScheduled, this, [this](int attempt) {
        nowPlayingLabel->setText(tr("Reconnecting to %1... (attempt %2)")
                                     .arg(session->title(), QString::number(attempt)));
    });
    connect(session, &PlaybackSession::interrupted, this, &MainWindow::updatePlayerChrome);
    connect(session, &PlaybackSession::stopped, this, [this] {
        nowPlayingLabel->setText(tr("Nothing playing"));
        updatePlayerChrome();
    });
    connect(session, &PlaybackSession::failed, this, &MainWindow::onPlaybackError);
}

void MainWindow::resetPosition()
{
    seekSlider->setRange(0, 0);
    timeLabel->setText(tr("%1 / %2").arg(formatMs(0), formatMs(0)));
}

void MainWindow::playMediaItem(const MediaItem &item)
{
    const QString url =
        entryUrl(item, currentSource, catalogLoader->accountClient(), episodeQueue.account());
    if (url.isEmpty()) {
        return;
    }
    session->play(item.type, url, item.name);
    playerPanel->setFocus(Qt::OtherFocusReason);
}

void MainWindow::onPlaybackInterrupted(const QString &reason)
{
    session->interrupt(reason);
}

void MainWindow::onPlaybackError(const QString &message)
{
    if (errorDialogOpen) {
        return;
    }
    bool retry = false;
    {
        const QScopedValueRollback<bool> open(errorDialogOpen, true);
        PlainMessageBox box(QMessageBox::Warning, tr("Playback Error"), message, QMessageBox::Close,
                            this);
        const QPushButton *retryButton =
            session->canReplay() ? box.addButton(tr("Retry"), QMessageBox::ActionRole) : nullptr;
        box.exec();
        retry = retryButton != nullptr && box.clickedButton() == retryButton;
    }
    if (retry) {
        session->replay();
    }
}
