#include "support/TestMain.h"
#include "ui/BrowseTab.h"
#include "ui/Thumbnails.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QImageWriter>
#include <QListWidget>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QUrl>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QByteArray encoded(const QSize &size, const char *format,
                   QImage::Format pixels = QImage::Format_RGB32)
{
    QImage image(size, pixels);
    image.fill(1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter(&buffer, format).write(image);
    return bytes;
}

/// A poster grid as the tabs have it, alone.
class Grid
{
public:
    Grid()
    {
        QStackedWidget *stack = nullptr;
        QListWidget *categories = nullptr;
        QLineEdit *allSearch = nullptr;
        QLabel *title = nullptr;
        QLineEdit *search = nullptr;
        QComboBox *sort = nullptr;
        QListWidget *grid = nullptr;
        tab.reset(buildPosterTabSkeleton(nullptr, &stack, &categories, &allSearch, &title, &search,
                                         &sort, &grid, u"Movie"_s));
        grid->setParent(nullptr);
        list.reset(grid);
    }
    void fill(const QList<QString> &urls) const
    {
        QList<MediaItem> items;
        for (const QString &url : urls) {
            MediaItem item;
            // Names of one to several lines.
            item.name = u"Name "_s.repeated(1 + items.size() % 17);
            item.iconUrl = url;
            items << item;
        }
        fillPosterGrid(list.get(), items, QIcon(makePlaceholderPoster()));
    }
    void fill(int count) const { fill(QList<QString>(count)); }

    std::unique_ptr<QWidget> tab;
    std::unique_ptr<QListWidget> list;
};

/// The rows that share a line of pixels with the band, by looking at all of them.
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

QList<int> allOf(const RowRange &range)
{
    QList<int> rows;
    for (int row = range.first; row <= range.last; ++row) {
        rows << row;
    }
    return rows;
}

QRect visibleBand(const QListWidget &grid)
{
    return grid.viewport()->rect().adjusted(0, -400, 0, 400);
}

} // namespace

class tst_Thumbnails : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cachePath_data();
    void cachePath();
    void placeholder();
    void posterUrl_data();
    void posterUrl();
    void dataUrl_data();
    void dataUrl();
    void dataUrlsAreLimited();
    void decodesWebp();
    void decodesRasterPictures_data();
    void decodesRasterPictures();
    void refuses_data();
    void refuses();
    void savedBytesAreLoaded();
    void savingNeverFails();
    void rowsInBand_data();
    void rowsInBand();
    void rowsInBandOfAGridThatNeverShowed();
    void rowsInBandAtEveryPixel();
    void posterRows();
};

void tst_Thumbnails::cachePath_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("digest");
    QTest::newRow("no text")
        << QString() << u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"_s;
    QTest::newRow("a URL") << u"http://a/b.png"_s
                           << u"4ae8846344c174e9d55c86ca30ff5f89a7ff29445920455119d0cfda891781db"_s;
    QTest::newRow("with letters beyond ASCII")
        << u"http://a/Überraschung/東京.png"_s
        << u"db8ecff635c4d5e73cf34e5b714904fbe4d931f12a8c2f078002508e3a07c10e"_s;
    QTest::newRow("with a query")
        << u"http://a/b.png?w=140&h=210"_s
        << u"642de56e3f0618930d62baf6655f030cc6df1baf37a3d37ddb3ab39dbda0ea00"_s;
    QTest::newRow("very long")
        << u"http://a/"_s + QString(3000, u'x')
        << u"91dbea7406420978525657b2666d88e170443af65acbf22560f77b410ccaed13"_s;
}

void tst_Thumbnails::cachePath()
{
    QFETCH(QString, url);
    QFETCH(QString, digest);
    QCOMPARE(thumbnailCachePath(url),
             PrivateProfile::current().appDataDir() + u"/thumb_cache/"_s + digest + u".img"_s);
}

void tst_Thumbnails::placeholder()
{
    const QImage image = makePlaceholderPoster().toImage();
    QCOMPARE(image.size(), QSize(140, 210));
    QImage expected(140, 210, image.format());
    expected.fill(QColor(45, 45, 48));
    QCOMPARE(image, expected);
}

void tst_Thumbnails::posterUrl_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("allowed");
    const auto row = [](const QString &url, bool allowed) {
        QTest::newRow(qUtf8Printable(url)) << url << allowed;
    };
    row(u"http://a/b.png"_s, true);
    row(u"https://a/b.png"_s, true);
    row(u"HTTP://a/b.png"_s, true);
    row(u"file:///etc/passwd"_s, false);
    row(u"FILE:///etc/passwd"_s, false);
    row(u"/etc/passwd"_s, false);
    row(u"data:image/png;base64,AAAA"_s, false);
    row(u"ftp://a/b.png"_s, false);
    row(u"qrc:/a.png"_s, false);
    row(u"httpx://a/b.png"_s, false);
    row(u"//a/b.png"_s, false);
    row(u"b.png"_s, false);
    row(QString(), false);
}

