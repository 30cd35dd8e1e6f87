#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/ProviderGuide.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <mutex>

/// The "action" values of "player_api.php". A login check has none.
namespace XtreamAction {
inline const QString login;
inline const QString liveCategories = QStringLiteral("get_live_categories");
inline const QString liveStreams = QStringLiteral("get_live_streams");
inline const QString vodCategories = QStringLiteral("get_vod_categories");
inline const QString vodStreams = QStringLiteral("get_vod_streams");
inline const QString seriesCategories = QStringLiteral("get_series_categories");
inline const QString series = QStringLiteral("get_series");
inline const QString seriesInfo = QStringLiteral("get_series_info");
inline const QString shortSchedule = QStringLiteral("get_short_epg");
inline const QString fullSchedule = QStringLiteral("get_simple_data_table");

/// The six that make up a whole catalog: categories and entries of the three kinds.
QStringList catalog();
} // namespace XtreamAction

/// An entry of a catalog: a channel, a film or a show.
struct XtreamEntry
{
    QString name;
    int id = 0; ///< 0 takes the place in the catalog, counted from 1
    int category = 1;
    QString extension = QStringLiteral("mp4"); ///< of a film
    QString poster;                            ///< its whole URL
    double rating = 0;
    qint64 added = 0; ///< seconds since the epoch
    /// What the stream answers with, in place of the provider's own streams.
    HttpServer::Handler stream;

    QString guideId;     ///< of a channel: its id in the provider's guide; empty for no guide
    int archiveDays = 0; ///< of a channel
    /// What a channel's archive answers with, in place of the provider's own stream: so many
    /// seconds that can be moved in.
    std::function<HttpReply(qint64 seconds)> archive;
};

/// An Xtream Codes provider with one account, on a web server of its own.
///
/// "/player_api.php"                        the login and the catalogs, as JSON
/// "/live/<user>/<password>/<id>.<ext>"     an endless channel; "m3u8" gives HLS, all else TS
/// "/movie/..." and "/series/..."           a film of one minute, with Range support
/// "/posters/<n>.png"                       a poster, another colour for each number
/// "/xmltv.php"                             the guide of the channels that have one, as a gzip file
/// "/timeshift/<user>/<password>/<minutes>/<start in UTC>/<id>.ts"
///                                          what a channel with an archive has shown; also as
///                                          "/streaming/timeshift.php", and 500 for "m3u8"
///
/// Whoever does not know the account gets "auth" 0 from the interface and 403 for a stream. The
/// streams are those of Streams.h; a test that plays needs them built. All members may be
/// called from any thread.
class XtreamProvider
{
public:
    struct CatalogSize
    {
        int categories = 10; ///< of each kind
        int channels = 0;
        int films = 0;
        int shows = 0;
        int seasons = 2; ///< of each show
        int episodesPerSeason = 5;
    };

    /// How the provider answers an action.
    enum class Manner
    {
        Plain,
        Gzip,
        Chunked,
        Redirect,    ///< to another path, which has the answer
        HtmlPage,    ///< a login page with status 200
        Unavailable, ///< 503
        CutReply,    ///< closes the connection after half of the body
        Held         ///< redirects to a path of its own, where the answer waits for release()
    };

    /// Neither text may hold a slash: they are parts of the stream URLs.
    explicit XtreamProvider(QString user = QStringLiteral("user"),
                            QString password = QStringLiteral("secret"));

    /// What the source dialog asks for.
    QString url() const { return server.url(); }
    QString user() const { return accountUser; }
    QString password() const { return accountPassword; }

    /// Adds an entry at the end of a catalog. Returns the path of its stream, if it is no show.
    QString add(const QString &action, const XtreamEntry &entry);
    /// Adds one with a stream that answers like this.
    QString addChannel(const QString &name, const HttpServer::Handler &stream);
    QString addFilm(const QString &name, const QString &extension,
                    const HttpServer::Handler &stream);
    /// Makes an episode's stream answer like this; setReply() for the show names the episode.
    QString addEpisode(int id, const QString &extension, const HttpServer::Handler &stream);
    /// Makes /posters/<number>.png a poster with these words. Needs a QGuiApplication. Returns the
    /// URL.
    QString addPoster(int number, const QString &title, const QString &line);

    /// Adds generated entries and categories to all six catalogs, with posters from this provider.
    /// The same seed gives the same ones.
    void generateCatalog(const CatalogSize &size, quint32 seed = 1);
    /// Answers an action with this document from now on. Without one, a catalog is "[]" and a show
    /// has generated episodes.
    void setReply(const QString &action, const QByteArray &document);
    /// The same with made-up entries (or categories) of these names, numbered from 1 on; all
    /// entries are in category 1. Films are "mp4".
    void setNames(const QString &action, const QStringList &names);
    QByteArray reply(const QString &action) const;

    /// A new Held holds again what release() had let go.
    void setManner(const QString &action, Manner manner);
    void setMannerOfCatalog(Manner manner);
    /// Lets the held answers to this action go, those that are yet to be asked for as well.
    void release(const QString &action);

    /// The guide of the channels that have one, as XMLTV. It moves with the clock.
    QByteArray guide() const;

    /// The actions asked for so far, in the order of arrival; a request that is redirected counts
    /// once.
    QStringList actions() const;
    int requestCount(const QString &action) const;

    /// For everything else: refusing connections, all requests, other paths.
    HttpServer &http() { return server; }

private:
    QString streamPathOf(const QString &kind, int id, const QString &extension) const;
    void append(const QString &action, const QByteArray &elements);
    HttpReply answerApi(const HttpRequest &request);
    HttpReply answerElsewhere(const QString &action, const HttpRequest &request);
    HttpReply document(const QString &action, const HttpRequest &request) const;
    QByteArray seriesInfo(const QString &seriesId) const;
    HttpReply stream(const HttpRequest &request) const;
    void serveGuide();
    void offerGuide(const XtreamEntry &channel);
    QByteArray schedule(const QString &action, const HttpRequest &request) const;
    HttpReply archived(const QString &stream, const QString &start, const QString &minutes) const;
    bool knows(const QString &user, const QString &password) const;

    const QString accountUser;
    const QString accountPassword;

    /// Guards what follows: the server's thread reads it.
    mutable std::mutex mutex;
    CatalogSize catalogSize;
    QHash<QString, QByteArray> replies;
    QHash<QString, Manner> manners;
    QStringList askedFor;
    ProviderGuide programmes;
    QHash<int, XtreamEntry> archives; ///< the channels that have one, by their ids

    /// Last, so that no handler runs any more when the rest goes.
    HttpServer server;
};
