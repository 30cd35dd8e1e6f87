#pragma once

/// Measures how long the main thread stays away from its event loop: from the return of one wait
/// for events to the beginning of the next. HoldMeter.cpp stands in for poll() and ppoll(), with
/// which the event loop waits. For Linux.
namespace HoldMeter {

/// In ms. On a busy machine the thread's own CPU time tells more than the time that passed.
struct Hold
{
    double wallMs = 0;
    double cpuMs = 0;
};

/// Forgets the holds so far, also the one under way.
void restart();
/// The longest hold since restart() by each clock, the one under way included.
Hold longest();

} // namespace HoldMeter
