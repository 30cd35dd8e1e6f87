#pragma once

#include <chrono>
#include <memory>

struct libvlc_media_player_t;

/// Owns a libVLC media player. The last owner releases it, on whichever thread that is.
using MediaPlayerPtr = std::shared_ptr<libvlc_media_player_t>;

/// One stop of a media player, on a thread of its own.
///
/// libVLC's stop waits for the demuxer, and the one for HLS waits for the segment in flight, as
/// long as the server keeps it waiting: seconds, or for ever. The thread touches nothing but that
/// player, and lives for as long as libVLC takes. A PlayerStop is a copyable handle; its members
/// may be called on any thread.
class PlayerStop final
{
public:
    using Clock = std::chrono::steady_clock;

    /// No stop, which counts as done.
    PlayerStop() = default;

    static PlayerStop begin(MediaPlayerPtr mediaPlayer);

    /// libVLC's stop has returned: the connection and the picture are gone.
    bool isDone() const;
    /// Blocks until the stop is done, until `deadline` at the latest. Returns isDone().
    bool waitUntil(Clock::time_point deadline) const;

private:
    struct State;
    /// Shared with the thread, which may outlive this object.
    std::shared_ptr<State> state;
};
