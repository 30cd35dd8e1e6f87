#include "soak/SoakProviders.h"

#include "fakeprovider/Streams.h"
#include "model/SourceManager.h"
#include "support/HttpReplies.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr XtreamProvider::CatalogSize catalogSize{
    .categories = 8, .channels = 120, .films = 60, .shows = 20};

SourceConfig account(const QString &name, const XtreamProvider &provider, const QString &extension)
{
    SourceConfig config;
    config.type = SourceType::Xtream;
    config.name = name;
    config.url = provider.url();
    config.username = provider.user();
    config.password = provider.password();
    config.liveExtension = extension;
    return config;
}

} // namespace

SoakProviders::SoakProviders()
    : first(u"viewer"_s, u"S3cret&word+x=1"_s)
    , second(u"traveller"_s, u"Pa$$ word!9q"_s)
{
    paths[calm] = first.addChannel(calm, liveClip(streamPath(u"grey.ts"_s), 30, 2));
    paths[unavailable] = first.addChannel(unavailable, statusReply(503));
    paths[brief] = first.addChannel(brief, HttpReply::file(streamPath(u"short.ts"_s)));
    first.addChannel(hanging, HangingChannel::playlist());
    first.addFilm(brokenFilm, u"mp4"_s, statusReply(503));
    holdHanging();
    fill(first);
    fill(second);
    servePlaylist();
}

void SoakProviders::fill(XtreamProvider &provider)
{
    for (int number = 0; number < count; ++number) {
        XtreamEntry entry;
        entry.name = channel(number);
        provider.add(XtreamAction::liveStreams, entry);
        entry.name = film(number);
        provider.add(XtreamAction::vodStreams, entry);
    }
    provider.generateCatalog(catalogSize);
}

void SoakProviders::servePlaylist()
{
    const QString prefix = u"/live/%1/%2/"_s.arg(
        first.user(), QString::fromUtf8(QUrl::toPercentEncoding(first.password())));
    QByteArray playlist = "#EXTM3U\n";
    for (int number = 0; number < count; ++number) {
        playlist += "#EXTINF:-1 group-title=\"News\","_ba + channel(number).toUtf8() + '\n' +
                    first.http().url(prefix + u"9%1.ts"_s.arg(number)).toUtf8() + '\n';
    }
    first.http().on(u"/get.php"_s, [this, playlist](const HttpRequest &request) {
        const bool known = request.queryValue(u"password"_s) == first.password();
        return known ? bodyReply(playlist, "audio/x-mpegurl"_ba) : statusReply(403);
    });
}

QString SoakProviders::playlistUrl() const
{
    return first.url() +
           u"/get.php?username=%1&password=%2&type=m3u_plus"_s.arg(
               first.user(), QString::fromUtf8(QUrl::toPercentEncoding(first.password())));
}

QList<QByteArray> SoakProviders::secrets() const
{
    return {first.password().toUtf8(), second.password().toUtf8()};
}

void SoakProviders::store()
{
    SourceManager sources(nullptr);
    sources.saveSource(account(home, first, u"ts"_s));
    sources.saveSource(account(away, second, u"m3u8"_s));
    SourceConfig playlist;
    playlist.name = list;
    playlist.url = playlistUrl();
    sources.saveSource(playlist);
}

void SoakProviders::holdHanging()
{
    hangingChannel = std::make_unique<HangingChannel>(first.http());
}
