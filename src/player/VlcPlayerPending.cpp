// What the user selected for a stream while it waited for the previous one to stop.

#include "player/VlcPlayer.h"

#include "player/MediaPlayer.h"

#include <QTimer>

#include <utility>

#include <vlc/vlc.h>

bool VlcPlayer::PendingSelection::isEmpty() const
{
    return !paused && !timeMs && !continueMs && !audioTrack && !subtitleTrack &&
           subtitleFiles.isEmpty();
}

void VlcPlayer::discardPending()
{
    pending = {};
    pendingTimer->stop();
}

/// libVLC accepts none of it before the stream plays.
void VlcPlayer::applyPending()
{
    if (isOpening()) {
        return;
    }
    if (pending.isEmpty() || !isPlaying()) {
        discardPending();
        return;
    }
    const QStringList files = std::exchange(pending.subtitleFiles, {});
    for (const QString &file : files) {
        loadSubtitleFile(file);
    }
    if (pending.timeMs) {
        seek(*pending.timeMs);
    }
    applyPendingContinue();
    applyPendingTracks();
    // A paused stream announces neither tracks nor its length, so the pause comes last.
    const bool othersAreSet = !pending.continueMs && !pending.audioTrack && !pending.subtitleTrack;
    if (othersAreSet && std::exchange(pending.paused, false)) {
        libvlc_media_player_set_pause(mediaPlayer->handle(), 1);
    }
}

void VlcPlayer::continueAt(qint64 ms)
{
    pending.timeMs.reset();
    pending.continueMs = ms;
    if (isWaiting()) {
        return;
    }
    if (!isOpening()) {
        applyPendingContinue();
    }
    if (pending.continueMs) {
        pendingTimer->start();
    }
}

/// The length may be known some time after the stream began to play. A stream that never has one
/// ignores seeks.
void VlcPlayer::applyPendingContinue()
{
    const qint64 length = lengthMs();
    if (!pending.continueMs || (length < 1 && !stall.sawProgress())) {
        return;
    }
    const qint64 ms = *std::exchange(pending.continueMs, std::nullopt);
    if (ms < length) {
        seek(ms);
    }
}

/// A transport stream announces its tracks some time after it began to play.
void VlcPlayer::applyPendingTracks()
{
    libvlc_media_player_t *player = mediaPlayer->handle();
    if (pending.audioTrack && libvlc_audio_set_track(player, *pending.audioTrack) == 0) {
        pending.audioTrack.reset();
    }
    if (pending.subtitleTrack && libvlc_video_set_spu(player, *pending.subtitleTrack) == 0) {
        pending.subtitleTrack.reset();
    }
    if (stall.sawProgress()) {
        // All tracks are known by now, so the stream has no track with that id.
        pending.audioTrack.reset();
        pending.subtitleTrack.reset();
    }
}
