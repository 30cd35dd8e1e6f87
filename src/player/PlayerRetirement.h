#pragma once

#include <chrono>
#include <memory>

struct libvlc_media_player_t;

/// Stops and releases media players away from the GUI thread.
///
/// libVLC's stop waits for the demuxer, and the one for HLS waits for the segment in flight, as
/// long as the server keeps it waiting: seconds, or for ever. So each player that is done with is
/// stopped on a thread of its own, which touches nothing but that player.
class PlayerRetirement final
{
public:
    PlayerRetirement();

    /// Takes over a player and begins to stop it. Waits for the end no longer than `patience`, so
    /// that in the usual case the old connection is closed and the old picture gone on return. The
    /// player's event callbacks must be detached.
    void retire(libvlc_media_player_t *mediaPlayer, std::chrono::milliseconds patience);

    /// Waits until all players are gone. False when some still are not; they then go on stopping
    /// for as long as the process lives, and their libVLC instance must not be released.
    bool waitForAll(std::chrono::milliseconds patience);

private:
    struct State;
    /// Shared with the threads, which may outlive this object.
    std::shared_ptr<State> state;
};
