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
#include <QScrollBar>
#include <QSignalSpy>

#include <memory>

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

} // namespace

class tst_PosterGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void setsUpTheList();
    void showsEntries();
    void aPosterLeavesItsCellAlone();
    void findsTheRowsInABand_data();
    void findsTheRowsInABand();
    void requestsOnlyWhatIsNearTheView();
    void requestsNothingOutsideANarrowView();
    void requestsMoreAsItGrows();
    void aRefillFindsPostersInMemory();
    void aFailureIsRequestedAgainAfterARefillOnly();
    void rowsOfOneUrl();
    void theOtherGridIsNotChanged();
    void aReplyAfterARefill();
    void abandonedRequestsAreRepeated();
    void manyPostersComeFromDisk();
    void evictedPostersComeBackFromDisk();
    void anotherGridsPostersAreLeftAlone();
    void anEndWhileAPosterIsUnderWay();

private:
    /// Waits until the requests after a fill have run and nothing is under way.
    bool settle()
    {
        QCoreApplication::processEvents();
        return ::settle(*store);
    }
    QSet<QRgb> colorsOf(const QList<int> &rows) const
    {
        QSet<QRgb> colors;
        for (const int row : rows) {
            colors.insert(grid->color(row).rgb());
        }
        return colors;
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
    QCOMPARE(list.viewMode(), QListView::IconMode);
    QCOMPARE(list.resizeMode(), QListView::Adjust);
    QCOMPARE(list.movement(), QListView::Static);
    QVERIFY(list.isWrapping() && list.uniformItemSizes() && list.wordWrap());
    QCOMPARE(list.spacing(), 10);
    QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list.frameShape(), QFrame::NoFrame);
    QCOMPARE(list.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
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

void tst_PosterGrid::aPosterLeavesItsCellAlone()
{
    const auto cell = [this] {
        static_cast<QAbstractItemView &>(grid->list).doItemsLayout();
        return grid->list.visualItemRect(grid->list.item(0));
    };
    const int lineHeight = grid->list.fontMetrics().height();
    const QList<QSize> sizes{{100, 4000}, {4000, 100}, {2, 3}};
    for (int number = 0; number < sizes.size(); ++number) {
        server->on(PosterServer::pathOf(number), imageReply(pngOf(red, sizes.at(number))));
        grid->fill({server->poster(number)});
        // The place of a whole poster and of one line of text below it.
        const QRect before = cell();
        QCOMPARE_GE(before.height(), posterSize.height() + lineHeight);
        QCOMPARE_LT(before.height(), posterSize.height() + 2 * lineHeight);
        QCOMPARE_GE(before.width(), posterSize.width());
        QVERIFY(settle());
        QCOMPARE(grid->color(0), red);
        QCOMPARE(cell(), before);
    }
}

void tst_PosterGrid::findsTheRowsInABand_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("no entries") << 0 << Qt::LeftToRight;
    QTest::newRow("one line") << 2 << Qt::LeftToRight;
    QTest::newRow("many lines") << 40 << Qt::LeftToRight;
    QTest::newRow("from right to left") << 40 << Qt::RightToLeft;
}

