#include "providers/XtreamClient.h"

#include "app/NetLog.h"
#include "providers/BackgroundJobs.h"
#include "providers/HttpExchange.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyBody.h"
#include "providers/UserAgent.h"
#include "providers/WebUrl.h"
#include "providers/XtreamCatalog.h"

#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QUrl>
#include <QUrlQuery>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Adds the item of a "key=value" text; a text without a key adds nothing.
void addExtraItem(QUrlQuery &query, const QString &extra)
{
    const qsizetype equals = extra.indexOf(u'=');
    if (equals > 0) {
        query.addQueryItem(extra.left(equals), extra.mid(equals + 1));
    }
}

/// A text as the value of a query item. Servers read a plus sign as a space, but QUrlQuery does not
/// encode it; and it writes "key" for a null value instead of "key=". Text that is percent-encoded
/// stays as it is: accounts are pasted in that form.
QString queryValue(const QString &text)
{
    QString value = text.isNull() ? u""_s : text;
    return value.replace(u'+', "%2B"_L1);
}

QString categoryItem(const QString &categoryId)
{
    return categoryId.isEmpty() ? QString() : "category_id="_L1 + categoryId;
}

/// Films and shows appear by name first.
ItemIndex orderedByName(ItemIndex items)
{
    items.prepareOrder(u"name"_s);
    return items;
}

ItemIndex parseFilmsInOrder(const QByteArray &body)
{
    return orderedByName(parseVodStreams(body));
}

ItemIndex parseShowsInOrder(const QByteArray &body)
{
    return orderedByName(parseSeries(body));
}

/// A callback for request() that parses the body and calls `callback`. A reply without records has
/// failed unless `isExpected` holds for its JSON document.
template <typename Records, typename Record>
auto parsedBy(BackgroundJobs *jobs, Records (*parse)(const QByteArray &),
              bool (QJsonDocument::*isExpected)() const,
              std::function<void(CatalogReply<Record>)> callback)
{
    return [jobs, parse, isExpected, callback = std::move(callback)](ReplyBytes bytes, bool ok) {
        const qsizetype size = bytes.size();
        auto read = [parse, isExpected, bytes = std::move(bytes), ok]() mutable {
            const QByteArray body = bytes.join();
            CatalogReply<Record> reply;
            if (ok) {
                reply.records = parse(body);
            }
            reply.failed =
                reply.records.isEmpty() && !(QJsonDocument::fromJson(body).*isExpected)();
            return reply;
        };
        jobs->run(size, std::move(read), callback);
    };
}

} // namespace

XtreamClient::XtreamClient(QObject *parent)
    : QObject(parent)
    , network(new QNetworkAccessManager(this))
    , parsing(new BackgroundJobs(this))
{
    network->setTransferTimeout(replyTimeoutMs);
}

void XtreamClient::configure(const QString &serverUrl, const QString &user, const QString &pass)
{
    server = serverUrl.endsWith(u'/') ? serverUrl.chopped(1) : serverUrl;
    username = user;
    password = pass;
    userAgent.clear();
    redaction = RedactionScope(password, server);
}

void XtreamClient::configure(const XtreamAccount &account)
{
    configure(account.server, account.username, account.password);
    userAgent = account.userAgent;
}

void XtreamClient::get(const QString &action, const QString &extra,
                       std::function<void(QJsonDocument, bool)> callback)
{
    request(action, extra, ReplyBody::maxAnswerBytes,
            [jobs = parsing, callback = std::move(callback)](ReplyBytes bytes, bool ok) {
                const qsizetype size = bytes.size();
                auto read = [bytes = std::move(bytes), ok]() mutable {
                    QJsonParseError error;
                    const QJsonDocument document = QJsonDocument::fromJson(bytes.join(), &error);
                    return std::pair(document, ok && error.error == QJsonParseError::NoError);
                };
                jobs->run(size, std::move(read),
                          [callback](const std::pair<QJsonDocument, bool> &answer) {
                              callback(answer.first, answer.second);
                          });
            });
}

