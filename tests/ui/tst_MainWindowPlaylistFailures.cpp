#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QNetworkAccessManager>
#include <QTableWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QByteArray twoChannels = "#EXTM3U\n"
                               "#EXTINF:-1 group-title=\"News\",One\nhttp://127.0.0.1:9/1\n"
                               "#EXTINF:-1 group-title=\"Sport\",Two\nhttp://127.0.0.1:9/2\n"_ba;

QStringList shownChannels(const WindowFixture &fixture)
{
    return rowTexts(fixture.find<QTableWidget>(u"channelTable"_s));
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

/// What the user sees when a playlist cannot be read.
class tst_MainWindowPlaylistFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { server = std::make_unique<HttpServer>(); }
    void failedDownload_data();
    void failedDownload();
    void refusedConnection();
    void addressThatIsNoUrlIsAFile_data();
    void addressThatIsNoUrlIsAFile();
    void aFailureLeavesTheTabEmptyAndTheCacheAsItWas();
    void aServerThatNeverAnswers();
    void repliesMayTakeAMinute();
    void secureAddressIsDownloaded();
    void failureWhileTheWindowIsBuilt();
    void oneBoxAtATime();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPlaylistFailures::failedDownload_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("not found") << u"/missing"_s;
    QTest::newRow("forbidden") << u"/forbidden"_s;
    QTest::newRow("server error") << u"/broken"_s;
    QTest::newRow("half a body") << u"/half"_s;
    QTest::newRow("a circle of redirects") << u"/circle"_s;
    QTest::newRow("a redirect to nothing") << u"/astray"_s;
}

void tst_MainWindowPlaylistFailures::failedDownload()
{
    QFETCH(QString, path);
    server->on(u"/forbidden"_s, statusReply(403));
    server->on(u"/broken"_s, statusReply(503));
    HttpReply half = bodyReply(twoChannels);
    half.cutAfter = 60;
    server->on(u"/half"_s, half);
    server->on(u"/circle"_s, HttpReply::redirect(server->url(u"/circle2"_s)));
    server->on(u"/circle2"_s, HttpReply::redirect(server->url(u"/circle"_s)));
    server->on(u"/astray"_s, HttpReply::redirect(server->url(u"/missing"_s)));

    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(path), neverLoaded));
    bool overlayInBox = true;
    fixture.dialogs.next([&](QDialog &box) {
        overlayInBox = fixture.overlayShown();
        DialogAnswers::click(box, u"OK"_s);
    });
    fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    const SeenDialog box = fixture.dialogs.seen().at(0);
    QCOMPARE(box.title, u"Load Playlist"_s);
    const QString prefix = u"Failed to download playlist: "_s;
    QVERIFY2(box.text.startsWith(prefix), qUtf8Printable(box.text));
    QVERIFY(box.text.size() > prefix.size());
    QCOMPARE(box.buttons, QStringList{u"OK"_s});
    // Gone before the box came.
    QVERIFY(!overlayInBox);
    QCOMPARE(shownChannels(fixture), QStringList());
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
    QCOMPARE(cachedChannels(u"A"_s), QStringList{u"(none)"_s});
}

void tst_MainWindowPlaylistFailures::refusedConnection()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    server->refuse();
    fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QVERIFY(fixture.dialogs.seen().at(0).text.startsWith("Failed to download playlist: "_L1));
    QVERIFY(!fixture.overlayShown());
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
}

void tst_MainWindowPlaylistFailures::addressThatIsNoUrlIsAFile_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("a path to nothing") << u"/nowhere/list.m3u"_s;
    QTest::newRow("a drive letter") << u"C:\\lists\\list.m3u"_s;
    QTest::newRow("a scheme in capitals") << u"HTTP://127.0.0.1:9/list.m3u"_s;
    QTest::newRow("a scheme with one capital letter") << u"Https://127.0.0.1:9/list.m3u"_s;
    QTest::newRow("another scheme") << u"ftp://127.0.0.1:9/list.m3u"_s;
    QTest::newRow("a blank in front") << u" http://127.0.0.1:9/list.m3u"_s;
    QTest::newRow("a folder") << u"/tmp"_s;
    QTest::newRow("markup is shown as it is") << u"<b>list</b>.m3u"_s;
}

void tst_MainWindowPlaylistFailures::addressThatIsNoUrlIsAFile()
{
    QFETCH(QString, url);
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    // The first start asks for a source.
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    bool overlayInBox = true;
    fixture.dialogs.next([&](QDialog &box) {
        overlayInBox = fixture.overlayShown();
        DialogAnswers::click(box, u"OK"_s);
    });
    window.loadSource(playlistSource(u"A"_s, url, neverLoaded), false);
    QCOMPARE(fixture.dialogs.seen().size(), 2);
    QCOMPARE(fixture.dialogs.seen().at(1).title, u"Load Playlist"_s);
    QCOMPARE(fixture.dialogs.seen().at(1).text, u"Failed to open file: "_s + url);
    QVERIFY(!overlayInBox);
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
    QCOMPARE(shownChannels(fixture), QStringList());
}

