#include "PosterFixture.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

Q_DECLARE_METATYPE(HttpReply)

using namespace Qt::StringLiterals;

namespace {

/// The bytes in memory of a poster that fills its place.
constexpr qint64 wholePosterBytes = 140LL * 210 * 4;

QStringList firstArguments(const QSignalSpy &spy)
{
    QStringList urls;
    for (const QList<QVariant> &arguments : spy) {
        urls << arguments.constFirst().toString();
    }
    return urls;
}

} // namespace

class tst_PosterStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void comesFromTheNetworkThenDiskAndMemory();
    void aCorruptFileIsDownloadedAgain();
    void redirectsAreFollowed();
    void aRedirectLeadsToNoLocalFile();
    void dataUrlsNeedNoRequest();
    void badReply_data();
    void badReply();
    void badUrl_data();
    void badUrl();
    void aSilentServerIsGivenUp();
    void memoryIsBoundedByBytes();
    void whatIsUsedStaysInMemory();
    void fewReadsWaitAtATime();
    void bodiesThatWaitAreBounded();
    void anEndWhileAPosterIsUnderWay_data();
    void anEndWhileAPosterIsUnderWay();

private:
    /// Requests the URL and returns the colour of its poster, an invalid one for none.
    QColor load(const QString &url);
    /// As load() for a bad URL, which must leave nothing on disk and not harm the next poster.
    void checkIsRefused(const QString &url);
    void restart(qint64 memoryBytes = PosterStore::defaultMemoryBytes);

    std::unique_ptr<PosterServer> server;
    std::unique_ptr<PosterStore> store;
};

void tst_PosterStore::init()
{
    PrivateProfile::current().clear();
    server = std::make_unique<PosterServer>();
    restart();
}

void tst_PosterStore::restart(qint64 memoryBytes)
{
    store = std::make_unique<PosterStore>(nullptr, memoryBytes);
}

QColor tst_PosterStore::load(const QString &url)
{
    if (!store->request(url) || !settle(*store)) {
        return Qt::black;
    }
    return colorOf(store->find(url));
}

void tst_PosterStore::checkIsRefused(const QString &url)
{
    QCOMPARE(load(url), QColor());
    QVERIFY(!QFileInfo::exists(posterCachePath(url)));
    QCOMPARE(load(server->poster(0)), red);
    QCOMPARE(QFileInfo(posterCachePath(url)).dir().entryList(QDir::Files).size(), 1);
}

void tst_PosterStore::comesFromTheNetworkThenDiskAndMemory()
{
    const QString url = server->poster(0);
    const QSignalSpy ready(store.get(), &PosterStore::posterReady);
    QVERIFY(store->find(url).isNull());
    QCOMPARE(load(url), red);
    QCOMPARE(firstArguments(ready), QStringList{url});
    const HttpRequest request = server->requests().constFirst();
    QCOMPARE(request.method, "GET"_ba);
    QCOMPARE(request.target, PosterServer::pathOf(0));
    QCOMPARE(readFile(posterCachePath(url)), pngOf(red));

    // Memory before disk, and one icon for all.
    writeFile(posterCachePath(url), pngOf(green));
    QCOMPARE(colorOf(store->find(url)), red);
    QCOMPARE(store->find(url).cacheKey(), store->find(url).cacheKey());

    // Disk before the network, and off this thread: nothing is there before an event arrives.
    restart();
    QVERIFY(store->request(url));
    QVERIFY(store->find(url).isNull());
    QVERIFY(settle(*store));
    QCOMPARE(colorOf(store->find(url)), green);
    QVERIFY(QFile::remove(posterCachePath(url)));
    QCOMPARE(colorOf(store->find(url)), green);
    QCOMPARE(server->requestCount(), 1);
}

void tst_PosterStore::aCorruptFileIsDownloadedAgain()
{
    const QString url = server->poster(0);
    writeFile(posterCachePath(url), pngOf(green).first(40) + QByteArray(5000, 'x'));
    QCOMPARE(load(url), red);
    QCOMPARE(readFile(posterCachePath(url)), pngOf(red));

    // A folder stands where the file should be: the poster shows and is not kept.
    QVERIFY(QDir().mkpath(posterCachePath(server->poster(2))));
    QCOMPARE(load(server->poster(2)), red);
    QCOMPARE(server->requested(), (QList<int>{0, 2}));
}

void tst_PosterStore::redirectsAreFollowed()
{
    // What follows the end of a picture is no part of it, but of the bytes.
    const QByteArray body = pngOf(blue) + "\0trailing\r\n"_ba;
    server->on(PosterServer::pathOf(5), bodyReply(body, "IMAGE/PNG; charset=utf-8"_ba));
    server->on(u"/Plakat für alle.png"_s, HttpReply::redirect(server->poster(5)));
    const QString url = server->url(u"/Plakat für alle.png"_s);
    QCOMPARE(load(url), blue);
    QCOMPARE(readFile(posterCachePath(url)), body);
    QCOMPARE(QFileInfo(posterCachePath(url)).dir().entryList(QDir::Files).size(), 1);
}

