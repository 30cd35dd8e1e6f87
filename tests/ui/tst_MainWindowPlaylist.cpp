#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QTableWidget>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

const QByteArray twoChannels = "#EXTM3U\n"
                               "#EXTINF:-1 group-title=\"News\",One\nhttp://127.0.0.1:9/1\n"
                               "#EXTINF:-1 group-title=\"Sport\",Two\nhttp://127.0.0.1:9/2\n"_ba;

QStringList shownChannels(const WindowFixture &fixture)
{
    return rowTexts(fixture.find<QTableWidget>(u"channelTable"_s));
}

QStringList shownCategories(const WindowFixture &fixture)
{
    const auto &list = fixture.find<QListWidget>(u"channelCategoryList"_s);
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) {
        texts << list.item(row)->text();
    }
    return texts;
}

/// The names of the channels cached for that source; "(none)" when there is no section.
QStringList cachedChannels(const QString &source)
{
    CatalogCache::Section section;
    if (!CatalogCache::load(source, u"channel"_s, section)) {
        return {u"(none)"_s};
    }
    QStringList names;
    for (const MediaItem &item : section.items) {
        names << item.name;
    }
    return names;
}

void cacheOneChannel(const QString &source, const QString &name)
{
    CatalogCache::save(source, u"channel"_s,
                       {{{u"Cached"_s, u"Cached"_s}}, {channel(name, u"x"_s, u"Cached"_s)}});
}

} // namespace

/// Loading a playlist source from a URL, from a file and from the cache.
class tst_MainWindowPlaylist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { server = std::make_unique<HttpServer>(); }
    void downloadsShowsCachesAndStamps();
    void readsALocalFileAtOnce();
    void cacheOrNetwork_data();
    void cacheOrNetwork();
    void aDamagedCacheIsReadAnew_data();
    void aDamagedCacheIsReadAnew();
    void overlayStaysUntilTheReplyIsIn();
    void anEmptyPlaylistIsCached();
    void oddBytes_data();
    void oddBytes();
    void aVeryLongLine();
    void aRedirectIsFollowed();
    void aLateReplyIsCached_data();
    void aLateReplyIsCached();
    void twoRefreshesAtOnce();
    void theWindowMayCloseDuringADownload();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPlaylist::downloadsShowsCachesAndStamps()
{
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    fixture.open();
    // Stamped and stored before anything was read.
    const qint64 stamp = WindowFixture::stored(u"A"_s).lastUpdated;
    QVERIFY(stamp >= before && stamp <= QDateTime::currentSecsSinceEpoch());

    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(shownCategories(fixture), (QStringList{u"All Categories"_s, u"News"_s, u"Sport"_s}));
    QCOMPARE(cachedChannels(u"A"_s), (QStringList{u"One"_s, u"Two"_s}));
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(server->requests().at(0).method, "GET"_ba);
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowPlaylist::readsALocalFileAtOnce()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"my lïst.m3u"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QByteArray content = twoChannels;
    file.write(content.replace("\n", "\r\n"));
    file.close();
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, path, neverLoaded));
    fixture.open();
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(cachedChannels(u"A"_s), (QStringList{u"One"_s, u"Two"_s}));
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowPlaylist::cacheOrNetwork_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("cached");
    QTest::addColumn<bool>("force");
    QTest::addColumn<bool>("expectRequest");
    QTest::newRow("just loaded") << qint64(0) << true << false << false;
    QTest::newRow("loaded 23 hours ago") << qint64(82800) << true << false << false;
    QTest::newRow("loaded 24 hours ago") << qint64(86400) << true << false << true;
    QTest::newRow("never loaded") << neverLoaded << true << false << true;
    QTest::newRow("loaded in the future") << qint64(-7200) << true << false << false;
    QTest::newRow("no cache") << qint64(0) << false << false << true;
    QTest::newRow("forced") << qint64(0) << true << true << true;
}

