#include "DemoServer.h"

#include "DemoCatalog.h"
#include "fakeprovider/Streams.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int channelSeconds = 60;
constexpr int dropOutSeconds = 30;
constexpr int archiveDays = 3;
constexpr qint64 daySeconds = 24LL * 60 * 60;
/// 2024-01-01, in seconds since the epoch.
constexpr qint64 firstAdded = 1704067200;

HttpReply channelReply(const QString &file, bool dropsOut)
{
    HttpReply reply = liveClip(file, channelSeconds, 1);
    if (dropsOut) {
        const qint64 end = reply.bytesPerSecond * dropOutSeconds;
        reply.producer = [end, whole = reply.producer](qint64 offset) {
            return offset < end ? whole(offset) : QByteArray();
        };
    }
    return reply;
}

/// A channel of the playlist: what runs, or what ran at the time that is asked for.
HttpReply playlistReply(const HttpRequest &request, const QString &file, bool dropsOut)
{
    const qint64 start = request.queryValue(u"utc"_s).toLongLong();
    const qint64 age = QDateTime::currentSecsSinceEpoch() - start;
    const bool isKept = start > 0 && age > 0 && age <= archiveDays * daySeconds;
    return isKept ? archivedClip(file, age) : channelReply(file, dropsOut);
}

QByteArray showReply()
{
    QJsonObject seasons;
    for (int index = 0; index < DemoCatalog::episodes().size(); ++index) {
        const DemoEntry &episode = DemoCatalog::episodes().at(index);
        const int season = index / DemoCatalog::episodesPerSeason + 1;
        const QString key = QString::number(season);
        QJsonArray list = seasons.value(key).toArray();
        list.append(QJsonObject{{u"id"_s, QString::number(episode.id)},
                                {u"episode_num"_s, index % DemoCatalog::episodesPerSeason + 1},
                                {u"title"_s, episode.name},
                                {u"container_extension"_s, QFileInfo(episode.file).suffix()},
                                {u"season"_s, season}});
        seasons.insert(key, list);
    }
    return QJsonDocument(QJsonObject{{u"info"_s, QJsonObject{{u"name"_s, DemoCatalog::showName()}}},
                                     {u"episodes"_s, seasons}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

DemoServer::DemoServer(QString streamsFolder, const Size &size, quint16 port)
    : streams(std::move(streamsFolder))
{
    // First: the catalogs name whole URLs, with the port.
    if (port != 0) {
        listening = provider.http().listenOn(port);
    }
    offerChannels();
    offerFilms();
    offerShow();
    fillUp(size);
}

XtreamEntry DemoServer::listed(const DemoEntry &entry, const QString &line)
{
    XtreamEntry result;
    result.id = entry.id;
    result.name = entry.name;
    result.category = entry.category;
    result.poster = provider.addPoster(entry.id, entry.name, line);
    result.rating = entry.rating;
    result.extension = QFileInfo(entry.file).suffix();
    result.stream = [file = streams + u'/' + entry.file](const HttpRequest &) {
        return HttpReply::file(file);
    };
    return result;
}

void DemoServer::offerChannels()
{
    const QString guidePath = u"/guide.xml"_s;
    QString playlist = u"#EXTM3U x-tvg-url=\"%1\" catchup=\"shift\" catchup-days=\"%2\"\n"_s.arg(
        provider.http().url(guidePath), QString::number(archiveDays));
    for (const DemoEntry &demo : DemoCatalog::channels()) {
        XtreamEntry entry = listed(demo, {});
        const QString file = streams + u'/' + demo.file;
        entry.stream = [file, dropsOut = demo.dropsOut](const HttpRequest &request) {
            return playlistReply(request, file, dropsOut);
        };
        entry.archiveDays = archiveDays;
        entry.archive = [file](qint64 seconds) { return archivedClip(file, seconds); };
        entry.guideId = u"channel%1.demo"_s.arg(demo.id);
        const QString path = provider.add(XtreamAction::liveStreams, entry);
        playlist += u"#EXTINF:-1 tvg-id=\"%1\" tvg-logo=\"%2\" group-title=\"%3\",%4\n%5\n"_s.arg(
            entry.guideId, entry.poster, DemoCatalog::channelCategories().at(demo.category - 1),
            demo.name, provider.http().url(path));
    }
    provider.http().on(guidePath, [this](const HttpRequest &) {
        HttpReply guide;
        guide.contentType = "application/xml"_ba;
        guide.body = provider.guide();
        return guide;
    });
    HttpReply reply;
    reply.contentType = "audio/x-mpegurl"_ba;
    reply.body = playlist.toUtf8();
    provider.http().on(u"/playlist.m3u"_s, reply);
}

void DemoServer::offerFilms()
{
    for (const DemoEntry &demo : DemoCatalog::films()) {
        XtreamEntry entry = listed(demo, QString::number(demo.year));
        entry.added = firstAdded + demo.id * daySeconds;
        provider.add(XtreamAction::vodStreams, entry);
    }
}

void DemoServer::offerShow()
{
    DemoEntry show;
    show.id = DemoCatalog::showId;
    show.name = DemoCatalog::showName();
    show.rating = 8.7;
    XtreamEntry entry = listed(show, u"2025"_s);
    entry.added = firstAdded;
    provider.add(XtreamAction::series, entry);
    provider.setReply(XtreamAction::seriesInfo, showReply());
    for (const DemoEntry &demo : DemoCatalog::episodes()) {
        const QString file = streams + u'/' + demo.file;
        provider.addEpisode(demo.id, QFileInfo(file).suffix(),
                            [file](const HttpRequest &) { return HttpReply::file(file); });
    }
}

void DemoServer::fillUp(const Size &size)
{
    const auto missing = [](int wanted, qsizetype own) {
        return std::max(0, wanted - static_cast<int>(own));
    };
    XtreamProvider::CatalogSize rest;
    rest.categories = 3;
    rest.channels = missing(size.channels, DemoCatalog::channels().size());
    rest.films = missing(size.films, DemoCatalog::films().size());
    rest.shows = missing(size.shows, 1);
    provider.generateCatalog(rest);
    // The generated entries are in the demo's own categories.
    provider.setNames(XtreamAction::liveCategories, DemoCatalog::channelCategories());
    provider.setNames(XtreamAction::vodCategories, DemoCatalog::filmCategories());
    provider.setNames(XtreamAction::seriesCategories, DemoCatalog::showCategories());
}

bool DemoServer::setFault(const QString &action, const QString &manner)
{
    using Manner = XtreamProvider::Manner;
    static const QHash<QString, Manner> manners = {{u"gzip"_s, Manner::Gzip},
                                                   {u"chunked"_s, Manner::Chunked},
                                                   {u"redirect"_s, Manner::Redirect},
                                                   {u"html"_s, Manner::HtmlPage},
                                                   {u"unavailable"_s, Manner::Unavailable},
                                                   {u"cut"_s, Manner::CutReply}};
    const QString name = action == "login"_L1 ? XtreamAction::login : action;
    const QStringList known =
        XtreamAction::catalog() + QStringList{XtreamAction::login, XtreamAction::seriesInfo};
    if (!manners.contains(manner) || !known.contains(name)) {
        return false;
    }
    provider.setManner(name, manners.value(manner));
    return true;
}
