#pragma once

#include <QString>

class QNetworkReply;
class ReplyBytes;

/// How much of a reply's body a trace line shows, in bytes.
inline constexpr int traceBodyBytes = 2000;

/// A failed reply's error text, without the credentials of the addresses that it was asked from.
QString traceSafeError(const QNetworkReply &reply);

/// Traces a failed reply (error text and HTTP status) under `tag`, when tracing is on.
void traceFailedReply(const char *tag, const QNetworkReply &reply);

/// Traces a reply's HTTP status and the head of its body under `tag`, when tracing is on.
void traceReply(const char *tag, const QNetworkReply &reply, const ReplyBytes &body);
