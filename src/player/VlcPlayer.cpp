#include "player/VlcPlayer.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "player/MediaPlayer.h"
#include "player/StreamUrl.h"
#include "player/VideoOutput.h"
#include "player/VlcHandles.h"

#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int progressIntervalMs = 500;
constexpr int pendingIntervalMs = 50;
constexpr int stallSeconds = 15;
static_assert(StallDetector::stallSamples * progressIntervalMs == stallSeconds * 1000);
constexpr const char *stalledReason =
    QT_TRANSLATE_NOOP("VlcPlayer", "The stream stopped advancing for %1 seconds.");
/// A stream that ends this close to its length has ended normally.
constexpr qint64 normalEndMs = 2000;
/// Relative seeks keep this distance from the end.
constexpr qint64 seekMarginMs = 1000;

/// Without the flag of trust, libVLC itself refuses the options that could write files.
void addOption(libvlc_media_t *media, const QByteArray &name, const QString &value)
{
    if (isHeaderValue(value)) {
        const QByteArray option = ':' + name + '=' + value.toLatin1();
        libvlc_media_add_option_flag(media, option.constData(), libvlc_media_option_unique);
    }
}

void addHeaders(libvlc_media_t *media, const StreamHeaders &headers)
{
    addOption(media, "http-user-agent"_ba, headers.userAgent);
    addOption(media, "http-referrer"_ba, headers.referrer);
}

} // namespace

VlcPlayer::VlcPlayer(QWidget *videoWidget, QObject *parent)
    : QObject(parent)
    , progressTimer(new QTimer(this))
    , mediaPlayer(new MediaPlayer(this))
    , videoOutput(new VideoOutput(videoWidget, this))
    , pendingTimer(new QTimer(this))
{
    connect(mediaPlayer, &MediaPlayer::failed, this, &VlcPlayer::handleError, Qt::QueuedConnection);
    connect(mediaPlayer, &MediaPlayer::ended, this, &VlcPlayer::handleEnd, Qt::QueuedConnection);
    connect(mediaPlayer, &MediaPlayer::abandoned, videoOutput, &VideoOutput::abandonWindow);
    connect(mediaPlayer, &MediaPlayer::stopDone, this, [this] {
        // The previous stream may have drawn until now.
        videoOutput->clear();
        startNextMedia();
    });
    attachToWidget();
    pendingTimer->setInterval(pendingIntervalMs);
    connect(pendingTimer, &QTimer::timeout, this, &VlcPlayer::applyPending);
    progressTimer->setObjectName(u"progressTimer"_s);
    progressTimer->setInterval(progressIntervalMs);
    connect(progressTimer, &QTimer::timeout, this, &VlcPlayer::checkPlaybackProgress);
    progressTimer->start();
}

VlcPlayer::~VlcPlayer()
{
    // The media player is a child and finishes in its own destructor.
    discardNextMedia();
}

QString VlcPlayer::libVlcVersion()
{
    return QString::fromUtf8(libvlc_get_version());
}

bool VlcPlayer::finish()
{
    discardNextMedia();
    end.reset();
    return mediaPlayer->finish();
}

void VlcPlayer::attachToWidget()
{
    videoOutput->attach(mediaPlayer->handle());
}

void VlcPlayer::reattach()
{
    attachToWidget();
}

void VlcPlayer::play(const QString &url, bool live, const StreamHeaders &headers)
{
    if (mediaPlayer->instance() == nullptr) {
        return;
    }
    if (netDebugEnabled()) {
        NetLogStream() << "[VLC] play ->" << traceSafeUrl(url);
    }
    stall.reset();
    MediaPtr media(
        libvlc_media_new_location(mediaPlayer->instance(), requestableUrl(url).constData()));
    if (!media) {
        Q_EMIT playbackError(tr("Could not create media for URL: %1").arg(url));
        return;
    }
    addHeaders(media.get(), headers);
    isLive = live;
    end.reset();
    ++streamNumber;
    discardNextMedia();
    resetForNextStream();
    nextMedia = media.release();
    nextUrl = url;
    mediaPlayer->stop();
    if (!mediaPlayer->isStopping()) {
        startNextMedia();
    }
}

void VlcPlayer::startNextMedia()
{
    const MediaPtr media(std::exchange(nextMedia, nullptr));
    if (!media) {
        return;
    }
    videoOutput->reclaimSurface();
    const bool created = mediaPlayer->create();
    // The surface may have got a new native window since the last stream.
    attachToWidget();
    if (created) {
        applyWanted();
    }
    if (created && mediaPlayer->start(media.get(), streamNumber)) {
        if (!pending.isEmpty()) {
            pendingTimer->start();
        }
        Q_EMIT playing();
        Q_EMIT pausedChanged(pending.paused);
    } else {
        pending = {};
        Q_EMIT playbackError(tr("Playback failed to start for: %1").arg(nextUrl));
    }
}

/// Discards its pending selection as well.
void VlcPlayer::discardNextMedia()
{
    const MediaPtr forgotten(std::exchange(nextMedia, nullptr));
    discardPending();
}

