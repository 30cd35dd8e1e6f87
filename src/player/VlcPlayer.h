#pragma once

#include "player/PlayerRetirement.h"

#include <QList>
#include <QObject>
#include <QString>

#include <atomic>
#include <memory>
#include <utility>

class QTimer;
class QWidget;

struct libvlc_event_t;
struct libvlc_instance_t;
struct libvlc_media_t;
struct libvlc_media_player_t;

/// The one contact with libVLC: plays a URL into a native widget, reports position, pause state and
/// the health of the stream, and lists and chooses tracks.
///
/// All calls are for the GUI thread. Times are milliseconds; a length of 0 or less is unknown. When
/// libVLC cannot be started, every operation does nothing and every query gives its neutral value.
///
/// A stream that is replaced or stopped goes to PlayerRetirement with its media player, and a fresh
/// media player takes its place: libVLC's own stop can take as long as the server likes. The next
/// stream starts as soon as the old one has let go of the picture's window, at once as a rule; when
/// it does not let go, the next one gets a window of its own above it.
///
/// playbackInterrupted() may be emitted on libVLC's event thread: connect it with the automatic or
/// the queued connection type, never directly.
class VlcPlayer final : public QObject
{
    Q_OBJECT

public:
    /// A libVLC track id and the name to show for it.
    using Track = std::pair<int, QString>;

    /// `videoWidget` is drawn into; it is not owned, may be null, and must outlive the player.
    VlcPlayer(QWidget *videoWidget, QObject *parent);
    ~VlcPlayer() override;
    Q_DISABLE_COPY_MOVE(VlcPlayer)

    /// Makes the widget native and gives its window to libVLC. play() does so by itself.
    void attachToWidget();
    void reattach();

    /// Starts a stream in place of the current one, at once or when that one is gone. `live` says
    /// that it has no end of its own.
    void play(const QString &url, bool live);
    void stop();
    void pause();
    void togglePause();
    bool isPlaying() const;

    /// Percent; not limited here.
    void setVolume(int percent);
    int volume() const;

    qint64 lengthMs() const;
    qint64 timeMs() const;
    void seek(qint64 ms);
    /// Moves by `deltaMs`, not before the start nor into the last second of a known length.
    void seekRelative(qint64 deltaMs);

    /// @name Tracks (VlcPlayerTracks.cpp)
    /// In libVLC's order, without its "disable" entry. A current track of -1 means none.
    /// @{
    QList<Track> audioTracks() const;
    QList<Track> subtitleTracks() const;
    int currentAudioTrack() const;
    void setAudioTrack(int id);
    int currentSubtitleTrack() const;
    void setSubtitleTrack(int id);
    bool hasSubtitles() const;
    bool subtitlesEnabled() const;
    /// Off remembers the current track, on returns to it. Without a remembered track, on takes
    /// libVLC's first entry, which is normally its "disable" entry and then changes nothing.
    void setSubtitlesEnabled(bool enabled);
    /// Adds the subtitle file at a local path to the playing stream and selects it.
    void loadSubtitleFile(const QString &path);
    /// A plain-text technical summary of what plays.
    QString mediaInfoText() const;
    /// @}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// play() could not create the media, or libVLC refused to start it.
    void playbackError(const QString &message);
    /// The stream stalled, failed, or ended too early. May come from libVLC's event thread.
    void playbackInterrupted(const QString &reason);
    /// The media time moved forward since the last look; about twice a second.
    void playbackProgressing();
    void playing();
    void stopped();
    void pausedChanged(bool paused);
    /// Twice a second while libVLC plays.
    void positionChanged(qint64 currentMs, qint64 totalMs);

private:
    /// What libVLC's callbacks are given: they ask the media player whose event it is.
    struct EventSource
    {
        VlcPlayer *player = nullptr;
        libvlc_media_player_t *mediaPlayer = nullptr;
    };

    static void handleVlcEvent(const libvlc_event_t *event, void *source);
    static void handleVlcEndReached(const libvlc_event_t *event, void *source);

    void createMediaPlayer();
    void retireMediaPlayer();
    void detachEvents();
    void startWhenWindowIsFree();
    void startNextMedia();
    void forgetNextMedia();
    void useAnotherWindow();

    void checkPlaybackProgress();
    void countStillTick();
    void resetStallTracking();

    libvlc_instance_t *instance = nullptr;
    libvlc_media_player_t *mediaPlayer = nullptr;
    std::unique_ptr<EventSource> eventSource;
    PlayerRetirement retirement;
    /// The player that had the picture's window before this one.
    PlayerRetirement::Ticket previous;
    /// What waits for the window, with its URL and the time left for waiting in ms.
    libvlc_media_t *nextMedia = nullptr;
    QString nextUrl;
    int windowPatienceMs = 0;
    QTimer *windowTimer = nullptr;
    /// Drawn into instead of the surface, and a child of it, since a player kept the surface.
    QWidget *otherWindow = nullptr;
    /// The media player has been started, and has something to stop.
    bool started = false;
    /// The volume asked for last, in percent, which a fresh media player gets too; -1 for none.
    int wantedVolume = -1;
    QWidget *videoWidget = nullptr;
    QTimer *progressTimer = nullptr;
    /// The subtitle track to return to when subtitles are switched back on; -1 for none.
    qint32 savedSubtitleTrack = -1;
    /// Written on the GUI thread, read on libVLC's event thread.
    std::atomic<bool> isLive = false;
    /// Media time at the last tick; -1 when there is no valid sample.
    qint64 lastTimeMs = -1;
    /// Ticks in a row at which the time stood still.
    qint32 stallTicks = 0;
    /// The time has advanced in the current stream, so that standing still means something.
    bool sawProgress = false;
};

/// The codec name in a FourCC code: its bytes from the lowest, up to the first zero, trimmed.
QString fourCcToString(quint32 fourcc);
