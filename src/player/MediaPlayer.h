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

/// Owns the libVLC instance and its one media player. Starts a stream, stops it without blocking
/// the GUI thread, and reports the stream's events with the stream's number.
///
/// The media player lives as long as this object and keeps its state, such as cookies, from stream
/// to stream. Only a media player whose stop hangs is abandoned and replaced by a new one.
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
    /// Creates the media player if there is none. False if libVLC cannot create one.
    bool create();

    /// The media player, null if there is none.
    libvlc_media_player_t *handle() const { return mediaPlayer.get(); }
    /// For a thread of its own that uses it meanwhile.
    const MediaPlayerPtr &shared() const { return mediaPlayer; }
    /// The media player; null during a stop too. Nearly all libVLC calls block until the stop is
    /// done; those for state, volume, media and drawing window do not.
    libvlc_media_player_t *handleUnlessStopping() const;

    /// Plays the media as the stream with that number. Not allowed while isStopping(). False if
    /// libVLC refuses.
    bool start(libvlc_media_t *media, quint64 number);
    /// Stops the started stream, if any. If that takes longer than a moment, isStopping() holds
    /// until stopDone() is emitted.
    void stop();
    bool isStarted() const { return started; }
    bool isStopping() const;

    /// In percent. Also applies to media players that are created later.
    void setVolume(int percent);
    /// Sets the requested volume again, once per stream. To be called when the stream plays: libVLC
    /// may lose a volume that is set while it opens the audio output.
    void confirmVolume();

    /// Stops and releases everything; there is no media player afterwards. Only the first call
    /// waits, for one second at most. False if libVLC still hangs: its threads then keep running
    /// and may keep drawing, and the instance is never released.
    bool finish();

Q_SIGNALS:
    /// libVLC reported an error or the end of the stream with that number. Emitted on libVLC's
    /// threads.
    void failed(quint64 number);
    void ended(quint64 number);
    /// A stop hangs. Its media player was abandoned, together with the window it draws into.
    void abandoned(const PlayerStop &stop);
    /// A stop() that returned early is finished; the next stream can start.
    void stopDone();

private:
    static void handleError(const libvlc_event_t *event, void *self);
    static void handleEndReached(const libvlc_event_t *event, void *self);

    void attachEvents();
    void detachEvents();
    void pollStop();
    void abandon();

    libvlc_instance_t *vlc = nullptr;
    MediaPlayerPtr mediaPlayer;
    /// Whether the media player was started since its last stop.
    bool started = false;
    /// The volume set last, in percent; -1 if none was set.
    int requestedVolume = -1;
    bool volumeConfirmed = true;
    /// Written on the GUI thread before a stream starts, read on libVLC's threads.
    std::atomic<quint64> streamNumber = 0;

    PlayerStop currentStop;
    PlayerStop::Clock::time_point stopDeadline;
    /// Active while a stop continues after stop() has returned.
    QTimer *stopTimer = nullptr;
    std::vector<PlayerStop> hungStops;
    /// Set by the first finish().
    std::optional<PlayerStop::Clock::time_point> finishDeadline;
};
