#include "PosterFixture.h"
#include "model/ItemFilter.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/PosterGrid.h"
#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QFile>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QRandomGenerator>
#include <QScrollBar>

#include <memory>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// A grid on screen. Its scroll bar always shows, so that a fill leaves the viewport as it is.
struct Grid
{
    explicit Grid(PosterStore &store)
        : posters(new PosterGrid(&list, &store))
    {
        list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        list.resize(500, 500);
        list.show();
        QCoreApplication::processEvents();
    }
    void fill(const QStringList &urls)
    {
        const QList<MediaItem> films = filmsWith(urls);
        posters->fill({films, filteredRows(films, {}, {})});
    }
    QColor color(int row) const { return colorOf(list.item(row)->icon()); }
    bool wasRequested(int row) const { return list.item(row)->data(258).toBool(); }
    qint64 iconOf(int row) const { return list.item(row)->icon().cacheKey(); }
    void scrollTo(int value) { list.verticalScrollBar()->setValue(value); }
    void scrollToEnd() { scrollTo(list.verticalScrollBar()->maximum()); }

    QListWidget list;
    PosterGrid *posters; ///< child of the list
};

/// The rows that share a line of pixels with the band, found by looking at all of them.
QList<int> plainRowsInBand(const QListWidget &grid, const QRect &band)
{
    QList<int> rows;
    for (int row = 0; row < grid.count(); ++row) {
        const QRect rect = grid.visualItemRect(grid.item(row));
        if (rect.bottom() >= band.top() && rect.top() <= band.bottom()) {
            rows << row;
        }
    }
    return rows;
}

QList<int> fastRowsInBand(const QListWidget &grid, const QRect &band)
{
    const RowRange range = rowsInBand(grid, band);
    QList<int> rows(range.last - range.first + 1);
    std::iota(rows.begin(), rows.end(), range.first);
    return rows;
}

} // namespace

class tst_PosterGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void setsUpTheList();
    void showsEntries();
    void aPosterLeavesTheCellsAlone_data();
    void aPosterLeavesTheCellsAlone();
    void findsTheRowsInABand_data();
    void findsTheRowsInABand();
    void findsTheRowsInABandAtEveryPixel();
    void requestsOnlyWhatIsNearTheView();
    void requestsMoreAsItGrows_data();
    void requestsMoreAsItGrows();
    void aRefillFindsPostersInMemory();
    void aFailureIsRequestedAgainAfterARefillOnly();
    void rowsOfOneUrl();
    void theOtherGridIsNotChanged();
    void aReplyAfterARefill();
    void aReplyForNobodyIsKept();
    void abandonedRequestsAreRepeated();
    void manyPostersComeFromDisk();
    void evictedPostersComeBackFromDisk();
    void anEndWhileAPosterIsUnderWay();

private:
    /// Waits until the requests after a fill have run and nothing is under way.
    bool settle()
    {
        QCoreApplication::processEvents();
        return ::settle(*store);
    }

    std::unique_ptr<PosterServer> server;
    std::unique_ptr<PosterStore> store;
    std::unique_ptr<Grid> grid;
};

void tst_PosterGrid::init()
{
    PrivateProfile::current().clear();
    grid.reset();
    server = std::make_unique<PosterServer>();
    store = std::make_unique<PosterStore>();
    grid = std::make_unique<Grid>(*store);
}

void tst_PosterGrid::setsUpTheList()
{
    const QListWidget &list = grid->list;
    for (const auto &[name, value] : std::initializer_list<std::pair<const char *, int>>{
             {"viewMode", QListView::IconMode},
             {"resizeMode", QListView::Adjust},
             {"movement", QListView::Static},
             {"isWrapping", true},
             {"uniformItemSizes", true},
             {"spacing", 10},
             {"selectionMode", QAbstractItemView::SingleSelection},
             {"frameShape", QFrame::NoFrame},
             {"wordWrap", true},
             {"verticalScrollMode", QAbstractItemView::ScrollPerPixel},
             {"horizontalScrollMode", QAbstractItemView::ScrollPerPixel}}) {
        QVERIFY2(list.property(name).isValid(), name);
        QVERIFY2(list.property(name).toInt() == value, name);
    }
    QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list.iconSize(), QSize(140, 210));
}