void tst_PosterStore::aRedirectLeadsToNoLocalFile()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(u"private.png"_s);
    writeFile(path, pngOf(green));
    const QString fileUrl = QUrl::fromLocalFile(path).toString();
    server->on(u"/bad"_s, HttpReply::redirect(fileUrl));
    server->on(u"/circle"_s, HttpReply::redirect(server->url(u"/circle"_s)));

    for (const QString &url : {fileUrl, path, fileUrl.toUpper().replace(path.toUpper(), path),
                               server->url(u"/bad"_s), server->url(u"/circle"_s)}) {
        checkIsRefused(url);
    }
    QVERIFY(server->requestCount(u"/circle"_s) <= 60);
}

void tst_PosterStore::dataUrlsNeedNoRequest()
{
    const QString url = dataUrlOf(pngOf(blue));
    const QSignalSpy requests(&networkOf(*store), &QNetworkAccessManager::finished);
    QVERIFY(store->request(url));
    QVERIFY(store->find(url).isNull());
    QVERIFY(settle(*store));
    QCOMPARE(colorOf(store->find(url)), blue);
    QCOMPARE(requests.count(), 0);
    QVERIFY(!QFile::exists(posterCachePath(url)));
}

void tst_PosterStore::badReply_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::newRow("no picture") << imageReply("<!DOCTYPE html><html></html>"_ba);
    QTest::newRow("a picture that says it is text") << bodyReply(pngOf(red), "text/html"_ba);
    QTest::newRow("a picture of no known type") << bodyReply(pngOf(red), "image"_ba);
    QTest::newRow("a picture with status 404") << statusReply(404, pngOf(red));
    QTest::newRow("a connection that breaks") << cutShort(imageReply(pngOf(red)), 40);
    HttpReply zeros = imageReply(QByteArray(qsizetype(64) * 1024 * 1024, '\0'));
    zeros.gzip = true;
    QTest::newRow("a compressed body of 64 MB of nothing") << zeros;
    HttpReply endless = imageReply({});
    endless.producer = [](qint64 offset) {
        return offset == 0 ? pngOf(red).first(40) : QByteArray(qsizetype(256) * 1024, 'x');
    };
    QTest::newRow("a body without an end") << endless;
}

void tst_PosterStore::badReply()
{
    QFETCH(HttpReply, reply);
    server->on(u"/bad"_s, reply);
    checkIsRefused(server->url(u"/bad"_s));
    QCOMPARE(server->requestCount(u"/bad"_s), 1);
    QTRY_COMPARE(server->openConnections(u"/bad"_s), 0);
    // The next request is sent: a failure is not remembered.
    server->on(u"/bad"_s, imageReply(pngOf(blue)));
    QCOMPARE(load(server->url(u"/bad"_s)), blue);
}

void tst_PosterStore::badUrl_data()
{
    QTest::addColumn<QString>("url");
    for (const char *url : {"", "not a URL", "http://127.0.0.1:99999/0.png",
                            "qrc:/qt-project.org/styles/commonstyle/images/up-32.png"}) {
        QTest::newRow(url) << QString::fromLatin1(url);
    }
    QTest::newRow("data that says it is no picture") << dataUrlOf(pngOf(green), u"text/plain"_s);
    // No part of a host's name is so long, which is known without a look at the network.
    QTest::newRow("a host that cannot be") << u"http://%1/poster.png"_s.arg(QString(64, u'h'));
    HttpServer gone;
    QTest::newRow("a server that is gone") << gone.url(u"/poster.png"_s);
    gone.refuse();
}

void tst_PosterStore::badUrl()
{
    QFETCH(QString, url);
    // Given up requests are repeated by the grid.
    const QSignalSpy abandoned(store.get(), &PosterStore::requestAbandoned);
    checkIsRefused(url);
    QCOMPARE(abandoned.count(), 0);
    QCOMPARE(server->requestCount(), 1);
}

void tst_PosterStore::aSilentServerIsGivenUp()
{
    server->on(PosterServer::pathOf(1), neverAnswers());
    server->on(PosterServer::pathOf(2), stalling(imageReply(pngOf(red)), 40));
    QCOMPARE(networkOf(*store).transferTimeout(), 30000);
    networkOf(*store).setTransferTimeout(silentMs);
    const QSignalSpy abandoned(store.get(), &PosterStore::requestAbandoned);
    QVERIFY(store->request(server->poster(1)));
    checkIsRefused(server->poster(2));
    QVERIFY(store->find(server->poster(1)).isNull());
    QCOMPARE(abandoned.count(), 0);
}

