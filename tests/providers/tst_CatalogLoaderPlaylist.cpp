#include "fakeprovider/CatalogGenerator.h"
#include "providers/LoadRecorder.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using Step = LoadFailure::Step;

namespace {

constexpr int largeCount = 5000;

} // namespace

/// Loading playlists, from a real server and from files.
class tst_CatalogLoaderPlaylist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void playlist();
    void textOfAPlaylist();
    void failedPlaylist();
    void latePlaylist_data();
    void latePlaylist();
    void latePlaylistFailure();
    void twoDownloadsOfOneSource();
    void aLargePlaylist();
    void aLargePlaylistIsReplaced();

private:
    /// A playlist that is parsed on another thread.
    SourceConfig largeSource();

    QTemporaryDir folder;
    std::unique_ptr<HttpServer> server;
};

void tst_CatalogLoaderPlaylist::init()
{
    server = std::make_unique<HttpServer>();
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
}

void tst_CatalogLoaderPlaylist::playlist()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.m3u"_s);
    writeFile(path, twoChannels);
    for (const QString &url : {server->url(u"/list.m3u"_s), path}) {
        LoadRecorder recorder;
        recorder.load(playlistSource(u"List"_s, url, neverLoaded));
        QCOMPARE(recorder.isLoading(), url != path); // a file is read within the call
        QTRY_VERIFY(!recorder.isLoading());
        QCOMPARE(recorder.events,
                 (QStringList{u"stamped"_s, u"steps 1"_s, u"categories"_s, u"items"_s, u"done"_s}));
        QCOMPARE(recorder.channels(), (QStringList{u"One"_s, u"Two"_s}));
        QCOMPARE(recorder.groups(), (QStringList{u"News"_s, u"Sport"_s}));
        QCOMPARE(cachedChannels(u"List"_s), (QStringList{u"One"_s, u"Two"_s}));
        QVERIFY(recorder.stamped.first().lastUpdated > 0);
    }
}

void tst_CatalogLoaderPlaylist::textOfAPlaylist()
{
    const QByteArray head = "\xef\xbb\xbf#EXTM3U\r\n#EXTINF:-1,"_ba;
    const QByteArray tail = "\r\nhttp://x/1\r\n"_ba;
    const QList<std::pair<QByteArray, QStringList>> texts{
        {{}, {}},
        {head + "Fußball 日本 😀" + tail, {u"Fußball 日本 😀"_s}},
        {head + "Caf\xe9 1" + tail, {u"Caf\ufffd 1"_s}}}; // Latin-1 is not UTF-8
    for (const auto &[body, channels] : texts) {
        LoadRecorder recorder;
        cacheOneChannel(u"List"_s, u"Cached"_s);
        server->on(u"/list.m3u"_s, bodyReply(body));
        recorder.load(playlistSource(u"List"_s, server->url(u"/list.m3u"_s), neverLoaded));
        QTRY_VERIFY(!recorder.isLoading());
        QCOMPARE(recorder.channels(), channels);
        QCOMPARE(cachedChannels(u"List"_s), channels);
        QVERIFY(recorder.failures.isEmpty());
    }
}

void tst_CatalogLoaderPlaylist::failedPlaylist()
{
    LoadRecorder recorder;
    cacheOneChannel(u"List"_s, u"Cached"_s);
    recorder.load(playlistSource(u"List"_s, u"/nowhere/<b>list</b>.m3u"_s), true);
    const QStringList events{u"stamped"_s, u"steps 1"_s, u"done"_s, u"failed"_s};
    QCOMPARE(recorder.events, events);
    QCOMPARE(recorder.failures.last().step, Step::PlaylistFile);
    QCOMPARE(recorder.failures.last().detail, u"/nowhere/<b>list</b>.m3u"_s);

    recorder.load(playlistSource(u"List"_s, server->url(u"/missing"_s)), true);
    QTRY_COMPARE(recorder.events, events + events);
    QCOMPARE(recorder.failures.last().step, Step::PlaylistDownload);
    QVERIFY(recorder.failures.last().detail.contains("Not Found"_L1));
    QCOMPARE(cachedChannels(u"List"_s), QStringList{u"Cached"_s});
}

void tst_CatalogLoaderPlaylist::latePlaylist_data()
{
    QTest::addColumn<bool>("account");
    QTest::newRow("another playlist keeps its channels") << false;
    QTest::newRow("behind an account the channels come in") << true;
}

