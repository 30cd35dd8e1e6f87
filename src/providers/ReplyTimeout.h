#pragma once

/// @file
/// How long a reply may go without any progress before it counts as a network failure, in ms. Set
/// on the network access managers; each byte that arrives starts the time again.

inline constexpr int replyTimeoutMs = 60000;
inline constexpr int posterTimeoutMs = 30000;
