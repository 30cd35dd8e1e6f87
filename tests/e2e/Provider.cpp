#include "e2e/Provider.h"

#include "fakeprovider/Streams.h"
#include "model/SourceManager.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString categoryId = u"1"_s;

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

} // namespace

QString Provider::addChannel(const QString &name, const HttpReply &reply)
{
    return addChannel(name, [reply](const HttpRequest &) { return reply; });
}

QString Provider::addChannel(const QString &name, const HttpServer::Handler &handler)
{
    channels.append({name, u"ts"_s});
    const QString path = u"/live/viewer/secret/%1.ts"_s.arg(channels.size());
    server.on(path, handler);
    return path;
}

QString Provider::addFilm(const QString &name, const QString &extension, const HttpReply &reply)
{
    return addFilm(name, extension, [reply](const HttpRequest &) { return reply; });
}

QString Provider::addFilm(const QString &name, const QString &extension,
                          const HttpServer::Handler &handler)
{
    films.append({name, extension});
    const QString path = u"/movie/viewer/secret/%1.%2"_s.arg(films.size()).arg(extension);
    server.on(path, handler);
    return path;
}

void Provider::store()
{
    QHash<QString, QByteArray> answers;
    for (const QString &action : {u"get_live_categories"_s, u"get_vod_categories"_s,
                                  u"get_live_streams"_s, u"get_vod_streams"_s}) {
        answers.insert(action, answer(action));
    }
    server.on(u"/player_api.php"_s, [answers](const HttpRequest &request) {
        return HttpReply::json(answers.value(request.queryValue(u"action"_s), "[]"_ba));
    });

    SourceConfig account;
    account.type = SourceType::Xtream;
    account.name = u"Home"_s;
    account.url = server.url();
    account.username = u"viewer"_s;
    account.password = u"secret"_s;
    account.liveExtension = u"ts"_s;
    SourceManager manager(nullptr);
    manager.saveSource(account);
}

void Provider::storeAlso(const QString &name, const QString &path) const
{
    SourceConfig playlist;
    playlist.name = name;
    playlist.url = server.url(path);
    SourceManager(nullptr).saveSource(playlist);
}

QByteArray Provider::answer(const QString &action) const
{
    QJsonArray array;
    if (action.endsWith("categories"_L1)) {
        array.append(QJsonObject{{u"category_id"_s, categoryId}, {u"category_name"_s, u"Test"_s}});
        return compact(array);
    }
    const bool live = action == "get_live_streams"_L1;
    for (const Entry &entry : live ? channels : films) {
        array.append(QJsonObject{{u"stream_id"_s, array.size() + 1},
                                 {u"name"_s, entry.name},
                                 {u"category_id"_s, categoryId},
                                 {u"stream_icon"_s, live ? QString() : filmPoster},
                                 {u"container_extension"_s, entry.extension}});
    }
    return compact(array);
}

HttpReply liveStream(const QString &streamName, int seconds)
{
    HttpReply reply = HttpReply::file(streamPath(streamName));
    const QByteArray stream = reply.body;
    reply.bytesPerSecond = stream.size() / seconds;
    // What it takes to begin at once.
    reply.burst = reply.bytesPerSecond * 2;
    reply.producer = [stream](qint64 offset) {
        constexpr qint64 piece = 188 * 64;
        const qint64 position = offset % stream.size();
        return stream.sliced(position, std::min<qint64>(piece, stream.size() - position));
    };
    return reply;
}
