#include "player/VlcPlayer.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "player/VlcHandles.h"

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int progressIntervalMs = 500;
constexpr int stallSeconds = 15;
constexpr qint32 maxStillTicks = stallSeconds * 1000 / progressIntervalMs - 1;
/// An end this close to the length is a normal end.
constexpr qint64 normalEndMs = 2000;
/// Relative seeks stay this far from the end.
constexpr qint64 seekMarginMs = 1000;

/// How long replacing a stream may wait for the old one, and the end of the player for all.
constexpr std::chrono::milliseconds stopPatience(60);
constexpr std::chrono::milliseconds exitPatience(1000);

/// How often to look whether the picture's window is free, and how long to wait for it.
constexpr int windowPollMs = 10;
constexpr int maxWindowPatienceMs = 1000;

libvlc_instance_t *createInstance()
{
    const bool verbose = qEnvironmentVariableIsSet("VANTIRO_VLC_DEBUG");
    const std::array<const char *, 2> arguments = {"--no-video-title-show",
                                                   verbose ? "--verbose=2" : "--quiet"};
    return libvlc_new(static_cast<int>(arguments.size()), arguments.data());
}

void setOutputWindow(libvlc_media_player_t *mediaPlayer, WId window)
{
#ifdef Q_OS_WIN
    // A WId is the HWND itself, as a number.
    libvlc_media_player_set_hwnd(mediaPlayer, reinterpret_cast<void *>(window)); // NOLINT
#else
    // Only the X11 platform has windows that libVLC can draw into.
    if (QGuiApplication::platformName() == "xcb"_L1) {
        libvlc_media_player_set_xwindow(mediaPlayer, static_cast<quint32>(window));
    }
#endif
}

} // namespace

VlcPlayer::VlcPlayer(QWidget *surface, QObject *parent)
    : QObject(parent)
    , instance(createInstance())
    , videoWidget(surface)
    , progressTimer(new QTimer(this))
{
    createMediaPlayer();
    windowTimer = new QTimer(this);
    windowTimer->setSingleShot(true);
    windowTimer->setInterval(windowPollMs);
    connect(windowTimer, &QTimer::timeout, this, &VlcPlayer::startWhenWindowIsFree);
    progressTimer->setInterval(progressIntervalMs);
    connect(progressTimer, &QTimer::timeout, this, &VlcPlayer::checkPlaybackProgress);
    progressTimer->start();
}

VlcPlayer::~VlcPlayer()
{
    forgetNextMedia();
    if (mediaPlayer != nullptr) {
        detachEvents();
        retirement.retire(mediaPlayer, exitPatience);
    }
    // An instance whose players still hang is left to the end of the process.
    if (instance != nullptr && retirement.waitForAll(exitPatience)) {
        libvlc_release(instance);
    }
}

void VlcPlayer::createMediaPlayer()
{
    started = false;
    mediaPlayer = instance != nullptr ? libvlc_media_player_new(instance) : nullptr;
    if (mediaPlayer == nullptr) {
        return;
    }
    // Mouse and keys belong to the window, also over libVLC's picture.
    libvlc_video_set_mouse_input(mediaPlayer, 0);
    libvlc_video_set_key_input(mediaPlayer, 0);
    if (wantedVolume >= 0) {
        libvlc_audio_set_volume(mediaPlayer, wantedVolume);
    }
    eventSource = std::make_unique<EventSource>(EventSource{this, mediaPlayer});
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(mediaPlayer);
    libvlc_event_attach(events, libvlc_MediaPlayerEncounteredError, &handleVlcEvent,
                        eventSource.get());
    libvlc_event_attach(events, libvlc_MediaPlayerEndReached, &handleVlcEndReached,
                        eventSource.get());
    attachToWidget();
}

/// Puts a fresh media player with the same media in the place of the one that has been started.
void VlcPlayer::retireMediaPlayer()
{
    const MediaPtr media(libvlc_media_player_get_media(mediaPlayer));
    detachEvents();
    previous = retirement.retire(mediaPlayer, stopPatience);
    createMediaPlayer();
    if (mediaPlayer != nullptr && media) {
        libvlc_media_player_set_media(mediaPlayer, media.get());
    }
}

