#include "fakeprovider/XtreamProvider.h"

#include "fakeprovider/CatalogGenerator.h"
#include "fakeprovider/Streams.h"

#include <QBuffer>
#include <QDateTime>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <algorithm>

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

/// An element of a catalog's array.
QJsonObject element(const QString &action, const QString &name, int number)
{
    if (isCategories(action)) {
        return {{u"category_id"_s, QString::number(number)}, {u"category_name"_s, name}};
    }
    QJsonObject object{{u"name"_s, name}, {u"category_id"_s, u"1"_s}};
    object.insert(action == XtreamAction::series ? u"series_id"_s : u"stream_id"_s, number);
    if (action == XtreamAction::vodStreams) {
        object.insert(u"container_extension"_s, u"mp4"_s);
    }
    return object;
}

HttpReply poster(const QString &fileName)
{
    constexpr int hueStep = 47; // neighbours differ, and it takes long until a colour comes again
    const int number = QFileInfo(fileName).baseName().toInt();
    const QColor colour = QColor::fromHsv(number * hueStep % 360, 160, 170);
    QImage image(280, 420, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, image.height());
    gradient.setColorAt(0, colour.lighter(140));
    gradient.setColorAt(1, colour.darker(260));
    painter.fillRect(image.rect(), gradient);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 40));
    painter.drawEllipse(QPoint(60 + number % 160, 140 + number % 90), 90, 90);
    painter.end();

    HttpReply reply;
    reply.contentType = "image/png"_ba;
    QBuffer buffer(&reply.body);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return reply;
}

} // namespace

QStringList XtreamAction::catalog()
{
    return {liveCategories, liveStreams, vodCategories, vodStreams, seriesCategories, series};
}

XtreamProvider::XtreamProvider(const QString &user, const QString &password)
    : accountUser(user)
    , accountPassword(password)
{
    server.on(apiPath, [this](const HttpRequest &request) { return answerApi(request); });
    server.onPrefix(movedPrefix, [this](const HttpRequest &request) {
        return answerElsewhere(request.path.mid(movedPrefix.size()), request);
    });
    for (const QString &kind : {u"/live/"_s, u"/movie/"_s, u"/series/"_s}) {
        server.onPrefix(kind, [this](const HttpRequest &request) { return stream(request); });
    }
    server.onPrefix(postersPrefix, [](const HttpRequest &request) {
        return poster(request.path.mid(postersPrefix.size()));
    });
    serveLiveHls(server, hlsPrefix);
}

void XtreamProvider::generateCatalog(const CatalogSize &size, quint32 seed)
{
    CatalogGenerator generator(seed);
    generator.setIconBase(server.url(postersPrefix));
    setReply(XtreamAction::liveCategories, generator.categoriesReply(size.categories));
    setReply(XtreamAction::liveStreams, generator.liveReply(size.channels, size.categories));
    setReply(XtreamAction::vodCategories, generator.categoriesReply(size.categories));
    setReply(XtreamAction::vodStreams, generator.vodReply(size.films, size.categories));
    setReply(XtreamAction::seriesCategories, generator.categoriesReply(size.categories));
    setReply(XtreamAction::series, generator.seriesReply(size.shows, size.categories));
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
    for (const QString &name : names) {
        elements.append(element(action, name, static_cast<int>(elements.size()) + 1));
    }
    setReply(action, QJsonDocument(elements).toJson(QJsonDocument::Compact));
}

QByteArray XtreamProvider::reply(const QString &action) const
{
    const std::lock_guard lock(mutex);
    return replies.value(action, "[]"_ba);
}

void XtreamProvider::setManner(const QString &action, Manner manner)
{
    if (manner == Manner::Held) {
        // An exact answer, since setting it anew takes back an earlier release.
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
        // sends a request anew while it follows its redirect.
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
