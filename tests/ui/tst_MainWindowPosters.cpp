#include "PosterWindow.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/Thumbnails.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QStackedWidget>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QColor red(200, 0, 0);
const QColor green(0, 160, 0);
const QColor blue(0, 0, 200);

QString pathOf(int row)
{
    return u"/posters/%1.png"_s.arg(row);
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

/// Posters in the window's grids: which are asked for, where they come from, and who gets them.
class tst_MainWindowPosters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void asksOnlyForPostersNearTheView();
    void scrollingAsksForTheRestAsItComesNear();
    void aTallerWindowAsksForMore();
    void aWiderWindowAsksForMore();
    void refillingAsksAgainAndFindsThePostersInMemory();
    void aNewSearchShowsKnownPostersWithoutRequests();
    void memoryComesBeforeDisk();
    void diskComesBeforeTheNetwork();
    void aRestartReadsFromDisk();
    void aCorruptFileIsDownloadedAnew();
    void theFileHoldsTheBytesAsTheyCame();
    void anEntryWithoutAUrlKeepsThePlaceholder();
    void redirectsAreFollowed();
    void contentType_data();
    void contentType();
    void aReplyForAnEntryThatIsGoneIsKept();
    void aReplyAfterTheWindowIsGone();

private:
    QStringList urls(int count) const;
    /// The rows whose posters the server was asked for, sorted; twice asked, twice listed.
    QList<int> askedRows() const;

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPosters::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/posters/"_s, [](const HttpRequest &) { return imageReply(pngOf(red)); });
}

QStringList tst_MainWindowPosters::urls(int count) const
{
    QStringList result;
    for (int row = 0; row < count; ++row) {
        result << server->url(pathOf(row));
    }
    return result;
}

QList<int> tst_MainWindowPosters::askedRows() const
{
    QList<int> rows;
    for (const HttpRequest &request : server->requests()) {
        rows << request.path.section(u'/', -1).section(u'.', 0, 0).toInt();
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void tst_MainWindowPosters::asksOnlyForPostersNearTheView()
{
    PosterWindow posters;
    posters.fill(urls(10000));
    QCOMPARE(server->requestCount(), 0);
    QVERIFY(posters.settle());

    const QList<int> nearRows = rowsNearView(posters.grid());
    QVERIFY(nearRows.size() > 4);
    QVERIFY(nearRows.size() < 200);
    QCOMPARE(askedRows(), nearRows);
    for (const int row : nearRows) {
        QCOMPARE(posters.color(row), red);
    }
    QVERIFY(posters.showsPlaceholder(static_cast<int>(nearRows.size())));
    const HttpRequest request = server->requests().constFirst();
    QCOMPARE(request.method, "GET"_ba);
    QVERIFY(request.query.isEmpty());
}

void tst_MainWindowPosters::scrollingAsksForTheRestAsItComesNear()
{
    PosterWindow posters;
    posters.fill(urls(10000));
    QVERIFY(posters.settle());
    QSet<int> expected;
    const auto expectNear = [&] {
        for (const int row : rowsNearView(posters.grid())) {
            expected.insert(row);
        }
    };
    expectNear();

    QScrollBar &bar = *posters.grid().verticalScrollBar();
    const int end = bar.maximum();
    QVERIFY(end > 100000);
    QList<int> stops{1, 120, 121, 700, 3000, 0, end / 2, end / 2 + 399, end - 1, end, 10};
    for (const int stop : stops) {
        bar.setValue(stop);
        expectNear();
        QVERIFY(posters.settle());
        QList<int> sorted = expected.values();
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(askedRows(), sorted);
    }
    QVERIFY(posters.wasAskedFor(9999));
    QVERIFY(!posters.wasAskedFor(2000));
}

void tst_MainWindowPosters::aTallerWindowAsksForMore()
{
    PosterWindow posters;
    posters.fill(urls(1000));
    QVERIFY(posters.settle());
    const QList<int> before = askedRows();

    posters.window().resize(1200, 1500);
    QTRY_VERIFY(rowsNearView(posters.grid()).size() > before.size());
    QTRY_COMPARE(askedRows(), rowsNearView(posters.grid()));
    QVERIFY(posters.settle());
    QCOMPARE(askedRows(), rowsNearView(posters.grid()));
    QCOMPARE(posters.color(static_cast<int>(before.size())), red);
}

void tst_MainWindowPosters::aWiderWindowAsksForMore()
{
    PosterWindow posters;
    posters.fill(urls(1000));
    QVERIFY(posters.settle());
    const qsizetype before = askedRows().size();

    posters.window().resize(3000, 750);
    QTRY_VERIFY(rowsNearView(posters.grid()).size() > before);
    QTRY_COMPARE(askedRows(), rowsNearView(posters.grid()));
}

void tst_MainWindowPosters::refillingAsksAgainAndFindsThePostersInMemory()
{
    PosterWindow posters;
    posters.fill(urls(50));
    QVERIFY(posters.settle());
    const int asked = server->requestCount();

    posters.fill(urls(50));
    QVERIFY(posters.showsPlaceholder(0));
    QVERIFY(posters.settle());
    for (const int row : rowsNearView(posters.grid())) {
        QCOMPARE(posters.color(row), red);
    }
    QCOMPARE(server->requestCount(), asked);
}

void tst_MainWindowPosters::aNewSearchShowsKnownPostersWithoutRequests()
{
    PosterWindow posters;
    CatalogCache::Section section{{{u"1"_s, u"All"_s}}, {}};
    for (const QString &name : {u"Alpha"_s, u"Beta"_s}) {
        section.items << entry(StreamKind::Movie, name, u"1"_s);
        section.items.last().iconUrl = server->url(pathOf(int(section.items.size())));
    }
    CatalogCache::save(u"A"_s, u"movie"_s, section);
    posters.open();
    QVERIFY(posters.settle());
    QCOMPARE(server->requestCount(), 2);

    auto &search = posters.fixture().find<QLineEdit>(u"movieSearch"_s);
    QTest::keyClicks(&search, u"bet"_s);
    QCOMPARE(posters.grid().count(), 1);
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(server->requestCount(), 2);
}

void tst_MainWindowPosters::memoryComesBeforeDisk()
{
    PosterWindow posters;
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);

    writeFile(thumbnailCachePath(urls(1).constFirst()), pngOf(green));
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QVERIFY(QFile::remove(thumbnailCachePath(urls(1).constFirst())));
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowPosters::diskComesBeforeTheNetwork()
{
    PosterWindow posters;
    const QString file = thumbnailCachePath(urls(1).constFirst());
    writeFile(file, pngOf(green));
    posters.fill(urls(2));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), green);
    QCOMPARE(posters.color(1), red);
    QCOMPARE(askedRows(), QList<int>{1});

    // What came from the disk is kept in memory.
    QVERIFY(QFile::remove(file));
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), green);
    QCOMPARE(askedRows(), QList<int>{1});
}

