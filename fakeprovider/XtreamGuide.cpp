#include "fakeprovider/Gzip.h"
#include "fakeprovider/Streams.h"
#include "fakeprovider/XtreamProvider.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

// The part of XtreamProvider that serves the guide and the archive.

namespace {

constexpr qint64 secondsPerMinute = 60;
constexpr qint64 secondsPerDay = 24LL * 60 * secondsPerMinute;

HttpReply refusal(int status)
{
    HttpReply reply;
    reply.status = status;
    return reply;
}

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

} // namespace

void XtreamProvider::serveGuide()
{
    server.on(u"/xmltv.php"_s, [this](const HttpRequest &request) {
        if (!knows(request.queryValue(u"username"_s), request.queryValue(u"password"_s)))
            return refusal(403);
        HttpReply reply;
        reply.contentType = "application/octet-stream"_ba;
        reply.body = packedWithGzip(guide());
        return reply;
    });
    server.onPrefix(u"/timeshift/"_s, [this](const HttpRequest &request) {
        // "", "timeshift", user, password, minutes, start, file
        const QStringList parts = request.path.split(u'/');
        if (parts.size() != 7 || !knows(parts[2], parts[3]))
            return refusal(403);
        const QFileInfo file(parts[6]);
        return file.suffix() == "ts"_L1 ? archived(file.baseName(), parts[5], parts[4])
                                        : refusal(500);
    });
    server.on(u"/streaming/timeshift.php"_s, [this](const HttpRequest &request) {
        if (!knows(request.queryValue(u"username"_s), request.queryValue(u"password"_s)))
            return refusal(403);
        return archived(request.queryValue(u"stream"_s), request.queryValue(u"start"_s),
                        request.queryValue(u"duration"_s));
    });
}

void XtreamProvider::offerGuide(const XtreamEntry &channel)
{
    const std::lock_guard lock(mutex);
    if (!channel.guideId.isEmpty())
        programmes.add({channel.id, channel.guideId, channel.name, channel.archiveDays});
    if (channel.archiveDays > 0)
        archives.insert(channel.id, channel);
}

QByteArray XtreamProvider::guide() const
{
    const std::lock_guard lock(mutex);
    return programmes.xmltv(now());
}

QByteArray XtreamProvider::schedule(const QString &action, const HttpRequest &request) const
{
    constexpr int usual = 4;
    const int id = request.queryValue(u"stream_id"_s).toInt();
    const QString limit = request.queryValue(u"limit"_s);
    const std::lock_guard lock(mutex);
    return action == XtreamAction::fullSchedule
               ? programmes.fullSchedule(id, now())
               : programmes.shortSchedule(id, now(), limit.isEmpty() ? usual : limit.toInt());
}

HttpReply XtreamProvider::archived(const QString &stream, const QString &start,
                                   const QString &minutes) const
{
    QDateTime begin = QDateTime::fromString(start, u"yyyy-MM-dd:HH-mm"_s);
    begin.setTimeSpec(Qt::UTC);
    XtreamEntry channel;
    {
        const std::lock_guard lock(mutex);
        channel = archives.value(stream.toInt());
    }
    const qint64 age = begin.isValid() ? now() - begin.toSecsSinceEpoch() : 0;
    if (age <= 0 || age > channel.archiveDays * secondsPerDay)
        return refusal(404);
    // What runs now is there as far as it has run.
    const qint64 seconds = std::clamp(minutes.toLongLong() * secondsPerMinute, qint64(1), age);
    return channel.archive ? channel.archive(seconds)
                           : archivedClip(streamPath(u"live.ts"_s), seconds);
}