void tst_PosterGrid::findsTheRowsInABand()
{
    QFETCH(int, count);
    QFETCH(Qt::LayoutDirection, direction);
    grid->list.setLayoutDirection(direction);
    grid->fill(QStringList(count));
    for (int top = -50; top < 1200; ++top) {
        for (const int height : {1, 2, 250}) {
            const QRect band(0, top, 600, height);
            const RowRange range = rowsInBand(grid->list, band);
            for (int row = 0; row < count; ++row) {
                const QRect rect = grid->list.visualItemRect(grid->list.item(row));
                const bool isInBand = rect.bottom() >= top && rect.top() <= band.bottom();
                QCOMPARE(row >= range.first && row <= range.last, isInBand);
            }
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

/// Its part of the window can be made as narrow as nothing.
void tst_PosterGrid::requestsNothingOutsideANarrowView()
{
    grid->list.setMinimumSize(1, 1);
    grid->list.resize(1, 500);
    QTRY_VERIFY(grid->list.viewport()->width() < grid->list.spacing());
    grid->fill(server->posters(20));
    QVERIFY(settle());
    QCOMPARE(server->requestCount(), 0);
    QVERIFY(!grid->wasRequested(0));
    grid->list.resize(500, 500);
    QTRY_COMPARE(server->requested(), rowsNearView(grid->list));
    QVERIFY(settle());
    QCOMPARE(grid->color(0), red);
}

void tst_PosterGrid::requestsMoreAsItGrows()
{
    grid->fill(server->posters(1000));
    QVERIFY(settle());
    for (const QSize &size : {QSize(500, 1500), QSize(2000, 1500)}) {
        const qsizetype before = server->requested().size();
        grid->list.resize(size);
        QTRY_VERIFY(rowsNearView(grid->list).size() > before);
        QTRY_COMPARE(server->requested(), rowsNearView(grid->list));
        QVERIFY(settle());
        QCOMPARE(grid->color(static_cast<int>(before)), red);
    }
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
    QCOMPARE(colorsOf(rowsNearView(grid->list)), QSet<QRgb>{red.rgb()});
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

    int replies = 0;
    connect(store.get(), &PosterStore::posterReady, &grid->list,
            [&](const QString &ready) { replies += ready == url ? 1 : 0; });
    server->release(PosterServer::pathOf(0));
    QVERIFY(settle());
    QCOMPARE(replies, 2);
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
    QStringList urls(300);
    urls[299] = server->poster(1);
    other.fill(urls);
    grid->fill({server->poster(1)});
    QVERIFY(settle());
    QCOMPARE(grid->color(0), red);
    QCOMPARE(other.color(299), placeholderColor);
    other.scrollToEnd();
    QCOMPARE(other.color(299), red);
    QCOMPARE(server->requestCount(), 1);
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

void tst_PosterGrid::abandonedRequestsAreRepeated()
{
    constexpr int silentPosters = 6;
    for (int number = 0; number < silentPosters; ++number) {
        server->on(PosterServer::pathOf(number), neverAnswers());
    }
    networkOf(*store).setTransferTimeout(silentMs);
    grid->fill(server->posters(silentPosters + 2));
    QTRY_COMPARE(server->peakConnections(), silentPosters);
    QTRY_COMPARE_WITH_TIMEOUT(grid->color(silentPosters), red, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(grid->color(silentPosters + 1), red, 20000);
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
    QTRY_VERIFY(rowsNearView(grid->list).size() > 70);
    QTRY_COMPARE(colorsOf(rowsNearView(grid->list)), QSet<QRgb>{green.rgb()});
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
    QCOMPARE(colorsOf(firstRows), QSet<QRgb>{red.rgb()});
    grid->scrollToEnd();
    QVERIFY(settle());
    QCOMPARE(grid->color(299), red);
    QCOMPARE(colorsOf(firstRows), QSet<QRgb>{placeholderColor.rgb()});
    const int requests = server->requestCount();

    grid->scrollTo(0);
    QTRY_COMPARE(colorsOf(firstRows), QSet<QRgb>{red.rgb()});
    QCOMPARE(grid->color(299), placeholderColor);
    QCOMPARE(server->requestCount(), requests);
}

/// What the store gives up or forgets was asked for by one of its grids only.
void tst_PosterGrid::anotherGridsPostersAreLeftAlone()
{
    grid.reset();
    store = std::make_unique<PosterStore>(nullptr, 1);
    grid = std::make_unique<Grid>(*store);
    Grid other(*store);
    server->on(PosterServer::pathOf(0), statusReply(500));
    other.fill({server->poster(0)});
    QVERIFY(settle());

    // Each poster evicts the one before.
    for (const int number : {1, 2, 3}) {
        grid->fill({server->poster(number)});
        QVERIFY(settle());
    }
    constexpr int silentPosters = 6;
    for (int number = 10; number < 10 + silentPosters; ++number)
        server->on(PosterServer::pathOf(number), neverAnswers());
    networkOf(*store).setTransferTimeout(silentMs);
    const QSignalSpy abandoned(store.get(), &PosterStore::requestAbandoned);
    grid->fill(server->posters(10 + silentPosters + 2).mid(10));
    QTRY_VERIFY_WITH_TIMEOUT(abandoned.size() >= 2, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(grid->color(silentPosters), red, 20000);
    QVERIFY(settle());
    other.posters->requestVisible();
    QVERIFY(settle());
    QCOMPARE(server->requestCount(PosterServer::pathOf(0)), 1);
    QCOMPARE(other.color(0), placeholderColor);
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