void tst_MainWindowPlaylist::cacheOrNetwork()
{
    QFETCH(qint64, age);
    QFETCH(bool, cached);
    QFETCH(bool, force);
    QFETCH(bool, expectRequest);
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
    if (cached) {
        cacheOneChannel(u"A"_s, u"From the cache"_s);
    }
    MainWindow &window = fixture.open();
    const SourceConfig source = playlistSource(u"A"_s, server->url(u"/list.m3u"_s), age);
    WindowFixture::store(source);
    window.loadSource(source, force);

    QCOMPARE(fixture.overlayShown(), expectRequest);
    if (expectRequest) {
        QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
        QCOMPARE(server->requestCount(), 1);
        QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated >= source.lastUpdated);
    } else {
        QCOMPARE(shownChannels(fixture), QStringList{u"From the cache"_s});
        QCOMPARE(shownCategories(fixture), (QStringList{u"All Categories"_s, u"Cached"_s}));
        QCOMPARE(WindowFixture::stored(u"A"_s).lastUpdated, source.lastUpdated);
        QCOMPARE(server->requestCount(), 0);
    }
}

void tst_MainWindowPlaylist::aDamagedCacheIsReadAnew_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not JSON") << "{\"channel\":{\"categ"_ba;
    QTest::newRow("empty") << ""_ba;
    QTest::newRow("an array") << "[]"_ba;
    QTest::newRow("no such section") << "{\"live\":{\"categories\":[],\"items\":[]}}"_ba;
}

void tst_MainWindowPlaylist::aDamagedCacheIsReadAnew()
{
    QFETCH(QByteArray, content);
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
    const QString folder = PrivateProfile::current().appDataDir() + "/catalog_cache"_L1;
    QDir().mkpath(folder);
    QFile file(folder + "/A.json"_L1);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s)));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(cachedChannels(u"A"_s), (QStringList{u"One"_s, u"Two"_s}));
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowPlaylist::overlayStaysUntilTheReplyIsIn()
{
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, heldReply(twoChannels));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(server->openConnections(), 1);
    QVERIFY(fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), QStringList());
    server->release(u"/list.m3u"_s);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
}

void tst_MainWindowPlaylist::anEmptyPlaylistIsCached()
{
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, bodyReply({}));
    cacheOneChannel(u"A"_s, u"From the cache"_s);
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), QStringList());
    QCOMPARE(shownCategories(fixture), QStringList{u"All Categories"_s});
    QCOMPARE(cachedChannels(u"A"_s), QStringList());
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowPlaylist::oddBytes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("UTF-8") << "Fußball 日本 😀"_ba << u"Fußball 日本 😀"_s;
    QTest::newRow("Latin-1 is not UTF-8") << "Caf\xe9 1"_ba << u"Caf\ufffd 1"_s;
    QTest::newRow("a zero byte") << QByteArray("A\0B", 3) << QString::fromUtf16(u"A\0B", 3);
    QTest::newRow("half a UTF-8 sequence") << "A\xc3"_ba << u"A\ufffd"_s;
}

void tst_MainWindowPlaylist::oddBytes()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, expected);
    WindowFixture fixture;
    server->on(u"/list.m3u"_s,
               bodyReply("\xef\xbb\xbf#EXTM3U\r\n#EXTINF:-1,"_ba + name + "\r\nhttp://x/1\r\n"));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), QStringList{expected});
    QCOMPARE(cachedChannels(u"A"_s), QStringList{expected});
}

void tst_MainWindowPlaylist::aVeryLongLine()
{
    constexpr qsizetype length = 10 * 1024 * 1024;
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, bodyReply("#EXTINF:-1 x=\""_ba + QByteArray(length, 'a') +
                                         "\",One\nhttp://127.0.0.1:9/1\n"));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE_WITH_TIMEOUT(shownChannels(fixture), QStringList{u"One"_s}, 20000);
}