void tst_Thumbnails::posterUrl()
{
    QFETCH(QString, url);
    QFETCH(bool, allowed);
    QCOMPARE(isPosterUrl(QUrl(url)), allowed);
}

void tst_Thumbnails::dataUrl_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const QString &url, const QByteArray &bytes = {}) {
        QTest::newRow(name) << url << bytes;
    };
    row("Base64", u"data:image/png;base64,AAEC/f7/"_s, "\x00\x01\x02\xfd\xfe\xff"_ba);
    row("Base64 without padding", u"data:image/png;base64,YWI"_s, "ab"_ba);
    row("percent-encoded Base64", u"data:image/png;base64,YWI%3D"_s, "ab"_ba);
    row("with a parameter", u"data:image/png;name=a.png;base64,YWI="_s, "ab"_ba);
    row("in capitals", u"DATA:IMAGE/PNG;BASE64,YWI="_s, "ab"_ba);
    row("percent-encoded", u"data:image/gif,GIF89a%00%ff,%2C"_s, "GIF89a\0\xff,,"_ba);
    row("no bytes", u"data:image/png;base64,"_s);
    row("no comma", u"data:image/png;base64"_s);
    row("no type", u"data:;base64,YWI="_s);
    row("no image", u"data:text/html;base64,YWI="_s);
    row("another scheme", u"http://a/image/png;base64,YWI="_s);
    row("nothing", {});
}

void tst_Thumbnails::dataUrl()
{
    QFETCH(QString, url);
    QFETCH(QByteArray, bytes);
    QCOMPARE(dataUrlBytes(url), bytes);
    QCOMPARE(isDataUrl(url), url.startsWith("data:"_L1, Qt::CaseInsensitive));
}

void tst_Thumbnails::dataUrlsAreLimited()
{
    const QString head = u"data:image/png,"_s;
    QCOMPARE(dataUrlBytes(head + QString(maxPosterBytes, u'x')).size(), maxPosterBytes);
    QVERIFY(dataUrlBytes(head + QString(maxPosterBytes + 1, u'x')).isEmpty());
    QVERIFY(dataUrlBytes(head + QString(4 * maxPosterBytes, u'x')).isEmpty());
    const QByteArray tooLong(maxPosterBytes + 1, 'x');
    QVERIFY(dataUrlBytes(u"data:image/png;base64,"_s + QString::fromLatin1(tooLong.toBase64()))
                .isEmpty());
}

void tst_Thumbnails::decodesWebp()
{
    if (!QImageReader::supportedImageFormats().contains("webp")) {
        QSKIP("Qt's plugin for WebP is not installed");
    }
    const QByteArray lossless =
        QByteArray::fromBase64("UklGRhwAAABXRUJQVlA4TA8AAAAvCMACAAcQRY7+ByKi/wEA"_ba);
    QCOMPARE(decodePoster(lossless).size(), QSize(9, 12));
    QCOMPARE(decodePoster(lossless).toImage().pixelColor(4, 6), QColor(200, 0, 0));
}

void tst_Thumbnails::decodesRasterPictures_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("size");
    const QSize size(20, 30);
    for (const char *format : {"png", "jpg", "bmp", "ppm", "xpm"}) {
        QTest::newRow(format) << encoded(size, format) << size;
    }
    QTest::newRow("one pixel") << encoded({1, 1}, "png") << QSize(1, 1);
    QTest::newRow("with bytes behind it") << encoded(size, "png") + "trailing"_ba << size;
    QTest::newRow("sixteen million pixels")
        << encoded({4000, 4000}, "png", QImage::Format_Mono) << QSize(4000, 4000);
}

void tst_Thumbnails::decodesRasterPictures()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QSize, size);
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(decodePoster(bytes).size(), size);
}

void tst_Thumbnails::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray png = encoded({200, 300}, "png");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << "<!DOCTYPE html><html></html>"_ba;
    QTest::newRow("zeros") << QByteArray(10000, '\0');
    QTest::newRow("half a PNG") << png.first(png.size() / 2);
    QTest::newRow("the head of a PNG") << png.first(33);
    QTest::newRow("more than sixteen million pixels")
        << encoded({4000, 4001}, "png", QImage::Format_Mono);
    QTest::newRow("very wide") << encoded({32000, 600}, "png", QImage::Format_Mono);
    QTest::newRow("SVG")
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"></svg>"_ba;
    QTest::newRow("SVG with an XML head")
        << "<?xml version=\"1.0\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" "
           "height=\"9\"><image href=\"file:///etc/passwd\"/></svg>"_ba;
    QTest::newRow("PDF") << "%PDF-1.4\n1 0 obj<</Type/Catalog>>endobj\n"_ba;
}