void tst_MainWindowPlaylistFailures::aFailureLeavesTheTabEmptyAndTheCacheAsItWas()
{
    WindowFixture fixture;
    cacheOneChannel(u"A"_s, u"From the cache"_s);
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/missing"_s)));
    MainWindow &window = fixture.open();
    QCOMPARE(shownChannels(fixture), QStringList{u"From the cache"_s});
    window.refreshActiveSource();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    window.filterChannels();
    QCOMPARE(shownChannels(fixture), QStringList());
    QCOMPARE(cachedChannels(u"A"_s), QStringList{u"From the cache"_s});
}

void tst_MainWindowPlaylistFailures::aServerThatNeverAnswers()
{
    HttpReply silent;
    silent.neverAnswer = true;
    server->on(u"/silent.m3u"_s, silent);
    HttpReply stalled = bodyReply(twoChannels);
    stalled.stallAfter = 10;
    server->on(u"/stalled.m3u"_s, stalled);
    server->on(u"/good.m3u"_s, bodyReply(twoChannels));
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"Silent"_s, server->url(u"/silent.m3u"_s)));
    WindowFixture::store(playlistSource(u"Stalled"_s, server->url(u"/stalled.m3u"_s)));
    WindowFixture::store(playlistSource(u"Good"_s, server->url(u"/good.m3u"_s), neverLoaded));
    cacheOneChannel(u"Silent"_s, u"From the cache"_s);
    MainWindow &window = fixture.open();
    fixture.setReplyTimeout(200);

    window.refreshActiveSource();
    QVERIFY(fixture.overlayShown());
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Load Playlist"_s);
    QVERIFY(fixture.dialogs.seen().at(0).text.startsWith("Failed to download playlist: "_L1));
    QTRY_VERIFY(!fixture.overlayShown());
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.setCurrentIndex(1);
    QTRY_COMPARE(fixture.dialogs.seen().size(), 2);
    QVERIFY(!fixture.overlayShown());

    // Another source loads, and so does the first one when its server is back.
    combo.setCurrentIndex(2);
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    combo.setCurrentIndex(0);
    QCOMPARE(shownChannels(fixture), QStringList{u"From the cache"_s});
    server->on(u"/silent.m3u"_s, bodyReply(twoChannels));
    window.refreshActiveSource();
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(fixture.dialogs.seen().size(), 2);
}

void tst_MainWindowPlaylistFailures::repliesMayTakeAMinute()
{
    WindowFixture fixture;
    const MainWindow &window = fixture.open();
    const auto managers = window.findChildren<QNetworkAccessManager *>();
    QVERIFY(std::any_of(managers.begin(), managers.end(), [](QNetworkAccessManager *manager) {
        return manager->transferTimeout() == 60000;
    }));
}

void tst_MainWindowPlaylistFailures::secureAddressIsDownloaded()
{
    WindowFixture fixture;
    const QString url = server->url(u"/list.m3u"_s).replace("http:"_L1, "https:"_L1);
    server->refuse();
    WindowFixture::store(playlistSource(u"A"_s, url, neverLoaded));
    fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    const QString text = fixture.dialogs.seen().at(0).text;
    QVERIFY2(text.startsWith("Failed to download playlist: "_L1), qUtf8Printable(text));
}

void tst_MainWindowPlaylistFailures::failureWhileTheWindowIsBuilt()
{
    WindowFixture fixture;
    server->on(u"/good.m3u"_s, bodyReply(twoChannels));
    const QString missing = u"/nowhere/list.m3u"_s;
    WindowFixture::store(playlistSource(u"Missing"_s, missing, neverLoaded));
    WindowFixture::store(playlistSource(u"Good"_s, server->url(u"/good.m3u"_s), neverLoaded));
    MainWindow &window = fixture.open();
    // Before the window was on screen.
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"Failed to open file: "_s + missing);
    QVERIFY(window.isVisible());
    QVERIFY(!fixture.overlayShown());
    window.refreshActiveSource();
    QCOMPARE(fixture.dialogs.seen().size(), 2);
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
}

void tst_MainWindowPlaylistFailures::oneBoxAtATime()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/missing"_s)));
    cacheOneChannel(u"A"_s, u"From the cache"_s);
    MainWindow &window = fixture.open();
    fixture.dialogs.next([&](QDialog &box) {
        window.refreshActiveSource();
        QTRY_VERIFY(!fixture.overlayShown());
        window.loadSource(playlistSource(u"A"_s, u"/nowhere"_s), true);
        QCOMPARE(fixture.dialogs.seen().size(), 1);
        QCOMPARE(QApplication::activeModalWidget(), &box);
        box.accept();
    });
    window.refreshActiveSource();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(server->requestCount(), 2);
    // Once it is closed, the next failure is told again.
    window.refreshActiveSource();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 2);
}

VANTIRO_TEST_MAIN(tst_MainWindowPlaylistFailures)
#include "tst_MainWindowPlaylistFailures.moc"
