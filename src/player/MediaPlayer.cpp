#include "player/MediaPlayer.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

#include <vlc/vlc.h>

using namespace std::chrono_literals;

namespace {

/// What stop() itself waits for: enough for most streams, and nobody notices.
constexpr auto stopPatience = 60ms;
/// How often to look at a stop after that, and when to call it hung. A channel that has just shown
/// its first picture takes most of a second.
constexpr auto stopPollInterval = 10ms;
constexpr auto hangingAfter = 1200ms;
/// What the end of the program may wait for.
constexpr auto finishPatience = 1000ms;

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
    connect(stopTimer, &QTimer::timeout, this, &MediaPlayer::lookAtStop);
    create();
}

MediaPlayer::~MediaPlayer()
{
    finish();
}

bool MediaPlayer::create()
{
    if (!mediaPlayer && vlc != nullptr) {
        libvlc_media_player_t *made = libvlc_media_player_new(vlc);
        if (made == nullptr) {
            return false;
        }
        mediaPlayer.reset(made, &libvlc_media_player_release);
        // Mouse and keys belong to the window, also over libVLC's picture.
        libvlc_video_set_mouse_input(made, 0);
        libvlc_video_set_key_input(made, 0);
        if (wantedVolume >= 0) {
            libvlc_audio_set_volume(made, wantedVolume);
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
    stopDeadline = now + hangingAfter;
    currentStop = PlayerStop::begin(mediaPlayer);
    if (!currentStop.waitUntil(now + stopPatience)) {
        stopTimer->start();
    }
}

bool MediaPlayer::isStopping() const
{
    // Not what the thread says: the answer changes only with stopDone().
    return stopTimer->isActive();
}

void MediaPlayer::lookAtStop()
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

/// Leaves the media player to the thread that stops it.
void MediaPlayer::abandon()
{
    detachEvents();
    libvlc_audio_set_mute(mediaPlayer.get(), 1);
    mediaPlayer.reset();
    std::erase_if(hungStops, [](const PlayerStop &stop) { return stop.isDone(); });
    hungStops.push_back(currentStop);
    if (create()) {
        // Some sound systems keep the mute for all that one program plays.
        libvlc_audio_set_mute(mediaPlayer.get(), 0);
    }
    Q_EMIT abandoned(currentStop);
}

void MediaPlayer::setVolume(int percent)
{
    wantedVolume = percent;
    if (mediaPlayer) {
        libvlc_audio_set_volume(mediaPlayer.get(), percent);
    }
}

void MediaPlayer::confirmVolume()
{
    if (!std::exchange(volumeConfirmed, true) && wantedVolume >= 0) {
        setVolume(wantedVolume);
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
        finishDeadline = PlayerStop::Clock::now() + finishPatience;
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

/// On return no callback runs and none will.
void MediaPlayer::detachEvents()
{
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(mediaPlayer.get());
    libvlc_event_detach(events, libvlc_MediaPlayerEncounteredError, &handleError, this);
    libvlc_event_detach(events, libvlc_MediaPlayerEndReached, &handleEndReached, this);
}

// The callbacks run on libVLC's threads. They ask libVLC for nothing: a stop that is under way
// waits for them, and what they ask would wait for the stop.

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
