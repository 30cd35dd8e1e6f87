#include "fakeprovider/XtreamProvider.h"

#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/PosterArt.h"
#include "fakeprovider/Streams.h"

#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString apiPath = u"/player_api.php"_s;
const QString movedPrefix = u"/moved/"_s;
const QString heldPrefix = u"/held/"_s;
const QString postersPrefix = u"/posters/"_s;
const QString hlsPrefix = u"/hls"_s;

HttpReply statusOnly(int status)
{
    HttpReply reply;
    reply.status = status;
    return reply;
}

HttpReply htmlPage()
{
    HttpReply reply;
    reply.contentType = "text/html; charset=utf-8"_ba;
    reply.body = "<!DOCTYPE html><html><body><form>Please log in</form></body></html>"_ba;
    return reply;
}

/// The same request at another path, query and all.
HttpReply redirectTo(const QString &prefix, const QString &action, const HttpRequest &request)
{
    return HttpReply::redirect(prefix + action + request.target.mid(apiPath.size()));
}

QByteArray loginDocument(const QString &user, bool known)
{
    QJsonObject info{{u"auth"_s, known ? 1 : 0}};
    if (known) {
        info.insert(u"username"_s, user);
        info.insert(u"status"_s, u"Active"_s);
        info.insert(u"exp_date"_s, QJsonValue::Null);
        info.insert(u"is_trial"_s, u"0"_s);
        info.insert(u"active_cons"_s, u"0"_s);
        info.insert(u"max_connections"_s, u"1"_s);
        info.insert(u"allowed_output_formats"_s, QJsonArray{u"m3u8"_s, u"ts"_s});
    }
    const QJsonObject root{
        {u"user_info"_s, info},
        {u"server_info"_s, QJsonObject{{u"server_protocol"_s, u"http"_s},
                                       {u"timezone"_s, u"UTC"_s},
                                       {u"timestamp_now"_s, QDateTime::currentSecsSinceEpoch()}}}};
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

bool isCategories(const QString &action)
{
    return action.endsWith("_categories"_L1);
}

QJsonObject category(const QString &name, int number)
{
    return {{u"category_id"_s, QString::number(number)}, {u"category_name"_s, name}};
}

QJsonObject element(const QString &action, const XtreamEntry &entry)
{
    const bool show = action == XtreamAction::series;
    QJsonObject object{{show ? u"series_id"_s : u"stream_id"_s, entry.id},
                       {u"name"_s, entry.name},
                       {u"category_id"_s, QString::number(entry.category)}};
    if (!entry.poster.isEmpty())
        object.insert(show ? u"cover"_s : u"stream_icon"_s, entry.poster);
    if (entry.rating > 0)
        object.insert(u"rating"_s, QString::number(entry.rating));
    if (entry.added > 0)
        object.insert(show ? u"last_modified"_s : u"added"_s, QString::number(entry.added));
    if (action == XtreamAction::vodStreams)
        object.insert(u"container_extension"_s, entry.extension);
    if (!entry.guideId.isEmpty())
        object.insert(u"epg_channel_id"_s, entry.guideId);
    if (entry.archiveDays > 0) {
        object.insert(u"tv_archive"_s, 1);
        object.insert(u"tv_archive_duration"_s, entry.archiveDays);
    }
    return object;
}

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

HttpReply poster(const QByteArray &picture)
{
    HttpReply reply;
    reply.contentType = "image/png"_ba;
    reply.body = picture;
    return reply;
}

} // namespace

QStringList XtreamAction::catalog()
{
    return {liveCategories, liveStreams, vodCategories, vodStreams, seriesCategories, series};
}

XtreamProvider::XtreamProvider(QString user, QString password)
    : accountUser(std::move(user))
    , accountPassword(std::move(password))
{
    server.on(apiPath, [this](const HttpRequest &request) { return answerApi(request); });
    server.onPrefix(movedPrefix, [this](const HttpRequest &request) {
        return answerElsewhere(request.path.mid(movedPrefix.size()), request);
    });
    for (const QString &kind : {u"/live/"_s, u"/movie/"_s, u"/series/"_s}) {
        server.onPrefix(kind, [this](const HttpRequest &request) { return stream(request); });
    }
    server.onPrefix(postersPrefix, [](const HttpRequest &request) {
        const int number = QFileInfo(request.path).baseName().toInt();
        return poster(paintPoster({}, {}, number));
    });
    serveLiveHls(server, hlsPrefix);
    serveGuide();
}