/// On return no callback runs and none will.
void VlcPlayer::detachEvents()
{
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(mediaPlayer);
    libvlc_event_detach(events, libvlc_MediaPlayerEncounteredError, &handleVlcEvent,
                        eventSource.get());
    libvlc_event_detach(events, libvlc_MediaPlayerEndReached, &handleVlcEndReached,
                        eventSource.get());
}

void VlcPlayer::attachToWidget()
{
    if (videoWidget == nullptr || mediaPlayer == nullptr) {
        return;
    }
    QWidget *widget = otherWindow != nullptr ? otherWindow : videoWidget;
    // In this order: the surface gets a window of its own without its ancestors getting one.
    widget->setAttribute(Qt::WA_DontCreateNativeAncestors);
    widget->setAttribute(Qt::WA_NativeWindow);
    setOutputWindow(mediaPlayer, widget->winId());
}

void VlcPlayer::reattach()
{
    attachToWidget();
}

void VlcPlayer::play(const QString &url, bool live)
{
    if (mediaPlayer == nullptr) {
        return;
    }
    if (netDebugEnabled()) {
        NetLogStream() << "[VLC] play ->" << traceSafeUrl(url);
    }
    isLive.store(live);
    resetStallTracking();

    MediaPtr media(libvlc_media_new_location(instance, url.toUtf8().constData()));
    if (!media) {
        Q_EMIT playbackError(tr("Could not create media for URL: ") + url);
        return;
    }
    forgetNextMedia();
    if (started) {
        retireMediaPlayer();
        windowPatienceMs = maxWindowPatienceMs;
    }
    nextMedia = media.release();
    nextUrl = url;
    startWhenWindowIsFree();
}

/// libVLC opens a window of its own, somewhere on the screen, when another player still has ours.
void VlcPlayer::startWhenWindowIsFree()
{
    if (!previous.isDone() && windowPatienceMs > 0) {
        windowPatienceMs -= windowPollMs;
        windowTimer->start();
        return;
    }
    if (!previous.isDone()) {
        useAnotherWindow();
        previous = {};
    }
    startNextMedia();
}

void VlcPlayer::startNextMedia()
{
    const MediaPtr media(std::exchange(nextMedia, nullptr));
    if (mediaPlayer == nullptr || !media) {
        return;
    }
    libvlc_media_player_set_media(mediaPlayer, media.get());
    started = true;
    // The surface may have got another window since the last stream.
    attachToWidget();
    if (libvlc_media_player_play(mediaPlayer) == 0) {
        Q_EMIT playing();
        Q_EMIT pausedChanged(false);
    } else {
        Q_EMIT playbackError(tr("Playback failed to start for: ") + nextUrl);
    }
}

void VlcPlayer::forgetNextMedia()
{
    windowTimer->stop();
    const MediaPtr forgotten(std::exchange(nextMedia, nullptr));
}

void VlcPlayer::useAnotherWindow()
{
    if (videoWidget == nullptr) {
        return;
    }
    // The one before goes with the surface: the player that keeps it draws into it still.
    otherWindow = new QWidget(videoWidget);
    otherWindow->setAttribute(Qt::WA_DontCreateNativeAncestors);
    otherWindow->setAttribute(Qt::WA_NativeWindow);
    otherWindow->setMouseTracking(true);
    otherWindow->setGeometry(videoWidget->rect());
    otherWindow->show();
    otherWindow->raise();
    videoWidget->installEventFilter(this);
}

bool VlcPlayer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == videoWidget && event->type() == QEvent::Resize && otherWindow != nullptr) {
        otherWindow->setGeometry(videoWidget->rect());
    }
    return QObject::eventFilter(watched, event);
}

