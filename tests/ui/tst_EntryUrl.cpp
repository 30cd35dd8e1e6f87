#include "support/TestMain.h"
#include "ui/EntryUrl.h"

using namespace Qt::StringLiterals;

namespace {

MediaItem entry(qint32 kind, const QString &container = {})
{
    MediaItem item;
    item.type = kind;
    item.id = u"7"_s;
    item.containerExtension = container;
    item.streamUrl = u"own:7"_s;
    return item;
}

SourceConfig source(qint32 type, const QString &liveExtension = {})
{
    return {type, {}, {}, {}, {}, liveExtension, {}, 0};
}

} // namespace

class tst_EntryUrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void url_data();
    void url();
    void anEpisodeIsPlayedFromItsShowsAccount();
    void onlyAPlaylistEntryPlaysWithoutAnAccount();
    void whatWasOpenedHasItsOwn();
    void headers_data();
    void headers();
    void headersOfAnEpisodeWithoutAnAccount();
};

void tst_EntryUrl::url_data()
{
    QTest::addColumn<SourceConfig>("source");
    QTest::addColumn<MediaItem>("item");
    QTest::addColumn<QString>("expected");
    using namespace SourceType;
    using namespace StreamKind;
    const auto row = [](const char *name, const SourceConfig &config, const MediaItem &item,
                        const QString &expected) {
        QTest::newRow(name) << config << item << expected;
    };
    const QString server = u"http://tv.example"_s;
    const SourceConfig account = source(Xtream, u"ts"_s);
    row("a playlist entry has its own", source(Playlist, u"ts"_s), entry(Live, u"mkv"_s),
        u"own:7"_s);
    row("an unknown source is a playlist", source(9), entry(Live), u"own:7"_s);
    row("an account's channel has the source's format", account, entry(Live, u"mkv"_s),
        server + u"/live/u/p/7.ts"_s);
    row("a subscription is an account", source(Zevrino, u"ts"_s), entry(Live),
        server + u"/live/u/p/7.ts"_s);
    row("without a format it is m3u8", source(Xtream), entry(Live), server + u"/live/u/p/7.m3u8"_s);
    row("a film has its own format", account, entry(Movie, u"mkv"_s),
        server + u"/movie/u/p/7.mkv"_s);
    row("without a format it is mp4", account, entry(Movie), server + u"/movie/u/p/7.mp4"_s);
    row("an episode has its own format", account, entry(StreamKind::Episode, u"avi"_s),
        server + u"/series/u/p/7.avi"_s);
    row("a show opens, it does not play", account, entry(Series, u"mkv"_s), {});
    row("nor does an unknown kind", account, entry(9, u"mkv"_s), {});
}

void tst_EntryUrl::url()
{
    QFETCH(SourceConfig, source);
    QFETCH(MediaItem, item);
    QTEST(entryUrl(item, {source, XtreamAccount{u"http://tv.example"_s, u"u"_s, u"p"_s}}),
          "expected");
}

void tst_EntryUrl::anEpisodeIsPlayedFromItsShowsAccount()
{
    const XtreamAccount account{u"http://other.example"_s, u"a"_s, u"b"_s};
    // Also when a playlist is the source by now.
    for (const qint32 type : {SourceType::Xtream, SourceType::Playlist}) {
        QCOMPARE(entryUrl(entry(StreamKind::Episode), {source(type), account}),
                 u"http://other.example/series/a/b/7.mp4"_s);
    }
}

void tst_EntryUrl::onlyAPlaylistEntryPlaysWithoutAnAccount()
{
    QCOMPARE(entryUrl(entry(StreamKind::Live), {}), u"own:7"_s);
    for (const qint32 kind : {StreamKind::Movie, StreamKind::Episode, StreamKind::Series}) {
        QCOMPARE(entryUrl(entry(kind), {}), QString());
    }
}

void tst_EntryUrl::whatWasOpenedHasItsOwn()
{
    EntryOrigin opened;
    opened.isOpened = true;
    for (const qint32 kind : {StreamKind::Live, StreamKind::Movie}) {
        QCOMPARE(entryUrl(entry(kind), opened), u"own:7"_s);
    }
}

void tst_EntryUrl::headers_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("ofEntry");
    QTest::addColumn<QString>("ofSource");
    QTest::addColumn<QString>("userAgent");
    QTest::addColumn<QString>("referrer");
    using namespace StreamKind;
    const QString none;
    QTest::newRow("none") << Live << none << none << none << none;
    QTest::newRow("the source's") << Live << none << u"S"_s << u"S"_s << none;
    QTest::newRow("of a film") << Movie << none << u"S"_s << u"S"_s << none;
    QTest::newRow("an episode has its show's")
        << StreamKind::Episode << none << u"S"_s << u"Show"_s << none;
    QTest::newRow("the entry's comes first")
        << Live << u"User-Agent=E&Referer=R"_s << u"S"_s << u"E"_s << u"R"_s;
    QTest::newRow("each by itself") << Live << u"Referer=R"_s << u"S"_s << u"S"_s << u"R"_s;
}

void tst_EntryUrl::headers()
{
    QFETCH(const qint32, kind);
    QFETCH(const QString, ofEntry);
    QFETCH(const QString, ofSource);
    MediaItem item = entry(kind);
    item.headers = ofEntry;
    SourceConfig config = source(SourceType::Playlist);
    config.userAgent = ofSource;
    const XtreamAccount account{u"http://h"_s, u"a"_s, u"b"_s, u"Show"_s};
    const StreamHeaders headers = entryHeaders(item, {config, account});
    QTEST(headers.userAgent, "userAgent");
    QTEST(headers.referrer, "referrer");
}

void tst_EntryUrl::headersOfAnEpisodeWithoutAnAccount()
{
    SourceConfig config = source(SourceType::Playlist);
    config.userAgent = u"S"_s;
    QCOMPARE(entryHeaders(entry(StreamKind::Episode), {config, {}}).userAgent, u"S"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_EntryUrl)
#include "tst_EntryUrl.moc"
