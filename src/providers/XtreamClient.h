#pragma once

#include "app/TraceSecrets.h"
#include "model/CatalogRecords.h"
#include "providers/CatalogReply.h"
#include "providers/XtreamAccount.h"

#include <QJsonDocument>
#include <QObject>
#include <QString>

#include <functional>

class BackgroundJobs;
class QNetworkAccessManager;
class ReplyBytes;

/// Talks to an Xtream Codes server: JSON requests to its "/player_api.php", the login check, the
/// catalog, and the URLs of its streams.
///
/// GUI thread only. Each callback is called exactly once, later, on the GUI thread, unless the
/// client is destroyed first. Requests are independent and may run concurrently; one that makes no
/// progress for replyTimeoutMs, or brings too many bytes, fails. Nothing is retried. Large replies
/// are parsed on another thread; results are handed over in the order in which they were received.
class XtreamClient final : public QObject
{
    Q_OBJECT

public:
    // A callable that takes a QList works as well: a reply converts to its records.
    using CategoriesCallback = std::function<void(CatalogReply<Category>)>;
    using ItemsCallback = std::function<void(CatalogReply<MediaItem>)>;
    using EpisodesCallback = std::function<void(CatalogReply<Episode>)>;

    explicit XtreamClient(QObject *parent);

    /// Sets the account. One trailing slash of `server` is removed; nothing else is checked.
    /// Requests in flight keep the account that they were sent with.
    void configure(const QString &server, const QString &username, const QString &password);
    /// The same, with the account's user agent.
    void configure(const XtreamAccount &account);
    XtreamAccount account() const { return {server, username, password, userAgent}; }

    /// Sends one request. `action` may be empty; `extra` is empty or one "key=value" item. The flag
    /// is true only when the network succeeded and the body is JSON.
    void get(const QString &action, const QString &extra,
             std::function<void(QJsonDocument, bool)> callback);

    /// Checks the account; on failure the second argument is a message for the user.
    void testLogin(std::function<void(bool, const QString &)> callback);
    /// Whether the reply to a login, a JSON document, accepts the account.
    static bool acceptsLogin(const QJsonDocument &reply);

    /// @name Catalog
    /// A request fails when the network does, or when the reply is not the kind of JSON document
    /// that was asked for; see XtreamCatalog.h for how replies are read. An empty category id asks
    /// for the entries of all categories.
    /// @{
    void fetchLiveCategories(CategoriesCallback callback);
    void fetchVodCategories(CategoriesCallback callback);
    void fetchSeriesCategories(CategoriesCallback callback);
    void fetchLiveStreams(const QString &categoryId, ItemsCallback callback);
    void fetchVodStreams(const QString &categoryId, ItemsCallback callback);
    void fetchSeries(const QString &categoryId, ItemsCallback callback);
    void fetchSeriesEpisodes(const QString &seriesId, EpisodesCallback callback);
    /// @}

    /// @name Stream URLs
    /// The values are inserted without URL encoding.
    /// @{
    QString liveStreamUrl(const QString &streamId, const QString &extension) const;
    QString movieStreamUrl(const QString &streamId, const QString &extension) const;
    QString episodeStreamUrl(const QString &streamId, const QString &extension) const;
    /// The same for the given account.
    static QString liveStreamUrl(const XtreamAccount &account, const QString &streamId,
                                 const QString &extension);
    static QString movieStreamUrl(const XtreamAccount &account, const QString &streamId,
                                  const QString &extension);
    static QString episodeStreamUrl(const XtreamAccount &account, const QString &streamId,
                                    const QString &extension);
    /// @}

private:
    /// Sends one request and hands over its body, of `maxBytes` at most; the flag is true when the
    /// network succeeded.
    void request(const QString &action, const QString &extra, qint64 maxBytes,
                 std::function<void(ReplyBytes, bool)> callback);
    static QString streamUrl(const XtreamAccount &account, QLatin1StringView kind,
                             const QString &streamId, const QString &extension);

    QNetworkAccessManager *network;
    BackgroundJobs *parsing;
    QString server;
    QString username;
    QString password;
    QString userAgent;
    RedactionScope redaction; ///< of this account's credentials
};
