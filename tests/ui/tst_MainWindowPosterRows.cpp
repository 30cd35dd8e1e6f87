#include "PosterWindow.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/Thumbnails.h"

#include <QFile>
#include <QIcon>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QColor red(200, 0, 0);
const QColor blue(0, 0, 200);

QString pathOf(int row)
{
    return u"/posters/%1.png"_s.arg(row);
}

QString dataUrl(const QColor &color)
{
    return u"data:image/png;base64,"_s + QString::fromLatin1(pngOf(color).toBase64());
}

} // namespace

/// Which rows get a poster: rows that share one, rows of a refilled or another grid, rows whose
/// URL holds the picture, and rows behind a server that does not answer.
class tst_MainWindowPosterRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void oneUrlInTwoEntriesIsRequestedTwice();
    void farEntriesWithTheSameUrlGetThePoster();
    void aPosterIsGivenToEachRowOnce();
    void theOtherGridIsNotTouchedByAReply();
    void theShowsAskAsTheyScrollAndGrow();
    void aReplyAfterARefillServesTheNewItems();
    void aReplyAfterARefillFindsTheNewRows();
    void dataUrlsNeedNoRequest();
    void aSilentServerIsGivenUp();
    void postersBehindASilentServerComeLater();

private:
    QStringList urls(int count) const;

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPosterRows::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/posters/"_s, [](const HttpRequest &) { return imageReply(pngOf(red)); });
}

QStringList tst_MainWindowPosterRows::urls(int count) const
{
    QStringList result;
    for (int row = 0; row < count; ++row) {
        result << server->url(pathOf(row));
    }
    return result;
}

void tst_MainWindowPosterRows::oneUrlInTwoEntriesIsRequestedTwice()
{
    server->on(pathOf(0), heldImage(pngOf(red)));
    PosterWindow posters;
    posters.fill({server->url(pathOf(0)), server->url(pathOf(0))});
    QTRY_COMPARE(server->requestCount(pathOf(0)), 2);
    QVERIFY(posters.showsPlaceholder(0));
    server->release(pathOf(0));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(posters.color(1), red);
    QCOMPARE(server->requestCount(), 2);
}

void tst_MainWindowPosterRows::farEntriesWithTheSameUrlGetThePoster()
{
    QStringList list = urls(1000);
    list[900] = list.at(0);
    list[901] = list.at(0).toUpper();
    PosterWindow posters;
    posters.fill(list);
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(900), red);
    QVERIFY(!posters.wasAskedFor(900));
    // The URL must be the very same.
    QVERIFY(posters.showsPlaceholder(901));
    QVERIFY(posters.showsPlaceholder(902));
}

void tst_MainWindowPosterRows::aPosterIsGivenToEachRowOnce()
{
    server->on(pathOf(0), heldImage(pngOf(red)));
    const QString url = server->url(pathOf(0));
    PosterWindow posters;
    QListWidget &grid = posters.grid();
    // Both of the first rows ask for it; the last one is far away.
    QStringList list = urls(300);
    list[1] = url;
    list[299] = url;
    posters.fill(list);
    QTRY_COMPARE(server->requestCount(pathOf(0)), 2);
    QVERIFY(!posters.wasAskedFor(299));
    QTRY_VERIFY(posters.color(2) == red);

    int changes = 0;
    connect(&grid, &QListWidget::itemChanged, &grid, [&](const QListWidgetItem *item) {
        if (item->data(257).toString() == url && !posters.showsPlaceholder(grid.row(item))) {
            ++changes;
        }
    });
    server->release(pathOf(0));
    QVERIFY(posters.settle());
    QCOMPARE(changes, 3);
    QCOMPARE(grid.item(1)->icon().cacheKey(), grid.item(0)->icon().cacheKey());
    QCOMPARE(grid.item(299)->icon().cacheKey(), grid.item(0)->icon().cacheKey());

    // The far row comes near: only the mark that it was asked for is new.
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QTRY_VERIFY(posters.wasAskedFor(299));
    QCOMPARE(changes, 4);
    // After a refill the icon is still the same.
    const qint64 icon = grid.item(0)->icon().cacheKey();
    posters.fill({url});
    QVERIFY(posters.settle());
    QCOMPARE(grid.item(0)->icon().cacheKey(), icon);
}

