#include "providers/XtreamClient.h"
#include "support/TestMain.h"
#include "ui/EntryUrl.h"

using namespace Qt::StringLiterals;

class tst_EntryUrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void url_data();
    void url();
    void anEpisodeIsPlayedFromItsShowsAccount();
    void onlyAPlaylistEntryPlaysWithoutAnAccount();
};

void tst_EntryUrl::url_data()
{
    QTest::addColumn<qint32>("sourceType");
    QTest::addColumn<QString>("liveExtension");
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("container");
    QTest::addColumn<QString>("expected");

    using namespace SourceType;
    const auto row = [](const char *name, qint32 sourceType, const QString &liveExtension,
                        qint32 kind, const QString &container, const QString &expected) {
        QTest::newRow(name) << sourceType << liveExtension << kind << container << expected;
    };
    const QString server = u"http://tv.example"_s;
    row("a playlist entry has its own", Playlist, u"ts"_s, StreamKind::Live, u"mkv"_s, u"own:7"_s);
    row("an unknown source is a playlist", 9, u"ts"_s, StreamKind::Live, {}, u"own:7"_s);
    row("an account's channel has the source's format", Xtream, u"ts"_s, StreamKind::Live, u"mkv"_s,
        server + u"/live/u/p/7.ts"_s);
    row("a subscription is an account", Zevrino, u"ts"_s, StreamKind::Live, {},
        server + u"/live/u/p/7.ts"_s);
    row("without a format it is m3u8", Xtream, {}, StreamKind::Live, {},
        server + u"/live/u/p/7.m3u8"_s);
    row("a film has its own format", Xtream, u"ts"_s, StreamKind::Movie, u"mkv"_s,
        server + u"/movie/u/p/7.mkv"_s);
    row("without a format it is mp4", Xtream, u"ts"_s, StreamKind::Movie, {},
        server + u"/movie/u/p/7.mp4"_s);
    row("an episode has its own format", Xtream, u"ts"_s, StreamKind::Episode, u"avi"_s,
        server + u"/series/u/p/7.avi"_s);
    row("without a format it is mp4, too", Xtream, u"ts"_s, StreamKind::Episode, {},
        server + u"/series/u/p/7.mp4"_s);
    row("a show opens, it does not play", Xtream, u"ts"_s, StreamKind::Series, u"mkv"_s, {});
    row("nor does an unknown kind", Xtream, u"ts"_s, 9, u"mkv"_s, {});
}

void tst_EntryUrl::url()
{
    QFETCH(qint32, sourceType);
    QFETCH(QString, liveExtension);
    QFETCH(qint32, kind);
    QFETCH(QString, container);
    QFETCH(QString, expected);
    XtreamClient client(nullptr);
    client.configure(u"http://tv.example"_s, u"u"_s, u"p"_s);
    SourceConfig source;
    source.type = sourceType;
    source.liveExtension = liveExtension;
    MediaItem item;
    item.type = kind;
    item.id = u"7"_s;
    item.containerExtension = container;
    item.streamUrl = u"own:7"_s;
    QCOMPARE(entryUrl(item, source, &client, {}), expected);
}

void tst_EntryUrl::anEpisodeIsPlayedFromItsShowsAccount()
{
    XtreamClient client(nullptr);
    client.configure(u"http://tv.example"_s, u"u"_s, u"p"_s);
    SourceConfig source;
    source.type = SourceType::Xtream;
    MediaItem item;
    item.id = u"7"_s;
    const XtreamAccount account{u"http://other.example"_s, u"a"_s, u"b"_s};
    item.type = StreamKind::Episode;
    QCOMPARE(entryUrl(item, source, &client, account), u"http://other.example/series/a/b/7.mp4"_s);
    // Also when a playlist is the source by now.
    QCOMPARE(entryUrl(item, {}, &client, account), u"http://other.example/series/a/b/7.mp4"_s);
    item.type = StreamKind::Movie;
    QCOMPARE(entryUrl(item, source, &client, account), u"http://tv.example/movie/u/p/7.mp4"_s);
}

void tst_EntryUrl::onlyAPlaylistEntryPlaysWithoutAnAccount()
{
    MediaItem item;
    item.id = u"7"_s;
    item.streamUrl = u"own:7"_s;
    QCOMPARE(entryUrl(item, {}, nullptr, {}), u"own:7"_s);
    for (const qint32 kind : {StreamKind::Movie, StreamKind::Episode, StreamKind::Series}) {
        item.type = kind;
        QCOMPARE(entryUrl(item, {}, nullptr, {}), QString());
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_EntryUrl)
#include "tst_EntryUrl.moc"