void tst_Thumbnails::refuses()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(decodePoster(bytes).isNull());
}

void tst_Thumbnails::savedBytesAreLoaded()
{
    PrivateProfile::current().clear();
    const QString url = u"http://a/b.png"_s;
    QVERIFY(loadCachedPoster(url).isNull());
    const QByteArray bytes = encoded({9, 12}, "png") + "\r\n\0x"_ba;
    saveCachedPoster(url, QByteArray(100000, 'x'));
    saveCachedPoster(url, bytes);
    QFile file(thumbnailCachePath(url));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(loadCachedPoster(url).size(), QSize(9, 12));
    QVERIFY(loadCachedPoster(u"http://a/c.png"_s).isNull());
}

void tst_Thumbnails::savingNeverFails()
{
    PrivateProfile::current().clear();
    const QString url = u"http://a/b.png"_s;
    // A folder stands where the file should be.
    QVERIFY(QDir().mkpath(thumbnailCachePath(url)));
    saveCachedPoster(url, encoded({9, 12}, "png"));
    QVERIFY(loadCachedPoster(url).isNull());
}

void tst_Thumbnails::rowsInBand_data()
{
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<int>("limit");
    QTest::newRow("few entries") << false << 5;
    QTest::newRow("hundreds of entries") << false << 700;
    QTest::newRow("from right to left") << true << 300;
}

void tst_Thumbnails::rowsInBand()
{
    QFETCH(bool, rightToLeft);
    QFETCH(int, limit);
    QRandomGenerator random(4711);
    const Grid grid;
    grid.list->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    grid.list->resize(500, 400);
    grid.list->show();
    for (int round = 0; round < 60; ++round) {
        grid.fill(random.bounded(limit));
        for (int step = 0; step < 4; ++step) {
            if (random.bounded(2) == 0) {
                grid.list->resize(random.bounded(1, 1500), random.bounded(1, 900));
            }
            QScrollBar *bar = grid.list->verticalScrollBar();
            bar->setValue(random.bounded(bar->maximum() + 1));
            const QRect band = visibleBand(*grid.list);
            QCOMPARE(allOf(::rowsInBand(*grid.list, band)), plainRowsInBand(*grid.list, band));
        }
        QCoreApplication::processEvents();
    }
}

void tst_Thumbnails::rowsInBandOfAGridThatNeverShowed()
{
    const Grid grid;
    QCOMPARE(allOf(::rowsInBand(*grid.list, visibleBand(*grid.list))), QList<int>());
    for (const int count : {1, 3, 500}) {
        grid.fill(count);
        const QRect band = visibleBand(*grid.list);
        QCOMPARE(allOf(::rowsInBand(*grid.list, band)), plainRowsInBand(*grid.list, band));
        QVERIFY(::rowsInBand(*grid.list, band).last >= 0);
    }
}

void tst_Thumbnails::rowsInBandAtEveryPixel()
{
    const Grid grid;
    grid.list->resize(600, 300);
    grid.list->show();
    grid.fill(40);
    for (int top = -50; top < 1200; ++top) {
        for (const int height : {1, 2, 250}) {
            const QRect band(0, top, 600, height);
            QCOMPARE(allOf(::rowsInBand(*grid.list, band)), plainRowsInBand(*grid.list, band));
        }
    }
}

void tst_Thumbnails::posterRows()
{
    const Grid grid;
    grid.fill({u"a"_s, u"b"_s, u"a"_s, QString(), u"A"_s});
    PosterRows rows;
    const auto sorted = [&](const QString &url) {
        QList<int> result = rows.of(*grid.list, url);
        std::sort(result.begin(), result.end());
        return result;
    };
    QCOMPARE(sorted(u"a"_s), (QList<int>{0, 2}));
    QCOMPARE(sorted(u"b"_s), QList<int>{1});
    QCOMPARE(sorted(u"A"_s), QList<int>{4});
    QCOMPARE(sorted(u"c"_s), QList<int>());
    QCOMPARE(rows.take(*grid.list, u"a"_s).size(), 2);
    QCOMPARE(sorted(u"a"_s), QList<int>());
    QCOMPARE(rows.take(*grid.list, u"a"_s), QList<int>());
    QCOMPARE(sorted(u"b"_s), QList<int>{1});

    grid.fill({u"c"_s});
    rows.forget();
    QCOMPARE(sorted(u"a"_s), QList<int>());
    QCOMPARE(sorted(u"c"_s), QList<int>{0});
}

VANTIRO_TEST_MAIN(tst_Thumbnails)
#include "tst_Thumbnails.moc"
