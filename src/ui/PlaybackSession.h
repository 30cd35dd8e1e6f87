#pragma once

#include "model/CatalogRecords.h"
#include "ui/ArchiveStream.h"

#include <QObject>
#include <QString>

#include <optional>

class QTimer;
class VlcPlayer;

/// What plays, and what becomes of it when its stream fails: a live channel is reconnected with
/// growing delays for as long as it takes, anything else is reported and can be replayed.
///
/// Of a recording in an archive, each address is tried in turn until one plays. A stream of it that
/// has no length cannot be sought in; another stream that begins at the place takes over then.
///
/// docs/architecture.md lists the states and the events that change them. All calls are for the GUI
/// thread.
class PlaybackSession final : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Idle,               ///< nothing was played, or it was stopped; see canReplay()
        Playing,            ///< the entry plays, or is about to
        WaitingToReconnect, ///< a live channel failed; the timer will play it again
        Reconnecting,       ///< it was played again and has not made progress yet
        Interrupted,        ///< a film or an episode failed; only a replay brings it back
    };
    Q_ENUM(State)

    /// Plays on `vlcPlayer` and listens to it; it is not owned and must outlive the session.
    PlaybackSession(VlcPlayer *vlcPlayer, QObject *parent);

    /// Plays a stream of that kind in place of what plays now. `url` is not empty. Headers that
    /// follow it behind a '|' are sent instead of `headers`, each time that a stream starts.
    void play(qint32 kind, const QString &url, const QString &title,
              const StreamHeaders &headers = {});
    /// Plays a recording in place of what plays now; its kind is StreamKind::Archive.
    void playArchive(const ArchiveStream &archive, const QString &title);
    /// Plays the current entry again, from its start, a recording from where it was interrupted;
    /// does nothing when there is none.
    void replay();
    /// Stops. What played can be replayed, a recording from its start as well.
    void stop();
    /// Stops, and forgets what played.
    void forget();
    /// The stream failed after it had started: reconnects, or reports the failure.
    void interrupt(const QString &reason);
    /// Forgets the attempts so far, and that another one is due.
    void cancelLiveReconnect();

    /// @name Places (PlaybackSessionArchive.cpp)
    /// In milliseconds from the beginning of the entry.
    /// @{
    /// As VlcPlayer::seek(); in a recording to a place from which the archive can send.
    void seek(qint64 ms);
    /// As VlcPlayer::seekRelative(), likewise.
    void seekRelative(qint64 deltaMs);
    /// @}

    State state() const { return currentState; }
    /// True from the start of an entry until it is stopped or given up.
    bool hasMedia() const;
    bool canReplay() const { return !currentUrl.isEmpty(); }
    /// A StreamKind; that of the last entry when nothing plays.
    qint32 kind() const { return currentKind; }
    QString title() const { return currentTitle; }

Q_SIGNALS:
    /// Another entry is about to start.
    void entryChanged();
    /// The entry is about to start, for the first time or again.
    void starting();
    /// The player has its URL.
    void started();
    /// The live channel failed and will be played again; `attempt` counts from 1.
    void reconnectScheduled(int attempt);
    /// The entry failed and was given up; failed() follows.
    void interrupted();
    void stopped();
    /// What the user must know. The entry can be replayed if canReplay() says so.
    void failed(const QString &message);
    /// Twice a second while the entry plays, and while the user seeks. A length of 0 or less is
    /// unknown.
    void positionChanged(qint64 currentMs, qint64 totalMs);
    /// The stream from that address of ArchiveStream::addresses plays.
    void archiveOpened(qsizetype address);

private:
    void begin(qint32 kind, const QString &title);
    void start();

    // ---- PlaybackSessionArchive.cpp ----
    void connectArchive();
    /// False when all addresses were tried, or when the stream has played.
    bool tryNextAddress();
    void keepArchivePlace();
    qint64 positionMs() const;
    qint64 lengthMs() const;

    VlcPlayer *player;
    QTimer *reconnectTimer;
    State currentState = State::Idle;
    qint32 currentKind = StreamKind::Live;
    /// Empty when nothing can be replayed.
    QString currentUrl;
    StreamHeaders currentHeaders;
    QString currentTitle;
    /// Attempts since the live stream last made progress.
    qint32 reconnectAttempts = 0;

    std::optional<ArchiveStream> archive; ///< what plays, if it is a recording
    qsizetype addressIndex = 0;           ///< the one of its addresses that plays
    qint64 streamFromMs = 0;              ///< where its stream begins; otherwise 0
    bool hasAdvanced = false;             ///< its stream has
    std::optional<qint64> soughtMs;       ///< where its next stream will begin
    QTimer *seekTimer;
    QTimer *openTimer; ///< active until the stream of an archive plays
};
