#include "player/PlayerRetirement.h"

#include <condition_variable>
#include <mutex>
#include <thread>

#include <vlc/vlc.h>

struct PlayerRetirement::State
{
    std::mutex mutex;
    std::condition_variable changed;
    int stopping = 0;
};

PlayerRetirement::PlayerRetirement()
    : state(std::make_shared<State>())
{}

PlayerRetirement::Ticket PlayerRetirement::retire(libvlc_media_player_t *mediaPlayer,
                                                  std::chrono::milliseconds patience)
{
    Ticket ticket;
    ticket.done = std::make_shared<std::atomic<bool>>(false);
    std::unique_lock lock(state->mutex);
    ++state->stopping;
    std::thread([shared = state, done = ticket.done, mediaPlayer] {
        libvlc_media_player_stop(mediaPlayer);
        libvlc_media_player_release(mediaPlayer);
        const std::lock_guard guard(shared->mutex);
        --shared->stopping;
        done->store(true);
        shared->changed.notify_all();
    }).detach();
    state->changed.wait_for(lock, patience, [&ticket] { return ticket.isDone(); });
    return ticket;
}

bool PlayerRetirement::waitForAll(std::chrono::milliseconds patience)
{
    std::unique_lock lock(state->mutex);
    return state->changed.wait_for(lock, patience, [this] { return state->stopping == 0; });
}
