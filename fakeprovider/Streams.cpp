#include "fakeprovider/Streams.h"

#include "fakeprovider/TransportClip.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSegmentCount = 15;
constexpr qint64 kSegmentMs = 2000;
constexpr qint64 kWindowSize = 4;

QByteArray livePlaylist(qint64 first)
{
    // The clip's timestamps start over with its first segment.
    const qint64 roundsBefore = first == 0 ? 0 : (first - 1) / kSegmentCount;
    QByteArray text = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                      "#EXT-X-MEDIA-SEQUENCE:" +
                      QByteArray::number(first) +
                      "\n#EXT-X-DISCONTINUITY-SEQUENCE:" + QByteArray::number(roundsBefore) + '\n';
    for (qint64 number = first; number < first + kWindowSize; ++number) {
        if (number > 0 && number % kSegmentCount == 0)
            text += "#EXT-X-DISCONTINUITY\n";
        text += "#EXTINF:2.0,\nsegment" + QByteArray::number(number) + ".ts\n";
    }
    return text;
}

} // namespace

QString streamPath(const QString &name)
{
    return QStringLiteral(VANTIRO_STREAMS_DIR "/") + name;
}

HttpReply liveClip(const QString &path, int seconds, int burstSeconds)
{
    HttpReply reply = HttpReply::file(path);
    if (reply.body.isEmpty())
        return reply;
    const QByteArray clip = std::exchange(reply.body, {});
    reply.bytesPerSecond = clip.size() / seconds;
    reply.burst = reply.bytesPerSecond * burstSeconds;
    reply.producer = [clip](qint64 offset) {
        constexpr qint64 piece = 188LL * 64;
        const qint64 position = offset % clip.size();
        return clip.sliced(position, std::min<qint64>(piece, clip.size() - position));
    };
    return reply;
}

HttpReply archivedClip(const QString &path, qint64 seconds)
{
    HttpReply reply = HttpReply::file(path);
    if (reply.body.isEmpty())
        return reply;
    const TransportClip clip(std::exchange(reply.body, {}));
    reply.producedBytes = clip.bytesFor(seconds);
    reply.producer = [clip](qint64 offset) { return clip.bytesAt(offset); };
    return reply;
}

HttpReply liveTs()
{
    constexpr int seconds = 180;
    return liveClip(streamPath(u"live.ts"_s), seconds);
}

void serveLiveHls(HttpServer &server, const QString &prefix)
{
    QElapsedTimer clock;
    clock.start();
    const QString begin = prefix + u"/segment"_s;
    server.on(prefix + u"/index.m3u8"_s, [clock](const HttpRequest &) {
        HttpReply reply;
        reply.contentType = "application/vnd.apple.mpegurl"_ba;
        reply.body = livePlaylist(clock.elapsed() / kSegmentMs);
        return reply;
    });
    server.onPrefix(begin, [clock, begin](const HttpRequest &request) {
        const QString name = request.path.mid(begin.size());
        const qint64 number = name.left(name.indexOf(u'.')).toLongLong();
        const qint64 first = clock.elapsed() / kSegmentMs;
        // A client may still fetch what the playlist that it holds has named.
        if (number < first - kWindowSize || number >= first + kWindowSize) {
            HttpReply gone;
            gone.status = 404;
            return gone;
        }
        return HttpReply::file(
            streamPath(u"hls/segment%1.ts"_s.arg(number % kSegmentCount, 2, 10, QChar(u'0'))));
    });
}
