#pragma once

#include "library/LibraryRecords.h"

#include <QObject>

#include <optional>

class Library;
class PlaybackSession;
class VlcPlayer;

class QTimer;

/// Keeps in the library how far the film or the episode that plays was watched: after every ten
/// seconds of it, at its end, and when something ends it earlier. When it starts it is offered for
/// 15 seconds to continue where it was left, and after an interruption where that was.
class ResumeKeeper final : public QObject
{
    Q_OBJECT

public:
    /// None of the three is owned; they must outlive the keeper.
    ResumeKeeper(VlcPlayer *player, PlaybackSession *session, Library *library, QObject *parent);

    /// Says what is going to play, before the session is told to: an entry whose place is kept, or
    /// none. Keeps the place of what played before.
    void follow(const std::optional<Progress> &entry);
    /// Keeps the place that playback has reached.
    void keepPlace();
    /// Continues at the place that is offered; plays on if there is none.
    void continueAtOffer();
    /// The source has another name, or was deleted when `to` is empty: then nothing more is kept.
    void moveSource(const QString &from, const QString &to);

Q_SIGNALS:
    /// An offer stands from now on.
    void offered(qint64 positionMs);
    /// It was taken, has expired, or what it was for no longer plays.
    void withdrawn();

private:
    void beginStream();
    void notePosition(qint64 positionMs, qint64 durationMs);
    void noteEnd();
    void noteInterruption();
    void write();
    void offer(qint64 positionMs);
    void withdraw();

    VlcPlayer *player;
    Library *library;
    /// What plays, and where it is.
    std::optional<Progress> current;
    /// Whether the current stream of it has reported a position.
    bool hasPlayed = false;
    /// The position that was written last.
    qint64 writtenMs = 0;
    /// Where the entry was interrupted; 0 if it was not.
    qint64 interruptedMs = 0;
    /// 0 when there is no offer.
    qint64 offeredMs = 0;
    QTimer *offerTimer;
};