QString XtreamProvider::streamPathOf(const QString &kind, int id, const QString &extension) const
{
    return u"/%1/%2/%3/%4.%5"_s.arg(kind, accountUser, accountPassword, QString::number(id),
                                    extension);
}

void XtreamProvider::append(const QString &action, const QByteArray &elements)
{
    const QByteArray before = reply(action);
    if (before == "[]")
        setReply(action, elements);
    else if (elements != "[]")
        setReply(action, before.chopped(1) + ',' + elements.sliced(1));
}

QString XtreamProvider::add(const QString &action, const XtreamEntry &entry)
{
    XtreamEntry numbered = entry;
    if (numbered.id == 0)
        numbered.id = static_cast<int>(QJsonDocument::fromJson(reply(action)).array().size()) + 1;
    append(action, compact(QJsonArray{element(action, numbered)}));
    offerGuide(numbered);
    if (action == XtreamAction::series)
        return {};
    QString path = action == XtreamAction::liveStreams
                       ? streamPathOf(u"live"_s, numbered.id, u"ts"_s)
                       : streamPathOf(u"movie"_s, numbered.id, numbered.extension);
    if (entry.stream)
        server.on(path, entry.stream);
    return path;
}

QString XtreamProvider::addChannel(const QString &name, const HttpServer::Handler &stream)
{
    XtreamEntry entry;
    entry.name = name;
    entry.stream = stream;
    return add(XtreamAction::liveStreams, entry);
}

QString XtreamProvider::addFilm(const QString &name, const QString &extension,
                                const HttpServer::Handler &stream)
{
    XtreamEntry entry;
    entry.name = name;
    entry.extension = extension;
    entry.stream = stream;
    return add(XtreamAction::vodStreams, entry);
}

QString XtreamProvider::addEpisode(int id, const QString &extension,
                                   const HttpServer::Handler &stream)
{
    QString path = streamPathOf(u"series"_s, id, extension);
    server.on(path, stream);
    return path;
}

QString XtreamProvider::addPoster(int number, const QString &title, const QString &line)
{
    const QString path = postersPrefix + QString::number(number) + ".png"_L1;
    server.on(path, poster(paintPoster(title, line, number)));
    return server.url(path);
}

void XtreamProvider::generateCatalog(const CatalogSize &size, quint32 seed)
{
    CatalogGenerator generator(seed);
    generator.setIconBase(server.url(postersPrefix));
    append(XtreamAction::liveCategories, generator.categoriesReply(size.categories));
    append(XtreamAction::liveStreams, generator.liveReply(size.channels, size.categories));
    append(XtreamAction::vodCategories, generator.categoriesReply(size.categories));
    append(XtreamAction::vodStreams, generator.vodReply(size.films, size.categories));
    append(XtreamAction::seriesCategories, generator.categoriesReply(size.categories));
    append(XtreamAction::series, generator.seriesReply(size.shows, size.categories));
    const std::lock_guard lock(mutex);
    catalogSize = size;
}

void XtreamProvider::setReply(const QString &action, const QByteArray &document)
{
    const std::lock_guard lock(mutex);
    replies.insert(action, document);
}

void XtreamProvider::setNames(const QString &action, const QStringList &names)
{
    QJsonArray elements;
    XtreamEntry entry;
    for (const QString &name : names) {
        entry.name = name;
        ++entry.id;
        elements.append(isCategories(action) ? category(name, entry.id) : element(action, entry));
    }
    setReply(action, compact(elements));
}

QByteArray XtreamProvider::reply(const QString &action) const
{
    const std::lock_guard lock(mutex);
    return replies.value(action, "[]"_ba);
}

void XtreamProvider::setManner(const QString &action, Manner manner)
{
    if (manner == Manner::Held) {
        // An exact answer, since setting it again cancels an earlier release.
        server.on(heldPrefix + action, [this, action](const HttpRequest &request) {
            HttpReply held = answerElsewhere(action, request);
            held.held = true;
            return held;
        });
    }
    const std::lock_guard lock(mutex);
    manners.insert(action, manner);
}