void tst_PosterGrid::showsEntries()
{
    grid->fill({server->poster(0), QString()});
    QCOMPARE(grid->list.count(), 2);
    const QListWidgetItem *item = grid->list.item(0);
    QCOMPARE(item->text(), u"Name "_s);
    QCOMPARE(item->data(Qt::TextAlignmentRole).toInt(), 36);
    QCOMPARE(item->data(257).toString(), server->poster(0));
    QCOMPARE(item->icon().cacheKey(), store->placeholder().cacheKey());
    QVERIFY(!item->data(258).toBool());
    // An entry without a URL keeps the placeholder.
    QVERIFY(settle());
    QCOMPARE(grid->color(0), red);
    QVERIFY(grid->wasRequested(1));
    QCOMPARE(grid->color(1), placeholderColor);

    grid->fill({QString()});
    QCOMPARE(grid->list.count(), 1);
}

void tst_PosterGrid::aPosterLeavesTheCellsAlone_data()
{
    QTest::addColumn<QSize>("poster");
    QTest::newRow("tall") << QSize(100, 4000);
    QTest::newRow("wide") << QSize(4000, 100);
    QTest::newRow("tiny") << QSize(2, 3);
    QTest::newRow("large") << QSize(1400, 2100);
}

void tst_PosterGrid::aPosterLeavesTheCellsAlone()
{
    QFETCH(QSize, poster);
    grid->fill({QString(), QString(), QString()});
    QListWidget &list = grid->list;
    const auto cells = [&list] {
        static_cast<QAbstractItemView &>(list).doItemsLayout();
        QList<QRect> rects;
        for (int row = 0; row < list.count(); ++row) {
            rects << list.visualItemRect(list.item(row));
        }
        return rects;
    };
    const QList<QRect> before = cells();
    // The place of a whole poster and of one line of text below it.
    const int lineHeight = list.fontMetrics().height();
    QVERIFY(before.at(0).height() >= posterSize.height() + lineHeight);
    QVERIFY(before.at(0).height() < posterSize.height() + 2 * lineHeight);
    QVERIFY(before.at(0).width() >= posterSize.width());

    QPixmap picture(poster);
    picture.fill(Qt::red);
    // The last item: Qt takes its size for all cells.
    list.item(2)->setIcon(QIcon(picture));
    QCOMPARE(cells(), before);
}

void tst_PosterGrid::findsTheRowsInABand_data()
{
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<int>("limit");
    QTest::newRow("few entries") << false << 5;
    QTest::newRow("hundreds of entries") << false << 700;
    QTest::newRow("from right to left") << true << 300;
}

void tst_PosterGrid::findsTheRowsInABand()
{
    QFETCH(bool, rightToLeft);
    QFETCH(int, limit);
    QRandomGenerator random(4711);
    QListWidget &list = grid->list;
    list.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    for (int round = 0; round < 60; ++round) {
        grid->fill(QStringList(random.bounded(limit)));
        for (int step = 0; step < 4; ++step) {
            list.setVisible(random.bounded(4) > 0);
            if (random.bounded(2) == 0) {
                list.resize(random.bounded(1, 1500), random.bounded(1, 900));
            }
            grid->scrollTo(random.bounded(list.verticalScrollBar()->maximum() + 1));
            const QRect band = list.viewport()->rect().adjusted(0, -400, 0, 400);
            QCOMPARE(fastRowsInBand(list, band), plainRowsInBand(list, band));
        }
        QCoreApplication::processEvents();
    }
}

void tst_PosterGrid::findsTheRowsInABandAtEveryPixel()
{
    grid->fill(QStringList(40));
    for (int top = -50; top < 1200; ++top) {
        for (const int height : {1, 2, 250}) {
            const QRect band(0, top, 600, height);
            QCOMPARE(fastRowsInBand(grid->list, band), plainRowsInBand(grid->list, band));
        }
    }
}

void tst_PosterGrid::requestsOnlyWhatIsNearTheView()
{
    grid->fill(server->posters(10000));
    QCOMPARE(server->requestCount(), 0);
    QSet<int> expected;
    const int end = 600000;
    for (const int stop : {0, 1, 120, 121, 700, 3000, 0, end / 2, end / 2 + 399, end, 10}) {
        grid->scrollTo(stop);
        QVERIFY(settle());
        const QList<int> nearRows = rowsNearView(grid->list);
        QVERIFY(nearRows.size() > 4 && nearRows.size() < 200);
        expected.unite(QSet<int>(nearRows.begin(), nearRows.end()));
        QList<int> sorted = expected.values();
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(server->requested(), sorted);
        QCOMPARE(grid->color(nearRows.constFirst()), red);
        QCOMPARE(grid->color(nearRows.constLast()), red);
    }
    QVERIFY(!grid->wasRequested(2000));
    QCOMPARE(grid->color(2000), placeholderColor);
    grid->scrollToEnd();
    // The step itself requests, not a later event.
    QVERIFY(grid->wasRequested(9999));
}

