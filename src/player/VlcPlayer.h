#pragma once

#include "player/StallDetector.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class MediaPlayer;
class QTimer;
class QWidget;
class VideoOutput;

struct libvlc_media_t;

/// The one contact with libVLC: plays a URL into a native widget, reports position, pause state and
/// the health of the stream, and lists and chooses tracks.
///
/// All calls are for the GUI thread, and all signals are emitted on it. Times are milliseconds; a
/// length of 0 or less is unknown. When libVLC cannot be started, every operation does nothing and
/// every query gives its neutral value.
///
/// A stream that is replaced or stopped is stopped on a thread of its own (MediaPlayer), since
/// libVLC's own stop can take as long as the server likes. The next one waits for it, a moment as a
/// rule. While it waits, queries give neutral values, and what is chosen for it (pause, position,
/// tracks, subtitle files) takes effect when it plays.
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

    /// Starts a stream in place of the current one, at once or when that one is gone; the newest
    /// one when there are several. `live` says that it has no end of its own.
    void play(const QString &url, bool live);
    void stop();
    void pause();
    /// Does nothing, and tells nothing, while the stream is opening.
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

    /// Stops what plays and releases libVLC's media player, within a second; every operation does
    /// nothing from then on. False when libVLC still hangs. It may then go on drawing into the
    /// video widget, and the process should end without destroying what libVLC's threads use. The
    /// destructor does this too.
    bool finish();

Q_SIGNALS:
    /// play() could not create the media, or libVLC refused to start it.
    void playbackError(const QString &message);
    /// The stream stalled, failed, or ended too early. Never about a stream that was replaced.
    void playbackInterrupted(const QString &reason);
    /// The media time moved forward since the last look; about twice a second.
    void playbackProgressing();
    void playing();
    void stopped();
    void pausedChanged(bool paused);
    /// Twice a second while libVLC plays.
    void positionChanged(qint64 currentMs, qint64 totalMs);

private:
    /// What was chosen for a stream that does not play yet.
    struct Wishes
    {
        bool paused = false;
        std::optional<qint64> timeMs;
        std::optional<int> audioTrack;
        std::optional<int> subtitleTrack;
        QStringList subtitleFiles;

        bool isEmpty() const;
    };

    bool isWaiting() const { return nextMedia != nullptr; }
    bool isOpening() const;
    void startNextMedia();
    void forgetNextMedia();
    void judgeError(quint64 number);
    void judgeEnd(quint64 number);
    void selectSubtitleTrack(int id);

    // ---- VlcPlayerWishes.cpp ----
    void applyWishes();
    void applyTrackWishes();
    void forgetWishes();

    void checkPlaybackProgress();

    QTimer *progressTimer = nullptr;
    MediaPlayer *mediaPlayer = nullptr;
    VideoOutput *videoOutput = nullptr;
    /// What waits for the stop of the stream before, with its URL as given.
    libvlc_media_t *nextMedia = nullptr;
    QString nextUrl;
    /// Counts the streams; what libVLC still tells of an earlier one is dropped.
    quint64 streamNumber = 0;
    bool isLive = false;
    Wishes wishes;
    /// Runs from the start of a stream until its wishes are fulfilled.
    QTimer *wishTimer = nullptr;
    /// The subtitle track to return to when subtitles are switched back on; -1 for none.
    qint32 savedSubtitleTrack = -1;
    StallDetector stall;
};

/// The codec name in a FourCC code: its bytes from the lowest, up to the first zero, trimmed.
QString fourCcToString(quint32 fourcc);