void tst_MainWindowPosterRows::theOtherGridIsNotTouchedByAReply()
{
    server->on(pathOf(0), heldImage(pngOf(red)));
    PosterWindow posters;
    posters.fill(urls(1));
    QTRY_COMPARE(server->requestCount(pathOf(0)), 1);
    // Without an event in between: its own pass has not run.
    server->release(pathOf(0));
    QVERIFY(posters.settle());
    posters.fill(posters.otherGrid(), urls(1));
    QCOMPARE(posters.color(posters.otherGrid(), 0), QColor(45, 45, 48));
    QTRY_COMPARE(posters.color(posters.otherGrid(), 0), red);
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowPosterRows::theShowsAskAsTheyScrollAndGrow()
{
    PosterWindow posters;
    posters.showOtherGrid();
    QListWidget &grid = posters.otherGrid();
    posters.fill(grid, urls(1000));
    const auto isAsked = [this](int row) { return server->requestCount(pathOf(row)) > 0; };
    QTRY_VERIFY(isAsked(0));
    QVERIFY(!isAsked(999));
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    // The step itself asks, not a later event.
    QVERIFY(grid.item(999)->data(258).toBool());
    QTRY_VERIFY(isAsked(999));
    grid.verticalScrollBar()->setValue(0);

    const int next = static_cast<int>(rowsNearView(grid).size());
    QVERIFY(!isAsked(next));
    posters.window().resize(1200, 1500);
    QTRY_VERIFY(rowsNearView(grid).size() > next);
    QTRY_VERIFY(isAsked(next));
}

void tst_MainWindowPosterRows::aReplyAfterARefillServesTheNewItems()
{
    server->on(pathOf(0), heldImage(pngOf(blue)));
    PosterWindow posters;
    posters.fill(urls(1));
    QTRY_COMPARE(server->requestCount(pathOf(0)), 1);
    posters.fill({server->url(pathOf(7)), server->url(pathOf(0))});
    QTRY_COMPARE(server->requestCount(pathOf(0)), 2);
    server->release(pathOf(0));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(posters.color(1), blue);
}

void tst_MainWindowPosterRows::aReplyAfterARefillFindsTheNewRows()
{
    PosterWindow posters;
    posters.fill(urls(3));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(2), red);

    server->on(pathOf(9), heldImage(pngOf(blue)));
    posters.fill({server->url(pathOf(1)), server->url(pathOf(9)), server->url(pathOf(2))});
    QTRY_COMPARE(server->requestCount(pathOf(9)), 1);
    server->release(pathOf(9));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(posters.color(1), blue);
    QCOMPARE(posters.color(2), red);
}

void tst_MainWindowPosterRows::dataUrlsNeedNoRequest()
{
    const QString url = dataUrl(blue);
    PosterWindow posters;
    const QSignalSpy requests(
        posters.window().findChild<QNetworkAccessManager *>(u"thumbnailNetwork"_s),
        &QNetworkAccessManager::finished);
    posters.fill({url, u"data:image/png;base64,AAAA"_s, url});
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), blue);
    QVERIFY(posters.showsPlaceholder(1));
    QCOMPARE(posters.color(2), blue);
    QCOMPARE(requests.count(), 0);
    QVERIFY(!QFile::exists(thumbnailCachePath(url)));

    posters.fill({url});
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), blue);
}

void tst_MainWindowPosterRows::aSilentServerIsGivenUp()
{
    HttpReply silent;
    silent.neverAnswer = true;
    server->on(pathOf(0), silent);
    HttpReply stalled = imageReply(pngOf(red));
    stalled.stallAfter = 40;
    server->on(pathOf(1), stalled);
    PosterWindow posters;
    auto *network = posters.window().findChild<QNetworkAccessManager *>(u"thumbnailNetwork"_s);
    QCOMPARE(network->transferTimeout(), 30000);
    network->setTransferTimeout(1000);
    posters.fill(urls(3));
    QTRY_VERIFY(server->peakConnections() >= 2);
    QVERIFY(posters.settle());
    QVERIFY(posters.showsPlaceholder(0));
    QVERIFY(posters.showsPlaceholder(1));
    QCOMPARE(posters.color(2), red);
    // They are not asked for again until the grid is refilled.
    posters.window().loadVisibleThumbnails(&posters.grid());
    QCOMPARE(posters.downloads(), 0);
    QVERIFY(!QFile::exists(thumbnailCachePath(urls(1).constFirst())));
}

void tst_MainWindowPosterRows::postersBehindASilentServerComeLater()
{
    // More than a network access manager asks one server for at once.
    constexpr int silentPosters = 6;
    HttpReply silent;
    silent.neverAnswer = true;
    for (int row = 0; row < silentPosters; ++row) {
        server->on(pathOf(row), silent);
    }
    PosterWindow posters;
    posters.window()
        .findChild<QNetworkAccessManager *>(u"thumbnailNetwork"_s)
        ->setTransferTimeout(2000);
    posters.window().resize(3000, 900);
    posters.fill(urls(silentPosters + 2));
    QTRY_COMPARE(rowsNearView(posters.grid()).size(), silentPosters + 2);
    QTRY_COMPARE(server->peakConnections(), silentPosters);
    QCOMPARE(server->requestCount(pathOf(silentPosters)), 0);
    QTRY_COMPARE(posters.color(silentPosters), red);
    QTRY_COMPARE(posters.color(silentPosters + 1), red);
    QVERIFY(posters.settle());
    for (int row = 0; row < silentPosters; ++row) {
        QVERIFY(posters.showsPlaceholder(row));
        QCOMPARE(server->requestCount(pathOf(row)), 1);
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowPosterRows)
#include "tst_MainWindowPosterRows.moc"