void tst_CatalogLoaderPlaylist::latePlaylist()
{
    QFETCH(const bool, account);
    LoadRecorder recorder;
    server->on(u"/late.m3u"_s, heldReply(twoChannels));
    cacheOneChannel(u"Other"_s, u"Other"_s);
    cacheCatalog(u"Other"_s, madeUpCatalog(u"Old"_s));
    recorder.load(playlistSource(u"Late"_s, server->url(u"/late.m3u"_s), neverLoaded));
    recorder.load(account ? accountSource(u"Other"_s, u"http://127.0.0.1:9"_s)
                          : playlistSource(u"Other"_s, u"/nowhere"_s));
    QVERIFY(!recorder.isLoading());
    server->release(u"/late.m3u"_s);
    // Under the name of the source that it came from.
    QTRY_COMPARE(cachedChannels(u"Late"_s), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(recorder.channels(), account ? cachedChannels(u"Late"_s) : QStringList{u"Other"_s});
    QCOMPARE(cachedChannels(u"Other"_s), QStringList{u"Other"_s});
    QCOMPARE(recorder.owedSteps, 0);
}

void tst_CatalogLoaderPlaylist::latePlaylistFailure()
{
    LoadRecorder recorder;
    HttpReply missing = heldReply();
    missing.status = 404;
    server->on(u"/late.m3u"_s, missing);
    cacheCatalog(u"A"_s, madeUpCatalog(u"Old"_s));
    recorder.load(playlistSource(u"Late"_s, server->url(u"/late.m3u"_s), neverLoaded));
    recorder.load(accountSource(u"A"_s, u"http://127.0.0.1:9"_s));
    server->release(u"/late.m3u"_s);
    QTRY_COMPARE(recorder.failures.size(), 1);
    QCOMPARE(recorder.owedSteps, 0);
}

void tst_CatalogLoaderPlaylist::twoDownloadsOfOneSource()
{
    LoadRecorder recorder;
    // The first one is answered last.
    server->on(u"/first.m3u"_s, heldReply(oneChannel(u"Old"_s)));
    recorder.load(playlistSource(u"A"_s, server->url(u"/first.m3u"_s)), true);
    recorder.load(playlistSource(u"A"_s, server->url(u"/list.m3u"_s)), true);
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.requestsUnderWay(), 1);
    server->release(u"/first.m3u"_s);
    QTRY_COMPARE(recorder.requestsUnderWay(), 0);
    QCOMPARE(recorder.channels(), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(cachedChannels(u"A"_s), (QStringList{u"One"_s, u"Two"_s}));
}

SourceConfig tst_CatalogLoaderPlaylist::largeSource()
{
    const QString path = folder.filePath(u"large.m3u"_s);
    writeFile(path, CatalogGenerator().playlist(largeCount, 10, u"http://x/"_s));
    return playlistSource(u"Large"_s, path, neverLoaded);
}

void tst_CatalogLoaderPlaylist::aLargePlaylist()
{
    LoadRecorder recorder;
    recorder.load(largeSource());
    QCOMPARE(recorder.events, (QStringList{u"stamped"_s, u"steps 1"_s}));
    QTRY_COMPARE(recorder.events.last(), u"done"_s);
    QCOMPARE(recorder.events.mid(2), (QStringList{u"categories"_s, u"items"_s, u"done"_s}));
    QCOMPARE(recorder.channels().size(), largeCount);
    QCOMPARE(cachedChannels(u"Large"_s), recorder.channels());

    recorder.events.clear();
    recorder.load(recorder.stamped.first());
    QVERIFY(recorder.events.isEmpty());
    QTRY_COMPARE(recorder.events, (QStringList{u"categories"_s, u"items"_s}));
    QCOMPARE(recorder.channels(), cachedChannels(u"Large"_s));
}

/// What is read for a source that is no longer selected is cached and not reported.
void tst_CatalogLoaderPlaylist::aLargePlaylistIsReplaced()
{
    LoadRecorder recorder;
    recorder.load(largeSource());
    recorder.load(playlistSource(u"List"_s, server->url(u"/list.m3u"_s), neverLoaded));
    QTRY_VERIFY(!recorder.isLoading());
    QTRY_COMPARE(cachedChannels(u"Large"_s).size(), largeCount);
    QCOMPARE(recorder.channels(), (QStringList{u"One"_s, u"Two"_s}));

    // The same when it is read from the cache.
    recorder.load(recorder.stamped.first());
    recorder.load(recorder.stamped.last());
    QTRY_COMPARE(recorder.events.count(u"items"_s), 2);
    QCOMPARE(recorder.channels(), (QStringList{u"One"_s, u"Two"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogLoaderPlaylist)
#include "tst_CatalogLoaderPlaylist.moc"