void XtreamProvider::setMannerOfCatalog(Manner manner)
{
    for (const QString &action : XtreamAction::catalog()) {
        setManner(action, manner);
    }
}

void XtreamProvider::release(const QString &action)
{
    server.release(heldPrefix + action);
}

QStringList XtreamProvider::actions() const
{
    const std::lock_guard lock(mutex);
    return askedFor;
}

int XtreamProvider::requestCount(const QString &action) const
{
    return static_cast<int>(actions().count(action));
}

bool XtreamProvider::knows(const QString &user, const QString &password) const
{
    return user == accountUser && password == accountPassword;
}

HttpReply XtreamProvider::answerApi(const HttpRequest &request)
{
    const QString action = request.queryValue(u"action"_s);
    Manner manner = Manner::Plain;
    {
        const std::lock_guard lock(mutex);
        manner = manners.value(action, Manner::Plain);
        // Who is redirected counts where the redirect leads to: QNetworkAccessManager now and then
        // repeats a request while it follows its redirect.
        if (manner != Manner::Redirect && manner != Manner::Held) {
            askedFor << action;
        }
    }
    switch (manner) {
    case Manner::HtmlPage:
        return htmlPage();
    case Manner::Unavailable:
        return statusOnly(503);
    case Manner::Redirect:
        return redirectTo(movedPrefix, action, request);
    case Manner::Held:
        return redirectTo(heldPrefix, action, request);
    default:
        break;
    }
    HttpReply reply = document(action, request);
    reply.gzip = manner == Manner::Gzip;
    reply.chunked = manner == Manner::Chunked;
    reply.cutAfter = manner == Manner::CutReply ? reply.body.size() / 2 : -1;
    return reply;
}

HttpReply XtreamProvider::answerElsewhere(const QString &action, const HttpRequest &request)
{
    {
        const std::lock_guard lock(mutex);
        askedFor << action;
    }
    return document(action, request);
}

HttpReply XtreamProvider::document(const QString &action, const HttpRequest &request) const
{
    const QString user = request.queryValue(u"username"_s);
    const bool known = knows(user, request.queryValue(u"password"_s));
    {
        const std::lock_guard lock(mutex);
        const auto set = replies.constFind(action);
        if (known && set != replies.constEnd()) {
            return HttpReply::json(*set);
        }
    }
    if (!known || action == XtreamAction::login) {
        return HttpReply::json(loginDocument(user, known));
    }
    if (action == XtreamAction::seriesInfo) {
        return HttpReply::json(seriesInfo(request.queryValue(u"series_id"_s)));
    }
    if (action == XtreamAction::shortSchedule || action == XtreamAction::fullSchedule) {
        return HttpReply::json(schedule(action, request));
    }
    return HttpReply::json(reply(action));
}

QByteArray XtreamProvider::seriesInfo(const QString &seriesId) const
{
    CatalogSize size;
    {
        const std::lock_guard lock(mutex);
        size = catalogSize;
    }
    const QJsonArray shows = QJsonDocument::fromJson(reply(XtreamAction::series)).array();
    const auto show = std::find_if(shows.begin(), shows.end(), [&](const QJsonValue &value) {
        return value["series_id"_L1].toVariant().toString() == seriesId;
    });
    const QString name = show != shows.end() ? (*show)["name"_L1].toString() : QString();
    return CatalogGenerator(seriesId.toUInt())
        .seriesInfoReply(name, size.seasons, size.episodesPerSeason);
}

HttpReply XtreamProvider::stream(const HttpRequest &request) const
{
    const QStringList parts = request.path.split(u'/'); // "", kind, user, password, file
    if (parts.size() != 5 || !knows(parts[2], parts[3])) {
        return statusOnly(403);
    }
    if (parts[1] != "live"_L1) {
        return HttpReply::file(streamPath(u"film.mp4"_s));
    }
    return QFileInfo(parts[4]).suffix() == "m3u8"_L1
               ? HttpReply::redirect(hlsPrefix + "/index.m3u8"_L1)
               : liveTs();
}
