// What the user chose for a stream while it waited for the stop of the one before.

#include "player/VlcPlayer.h"

#include "player/MediaPlayer.h"

#include <QTimer>

#include <utility>

#include <vlc/vlc.h>

bool VlcPlayer::Wishes::isEmpty() const
{
    return !paused && !timeMs && !audioTrack && !subtitleTrack && subtitleFiles.isEmpty();
}

void VlcPlayer::forgetWishes()
{
    wishes = {};
    wishTimer->stop();
}

/// libVLC takes none of them before it plays the stream.
void VlcPlayer::applyWishes()
{
    if (isOpening()) {
        return;
    }
    if (wishes.isEmpty() || !isPlaying()) {
        forgetWishes();
        return;
    }
    const QStringList files = std::exchange(wishes.subtitleFiles, {});
    for (const QString &file : files) {
        loadSubtitleFile(file);
    }
    if (wishes.timeMs) {
        seek(*wishes.timeMs);
    }
    applyTrackWishes();
    // A stream that stands makes no more tracks known.
    const bool tracksAreSet = !wishes.audioTrack && !wishes.subtitleTrack;
    if (tracksAreSet && std::exchange(wishes.paused, false)) {
        libvlc_media_player_set_pause(mediaPlayer->handle(), 1);
    }
}

/// A transport stream makes its tracks known some time after it began to play.
void VlcPlayer::applyTrackWishes()
{
    libvlc_media_player_t *player = mediaPlayer->handle();
    if (wishes.audioTrack && libvlc_audio_set_track(player, *wishes.audioTrack) == 0) {
        wishes.audioTrack.reset();
    }
    if (wishes.subtitleTrack && libvlc_video_set_spu(player, *wishes.subtitleTrack) == 0) {
        wishes.subtitleTrack.reset();
    }
    if (stall.sawProgress()) {
        // It has all its tracks by now: it has none of that number.
        wishes.audioTrack.reset();
        wishes.subtitleTrack.reset();
    }
}
