#include "player/MediaPlayer.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

#include <vlc/vlc.h>

using namespace std::chrono_literals;

namespace {

/// How long stop() blocks. Most streams stop within this time, and users do not notice it.
constexpr auto stopTimeout = 60ms;
/// How often a longer stop is polled.
constexpr auto stopPollInterval = 10ms;
/// When a stop counts as hung. A channel that has just shown its first picture takes most of a
/// second.
constexpr auto hangTimeout = 1200ms;
/// How long the end of the program may be delayed.
constexpr auto finishTimeout = 1000ms;

libvlc_instance_t *createInstance()
{
    const bool verbose = qEnvironmentVariableIsSet("VANTIRO_VLC_DEBUG");
    const std::array<const char *, 2> arguments = {"--no-video-title-show",
                                                   verbose ? "--verbose=2" : "--quiet"};
    return libvlc_new(static_cast<int>(arguments.size()), arguments.data());
}

} // namespace

MediaPlayer::MediaPlayer(QObject *parent)
    : QObject(parent)
    , vlc(createInstance())
    , stopTimer(new QTimer(this))
{
    stopTimer->setInterval(stopPollInterval);
    connect(stopTimer, &QTimer::timeout, this, &MediaPlayer::pollStop);
    create();
}

MediaPlayer::~MediaPlayer()
{
    finish();
}

bool MediaPlayer::create()
{
    if (!mediaPlayer && vlc != nullptr) {
        libvlc_media_player_t *created = libvlc_media_player_new(vlc);
        if (created == nullptr) {
            return false;
        }
        mediaPlayer.reset(created, &libvlc_media_player_release);
        // The window handles mouse and keyboard, even above libVLC's picture.
        libvlc_video_set_mouse_input(created, 0);
        libvlc_video_set_key_input(created, 0);
        if (requestedVolume >= 0) {
            libvlc_audio_set_volume(created, requestedVolume);
        }
        attachEvents();
    }
    return bool(mediaPlayer);
}

libvlc_media_player_t *MediaPlayer::handleUnlessStopping() const
{
    return isStopping() ? nullptr : mediaPlayer.get();
}

bool MediaPlayer::start(libvlc_media_t *media, quint64 number)
{
    streamNumber.store(number);
    started = true;
    volumeConfirmed = false;
    libvlc_media_player_set_media(mediaPlayer.get(), media);
    return libvlc_media_player_play(mediaPlayer.get()) == 0;
}

void MediaPlayer::stop()
{
    if (!started) {
        return;
    }
    started = false;
    const auto now = PlayerStop::Clock::now();
    stopDeadline = now + hangTimeout;
    currentStop = PlayerStop::begin(mediaPlayer);
    if (!currentStop.waitUntil(now + stopTimeout)) {
        stopTimer->start();
    }
}

bool MediaPlayer::isStopping() const
{
    // Not currentStop.isDone(): the answer must not change before stopDone() is emitted.
    return stopTimer->isActive();
}

void MediaPlayer::pollStop()
{
    if (!currentStop.isDone()) {
        if (PlayerStop::Clock::now() < stopDeadline) {
            return;
        }
        abandon();
    }
    stopTimer->stop();
    Q_EMIT stopDone();
}

/// Leaves the media player to the thread that stops it, and creates a new one.
void MediaPlayer::abandon()
{
    detachEvents();
    libvlc_audio_set_mute(mediaPlayer.get(), 1);
    mediaPlayer.reset();
    std::erase_if(hungStops, [](const PlayerStop &stop) { return stop.isDone(); });
    hungStops.push_back(currentStop);
    if (create()) {
        // Some sound systems apply the mute to everything the program plays.
        libvlc_audio_set_mute(mediaPlayer.get(), 0);
    }
    Q_EMIT abandoned(currentStop);
}

void MediaPlayer::setVolume(int percent)
{
    requestedVolume = percent;
    if (mediaPlayer) {
        libvlc_audio_set_volume(mediaPlayer.get(), percent);
    }
}

void MediaPlayer::confirmVolume()
{
    if (!std::exchange(volumeConfirmed, true) && requestedVolume >= 0) {
        setVolume(requestedVolume);
    }
}

bool MediaPlayer::finish()
{
    if (mediaPlayer) {
        detachEvents();
        if (started) {
            currentStop = PlayerStop::begin(mediaPlayer);
        }
        hungStops.push_back(currentStop);
        mediaPlayer.reset();
    }
    stopTimer->stop();
    started = false;
    if (!finishDeadline) {
        finishDeadline = PlayerStop::Clock::now() + finishTimeout;
    }
    const bool allDone =
        std::all_of(hungStops.cbegin(), hungStops.cend(),
                    [this](const PlayerStop &stop) { return stop.waitUntil(*finishDeadline); });
    libvlc_instance_t *instance = std::exchange(vlc, nullptr);
    if (allDone && instance != nullptr) {
        libvlc_release(instance);
    }
    return allDone;
}

void MediaPlayer::attachEvents()
{
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(mediaPlayer.get());
    libvlc_event_attach(events, libvlc_MediaPlayerEncounteredError, &handleError, this);
    libvlc_event_attach(events, libvlc_MediaPlayerEndReached, &handleEndReached, this);
}

/// When this returns, no callback is running and none will be called.
void MediaPlayer::detachEvents()
{
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(mediaPlayer.get());
    libvlc_event_detach(events, libvlc_MediaPlayerEncounteredError, &handleError, this);
    libvlc_event_detach(events, libvlc_MediaPlayerEndReached, &handleEndReached, this);
}

// The callbacks run on libVLC's threads. They must not call libVLC: a running stop waits for the
// callbacks, and their calls would wait for the stop.

void MediaPlayer::handleError(const libvlc_event_t * /*event*/, void *self)
{
    auto *player = static_cast<MediaPlayer *>(self);
    Q_EMIT player->failed(player->streamNumber.load());
}

void MediaPlayer::handleEndReached(const libvlc_event_t * /*event*/, void *self)
{
    auto *player = static_cast<MediaPlayer *>(self);
    Q_EMIT player->ended(player->streamNumber.load());
}