void VlcPlayer::stop()
{
    if (mediaPlayer->handle() == nullptr) {
        return;
    }
    stall.reset();
    end.reset();
    ++streamNumber;
    discardNextMedia();
    mediaPlayer->stop();
    if (!mediaPlayer->isStopping()) {
        videoOutput->clear();
    }
    Q_EMIT stopped();
}

/// Whether libVLC has the stream but does not play it yet. It ignores a pause until then.
bool VlcPlayer::isOpening() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player == nullptr || !mediaPlayer->isStarted()) {
        return false;
    }
    const libvlc_state_t state = libvlc_media_player_get_state(player);
    return state == libvlc_NothingSpecial || state == libvlc_Opening;
}

void VlcPlayer::pause()
{
    if (mediaPlayer->handle() == nullptr) {
        return;
    }
    if (isWaiting()) {
        pending.paused = true;
    } else if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_media_player_set_pause(player, 1);
    }
    Q_EMIT pausedChanged(true);
}

void VlcPlayer::togglePause()
{
    if (mediaPlayer->handle() == nullptr) {
        return;
    }
    if (isWaiting() || pending.paused) {
        pending.paused = !pending.paused;
        Q_EMIT pausedChanged(pending.paused);
        return;
    }
    if (isOpening()) {
        return;
    }
    const libvlc_state_t before = libvlc_media_player_get_state(mediaPlayer->handle());
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_media_player_pause(player);
    }
    // libVLC applies the toggle a moment later and reports the old state until then.
    Q_EMIT pausedChanged(before != libvlc_Paused);
}

bool VlcPlayer::isPlaying() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr && libvlc_media_player_is_playing(player) != 0;
}

bool VlcPlayer::hasPicture() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr && libvlc_media_player_has_vout(player) > 0;
}

void VlcPlayer::setVolume(int percent)
{
    mediaPlayer->setVolume(percent);
}

int VlcPlayer::volume() const
{
    libvlc_media_player_t *player = mediaPlayer->handle();
    return player != nullptr ? libvlc_audio_get_volume(player) : 0;
}

qint64 VlcPlayer::lengthMs() const
{
    if (end) {
        return end->lengthMs;
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_media_player_get_length(player) : 0;
}

qint64 VlcPlayer::timeMs() const
{
    if (end) {
        return end->timeMs;
    }
    if (isWaiting()) {
        return pending.timeMs.value_or(pending.continueMs.value_or(0));
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_media_player_get_time(player) : 0;
}

void VlcPlayer::seek(qint64 ms)
{
    pending.continueMs.reset();
    if (isWaiting()) {
        pending.timeMs = ms;
        return;
    }
    pending.timeMs.reset();
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_media_player_set_time(player, ms);
    }
}

void VlcPlayer::seekRelative(qint64 deltaMs)
{
    qint64 target = timeMs() + deltaMs;
    const qint64 length = lengthMs();
    if (length > 0) {
        target = std::min(target, length - seekMarginMs);
    }
    seek(std::max<qint64>(target, 0));
}

void VlcPlayer::checkPlaybackProgress()
{
    if (!isPlaying()) {
        stall.reset();
        if (!mediaPlayer->isStarted() && !mediaPlayer->isStopping()) {
            videoOutput->reclaimSurface();
        }
        return;
    }
    const qint64 time = timeMs();
    Q_EMIT positionChanged(time, lengthMs());
    switch (stall.sample(time)) {
    case StallDetector::Verdict::Advancing:
        mediaPlayer->confirmVolume();
        Q_EMIT playbackProgressing();
        break;
    case StallDetector::Verdict::Stalled:
        Q_EMIT playbackInterrupted(QString::fromLatin1(stalledReason).arg(stallSeconds));
        break;
    case StallDetector::Verdict::Unknown:
        break;
    }
}

void VlcPlayer::handleError(quint64 number)
{
    if (number == streamNumber) {
        Q_EMIT playbackInterrupted(
            QString::fromLatin1(QT_TR_NOOP("libVLC encountered an error while streaming.")));
    }
}

void VlcPlayer::handleEnd(quint64 number)
{
    if (number != streamNumber) {
        return;
    }
    if (isLive) {
        Q_EMIT playbackInterrupted(
            QString::fromLatin1(QT_TR_NOOP("The live stream stopped sending data.")));
        return;
    }
    stopAtEnd();
    const qint64 length = lengthMs();
    if (length < 1 || timeMs() >= length - normalEndMs) {
        Q_EMIT finished();
        return;
    }
    Q_EMIT playbackInterrupted(QString::fromLatin1(
        QT_TR_NOOP("Reached the end of the stream (this can also happen if a seek landed somewhere "
                   "the stream couldn't resume from).")));
}

/// Until then libVLC keeps the last picture, and with it the computer awake. Comes before the end
/// is told: who is told may ask the user first.
void VlcPlayer::stopAtEnd()
{
    end = End{timeMs(), lengthMs()};
    mediaPlayer->stop();
    if (!mediaPlayer->isStopping()) {
        videoOutput->clear();
    }
}

QString VlcPlayer::shownReason(const QString &reason)
{
    return reason == QString::fromLatin1(stalledReason).arg(stallSeconds)
               ? tr(stalledReason).arg(stallSeconds)
               : tr(reason.toUtf8().constData());
}
