// What the user selected for a stream while it waited for the previous one to stop.

#include "player/VlcPlayer.h"

#include "player/MediaPlayer.h"

#include <QTimer>

#include <utility>

#include <vlc/vlc.h>

bool VlcPlayer::PendingSelection::isEmpty() const
{
    return !paused && !timeMs && !audioTrack && !subtitleTrack && subtitleFiles.isEmpty();
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
    applyPendingTracks();
    // A paused stream announces no more tracks, so the pause comes last.
    const bool tracksAreSet = !pending.audioTrack && !pending.subtitleTrack;
    if (tracksAreSet && std::exchange(pending.paused, false)) {
        libvlc_media_player_set_pause(mediaPlayer->handle(), 1);
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