void XtreamClient::request(const QString &action, const QString &extra, qint64 maxBytes,
                           std::function<void(ReplyBytes, bool)> callback)
{
    QUrlQuery query;
    query.addQueryItem(u"username"_s, queryValue(username));
    query.addQueryItem(u"password"_s, queryValue(password));
    if (!action.isEmpty()) {
        query.addQueryItem(u"action"_s, action);
    }
    addExtraItem(query, extra);
    QUrl url(server + "/player_api.php"_L1, QUrl::TolerantMode);
    url.setQuery(query);

    QNetworkRequest networkRequest(url);
    setUserAgent(networkRequest, userAgent);
    if (netDebugEnabled()) {
        NetLogStream() << "[Xtream] ->" << traceSafe(url.toString(QUrl::FullyEncoded));
    }
    HttpQuestion question;
    question.request = isWebUrl(url) ? networkRequest : QNetworkRequest();
    question.maxBytes = maxBytes;
    question.redirects = HttpQuestion::Redirects::Anywhere;
    auto *exchange = new HttpExchange(network, std::move(question));
    // The captured scope redacts the password until the reply is traced, even if another account is
    // configured before that.
    connect(exchange, &HttpExchange::finished, this,
            [exchange, sent = redaction, callback = std::move(callback)] {
                exchange->deleteLater();
                if (exchange->failed()) {
                    traceFailure("[Xtream]", *exchange);
                    callback({}, false);
                    return;
                }
                ReplyBytes body = exchange->take();
                traceAnswer("[Xtream]", *exchange, body);
                callback(std::move(body), true);
            });
}

void XtreamClient::testLogin(std::function<void(bool, const QString &)> callback)
{
    get({}, {}, [callback = std::move(callback)](const QJsonDocument &document, bool ok) {
        if (!ok) {
            callback(false, tr("Could not reach server or invalid response"));
            return;
        }
        if (acceptsLogin(document)) {
            callback(true, {});
        } else {
            callback(false, tr("Authentication failed - check server URL, username, and password"));
        }
    });
}

bool XtreamClient::acceptsLogin(const QJsonDocument &reply)
{
    const QJsonObject userInfo = reply.object().value("user_info"_L1).toObject();
    return userInfo.value("auth"_L1).toInt() == 1;
}

void XtreamClient::fetchLiveCategories(CategoriesCallback callback)
{
    request(u"get_live_categories"_s, {}, ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseCategories, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchVodCategories(CategoriesCallback callback)
{
    request(u"get_vod_categories"_s, {}, ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseCategories, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchSeriesCategories(CategoriesCallback callback)
{
    request(u"get_series_categories"_s, {}, ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseCategories, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchLiveStreams(const QString &categoryId, ItemsCallback callback)
{
    request(u"get_live_streams"_s, categoryItem(categoryId), ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseLiveStreams, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchVodStreams(const QString &categoryId, ItemsCallback callback)
{
    request(u"get_vod_streams"_s, categoryItem(categoryId), ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseFilmsInOrder, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchSeries(const QString &categoryId, ItemsCallback callback)
{
    request(u"get_series"_s, categoryItem(categoryId), ReplyBody::maxCatalogBytes,
            parsedBy(parsing, &parseShowsInOrder, &QJsonDocument::isArray, std::move(callback)));
}

void XtreamClient::fetchSeriesEpisodes(const QString &seriesId, EpisodesCallback callback)
{
    request(u"get_series_info"_s, "series_id="_L1 + seriesId, ReplyBody::maxAnswerBytes,
            parsedBy(parsing, &parseSeriesEpisodes, &QJsonDocument::isObject, std::move(callback)));
}

QString XtreamClient::liveStreamUrl(const QString &streamId, const QString &extension) const
{
    return liveStreamUrl(account(), streamId, extension);
}

QString XtreamClient::liveStreamUrl(const XtreamAccount &account, const QString &streamId,
                                    const QString &extension)
{
    return streamUrl(account, "live"_L1, streamId, extension);
}

QString XtreamClient::movieStreamUrl(const QString &streamId, const QString &extension) const
{
    return movieStreamUrl(account(), streamId, extension);
}

QString XtreamClient::movieStreamUrl(const XtreamAccount &account, const QString &streamId,
                                     const QString &extension)
{
    return streamUrl(account, "movie"_L1, streamId, extension);
}

QString XtreamClient::episodeStreamUrl(const QString &streamId, const QString &extension) const
{
    return episodeStreamUrl(account(), streamId, extension);
}

QString XtreamClient::episodeStreamUrl(const XtreamAccount &account, const QString &streamId,
                                       const QString &extension)
{
    return streamUrl(account, "series"_L1, streamId, extension);
}

QString XtreamClient::streamUrl(const XtreamAccount &account, QLatin1StringView kind,
                                const QString &streamId, const QString &extension)
{
    // Put together in one go: a value that holds "%1" or the like must stay as it is.
    return account.server + u'/' + kind + u'/' + account.username + u'/' + account.password + u'/' +
           streamId + u'.' + extension;
}
