#include "ui/MainWindow.h"

#include "app/NetLog.h"
#include "player/VlcPlayer.h"
#include "providers/XtreamClient.h"
#include "ui/ClickToSeekSlider.h"
#include "ui/FormatMs.h"
#include "ui/PlainMessageBox.h"
#include "ui/ReconnectDelay.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSlider>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QString orDefault(const QString &extension, const QString &fallback)
{
    return extension.isEmpty() ? fallback : extension;
}

} // namespace

QString MainWindow::streamUrlFor(const MediaItem &item) const
{
    const QString movieFormat = u"mp4"_s;
    const bool account = SourceType::isAccount(currentSource.type);
    if (item.type == StreamKind::Live && !account) {
        return item.streamUrl;
    }
    if (xtream == nullptr) {
        return {};
    }
    switch (item.type) {
    case StreamKind::Live:
        return xtream->liveStreamUrl(
            item.id, orDefault(currentSource.liveExtension, defaultLiveExtension()));
    case StreamKind::Movie:
        return xtream->movieStreamUrl(item.id, orDefault(item.containerExtension, movieFormat));
    case StreamKind::Episode:
        // An episode of a series that goes on comes from the account that its show was opened with.
        return XtreamClient::episodeStreamUrl(
            currentEpisodeIndex < 0 ? xtream->account() : playingAccount, item.id,
            orDefault(item.containerExtension, movieFormat));
    default:
        return {};
    }
}

void MainWindow::playMediaItem(const MediaItem &item)
{
    const QString url = streamUrlFor(item);
    if (url.isEmpty()) {
        return;
    }
    cancelLiveReconnect();
    currentKind = item.type;
    currentUrl = url;
    currentTitle = item.name;
    seekSlider->setRange(0, 0);
    timeLabel->setText(formatMs(0) + " / "_L1 + formatMs(0));
    updateNextEpisodeButton();
    startCurrentStream();
    playerPanel->setFocus(Qt::OtherFocusReason);
}

void MainWindow::replayCurrentStream()
{
    if (currentUrl.isEmpty()) {
        return;
    }
    reconnectTimer->stop();
    startCurrentStream();
}

void MainWindow::startCurrentStream()
{
    hasMedia = true;
    // What the user drags to is a time of the stream before.
    endSeekHold();
    updatePlayerChrome();
    nowPlayingLabel->setText(tr("Playing: ") + currentTitle);
    player->play(currentUrl, currentKind == StreamKind::Live);
    player->setVolume(volumeSlider->value());
}

void MainWindow::cancelLiveReconnect()
{
    reconnectTimer->stop();
    reconnectAttempts = 0;
}

void MainWindow::onPlaybackInterrupted(const QString &reason)
{
    if (currentKind == StreamKind::Live && !currentUrl.isEmpty()) {
        ++reconnectAttempts;
        if (netDebugEnabled()) {
            NetLogStream() << "[VLC] live reconnect attempt" << reconnectAttempts << "-" << reason;
        }
        reconnectTimer->start(reconnectDelayMs(reconnectAttempts));
        nowPlayingLabel->setText(tr("Reconnecting to %1... (attempt %2)")
                                     .arg(currentTitle, QString::number(reconnectAttempts)));
        return;
    }
    reconnectAttempts = 0;
    hasMedia = false;
    updatePlayerChrome();
    onPlaybackError(tr("Playback stopped: ") + reason);
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
            currentUrl.isEmpty() ? nullptr : box.addButton(tr("Retry"), QMessageBox::ActionRole);
        box.exec();
        retry = retryButton != nullptr && box.clickedButton() == retryButton;
    }
    if (retry) {
        replayCurrentStream();
    }
}
