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
constexpr int wishIntervalMs = 50;
constexpr int stallSeconds = 15;
static_assert(StallDetector::stallLooks * progressIntervalMs == stallSeconds * 1000);
/// An end this close to the length is a normal end.
constexpr qint64 normalEndMs = 2000;
/// Relative seeks stay this far from the end.
constexpr qint64 seekMarginMs = 1000;

} // namespace

VlcPlayer::VlcPlayer(QWidget *videoWidget, QObject *parent)
    : QObject(parent)
    , progressTimer(new QTimer(this))
    , mediaPlayer(new MediaPlayer(this))
    , videoOutput(new VideoOutput(videoWidget, this))
    , wishTimer(new QTimer(this))
{
    connect(mediaPlayer, &MediaPlayer::failed, this, &VlcPlayer::judgeError, Qt::QueuedConnection);
    connect(mediaPlayer, &MediaPlayer::ended, this, &VlcPlayer::judgeEnd, Qt::QueuedConnection);
    connect(mediaPlayer, &MediaPlayer::abandoned, videoOutput, &VideoOutput::leaveTo);
    connect(mediaPlayer, &MediaPlayer::stopDone, this, [this] {
        // The stream before has drawn on until now.
        videoOutput->clear();
        startNextMedia();
    });
    attachToWidget();
    wishTimer->setInterval(wishIntervalMs);
    connect(wishTimer, &QTimer::timeout, this, &VlcPlayer::applyWishes);
    progressTimer->setInterval(progressIntervalMs);
    connect(progressTimer, &QTimer::timeout, this, &VlcPlayer::checkPlaybackProgress);
    progressTimer->start();
}

VlcPlayer::~VlcPlayer()
{
    // The media player ends with the other children.
    forgetNextMedia();
}

bool VlcPlayer::finish()
{
    forgetNextMedia();
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

void VlcPlayer::play(const QString &url, bool live)
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
        Q_EMIT playbackError(tr("Could not create media for URL: ") + url);
        return;
    }
    isLive = live;
    ++streamNumber;
    forgetNextMedia();
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
    videoOutput->takeBack();
    const bool created = mediaPlayer->create();
    // The surface may have got another window since the last stream.
    attachToWidget();
    if (created && mediaPlayer->start(media.get(), streamNumber)) {
        if (!wishes.isEmpty()) {
            wishTimer->start();
        }
        Q_EMIT playing();
        Q_EMIT pausedChanged(wishes.paused);
    } else {
        wishes = {};
        Q_EMIT playbackError(tr("Playback failed to start for: ") + nextUrl);
    }
}

/// Forgets what was chosen for it as well.
void VlcPlayer::forgetNextMedia()
{
    const MediaPtr forgotten(std::exchange(nextMedia, nullptr));
    forgetWishes();
}

void VlcPlayer::stop()
{
    if (mediaPlayer->handle() == nullptr) {
        return;
    }
    stall.reset();
    ++streamNumber;
    forgetNextMedia();
    mediaPlayer->stop();
    if (!mediaPlayer->isStopping()) {
        videoOutput->clear();
    }
    Q_EMIT stopped();
}

/// libVLC has the stream, and has not begun to play it: it takes no pause yet.
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
        wishes.paused = true;
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
    if (isWaiting() || wishes.paused) {
        wishes.paused = !wishes.paused;
        Q_EMIT pausedChanged(wishes.paused);
        return;
    }
    if (isOpening()) {
        return;
    }
    const libvlc_state_t before = libvlc_media_player_get_state(mediaPlayer->handle());
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_media_player_pause(player);
    }
    // libVLC's toggle takes effect a moment later; until then it tells the old state.
    Q_EMIT pausedChanged(before != libvlc_Paused);
}

bool VlcPlayer::isPlaying() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr && libvlc_media_player_is_playing(player) != 0;
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
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_media_player_get_length(player) : 0;
}

qint64 VlcPlayer::timeMs() const
{
    if (isWaiting()) {
        return wishes.timeMs.value_or(0);
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_media_player_get_time(player) : 0;
}

void VlcPlayer::seek(qint64 ms)
{
    if (isWaiting()) {
        wishes.timeMs = ms;
        return;
    }
    wishes.timeMs.reset();
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
            videoOutput->takeBack();
        }
        return;
    }
    const qint64 time = timeMs();
    Q_EMIT positionChanged(time, lengthMs());
    switch (stall.look(time)) {
    case StallDetector::Verdict::Advancing:
        mediaPlayer->confirmVolume();
        Q_EMIT playbackProgressing();
        break;
    case StallDetector::Verdict::Stalled:
        Q_EMIT playbackInterrupted(
            tr("The stream stopped advancing for %1 seconds.").arg(stallSeconds));
        break;
    case StallDetector::Verdict::Unknown:
        break;
    }
}

void VlcPlayer::judgeError(quint64 number)
{
    if (number == streamNumber) {
        Q_EMIT playbackInterrupted(tr("libVLC encountered an error while streaming."));
    }
}

void VlcPlayer::judgeEnd(quint64 number)
{
    if (number != streamNumber) {
        return;
    }
    if (isLive) {
        Q_EMIT playbackInterrupted(tr("The live stream stopped sending data."));
        return;
    }
    const qint64 length = lengthMs();
    if (length < 1 || timeMs() >= length - normalEndMs) {
        return;
    }
    Q_EMIT playbackInterrupted(
        tr("Reached the end of the stream (this can also happen if a seek landed somewhere the "
           "stream couldn't resume from)."));
}
