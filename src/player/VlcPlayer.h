#pragma once

#include "model/StreamHeaders.h"
#include "player/PictureSettings.h"
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

/// The only interface to libVLC: plays a URL into a native widget, reports position, pause state
/// and interruptions, and lists and selects tracks.
///
/// All calls are for the GUI thread, and all signals are emitted on it. Times are in milliseconds;
/// a length of 0 or less is unknown. If libVLC cannot be started, every operation does nothing and
/// every query returns a neutral value.
///
/// A stream is stopped on a separate thread (MediaPlayer), because libVLC's stop can take as long
/// as the server likes. The next stream waits for it, usually only for a moment. While a stream
/// waits, queries return neutral values, and what the user selects for it (pause, position, tracks,
/// subtitle files) is applied when it plays.
class VlcPlayer final : public QObject
{
    Q_OBJECT

public:
    /// A libVLC track id and its display name.
    using Track = std::pair<int, QString>;

    /// `videoWidget` is drawn into; it is not owned, may be null, and must outlive the player.
    VlcPlayer(QWidget *videoWidget, QObject *parent);
    ~VlcPlayer() override;
    Q_DISABLE_COPY_MOVE(VlcPlayer)

    /// As libVLC writes it, for instance "3.0.18 Vetinari".
    static QString libVlcVersion();

    /// Makes the widget native and gives its window to libVLC. play() does this as well.
    void attachToWidget();
    void reattach();

    /// Replaces the current stream, immediately or as soon as that has stopped. Of several requests
    /// in the meantime the last one counts. A `live` stream has no end. The headers are sent with
    /// all of the stream's requests, and only with those; a value that must not be sent is not.
    void play(const QString &url, bool live, const StreamHeaders &headers = {});
    void stop();
    void pause();
    /// Does nothing and emits nothing while the stream is opening.
    void togglePause();
    bool isPlaying() const;
    /// Whether the stream was started, and nothing that plays has come of it yet.
    bool isOpening() const;
    /// Whether libVLC shows a picture. Some streams have none; others show it after a moment.
    bool hasPicture() const;

    /// In percent, without limits.
    void setVolume(int percent);
    int volume() const;

    /// After its end these stay what they were there.
    qint64 lengthMs() const;
    qint64 timeMs() const;
    void seek(qint64 ms);
    /// Seeks as soon as the stream plays and its length is known. A stream that is not that long,
    /// or has no length, plays on from where it is. Another seek takes its place.
    void continueAt(qint64 ms);
    /// Seeks by `deltaMs`, but not before the start or into the last second of a known length.
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
    /// Off saves the current track; on restores it. Without a saved track, on selects libVLC's
    /// first entry, which is normally its "disable" entry, so that nothing changes.
    void setSubtitlesEnabled(bool enabled);
    /// Adds a local subtitle file to the playing stream and selects it.
    void loadSubtitleFile(const QString &path);
    /// A reason of playbackInterrupted() in the user's language.
    static QString shownReason(const QString &reason);
    /// A plain-text technical summary of the stream.
    QString mediaInfoText() const;
    /// @}

    /// The language of a track as the stream tells it, usually a code as "eng", otherwise its
    /// description; empty when the stream tells neither.
    QString trackLanguage(int id) const;

    /// @name Picture and time (VlcPlayerPicture.cpp)
    /// The picture's settings hold for all streams. Speed and delays hold for the stream that
    /// plays; without one they stay as they are.
    /// @{
    static constexpr float slowestRate = 0.25F;
    static constexpr float fastestRate = 4;