void VlcPlayer::stop()
{
    if (mediaPlayer == nullptr) {
        return;
    }
    resetStallTracking();
    forgetNextMedia();
    if (started) {
        retireMediaPlayer();
        windowPatienceMs = maxWindowPatienceMs;
    }
    if (videoWidget != nullptr) {
        // Otherwise the last picture stays until something else paints.
        videoWidget->update();
    }
    Q_EMIT stopped();
}

void VlcPlayer::pause()
{
    if (mediaPlayer == nullptr) {
        return;
    }
    libvlc_media_player_set_pause(mediaPlayer, 1);
    Q_EMIT pausedChanged(true);
}

void VlcPlayer::togglePause()
{
    if (mediaPlayer == nullptr) {
        return;
    }
    const libvlc_state_t before = libvlc_media_player_get_state(mediaPlayer);
    libvlc_media_player_pause(mediaPlayer);
    // libVLC's toggle takes effect a moment later; until then it tells the old state.
    Q_EMIT pausedChanged(before != libvlc_Paused);
}

bool VlcPlayer::isPlaying() const
{
    return mediaPlayer != nullptr && libvlc_media_player_is_playing(mediaPlayer) != 0;
}

void VlcPlayer::setVolume(int percent)
{
    if (mediaPlayer != nullptr) {
        wantedVolume = percent;
        libvlc_audio_set_volume(mediaPlayer, percent);
    }
}

int VlcPlayer::volume() const
{
    return mediaPlayer != nullptr ? libvlc_audio_get_volume(mediaPlayer) : 0;
}

qint64 VlcPlayer::lengthMs() const
{
    return mediaPlayer != nullptr ? libvlc_media_player_get_length(mediaPlayer) : 0;
}

qint64 VlcPlayer::timeMs() const
{
    return mediaPlayer != nullptr ? libvlc_media_player_get_time(mediaPlayer) : 0;
}

void VlcPlayer::seek(qint64 ms)
{
    if (mediaPlayer != nullptr) {
        libvlc_media_player_set_time(mediaPlayer, ms);
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
    if (mediaPlayer == nullptr) {
        return;
    }
    if (!isPlaying()) {
        resetStallTracking();
        return;
    }
    const qint64 time = timeMs();
    Q_EMIT positionChanged(time, lengthMs());
    if (time == lastTimeMs) {
        countStillTick();
        return;
    }
    const bool movedForward = lastTimeMs >= 0 && lastTimeMs < time;
    lastTimeMs = time;
    stallTicks = 0;
    if (movedForward) {
        sawProgress = true;
        Q_EMIT playbackProgressing();
    }
}

void VlcPlayer::countStillTick()
{
    if (!sawProgress) {
        return;
    }
    ++stallTicks;
    if (stallTicks > maxStillTicks) {
        resetStallTracking();
        Q_EMIT playbackInterrupted(
            tr("The stream stopped advancing for %1 seconds.").arg(stallSeconds));
    }
}

void VlcPlayer::resetStallTracking()
{
    lastTimeMs = -1;
    stallTicks = 0;
    sawProgress = false;
}

// The two callbacks run on libVLC's event thread. They read the live flag, the time and the length,
// and emit; Qt queues the signal to the receivers' thread.

void VlcPlayer::handleVlcEvent(const libvlc_event_t * /*event*/, void *source)
{
    const auto *from = static_cast<const EventSource *>(source);
    Q_EMIT from->player->playbackInterrupted(tr("libVLC encountered an error while streaming."));
}

void VlcPlayer::handleVlcEndReached(const libvlc_event_t * /*event*/, void *source)
{
    const auto *from = static_cast<const EventSource *>(source);
    if (from->player->isLive.load()) {
        Q_EMIT from->player->playbackInterrupted(tr("The live stream stopped sending data."));
        return;
    }
    const qint64 length = libvlc_media_player_get_length(from->mediaPlayer);
    const qint64 time = libvlc_media_player_get_time(from->mediaPlayer);
    if (length < 1 || time >= length - normalEndMs) {
        return;
    }
    Q_EMIT from->player->playbackInterrupted(
        tr("Reached the end of the stream (this can also happen if a seek landed somewhere the "
           "stream couldn't resume from)."));
}
