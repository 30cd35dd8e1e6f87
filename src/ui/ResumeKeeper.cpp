#include "ui/ResumeKeeper.h"

#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "ui/PlaybackSession.h"

#include <QTimer>

#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 writeEveryMs = 10000;
constexpr int offerDurationMs = 15000;

} // namespace

ResumeKeeper::ResumeKeeper(VlcPlayer *vlcPlayer, PlaybackSession *session, Library *keptLibrary,
                           QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , library(keptLibrary)
    , offerTimer(new QTimer(this))
{
    offerTimer->setObjectName(u"offerTimer"_s);
    offerTimer->setSingleShot(true);
    offerTimer->setInterval(offerDurationMs);
    connect(offerTimer, &QTimer::timeout, this, &ResumeKeeper::withdraw);
    connect(session, &PlaybackSession::starting, this, &ResumeKeeper::beginStream);
    connect(session, &PlaybackSession::interrupted, this, &ResumeKeeper::noteInterruption);
    connect(session, &PlaybackSession::stopped, this,
            [this, session] { follow(session->canReplay() ? current : std::nullopt); });
    connect(player, &VlcPlayer::positionChanged, this, &ResumeKeeper::notePosition);
    connect(player, &VlcPlayer::finished, this, &ResumeKeeper::noteEnd);
}

void ResumeKeeper::follow(const std::optional<Progress> &entry)
{
    keepPlace();
    withdraw();
    current = entry;
    hasPlayed = false;
    interruptedMs = 0;
}

void ResumeKeeper::keepPlace()
{
    if (!current || !hasPlayed) {
        return;
    }
    // The user may have moved a paused stream, which reports nothing.
    const qint64 now = player->timeMs();
    if (now > 0) {
        current->positionMs = now;
    }
    write();
}

void ResumeKeeper::continueAtOffer()
{
    const qint64 place = offeredMs;
    withdraw();
    if (place > 0) {
        player->continueAt(place);
    }
}

void ResumeKeeper::moveSource(const QString &from, const QString &to)
{
    if (!current || current->source != from) {
        return;
    }
    if (to.isEmpty()) {
        withdraw();
        current.reset();
    } else {
        current->source = to;
    }
}

void ResumeKeeper::beginStream()
{
    if (!current) {
        return;
    }
    hasPlayed = false;
    writtenMs = 0;
    const qint64 kept =
        library->progress(current->source, current->kind).value(current->id).positionMs;
    offer(interruptedMs > 0 ? interruptedMs : kept);
}

void ResumeKeeper::notePosition(qint64 positionMs, qint64 durationMs)
{
    // A stream of unknown length cannot be resumed: libVLC seeks nowhere in it.
    if (!current || durationMs < 1) {
        return;
    }
    hasPlayed = true;
    current->positionMs = positionMs;
    current->durationMs = durationMs;
    if (std::abs(positionMs - writtenMs) >= writeEveryMs) {
        write();
    }
}

void ResumeKeeper::noteEnd()
{
    if (current && hasPlayed) {
        current->positionMs = current->durationMs;
        write();
    }
}

void ResumeKeeper::noteInterruption()
{
    withdraw();
    if (!current || !hasPlayed) {
        return;
    }
    if (current->positionMs >= Library::begunAfterMs) {
        interruptedMs = current->positionMs;
    }
    write();
}

void ResumeKeeper::write()
{
    writtenMs = current->positionMs;
    library->notePosition(*current);
}

void ResumeKeeper::offer(qint64 positionMs)
{
    withdraw();
    if (positionMs > 0) {
        offeredMs = positionMs;
        offerTimer->start();
        Q_EMIT offered(positionMs);
    }
}

void ResumeKeeper::withdraw()
{
    offerTimer->stop();
    if (std::exchange(offeredMs, 0) > 0) {
        Q_EMIT withdrawn();
    }
}
