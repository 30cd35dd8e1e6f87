#include "player/PlayerStop.h"

#include "player/FreedMemory.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include <vlc/vlc.h>

struct PlayerStop::State
{
    std::mutex mutex;
    std::condition_variable changed;
    bool done = false;
};

PlayerStop PlayerStop::begin(MediaPlayerPtr mediaPlayer)
{
    PlayerStop stop;
    stop.state = std::make_shared<State>();
    std::thread([shared = stop.state, player = std::move(mediaPlayer)]() mutable {
        libvlc_media_player_stop(player.get());
        // Release an abandoned player before the stop is reported as done.
        player.reset();
        {
            const std::lock_guard guard(shared->mutex);
            shared->done = true;
            shared->changed.notify_all();
        }
        returnFreedMemory();
    }).detach();
    return stop;
}

bool PlayerStop::isDone() const
{
    return waitUntil(Clock::time_point());
}

bool PlayerStop::waitUntil(Clock::time_point deadline) const
{
    if (!state) {
        return true;
    }
    std::unique_lock lock(state->mutex);
    return state->changed.wait_until(lock, deadline, [this] { return state->done; });
}
