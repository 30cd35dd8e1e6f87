#pragma once

#include <atomic>
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

    /// Tells whether one player is gone, and with it its connection and its picture. Null-safe.
    class Ticket
    {
    public:
        bool isDone() const { return !done || done->load(); }

    private:
        friend class PlayerRetirement;
        std::shared_ptr<std::atomic<bool>> done;
    };

    /// Takes over a player and begins to stop it. Waits for the end no longer than `patience`, so
    /// that in the usual case the player is gone on return. Its event callbacks must be detached.
    Ticket retire(libvlc_media_player_t *mediaPlayer, std::chrono::milliseconds patience);

    /// Waits until all players are gone. False when some still are not; they then go on stopping
    /// for as long as the process lives, and their libVLC instance must not be released.
    bool waitForAll(std::chrono::milliseconds patience);

private:
    struct State;
    /// Shared with the threads, which may outlive this object.
    std::shared_ptr<State> state;
};