void tst_PosterStore::memoryIsBoundedByBytes()
{
    restart(2 * wholePosterBytes);
    const QSignalSpy evicted(store.get(), &PosterStore::posterEvicted);
    // Large pictures count with the size in which they are shown.
    server->onPrefix(u"/large/"_s, [](const HttpRequest &) {
        return imageReply(pngOf(green, {700, 1050}));
    });
    const auto large = [this](int number) { return server->url(u"/large/%1"_s.arg(number)); };
    QCOMPARE(load(large(0)), green);
    QCOMPARE(load(large(1)), green);
    QCOMPARE(evicted.count(), 0);
    // Used last, the first one outlives the second.
    QVERIFY(!store->find(large(0)).isNull());
    QCOMPARE(load(server->poster(0)), red);
    QCOMPARE(firstArguments(evicted), QStringList{large(1)});
    QVERIFY(store->find(large(1)).isNull());
    QVERIFY(!store->find(server->poster(0)).isNull());

    // It comes back from disk.
    QCOMPARE(load(large(1)), green);
    QCOMPARE(server->requestCount(), 3);
    QCOMPARE(store->find(large(1)).actualSize({9999, 9999}), QSize(700, 1050));
}

void tst_PosterStore::whatIsUsedStaysInMemory()
{
    restart(1);
    const QSignalSpy evicted(store.get(), &PosterStore::posterEvicted);
    QStringList onScreen = server->posters(3);
    connect(store.get(), &PosterStore::posterReady, store.get(), [&] {
        for (const QString &url : std::as_const(onScreen)) {
            store->find(url);
        }
    });
    for (const QString &url : server->posters(4)) {
        QCOMPARE(load(url), red);
    }
    QCOMPARE(evicted.count(), 0);
    onScreen.clear();
    QCOMPARE(load(server->poster(4)), red);
    QCOMPARE(evicted.count(), 4);
}

void tst_PosterStore::fewReadsWaitAtATime()
{
    const QSignalSpy idle(store.get(), &PosterStore::idle);
    const QStringList urls = server->posters(100);
    int accepted = 0;
    for (const QString &url : urls) {
        writeFile(posterCachePath(url), pngOf(green));
        accepted += store->request(url) ? 1 : 0;
    }
    QCOMPARE(accepted, 33); // one of them is being read
    // Downloads have no limit.
    QVERIFY(store->request(server->poster(100)));
    QVERIFY(settle(*store));
    QCOMPARE(idle.count(), 1);
    QCOMPARE(load(urls.last()), green);
    QCOMPARE(server->requested(), QList<int>{100});
    QCOMPARE(idle.count(), 1);
}

void tst_PosterStore::bodiesThatWaitAreBounded()
{
    // Six at once, each with more bytes behind its picture than the next may wait with. A server
    // need not name their type.
    const QByteArray body = pngOf(blue, {3000, 4500}) + QByteArray(19'000'000, 'x');
    const QStringList urls = server->posters(6);
    for (int number = 0; number < urls.size(); ++number) {
        server->on(PosterServer::pathOf(number), held(bodyReply(body, {})));
        QVERIFY(store->request(urls.at(number)));
    }
    QTRY_COMPARE(server->requestCount(), urls.size());
    for (int number = 0; number < urls.size(); ++number) {
        server->release(PosterServer::pathOf(number));
    }
    QVERIFY(settle(*store));
    for (const QString &url : urls) {
        QCOMPARE(colorOf(store->find(url)), blue);
    }
}

void tst_PosterStore::anEndWhileAPosterIsUnderWay_data()
{
    QTest::addColumn<bool>("decoding");
    QTest::newRow("on the network") << false;
    QTest::newRow("while it is being decoded") << true;
}

void tst_PosterStore::anEndWhileAPosterIsUnderWay()
{
    QFETCH(bool, decoding);
    const QString url = server->poster(0);
    server->on(PosterServer::pathOf(0), held(imageReply(pngOf(blue))));
    if (decoding) {
        writeFile(posterCachePath(url), pngOf(green, {3000, 4500}));
        writeFile(posterCachePath(server->poster(1)), pngOf(green));
        QVERIFY(store->request(server->poster(1)));
    }
    QVERIFY(store->request(url));
    if (!decoding) {
        QTRY_COMPARE(server->requestCount(), 1);
    }
    store.reset();
    server->release(PosterServer::pathOf(0));
    QTRY_COMPARE(server->openConnections(), 0);
    QCOMPARE(QFile::exists(posterCachePath(url)), decoding);
}

VANTIRO_TEST_MAIN(tst_PosterStore)
#include "tst_PosterStore.moc"
