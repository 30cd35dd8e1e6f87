#include "PosterWindow.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/Thumbnails.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QListWidget>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(HttpReply)

using namespace Qt::StringLiterals;

namespace {

const QColor red(200, 0, 0);

/// A small file that unpacks to a picture of that size.
QByteArray blankPng(const QSize &size)
{
    QImage image(size, QImage::Format_Mono);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter(&buffer, "png").write(image);
    return bytes;
}

const QByteArray htmlPage = "<!DOCTYPE html><html><body>Please log in</body></html>"_ba;

/// Entities that multiply with every level.
QByteArray svgBomb()
{
    QByteArray entities = "<!ENTITY a0 \"<rect width='9' height='9'/>\">"_ba;
    for (int level = 1; level < 12; ++level) {
        const QByteArray inner = "&a"_ba + QByteArray::number(level - 1) + ';';
        entities +=
            "<!ENTITY a"_ba + QByteArray::number(level) + " \""_ba + inner.repeated(10) + "\">"_ba;
    }
    return "<?xml version=\"1.0\"?><!DOCTYPE svg ["_ba + entities +
           "]><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"140\" height=\"210\">&a11;</svg>"_ba;
}

} // namespace

/// Posters from a broken or hostile provider: each leaves the placeholder and nothing on disk, and
/// the next entry gets its poster.
class tst_MainWindowBadPosters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void badReply_data();
    void badReply();
    void badUrl_data();
    void badUrl();
    void isNotAskedAgainUntilRefilled();
    void aServerThatIsGone();
    void anEndlessBodyIsNotReadToItsEnd();
    void aRedirectLeadsToNoLocalFile();
    void hugeFilesInTheCacheAreNotShown();

private:
    /// Fills the grid with the bad URL and a good one, and checks what comes of them.
    void checkKeepsPlaceholder(const QString &badUrl);
    QString goodUrl() const { return server->url(u"/good.png"_s); }

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowBadPosters::init()
{
    server = std::make_unique<HttpServer>();
    server->on(u"/good.png"_s, imageReply(pngOf(red)));
}

void tst_MainWindowBadPosters::checkKeepsPlaceholder(const QString &badUrl)
{
    PosterWindow posters;
    posters.fill({badUrl, goodUrl()});
    QVERIFY(posters.settle());
    QVERIFY(posters.wasAskedFor(0));
    QVERIFY(posters.showsPlaceholder(0));
    QCOMPARE(posters.color(1), red);
    const QFileInfo file(thumbnailCachePath(badUrl));
    QVERIFY(!file.exists());
    QCOMPARE(file.dir().entryList(QDir::Files).size(), 1);
}

void tst_MainWindowBadPosters::badReply_data()
{
    QTest::addColumn<HttpReply>("reply");
    const auto image = [](const char *name, const QByteArray &body,
                          const QByteArray &type = "image/png"_ba) {
        QTest::newRow(name) << imageReply(body, type);
    };
    image("an HTML page that says it is a PNG", htmlPage);
    image("an HTML page without a content type", htmlPage, {});
    image("half a PNG", pngOf(red).first(pngOf(red).size() / 2));
    image("the head of a PNG", pngOf(red).first(33));
    image("no bytes at all", {});
    image("a picture of a hundred million pixels", blankPng({10000, 10000}));
    image("a picture far too wide", blankPng({30000, 1000}));
    image("an SVG bomb", svgBomb(), "image/svg+xml"_ba);
    image("an SVG that says it is a PNG", svgBomb());
    QTest::newRow("a page with status 404") << statusReply(404);

    HttpReply notFound = imageReply(pngOf(red));
    notFound.status = 404;
    QTest::newRow("a picture with status 404") << notFound;
    HttpReply broken = imageReply(pngOf(red));
    broken.status = 500;
    QTest::newRow("a picture with status 500") << broken;
    HttpReply cut = imageReply(pngOf(red));
    cut.cutAfter = 40;
    QTest::newRow("a connection that breaks") << cut;
    HttpReply zipped = imageReply(QByteArray(64 * 1024 * 1024, '\0'));
    zipped.gzip = true;
    QTest::newRow("a compressed body of 64 MB of nothing") << zipped;
}

void tst_MainWindowBadPosters::badReply()
{
    QFETCH(HttpReply, reply);
    server->on(u"/bad"_s, reply);
    checkKeepsPlaceholder(server->url(u"/bad"_s));
    QCOMPARE(server->requestCount(u"/bad"_s), 1);
}