    const PictureSettings &picture() const { return wanted.picture; }
    void setPicture(const PictureSettings &settings);
    /// 1 is the stream's own speed.
    float rate() const { return wanted.rate; }
    /// Within slowestRate and fastestRate.
    void setRate(float rate);
    /// How much later than the picture the sound, or the subtitles, come; negative: earlier.
    qint64 audioDelayMs() const { return wanted.audioDelayMs; }
    void setAudioDelay(qint64 ms);
    qint64 subtitleDelayMs() const { return wanted.subtitleDelayMs; }
    void setSubtitleDelay(qint64 ms);
    /// Writes the picture that shows into a file, as PNG. snapshotTaken() tells the result.
    void takeSnapshot(const QString &path);
    /// @}

    /// Stops the stream and releases libVLC within a second; afterwards every operation does
    /// nothing. False if libVLC still hangs. It may then keep drawing into the video widget, and
    /// the process should end without destroying what libVLC's threads use. The destructor does
    /// this as well.
    bool finish();

Q_SIGNALS:
    /// libVLC could not create the media or refused to play it.
    void playbackError(const QString &message);
    /// The current stream stalled, failed or ended too early. Never emitted for an earlier stream.
    /// The reason is English, for traces; see shownReason().
    void playbackInterrupted(const QString &reason);
    /// The media time has advanced since the last check; about twice a second.
    void playbackProgressing();
    void playing();
    void stopped();
    /// The stream, which is not live, has played to its end.
    void finished();
    void pausedChanged(bool paused);
    /// setAudioTrack() and setSubtitleTrack() were called; a subtitle track of -1 is none.
    void audioTrackSet(int id);
    void subtitleTrackSet(int id);
    /// loadSubtitleFile() was called.
    void subtitleFileAdded();
    /// Whether the file was written.
    void snapshotTaken(const QString &path, bool written);
    /// Twice a second while the stream plays.
    void positionChanged(qint64 currentMs, qint64 totalMs);

private:
    /// What the user selected for a stream that does not play yet.
    struct PendingSelection
    {
        bool paused = false;
        std::optional<qint64> timeMs;
        std::optional<qint64> continueMs; ///< instead of timeMs
        std::optional<int> audioTrack;
        std::optional<int> subtitleTrack;
        QStringList subtitleFiles;

        bool isEmpty() const;
    };

    /// What the user has set while streams played.
    struct WantedSettings
    {
        PictureSettings picture;
        float rate = 1;
        qint64 audioDelayMs = 0;
        qint64 subtitleDelayMs = 0;
        bool isUsed = false; ///< picture or rate were set: libVLC is to be told
    };

    /// Where a stream has ended.
    struct End
    {
        qint64 timeMs = 0;
        qint64 lengthMs = 0;
    };

    bool isWaiting() const { return nextMedia != nullptr; }
    void startNextMedia();
    void discardNextMedia();
    void handleError(quint64 number);
    void handleEnd(quint64 number);
    void stopAtEnd();
    void selectSubtitleTrack(int id);

    // ---- VlcPlayerPending.cpp ----
    void applyPending();
    void applyPendingContinue();
    void applyPendingTracks();
    void discardPending();

    // ---- VlcPlayerPicture.cpp ----
    void applyWanted();
    void resetForNextStream();

    void checkPlaybackProgress();

    QTimer *progressTimer = nullptr;
    MediaPlayer *mediaPlayer = nullptr;
    VideoOutput *videoOutput = nullptr;
    /// Waits until the previous stream has stopped. With its URL as passed to play().
    libvlc_media_t *nextMedia = nullptr;
    QString nextUrl;
    /// The number of the current stream. Events of earlier streams are ignored.
    quint64 streamNumber = 0;
    bool isLive = false;
    /// Set once the current stream has ended and was stopped.
    std::optional<End> end;
    PendingSelection pending;
    WantedSettings wanted;
    /// Active from the start of a stream until its pending selection is applied.
    QTimer *pendingTimer = nullptr;
    /// The subtitle track to restore when subtitles are enabled; -1 for none.
    qint32 savedSubtitleTrack = -1;
    StallDetector stall;
};

/// The codec name in a FourCC code: its bytes from the lowest to the first zero, trimmed.
QString fourCcToString(quint32 fourcc);
