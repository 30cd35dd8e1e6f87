#pragma once

#include <QString>

class HttpExchange;
class ReplyBytes;

/// How much of a reply's body a trace line shows, in bytes.
inline constexpr int traceBodyBytes = 2000;

/// A failed exchange's error text, without the credentials of the addresses that were asked.
QString traceSafeError(const HttpExchange &exchange);

/// Traces a failed exchange (error text and HTTP status) under `tag`, when tracing is on.
void traceFailure(const char *tag, const HttpExchange &exchange);

/// Traces an answer's HTTP status and the head of its body under `tag`, when tracing is on.
void traceAnswer(const char *tag, const HttpExchange &exchange, const ReplyBytes &body);
