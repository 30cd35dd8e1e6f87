#include "PosterFixture.h"
#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/PosterImage.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QNetworkReply>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QUrl>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A blue poster that waits for HttpServer::release().
HttpReply heldPoster()
{
    HttpReply reply = imageReply(pngOf(blue));
    reply.held = true;
    return reply;
}

} // namespace

/// The window's two poster grids and what they share.
class tst_MainWindowPosters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aTabRequestsItsPosters_data();
    void aTabRequestsItsPosters();
    void aSearchShowsKnownPosters();
    void theTabsShareTheirPosters();
    void aReplyAfterTheWindowIsGone();

private:
    /// Opens an account whose cached films and shows have so many posters, on the items page of
    /// a tab.
    void open(int entries, const QString &tab = u"movie"_s);
    void showItems(const QString &tab) const;

    std::unique_ptr<PosterServer> server;
    std::optional<WindowFixture> window;
};

void tst_MainWindowPosters::init()
{
    window.reset();
    server = std::make_unique<PosterServer>();
}

void tst_MainWindowPosters::open(int entries, const QString &tab)
{
    window.emplace();
    WindowFixture::store(accountSource(u"A"_s, u"http://127.0.0.1:9"_s));
    CatalogCache::save(u"A"_s, u"live"_s, {});
    for (const QString &section : {u"movie"_s, u"series"_s}) {
        const bool used = section == tab || entries == 1;
        CatalogCache::save(u"A"_s, section,
                           {{}, used ? filmsWith(server->posters(entries)) : QList<MediaItem>()});
    }
    window->open();
    showItems(tab);
}

void tst_MainWindowPosters::showItems(const QString &tab) const
{
    window->find<QTabWidget>(u"tabs"_s).setCurrentIndex(tab == "movie"_L1 ? 1 : 2);
    window->find<QStackedWidget>(tab + "Stack"_L1).setCurrentIndex(1);
}

void tst_MainWindowPosters::aTabRequestsItsPosters_data()
{
    QTest::addColumn<QString>("tab");
    QTest::newRow("movies") << u"movie"_s;
    QTest::newRow("shows") << u"series"_s;
}

void tst_MainWindowPosters::aTabRequestsItsPosters()
{
    QFETCH(QString, tab);
    open(1000, tab);
    auto &grid = window->find<QListWidget>(tab + "PosterList"_L1);
    QTRY_COMPARE(colorOf(grid.item(0)->icon()), red);
    const auto requests = [&](int row) {
        return server->requestCount(QUrl(grid.item(row)->data(257).toString()).path());
    };
    // The first pass may run before the window has its layout.
    const int before = static_cast<int>(server->requested().size());
    QVERIFY(before < 100);
    QCOMPARE(requests(before), 0);
    window->window().resize(1200, 1800);
    QTRY_COMPARE(requests(before), 1);
    QCOMPARE(requests(999), 0);
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QTRY_COMPARE(requests(999), 1);
}

void tst_MainWindowPosters::aSearchShowsKnownPosters()
{
    open(8);
    auto &grid = window->find<QListWidget>(u"moviePosterList"_s);
    const auto lastShows = [&grid] { return colorOf(grid.item(grid.count() - 1)->icon()) == red; };
    QTRY_VERIFY(grid.count() == 8 && lastShows());
    const int requests = server->requestCount();
    // The longest name only.
    QTest::keyClicks(&window->find<QLineEdit>(u"movieSearch"_s), u"name "_s.repeated(8).trimmed());
    QCOMPARE(grid.count(), 1);
    QTRY_VERIFY(lastShows());
    QCOMPARE(server->requestCount(), requests);
}

void tst_MainWindowPosters::theTabsShareTheirPosters()
{
    server->on(PosterServer::pathOf(0), heldPoster());
    open(1);
    auto &films = window->find<QListWidget>(u"moviePosterList"_s);
    auto &shows = window->find<QListWidget>(u"seriesPosterList"_s);
    QTRY_COMPARE(server->requestCount(), 2);
    server->release(PosterServer::pathOf(0));
    QTRY_COMPARE(colorOf(shows.item(0)->icon()), blue);
    QTRY_COMPARE(colorOf(films.item(0)->icon()), blue);
    QCOMPARE(shows.item(0)->icon().cacheKey(), films.item(0)->icon().cacheKey());
}

void tst_MainWindowPosters::aReplyAfterTheWindowIsGone()
{
    server->on(PosterServer::pathOf(0), heldPoster());
    open(1);
    QTRY_COMPARE(server->requestCount(PosterServer::pathOf(0)), 2);
    window.reset();
    server->release(PosterServer::pathOf(0));
    QTRY_COMPARE(server->openConnections(), 0);
    QVERIFY(!QFile::exists(posterCachePath(server->poster(0))));
}

VANTIRO_TEST_MAIN(tst_MainWindowPosters)
#include "tst_MainWindowPosters.moc"
