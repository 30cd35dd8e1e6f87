#include "DemoServer.h"

#include "DemoCatalog.h"
#include "DemoPosters.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 channelSeconds = 60;
constexpr qint64 dropOutSeconds = 30;
/// 2024-01-01, in seconds since the epoch.
constexpr qint64 firstAdded = 1704067200;

QString accountPath(const QString &kind, const DemoEntry &entry, const QString &suffix)
{
    return u"/%1/%2/%3/%4.%5"_s.arg(kind, DemoServer::user(), DemoServer::password())
        .arg(entry.id)
        .arg(suffix);
}

QByteArray compact(const QJsonArray &array)
{
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

/// One array with the elements of both.
QByteArray joined(const QByteArray &first, const QByteArray &second)
{
    if (second == "[]") {
        return first;
    }
    return first.chopped(1) + ',' + second.sliced(1);
}

QByteArray categoriesReply(const QList<QString> &names)
{
    QJsonArray array;
    for (int index = 0; index < names.size(); ++index) {
        array.append(QJsonObject{{u"category_id"_s, QString::number(index + 1)},
                                 {u"category_name"_s, names.at(index)},
                                 {u"parent_id"_s, 0}});
    }
    return compact(array);
}

/// A channel at its own pace; the clip begins anew at its end.
HttpReply channelReply(const QString &file, bool dropsOut)
{
    QFile source(file);
    HttpReply reply;
    if (!source.open(QIODevice::ReadOnly)) {
        reply.status = 404;
        return reply;
    }
    const QByteArray clip = source.readAll();
    reply.contentType = "video/mp2t"_ba;
    reply.bytesPerSecond = clip.size() / channelSeconds;
    reply.burst = reply.bytesPerSecond;
    const qint64 end = dropsOut ? reply.bytesPerSecond * dropOutSeconds : -1;
    reply.producer = [clip, end](qint64 offset) {
        if (end >= 0 && offset >= end) {
            return QByteArray();
        }
        constexpr qint64 piece = 188 * 64;
        const qint64 position = offset % clip.size();
        return clip.sliced(position, std::min<qint64>(piece, clip.size() - position));
    };
    return reply;
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

DemoServer::DemoServer(const QString &streamsFolder, const Size &size, quint16 port)
    : streams(streamsFolder)
    , provider(user(), password())
{
    // First: the catalogs name whole URLs, with the port.
    if (port != 0) {
        listening = provider.http().listenOn(port);
    }
    offerChannels();
    offerFiles();
    offerPosters();
    offerCatalog(size);
}

QString DemoServer::poster(int id) const
{
    return u"%1/demo-posters/%2.png"_s.arg(provider.url()).arg(id);
}

void DemoServer::offerCatalog(const Size &size)
{
    QJsonArray live;
    for (const DemoEntry &channel : DemoCatalog::channels()) {
        live.append(QJsonObject{{u"num"_s, channel.id - 100},
                                {u"name"_s, channel.name},
                                {u"stream_id"_s, channel.id},
                                {u"stream_icon"_s, poster(channel.id)},
                                {u"category_id"_s, QString::number(channel.category)}});
    }
    QJsonArray vod;
    for (const DemoEntry &film : DemoCatalog::films()) {
        vod.append(QJsonObject{{u"name"_s, film.name},
                               {u"stream_id"_s, film.id},
                               {u"stream_icon"_s, poster(film.id)},
                               {u"rating"_s, QString::number(film.rating)},
                               {u"added"_s, QString::number(firstAdded + film.id * 86400)},
                               {u"category_id"_s, QString::number(film.category)},
                               {u"container_extension"_s, QFileInfo(film.file).suffix()}});
    }
    const QJsonArray series{QJsonObject{{u"name"_s, DemoCatalog::showName()},
                                        {u"series_id"_s, DemoCatalog::showId},
                                        {u"cover"_s, poster(DemoCatalog::showId)},
                                        {u"rating"_s, u"8.7"_s},
                                        {u"last_modified"_s, QString::number(firstAdded)},
                                        {u"category_id"_s, u"1"_s}}};

    XtreamProvider::CatalogSize rest;
    rest.categories = 3;
    rest.channels = std::max(0, size.channels - static_cast<int>(live.size()));
    rest.films = std::max(0, size.films - static_cast<int>(vod.size()));
    rest.shows = std::max(0, size.shows - static_cast<int>(series.size()));
    provider.generateCatalog(rest);
    const auto prepend = [this](const QString &action, const QJsonArray &own) {
        provider.setReply(action, joined(compact(own), provider.reply(action)));
    };
    prepend(XtreamAction::liveStreams, live);
    prepend(XtreamAction::vodStreams, vod);
    prepend(XtreamAction::series, series);
    provider.setReply(XtreamAction::liveCategories,
                      categoriesReply(DemoCatalog::channelCategories()));
    provider.setReply(XtreamAction::vodCategories, categoriesReply(DemoCatalog::filmCategories()));
    provider.setReply(XtreamAction::seriesCategories,
                      categoriesReply(DemoCatalog::showCategories()));
    provider.setReply(XtreamAction::seriesInfo, showReply());
}

void DemoServer::offerChannels()
{
    for (const DemoEntry &channel : DemoCatalog::channels()) {
        const auto answer = [file = streams + u'/' + channel.file, dropsOut = channel.dropsOut](
                                const HttpRequest &) { return channelReply(file, dropsOut); };
        provider.http().on(accountPath(u"live"_s, channel, u"ts"_s), answer);
        provider.http().on(u"/channel/%1.ts"_s.arg(channel.id), answer);
    }
    provider.http().on(u"/playlist.m3u"_s, [this](const HttpRequest &) {
        HttpReply reply;
        reply.contentType = "audio/x-mpegurl"_ba;
        QString text = u"#EXTM3U\n"_s;
        for (const DemoEntry &channel : DemoCatalog::channels()) {
            text += u"#EXTINF:-1 tvg-logo=\"%1\" group-title=\"%2\",%3\n%4/channel/%5.ts\n"_s.arg(
                poster(channel.id), DemoCatalog::channelCategories().at(channel.category - 1),
                channel.name, provider.url(), QString::number(channel.id));
        }
        reply.body = text.toUtf8();
        return reply;
    });
}

void DemoServer::offerFiles()
{
    const auto offer = [this](const QString &kind, const QList<DemoEntry> &entries) {
        for (const DemoEntry &entry : entries) {
            const QString file = streams + u'/' + entry.file;
            provider.http().on(accountPath(kind, entry, QFileInfo(file).suffix()),
                               [file](const HttpRequest &) { return HttpReply::file(file); });
        }
    };
    offer(u"movie"_s, DemoCatalog::films());
    offer(u"series"_s, DemoCatalog::episodes());
}

void DemoServer::offerPosters()
{
    const auto offer = [this](int id, const QString &title, int year) {
        HttpReply reply;
        reply.contentType = "image/png"_ba;
        reply.body = paintDemoPoster(title, year);
        provider.http().on(u"/demo-posters/%1.png"_s.arg(id), reply);
    };
    for (const QList<DemoEntry> &entries : {DemoCatalog::channels(), DemoCatalog::films()}) {
        for (const DemoEntry &entry : entries) {
            offer(entry.id, entry.name, entry.year);
        }
    }
    offer(DemoCatalog::showId, DemoCatalog::showName(), 2025);
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
