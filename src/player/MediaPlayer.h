#pragma once

#include "player/PlayerStop.h"

#include <QObject>

#include <atomic>
#include <optional>
#include <vector>

class QTimer;

struct libvlc_event_t;
struct libvlc_instance_t;
struct libvlc_media_t;

/// The libVLC instance and its one media player: starting a stream, stopping it without blocking
/// the GUI thread, and the events of the stream with the stream's number.
///
/// The media player lives as long as this object, and with it what it knows, such as cookies. Only
/// one whose stop hangs is abandoned, and a fresh one takes its place.
///
/// All calls are for the GUI thread; failed() and ended() are emitted on libVLC's threads.
class MediaPlayer final : public QObject
{
    Q_OBJECT

public:
    explicit MediaPlayer(QObject *parent);
    /// Calls finish().
    ~MediaPlayer() override;
    Q_DISABLE_COPY_MOVE(MediaPlayer)

    /// Null when libVLC could not be started; then there is never a media player.
    libvlc_instance_t *instance() const { return vlc; }
    /// Makes the media player unless there is one. False when libVLC cannot make one now.
    bool create();

    /// The media player, null if there is none.
    libvlc_media_player_t *handle() const { return mediaPlayer.get(); }
    /// The media player, null while a stop is under way as well. Nearly all of libVLC's calls block
    /// until the stop is done, except for state, volume, media and the window to draw into.
    libvlc_media_player_t *handleUnlessStopping() const;

    /// Plays the media as the stream of that number. Not while isStopping(). False when libVLC
    /// refuses.
    bool start(libvlc_media_t *media, quint64 number);
    /// Stops what was started. When this takes more than a moment, stopDone() tells the end later;
    /// until then isStopping().
    void stop();
    bool isStarted() const { return started; }
    bool isStopping() const;

    /// Percent; for a fresh media player too.
    void setVolume(int percent);
    /// Sets the volume asked for last again, once for each stream. Call it when the stream plays:
    /// libVLC may lose a volume that is set while the sound output is opened.
    void confirmVolume();

    /// Stops and releases everything; there is no media player any more. Waits a second at most,
    /// and only the first time. False when libVLC still hangs: it then goes on in threads of its
    /// own, may go on drawing, and the instance is never released.
    bool finish();

Q_SIGNALS:
    /// libVLC reported an error, or an end, of the stream of that number. On libVLC's threads.
    void failed(quint64 number);
    void ended(quint64 number);
    /// A stop hangs: its media player was abandoned, with the window that it draws into.
    void abandoned(const PlayerStop &stop);
    /// The next stream can start, after a stop() that returned early.
    void stopDone();

private:
    static void handleError(const libvlc_event_t *event, void *self);
    static void handleEndReached(const libvlc_event_t *event, void *self);

    void attachEvents();
    void detachEvents();
    void lookAtStop();
    void abandon();

    libvlc_instance_t *vlc = nullptr;
    MediaPlayerPtr mediaPlayer;
    /// The media player was started since its last stop.
    bool started = false;
    /// The volume asked for last; -1 for none.
    int wantedVolume = -1;
    bool volumeConfirmed = true;
    /// Written on the GUI thread before a stream starts, read on libVLC's threads.
    std::atomic<quint64> streamNumber = 0;

    PlayerStop currentStop;
    PlayerStop::Clock::time_point stopDeadline;
    /// Runs while stop() has returned before the stop was done.
    QTimer *stopTimer = nullptr;
    std::vector<PlayerStop> hungStops;
    /// Set by the first finish().
    std::optional<PlayerStop::Clock::time_point> finishDeadline;
};