void tst_PosterGrid::requestsMoreAsItGrows_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("taller") << QSize(500, 1500);
    QTest::newRow("wider") << QSize(2000, 500);
}

void tst_PosterGrid::requestsMoreAsItGrows()
{
    QFETCH(QSize, size);
    grid->fill(server->posters(1000));
    QVERIFY(settle());
    const qsizetype before = server->requested().size();
    grid->list.resize(size);
    QTRY_VERIFY(rowsNearView(grid->list).size() > before);
    QTRY_COMPARE(server->requested(), rowsNearView(grid->list));
    QVERIFY(settle());
    QCOMPARE(grid->color(static_cast<int>(before)), red);
}

void tst_PosterGrid::aRefillFindsPostersInMemory()
{
    grid->fill(server->posters(50));
    QVERIFY(settle());
    const int requests = server->requestCount();
    const qint64 icon = grid->iconOf(0);
    grid->fill(server->posters(50));
    QCOMPARE(grid->color(0), placeholderColor);
    QCoreApplication::processEvents();
    for (const int row : rowsNearView(grid->list)) {
        QCOMPARE(grid->color(row), red);
    }
    QCOMPARE(grid->iconOf(0), icon);
    QCOMPARE(server->requestCount(), requests);
}

void tst_PosterGrid::aFailureIsRequestedAgainAfterARefillOnly()
{
    server->on(PosterServer::pathOf(0), statusReply(500));
    grid->fill(server->posters(1));
    QVERIFY(settle());
    grid->posters->requestVisible();
    grid->list.resize(600, 600);
    QVERIFY(settle());
    QCOMPARE(server->requestCount(), 1);

    server->on(PosterServer::pathOf(0), imageReply(pngOf(blue)));
    grid->fill(server->posters(1));
    QVERIFY(settle());
    QCOMPARE(server->requestCount(), 2);
    QCOMPARE(grid->color(0), blue);
}

void tst_PosterGrid::rowsOfOneUrl()
{
    const QString url = server->poster(0);
    server->on(PosterServer::pathOf(0), held(imageReply(pngOf(blue))));
    QStringList urls = server->posters(300);
    urls[1] = url;
    urls[298] = url.toUpper();
    urls[299] = url;
    grid->fill(urls);
    // Each row near the view requests it.
    QTRY_COMPARE(server->requestCount(PosterServer::pathOf(0)), 2);
    QTRY_COMPARE(grid->color(2), red);
    QVERIFY(!grid->wasRequested(299));

    server->release(PosterServer::pathOf(0));
    QVERIFY(settle());
    for (const int row : {0, 1, 299}) {
        QCOMPARE(grid->color(row), blue);
        QCOMPARE(grid->iconOf(row), grid->iconOf(0));
    }
    // The URL must be the very same.
    QCOMPARE(grid->color(298), placeholderColor);

    // The far row comes near: it is not requested again.
    grid->scrollToEnd();
    QVERIFY(grid->wasRequested(299));
    QCOMPARE(server->requestCount(PosterServer::pathOf(0)), 2);
}

void tst_PosterGrid::theOtherGridIsNotChanged()
{
    Grid other(*store);
    other.fill({QString(), QString(), server->poster(0)});
    other.list.resize(500, 500);
    QCoreApplication::processEvents();
    QVERIFY(settle());
    Grid far(*store);
    QStringList urls(300);
    urls[299] = server->poster(1);
    far.fill(urls);
    grid->fill({server->poster(1)});
    QVERIFY(settle());
    QCOMPARE(grid->color(0), red);
    QCOMPARE(other.color(2), red);
    QCOMPARE(far.color(299), placeholderColor);
    far.scrollToEnd();
    QCOMPARE(far.color(299), red);
    QCOMPARE(server->requestCount(), 2);
}

