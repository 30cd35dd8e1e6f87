#pragma once

#include "model/CatalogRecords.h"

#include <QObject>
#include <QString>

class QTimer;
class VlcPlayer;

/// What plays, and what becomes of it when its stream fails: a live channel is reconnected with
/// growing delays for as long as it takes, anything else is reported and can be replayed.
///
/// docs/architecture.md lists the states and the events that change them. All calls are for the GUI
/// thread.
class PlaybackSession final : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        Idle,               ///< nothing was played, or it was stopped
        Playing,            ///< the entry plays, or is about to
        WaitingToReconnect, ///< a live channel failed; the timer will play it again
        Reconnecting,       ///< it was played again and has not made progress yet
        Interrupted,        ///< a film or an episode failed; only a replay brings it back
    };
    Q_ENUM(State)

    /// Plays on `vlcPlayer` and listens to it; it is not owned and must outlive the session.
    PlaybackSession(VlcPlayer *vlcPlayer, QObject *parent);

    /// Plays a stream of that kind in place of what plays now. `url` is not empty.
    void play(qint32 kind, const QString &url, const QString &title);
    /// Plays the current entry again, from its start; does nothing when there is none.
    void replay();
    /// Stops, and forgets what played.
    void stop();
    /// The stream failed after it had started: reconnects, or reports the failure.
    void interrupt(const QString &reason);
    /// Forgets the attempts so far, and that another one is due.
    void cancelLiveReconnect();

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

private:
    void start();

    VlcPlayer *player;
    QTimer *reconnectTimer;
    State currentState = State::Idle;
    qint32 currentKind = StreamKind::Live;
    /// Empty when nothing can be replayed.
    QString currentUrl;
    QString currentTitle;
    /// Attempts since the live stream last made progress.
    qint32 reconnectAttempts = 0;
};
