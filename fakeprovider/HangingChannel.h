#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"

#include <QString>

/// An HLS channel that plays for two seconds, and whose next segment never comes. libVLC's stop
/// hangs once the segment was asked for.
class HangingChannel
{
public:
    explicit HangingChannel(HttpServer &httpServer)
        : server(httpServer)
    {
        HttpReply never;
        never.neverAnswer = true;
        server.on(segment, never);
        server.on(QStringLiteral("/first.ts"),
                  HttpReply::file(streamPath(QStringLiteral("hls/segment00.ts"))));
        server.on(QStringLiteral("/hanging.m3u8"), playlist());
    }

    /// What the channel's address answers with, for those that give it another one.
    static HttpReply playlist()
    {
        HttpReply reply;
        reply.contentType = "application/vnd.apple.mpegurl";
        reply.body = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                     "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:2.0,\n/first.ts\n"
                     "#EXTINF:2.0,\n/hanging.ts\n";
        return reply;
    }

    QString url() const { return server.url(QStringLiteral("/hanging.m3u8")); }
    /// The stop of so many media players hangs from now on.
    bool hangs(int count = 1) const { return server.openConnections(segment) >= count; }
    /// Ends the hang, and that of libVLC's second attempt.
    void letGo()
    {
        HttpReply missing;
        missing.status = 404;
        server.on(segment, missing);
        server.dropConnections(segment);
    }

private:
    HttpServer &server;
    const QString segment = QStringLiteral("/hanging.ts");
};