void tst_PosterGrid::aReplyAfterARefill()
{
    grid->fill(server->posters(3));
    QVERIFY(settle());
    server->on(PosterServer::pathOf(999), held(imageReply(pngOf(blue))));
    grid->fill({server->poster(999)});
    QTRY_COMPARE(server->requestCount(PosterServer::pathOf(999)), 1);
    QStringList urls = server->posters(300);
    urls[299] = server->poster(999);
    grid->fill(urls);
    server->release(PosterServer::pathOf(999));
    QVERIFY(settle());
    QCOMPARE(grid->color(0), red);
    QCOMPARE(grid->color(299), blue);
    QCOMPARE(grid->color(298), placeholderColor);
    QCOMPARE(server->requestCount(PosterServer::pathOf(999)), 1);
}

void tst_PosterGrid::aReplyForNobodyIsKept()
{
    server->on(PosterServer::pathOf(0), held(imageReply(pngOf(blue))));
    grid->fill(server->posters(1));
    QTRY_COMPARE(server->requestCount(), 1);
    grid->fill({});
    server->release(PosterServer::pathOf(0));
    QVERIFY(settle());
    grid->fill(server->posters(1));
    QCoreApplication::processEvents();
    QCOMPARE(grid->color(0), blue);
    QCOMPARE(server->requestCount(), 1);
}

void tst_PosterGrid::abandonedRequestsAreRepeated()
{
    constexpr int silentPosters = 6;
    for (int number = 0; number < silentPosters; ++number) {
        server->on(PosterServer::pathOf(number), neverAnswers());
    }
    networkOf(*store).setTransferTimeout(1000);
    grid->fill(server->posters(silentPosters + 2));
    QTRY_COMPARE(server->peakConnections(), silentPosters);
    QTRY_COMPARE(grid->color(silentPosters), red);
    QTRY_COMPARE(grid->color(silentPosters + 1), red);
    QVERIFY(settle());
    for (int row = 0; row < silentPosters; ++row) {
        QCOMPARE(grid->color(row), placeholderColor);
        QCOMPARE(server->requestCount(PosterServer::pathOf(row)), 1);
    }
}

void tst_PosterGrid::manyPostersComeFromDisk()
{
    const QStringList urls = server->posters(200);
    for (const QString &url : urls) {
        writeFile(posterCachePath(url), pngOf(green));
    }
    grid->list.resize(3000, 1000);
    grid->fill(urls);
    QCoreApplication::processEvents();
    const auto allShow = [this] {
        const QList<int> rows = rowsNearView(grid->list);
        return rows.size() > 70 && std::all_of(rows.begin(), rows.end(), [this](int row) {
                   return grid->color(row) == green;
               });
    };
    QTRY_VERIFY(allShow());
    QCOMPARE(server->requestCount(), 0);
}

void tst_PosterGrid::evictedPostersComeBackFromDisk()
{
    grid.reset();
    store = std::make_unique<PosterStore>(nullptr, 1);
    grid = std::make_unique<Grid>(*store);
    grid->fill(server->posters(300));
    QVERIFY(settle());
    const QList<int> firstRows = rowsNearView(grid->list);
    const auto colors = [this, &firstRows] {
        QSet<QRgb> found;
        for (const int row : firstRows) {
            found.insert(grid->color(row).rgb());
        }
        return found;
    };
    QCOMPARE(colors(), QSet<QRgb>{red.rgb()});
    grid->scrollToEnd();
    QVERIFY(settle());
    QCOMPARE(grid->color(299), red);
    QCOMPARE(colors(), QSet<QRgb>{placeholderColor.rgb()});
    const int requests = server->requestCount();

    grid->scrollTo(0);
    QTRY_COMPARE(colors(), QSet<QRgb>{red.rgb()});
    QCOMPARE(grid->color(299), placeholderColor);
    QCOMPARE(server->requestCount(), requests);
}

void tst_PosterGrid::anEndWhileAPosterIsUnderWay()
{
    writeFile(posterCachePath(server->poster(0)), pngOf(green, {3000, 4500}));
    grid->fill(server->posters(2));
    QCoreApplication::processEvents();
    QVERIFY(store->isBusy());
    grid.reset();
    QVERIFY(settle());
    QVERIFY(!store->find(server->poster(0)).isNull());
}

VANTIRO_TEST_MAIN(tst_PosterGrid)
#include "tst_PosterGrid.moc"
