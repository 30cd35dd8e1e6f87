#pragma once

class QNetworkReply;

/// @file
/// How long a reply may go without any progress before it counts as a network failure, in ms. Set
/// on the network access managers; each byte that arrives starts the time again.

inline constexpr int replyTimeoutMs = 60000;
inline constexpr int posterTimeoutMs = 30000;

/// Makes the transfer timeout of the reply's manager hold behind a redirect as well, where Qt 6.4
/// forgets it. Call it once, right after the request was sent.
void keepTimeoutBehindRedirects(QNetworkReply *reply);
