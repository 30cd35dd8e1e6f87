#pragma once

#include <chrono>
#include <memory>

struct libvlc_media_player_t;

/// Owns a libVLC media player. The last owner releases it, on any thread.
using MediaPlayerPtr = std::shared_ptr<libvlc_media_player_t>;

/// A copyable handle to one stop of a media player, which runs on its own thread.
///
/// libVLC's stop waits for the demuxer. The HLS demuxer waits for the segment in flight for as long
/// as the server takes, which can be forever. The thread uses only that media player and runs until
/// libVLC returns. All members may be called on any thread.
class PlayerStop final
{
public:
    using Clock = std::chrono::steady_clock;

    /// Refers to no stop and counts as done.
    PlayerStop() = default;

    static PlayerStop begin(MediaPlayerPtr mediaPlayer);

    /// Whether libVLC's stop has returned. The connection and the picture are gone then.
    bool isDone() const;
    /// Blocks until the stop is done, but not beyond `deadline`. Returns isDone().
    bool waitUntil(Clock::time_point deadline) const;

private:
    struct State;
    /// Shared with the thread, which may outlive this object.
    std::shared_ptr<State> state;
};
