// Recordings in an archive: which address plays, and how to seek in streams without a length.

#include "ui/PlaybackSession.h"

#include "player/VlcPlayer.h"

#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How long the user has not sought before the next stream begins: a key that is held seeks often.
constexpr int seekPauseMs = 300;
/// How long an address may send nothing that plays. libVLC itself waits for as long as the
/// connection stands.
constexpr int openPatienceMs = 15'000;
/// Seeks keep this distance from the end.
constexpr qint64 seekMarginMs = 1000;
/// A stream that ends this close to the end has ended normally: what an archive holds of a
/// programme is seldom as long as the guide says.
constexpr qint64 endMarginMs = 120'000;

} // namespace

void PlaybackSession::playArchive(const ArchiveStream &recording, const QString &title)
{
    archive = recording;
    currentHeaders = recording.headers;
    begin(StreamKind::Archive, title);
}

void PlaybackSession::connectArchive()
{
    seekTimer->setObjectName(u"seekTimer"_s);
    seekTimer->setSingleShot(true);
    seekTimer->setInterval(seekPauseMs);
    connect(seekTimer, &QTimer::timeout, this, &PlaybackSession::start);
    openTimer->setObjectName(u"openTimer"_s);
    openTimer->setSingleShot(true);
    openTimer->setInterval(openPatienceMs);
    connect(openTimer, &QTimer::timeout, this, [this] {
        const bool isPaused = !player->isOpening() && !player->isPlaying();
        if (!isPaused) {
            player->stop();
            interrupt(tr("The archive sent nothing that plays."));
        }
    });
    connect(player, &VlcPlayer::positionChanged, this, [this](qint64 currentMs, qint64 totalMs) {
        if (archive) {
            Q_EMIT positionChanged(positionMs(), lengthMs());
        } else {
            Q_EMIT positionChanged(currentMs, totalMs);
        }
    });
    connect(player, &VlcPlayer::playbackProgressing, this, [this] {
        if (archive && !hasAdvanced) {
            hasAdvanced = true;
            openTimer->stop();
            Q_EMIT archiveOpened(addressIndex);
        }
    });
    connect(player, &VlcPlayer::finished, this, [this] {
        if (!archive) {
            return;
        }
        if (!hasAdvanced && streamFromMs == 0) {
            // A page with an error message, for instance.
            interrupt(tr("The archive sent nothing that plays."));
        } else if (hasAdvanced && positionMs() + endMarginMs < lengthMs()) {
            interrupt(tr("The archive stopped sending data."));
        }
    });
}

bool PlaybackSession::tryNextAddress()
{
    openTimer->stop();
    if (!archive || currentState == State::Idle || hasAdvanced ||
        addressIndex + 1 >= archive->addresses(streamFromMs).size()) {
        return false;
    }
    ++addressIndex;
    start();
    return true;
}

/// For a replay.
void PlaybackSession::keepArchivePlace()
{
    if (!archive) {
        return;
    }
    if (hasAdvanced) {
        streamFromMs = positionMs() - positionMs() % archive->stepMs;
    } else {
        addressIndex = 0;
    }
}

void PlaybackSession::seek(qint64 ms)
{
    if (!archive) {
        player->seek(ms);
        return;
    }
    const qint64 here = positionMs();
    const qint64 target = std::clamp<qint64>(ms, 0, std::max<qint64>(lengthMs() - seekMarginMs, 0));
    if (!soughtMs && player->lengthMs() > 0 && target >= streamFromMs) {
        player->seek(target - streamFromMs);
        return;
    }
    qint64 place = target - target % archive->stepMs;
    if (target > here && place <= here) {
        place += archive->stepMs;
    }
    const bool isFixed = archive->addresses(archive->stepMs) == archive->addresses(0);
    if (place >= lengthMs() || isFixed) {
        return;
    }
    soughtMs = place;
    Q_EMIT positionChanged(place, lengthMs());
    seekTimer->start();
}

void PlaybackSession::seekRelative(qint64 deltaMs)
{
    if (archive) {
        seek(positionMs() + deltaMs);
    } else {
        player->seekRelative(deltaMs);
    }
}

qint64 PlaybackSession::positionMs() const
{
    return soughtMs.value_or(streamFromMs + std::max<qint64>(player->timeMs(), 0));
}

qint64 PlaybackSession::lengthMs() const
{
    const qint64 streamLength = player->lengthMs();
    return archive && streamLength < 1 ? archive->lengthMs : streamFromMs + streamLength;
}
