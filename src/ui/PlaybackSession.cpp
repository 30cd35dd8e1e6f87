#include "ui/PlaybackSession.h"

#include "app/NetLog.h"
#include "player/VlcPlayer.h"
#include "ui/ReconnectDelay.h"

#include <QTimer>

using namespace Qt::StringLiterals;

PlaybackSession::PlaybackSession(VlcPlayer *vlcPlayer, QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , reconnectTimer(new QTimer(this))
    , seekTimer(new QTimer(this))
    , openTimer(new QTimer(this))
{
    reconnectTimer->setObjectName(u"reconnectTimer"_s);
    reconnectTimer->setSingleShot(true);
    connect(reconnectTimer, &QTimer::timeout, this, &PlaybackSession::replay);
    connect(player, &VlcPlayer::playbackError, this, [this](const QString &message) {
        if (!tryNextAddress()) {
            Q_EMIT failed(message);
        }
    });
    connect(player, &VlcPlayer::playbackInterrupted, this, &PlaybackSession::interrupt);
    connect(player, &VlcPlayer::playbackProgressing, this, &PlaybackSession::cancelLiveReconnect);
    connectArchive();
}

bool PlaybackSession::hasMedia() const
{
    return currentState != State::Idle && currentState != State::Interrupted;
}

void PlaybackSession::play(qint32 kind, const QString &url, const QString &title,
                           const StreamHeaders &headers)
{
    archive.reset();
    currentUrl = url;
    currentHeaders = headers;
    begin(kind, title);
}

void PlaybackSession::begin(qint32 kind, const QString &title)
{
    cancelLiveReconnect();
    currentKind = kind;
    currentTitle = title;
    addressIndex = 0;
    streamFromMs = 0;
    soughtMs.reset();
    Q_EMIT entryChanged();
    start();
}

void PlaybackSession::replay()
{
    if (canReplay()) {
        reconnectTimer->stop();
        start();
    }
}

void PlaybackSession::start()
{
    // Only progress, another entry or a cancel ends the attempts.
    currentState = reconnectAttempts > 0 ? State::Reconnecting : State::Playing;
    seekTimer->stop();
    hasAdvanced = false;
    if (archive) {
        streamFromMs = soughtMs.value_or(streamFromMs);
        soughtMs.reset();
        currentUrl = archive->addresses(streamFromMs).value(addressIndex);
        openTimer->start();
    } else {
        openTimer->stop();
    }
    Q_EMIT starting();
    const StreamAddress stream = splitStreamAddress(currentUrl);
    player->play(stream.url, currentKind == StreamKind::Live,
                 stream.headers.orElse(currentHeaders));
    Q_EMIT started();
}

void PlaybackSession::stop()
{
    cancelLiveReconnect();
    seekTimer->stop();
    openTimer->stop();
    soughtMs.reset();
    streamFromMs = 0;
    addressIndex = 0;
    player->stop();
    currentState = State::Idle;
    Q_EMIT stopped();
}

void PlaybackSession::forget()
{
    archive.reset();
    currentUrl.clear();
    stop();
}

void PlaybackSession::cancelLiveReconnect()
{
    reconnectTimer->stop();
    reconnectAttempts = 0;
    if (hasMedia()) {
        currentState = State::Playing;
    }
}

void PlaybackSession::interrupt(const QString &reason)
{
    if (currentKind == StreamKind::Live && currentState != State::Idle) {
        ++reconnectAttempts;
        if (netDebugEnabled()) {
            NetLogStream() << "[VLC] live reconnect attempt" << reconnectAttempts << "-" << reason;
        }
        currentState = State::WaitingToReconnect;
        reconnectTimer->start(reconnectDelayMs(reconnectAttempts));
        Q_EMIT reconnectScheduled(reconnectAttempts);
        return;
    }
    if (tryNextAddress()) {
        return;
    }
    keepArchivePlace();
    if (currentState != State::Idle) {
        currentState = State::Interrupted;
    }
    Q_EMIT interrupted();
    Q_EMIT failed(tr("Playback stopped: %1").arg(VlcPlayer::shownReason(reason)));
}