void tst_MainWindowPlaylist::aRedirectIsFollowed()
{
    WindowFixture fixture;
    server->on(u"/get.php"_s, HttpReply::redirect(server->url(u"/list.m3u"_s)));
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
    WindowFixture::store(playlistSource(
        u"A"_s, server->url(u"/get.php?username=u&password=p%26q&type=m3u_plus"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(server->requests().at(0).target,
             u"/get.php?username=u&password=p%26q&type=m3u_plus"_s);
}

void tst_MainWindowPlaylist::aLateReplyIsCached_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<QStringList>("channels");
    QTest::newRow("another playlist keeps its channels") << false << QStringList{u"Other"_s};
    QTest::newRow("behind an account the channels come in")
        << true << QStringList{u"One"_s, u"Two"_s};
}

void tst_MainWindowPlaylist::aLateReplyIsCached()
{
    QFETCH(bool, account);
    QFETCH(QStringList, channels);
    WindowFixture fixture;
    server->on(u"/late.m3u"_s, heldReply(twoChannels));
    WindowFixture::store(playlistSource(u"Late"_s, server->url(u"/late.m3u"_s), neverLoaded));
    WindowFixture::store(account ? accountSource(u"Other"_s, u"http://127.0.0.1:9"_s)
                                 : playlistSource(u"Other"_s, u"/nowhere"_s));
    cacheOneChannel(u"Other"_s, u"Other"_s);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"Other"_s, section, {});
    }
    fixture.open();
    QTRY_COMPARE(server->openConnections(), 1);
    QVERIFY(fixture.overlayShown());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    // What was left owes nothing more.
    QVERIFY(!fixture.overlayShown());

    // A step of somebody else's, which the late reply must not take.
    fixture.overlay().beginCatalogFetch(1);
    server->release(u"/late.m3u"_s);
    // Under the name of the source that it came from.
    QTRY_COMPARE(cachedChannels(u"Late"_s), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(shownChannels(fixture), channels);
    QCOMPARE(cachedChannels(u"Other"_s), QStringList{u"Other"_s});
    QVERIFY(fixture.overlayShown());
}

void tst_MainWindowPlaylist::twoRefreshesAtOnce()
{
    WindowFixture fixture;
    // The first one is answered last.
    std::atomic<int> asked = 0;
    server->on(u"/list.m3u"_s, [&](const HttpRequest &) {
        return asked++ == 0 ? HttpReply::redirect(server->url(u"/first.m3u"_s))
                            : HttpReply::redirect(server->url(u"/second.m3u"_s));
    });
    server->on(u"/first.m3u"_s, heldReply("#EXTINF:-1,Old\nhttp://127.0.0.1:9/1\n"_ba));
    server->on(u"/second.m3u"_s, heldReply(twoChannels));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    MainWindow &window = fixture.open();
    QTRY_COMPARE(server->openConnections(u"/first.m3u"_s), 1);
    window.refreshActiveSource();
    QTRY_COMPARE(server->openConnections(u"/second.m3u"_s), 1);
    server->release(u"/second.m3u"_s);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));

    QCOMPARE(fixture.repliesUnderWay().size(), 1);
    server->release(u"/first.m3u"_s);
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(cachedChannels(u"A"_s), (QStringList{u"One"_s, u"Two"_s}));
}

void tst_MainWindowPlaylist::theWindowMayCloseDuringADownload()
{
    server->on(u"/list.m3u"_s, heldReply(twoChannels));
    {
        WindowFixture fixture;
        WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
        fixture.open();
        QTRY_COMPARE(server->openConnections(), 1);
    }
    QTRY_COMPARE(server->openConnections(), 0);
    QCOMPARE(cachedChannels(u"A"_s), QStringList{u"(none)"_s});
}

VANTIRO_TEST_MAIN(tst_MainWindowPlaylist)
#include "tst_MainWindowPlaylist.moc"
