#pragma once

/// How long to wait before reconnect attempt `attempt` (from 1): 1, 2, 4, 8 seconds, then 15 for
/// every later one; in milliseconds.
constexpr int reconnectDelayMs(int attempt)
{
    constexpr int firstDelayMs = 1000;
    constexpr int longestDelayMs = 15000;
    // From here on the shift alone would exceed the longest delay, and in the end overflow.
    constexpr int firstLongAttempt = 5;
    return attempt >= firstLongAttempt ? longestDelayMs : firstDelayMs << (attempt - 1);
}
