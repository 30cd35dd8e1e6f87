#pragma once

#include "fakeprovider/HttpServer.h"

#include <algorithm>
#include <random>

/// @file
/// The replies that tests use again and again: failures of a server, bodies of some type.

inline HttpReply statusReply(int status, const QByteArray &body = {})
{
    HttpReply reply;
    reply.status = status;
    reply.body = body;
    return reply;
}

inline HttpReply bodyReply(const QByteArray &body,
                           const QByteArray &contentType = QByteArrayLiteral("text/plain"))
{
    HttpReply reply;
    reply.body = body;
    reply.contentType = contentType;
    return reply;
}

/// 200,000 bytes that are no stream, the same ones each time.
inline HttpReply garbage()
{
    std::mt19937 numbers(7); // NOLINT: a fixed seed
    QByteArray bytes(200'000, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(),
                  [&numbers] { return static_cast<char>(numbers() & 0xffU); });
    return bodyReply(bytes, QByteArrayLiteral("application/octet-stream"));
}

inline HttpReply neverAnswers()
{
    HttpReply reply;
    reply.neverAnswer = true;
    return reply;
}

/// The reply waits until HttpServer::release().
inline HttpReply held(HttpReply reply)
{
    reply.held = true;
    return reply;
}
inline HttpReply heldReply(const QByteArray &body = {})
{
    return held(bodyReply(body));
}

/// The reply sends that many bytes and then nothing more, with the connection open.
inline HttpReply stalling(HttpReply reply, qint64 bytes)
{
    reply.stallAfter = bytes;
    reply.bytesPerSecond = 0;
    return reply;
}

/// The reply announces its whole length and closes the connection after that many bytes.
inline HttpReply cutShort(HttpReply reply, qint64 bytes)
{
    reply.cutAfter = bytes;
    reply.bytesPerSecond = 0;
    return reply;
}