void tst_MainWindowBadPosters::badUrl_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("no URL") << u"not a URL"_s;
    QTest::newRow("a path without a server") << u"/good.png"_s;
    QTest::newRow("no scheme") << u"//127.0.0.1/good.png"_s;
    QTest::newRow("a broken port") << u"http://127.0.0.1:99999/good.png"_s;
    QTest::newRow("http without a host") << u"http:///good.png"_s;
    QTest::newRow("data that is no picture") << u"data:image/png;base64,AAAA"_s;
    QTest::newRow("data that says it is no picture")
        << u"data:text/plain;base64,"_s + QString::fromLatin1(pngOf(Qt::green).toBase64());
    QTest::newRow("data with an SVG")
        << u"data:image/svg+xml,"_s + QString::fromLatin1(svgBomb().toPercentEncoding());
    QTest::newRow("data with a hundred million pixels")
        << u"data:image/png;base64,"_s + QString::fromLatin1(blankPng({10000, 10000}).toBase64());
    QTest::newRow("ftp") << u"ftp://127.0.0.1/good.png"_s;
    QTest::newRow("a resource") << u"qrc:/qt-project.org/styles/commonstyle/images/up-32.png"_s;
    QTest::newRow("an unknown scheme") << u"poster://127.0.0.1/good.png"_s;
    QTest::newRow("a very long one") << u"poster:"_s + QString(100000, u'x');
}

void tst_MainWindowBadPosters::badUrl()
{
    QFETCH(QString, url);
    checkKeepsPlaceholder(url);
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowBadPosters::isNotAskedAgainUntilRefilled()
{
    server->on(u"/bad"_s, imageReply(htmlPage, "text/html"_ba));
    PosterWindow posters;
    posters.fill({server->url(u"/bad"_s)});
    QVERIFY(posters.settle());
    posters.window().loadVisibleThumbnails(&posters.grid());
    posters.window().resize(1300, 800);
    QVERIFY(posters.settle());
    QCOMPARE(server->requestCount(), 1);

    server->on(u"/bad"_s, imageReply(pngOf(red)));
    posters.fill({server->url(u"/bad"_s)});
    QVERIFY(posters.settle());
    QCOMPARE(server->requestCount(), 2);
    QCOMPARE(posters.color(0), red);
}

void tst_MainWindowBadPosters::aServerThatIsGone()
{
    HttpServer gone;
    const QString url = gone.url(u"/poster.png"_s);
    gone.refuse();
    checkKeepsPlaceholder(url);
}

void tst_MainWindowBadPosters::anEndlessBodyIsNotReadToItsEnd()
{
    HttpReply endless = imageReply({});
    endless.producer = [](qint64 offset) {
        return offset == 0 ? pngOf(red).first(40) : QByteArray(256 * 1024, 'x');
    };
    server->on(u"/bad"_s, endless);
    checkKeepsPlaceholder(server->url(u"/bad"_s));
    QTRY_COMPARE(server->openConnections(u"/bad"_s), 0);
}

void tst_MainWindowBadPosters::aRedirectLeadsToNoLocalFile()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(u"private.png"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(pngOf(Qt::green));
    file.close();
    const QString fileUrl = QUrl::fromLocalFile(path).toString();

    checkKeepsPlaceholder(fileUrl);
    checkKeepsPlaceholder(path);
    checkKeepsPlaceholder(fileUrl.toUpper().replace(path.toUpper(), path));
    server->on(u"/bad"_s, HttpReply::redirect(fileUrl));
    checkKeepsPlaceholder(server->url(u"/bad"_s));
    server->on(u"/circle"_s, HttpReply::redirect(server->url(u"/circle"_s)));
    checkKeepsPlaceholder(server->url(u"/circle"_s));
    QVERIFY(server->requestCount(u"/circle"_s) <= 60);
}

void tst_MainWindowBadPosters::hugeFilesInTheCacheAreNotShown()
{
    const QString url = server->url(u"/bad"_s);
    PosterWindow posters;
    QVERIFY(QDir().mkpath(QFileInfo(thumbnailCachePath(url)).absolutePath()));
    QFile file(thumbnailCachePath(url));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(blankPng({10000, 10000}));
    file.close();
    posters.fill({url});
    QVERIFY(posters.settle());
    QVERIFY(posters.showsPlaceholder(0));
    // A file that is no poster counts as none.
    QCOMPARE(server->requestCount(u"/bad"_s), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowBadPosters)
#include "tst_MainWindowBadPosters.moc"