void tst_MainWindowPosters::aRestartReadsFromDisk()
{
    PosterWindow posters;
    posters.fill(urls(3));
    QVERIFY(posters.settle());
    QCOMPARE(server->requestCount(), 3);

    posters.open();
    posters.fill(urls(3));
    QVERIFY(posters.settle());
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(posters.color(row), red);
    }
    QCOMPARE(server->requestCount(), 3);
}

void tst_MainWindowPosters::aCorruptFileIsDownloadedAnew()
{
    PosterWindow posters;
    const QString file = thumbnailCachePath(urls(1).constFirst());
    writeFile(file, pngOf(green).first(40) + QByteArray(5000, 'x'));
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(fileBytes(file), pngOf(red));
}

void tst_MainWindowPosters::theFileHoldsTheBytesAsTheyCame()
{
    // What follows the end of a picture is no part of it, but of the bytes.
    const QByteArray body = pngOf(blue) + "\0trailing\r\n"_ba;
    server->on(u"/Plakat für alle.png"_s, imageReply(body));
    const QString url = server->url(u"/Plakat für alle.png"_s);
    PosterWindow posters;
    posters.fill({url});
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), blue);
    QCOMPARE(fileBytes(thumbnailCachePath(url)), body);
    const QString folder = QFileInfo(thumbnailCachePath(url)).absolutePath();
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 1);
}

void tst_MainWindowPosters::anEntryWithoutAUrlKeepsThePlaceholder()
{
    PosterWindow posters;
    posters.fill({QString(), server->url(pathOf(1))});
    QVERIFY(posters.settle());
    QVERIFY(posters.wasAskedFor(0));
    QVERIFY(posters.showsPlaceholder(0));
    QCOMPARE(askedRows(), QList<int>{1});
}

void tst_MainWindowPosters::redirectsAreFollowed()
{
    server->on(u"/moved.png"_s, HttpReply::redirect(server->url(pathOf(5))));
    const QString url = server->url(u"/moved.png"_s);
    PosterWindow posters;
    posters.fill({url});
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), red);
    QCOMPARE(fileBytes(thumbnailCachePath(url)), pngOf(red));
    QVERIFY(!QFile::exists(thumbnailCachePath(server->url(pathOf(5)))));
}

void tst_MainWindowPosters::contentType_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("taken");
    QTest::newRow("its own") << "image/png"_ba << true;
    QTest::newRow("another image's") << "image/jpeg"_ba << true;
    QTest::newRow("in capitals") << "IMAGE/PNG"_ba << true;
    QTest::newRow("with a parameter") << "image/png; charset=utf-8"_ba << true;
    QTest::newRow("none") << ""_ba << true;
    QTest::newRow("HTML") << "text/html"_ba << false;
    QTest::newRow("bytes of any kind") << "application/octet-stream"_ba << false;
    QTest::newRow("image without a kind") << "image"_ba << false;
}

void tst_MainWindowPosters::contentType()
{
    QFETCH(QByteArray, type);
    QFETCH(bool, taken);
    server->on(pathOf(0), imageReply(pngOf(red), type));
    PosterWindow posters;
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(posters.color(0), taken ? red : QColor(45, 45, 48));
    QCOMPARE(QFile::exists(thumbnailCachePath(urls(1).constFirst())), taken);
}

void tst_MainWindowPosters::aReplyForAnEntryThatIsGoneIsKept()
{
    server->on(pathOf(0), heldImage(pngOf(blue)));
    PosterWindow posters;
    posters.fill(urls(1));
    QTRY_COMPARE(server->requestCount(pathOf(0)), 1);
    posters.fill({});
    server->release(pathOf(0));
    QVERIFY(posters.settle());
    QCOMPARE(fileBytes(thumbnailCachePath(urls(1).constFirst())), pngOf(blue));
    posters.fill(urls(1));
    QVERIFY(posters.settle());
    QCOMPARE(posters.color(0), blue);
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowPosters::aReplyAfterTheWindowIsGone()
{
    server->on(pathOf(0), heldImage(pngOf(blue)));
    std::optional<PosterWindow> posters(std::in_place);
    posters->fill(urls(1));
    QTRY_COMPARE(server->requestCount(pathOf(0)), 1);
    posters.reset();
    server->release(pathOf(0));
    QTRY_COMPARE(server->openConnections(), 0);
    QVERIFY(!QFile::exists(thumbnailCachePath(urls(1).constFirst())));
}

VANTIRO_TEST_MAIN(tst_MainWindowPosters)
#include "tst_MainWindowPosters.moc"
