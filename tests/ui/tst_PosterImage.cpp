#include "providers/WebUrl.h"
#include "support/TestMain.h"
#include "ui/PosterIcon.h"
#include "ui/PosterImage.h"

#include <QBuffer>
#include <QDataStream>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QRandomGenerator>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QByteArray encoded(const QImage &image, const char *format = "png")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter(&buffer, format).write(image);
    return bytes;
}

QByteArray blank(const QSize &size, const char *format = "png",
                 QImage::Format pixels = QImage::Format_Mono)
{
    QImage image(size, pixels);
    image.fill(1);
    return encoded(image, format);
}

/// An icon file that tells a size of 20 x 30, whatever picture it holds.
QByteArray iconWith(const QByteArray &png)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    constexpr quint32 headerSize = 22;
    stream << quint16(0) << quint16(1) << quint16(1);
    stream << quint8(20) << quint8(30) << quint16(0) << quint16(1) << quint16(32);
    stream << quint32(png.size()) << headerSize;
    return bytes + png;
}

QImage noise(const QSize &size, QImage::Format format)
{
    QRandomGenerator random(4711);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, random.generate());
        }
    }
    return image.convertToFormat(format);
}

/// What an icon paints in the place of a poster on a screen of that pixel ratio.
QImage painted(const QIcon &icon, qreal pixelRatio, QIcon::Mode mode)
{
    QImage screen(QSize(160, 230) * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(pixelRatio);
    screen.fill(Qt::yellow);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(QPoint(7, 11), posterSize), Qt::AlignCenter, mode);
    return screen;
}

} // namespace

class tst_PosterImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cachePath();
    void placeholder();
    void webUrl();
    void dataUrl_data();
    void dataUrl();
    void dataUrlsAreLimited();
    void decodesRasterPicturesOnly_data();
    void decodesRasterPicturesOnly();
    void aThinPictureKeepsAPixel();
    void paintsWhatTheOriginalPaints_data();
    void paintsWhatTheOriginalPaints();
};

void tst_PosterImage::cachePath()
{
    const QString folder = PrivateProfile::current().appDataDir() + u"/thumb_cache/"_s;
    QCOMPARE(posterCachePath(u"http://a/Überraschung/東京.png"_s),
             folder + u"db8ecff635c4d5e73cf34e5b714904fbe4d931f12a8c2f078002508e3a07c10e.img"_s);
    QCOMPARE(posterCachePath(u"http://a/b.png?w=140&h=210"_s),
             folder + u"642de56e3f0618930d62baf6655f030cc6df1baf37a3d37ddb3ab39dbda0ea00.img"_s);
}

void tst_PosterImage::placeholder()
{
    const QImage image = makePlaceholderPoster().pixmap(QSize(1000, 1000)).toImage();
    QCOMPARE(image.size(), QSize(140, 210));
    QImage expected(140, 210, image.format());
    expected.fill(QColor(45, 45, 48));
    QCOMPARE(image, expected);
}

void tst_PosterImage::webUrl()
{
    for (const QString &url : {u"http://a/b.png"_s, u"https://a/b.png"_s, u"HTTP://a/b.png"_s}) {
        QVERIFY2(isWebUrl(QUrl(url)), qPrintable(url));
    }
    for (const QString &url : {u"FILE:///etc/passwd"_s, u"/etc/passwd"_s, u"ftp://a/b.png"_s,
                               u"qrc:/a.png"_s, u"data:,a"_s, u"smb://a/b"_s, uR"(\\a\b)"_s,
                               u"httpx://a/b.png"_s, u"//a/b.png"_s, u""_s}) {
        QVERIFY2(!isWebUrl(QUrl(url)), qPrintable(url));
    }
}

void tst_PosterImage::dataUrl_data()
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

void tst_PosterImage::dataUrl()
{
    QFETCH(QString, url);
    QFETCH(QByteArray, bytes);
    QCOMPARE(dataUrlBytes(url), bytes);
    QCOMPARE(isDataUrl(url), url.startsWith("data:"_L1, Qt::CaseInsensitive));
}

void tst_PosterImage::dataUrlsAreLimited()
{
    const QString head = u"data:image/png,"_s;
    QCOMPARE(dataUrlBytes(head + QString(maxPosterBytes, u'x')).size(), maxPosterBytes);
    QVERIFY(dataUrlBytes(head + QString(maxPosterBytes + 1, u'x')).isEmpty());
    QVERIFY(dataUrlBytes(head + QString(4 * maxPosterBytes, u'x')).isEmpty());
    const QByteArray tooLong(maxPosterBytes + 1, 'x');
    QVERIFY(dataUrlBytes(u"data:image/png;base64,"_s + QString::fromLatin1(tooLong.toBase64()))
                .isEmpty());
}

void tst_PosterImage::decodesRasterPicturesOnly_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("size"); ///< empty: refused
    const QSize size(20, 30);
    for (const char *format : {"png", "jpg", "bmp", "ppm", "xpm"}) {
        QTest::newRow(format) << blank(size, format, QImage::Format_RGB32) << size;
    }
    if (QImageReader::supportedImageFormats().contains("webp")) { // a plugin, not always installed
        QTest::newRow("webp") << QByteArray::fromBase64(
                                     "UklGRhwAAABXRUJQVlA4TA8AAAAvCMACAAcQRY7+ByKi/wEA"_ba)
                              << QSize(9, 12);
    }
    // Twelve pixels by nine, if it were read. Its plugin is not always installed.
    QTest::newRow("MNG, which tells no size")
        << QByteArray::fromBase64(
               "ik1ORw0KGgoAAAAcTUhEUgAAAAwAAAAJAAAAAAAAAAAAAAAAAAAAAAAAAAGyoaNWAAAADUlIRFIA"
               "AAAMAAAACRACAAAA2UqGQAAAAAd0SU1FB+oLFgkWKrFb7JgAAAArSURBVCjPY/z/n4EqgOUBAwOD"
               "wvA06CEjFV0kT4UAH3xhxMjAwMBAjbQEAN27DBu4oMTtAAAAAElFTkSuQmCCAAAAAE1FTkQhIPfV"_ba)
        << QSize(0, 0);
    QTest::newRow("PNG in an icon") << iconWith(blank(size)) << size;
    QTest::newRow("an icon that hides its size") << iconWith(blank({4000, 4001})) << QSize(0, 0);
    QTest::newRow("with bytes behind it") << blank(size) + "trailing"_ba << size;
    QTest::newRow("sixteen million pixels") << blank({4000, 4000}) << QSize(4000, 4000);
    QTest::newRow("more than sixteen million pixels") << blank({4000, 4001}) << QSize(0, 0);
    const QByteArray png = blank({200, 300});
    QTest::newRow("half a PNG") << png.first(png.size() / 2) << QSize(0, 0);
    QTest::newRow("nothing") << QByteArray() << QSize(0, 0);
    QTest::newRow("text") << "<!DOCTYPE html><html></html>"_ba << QSize(0, 0);
    QTest::newRow("PDF") << "%PDF-1.4\n1 0 obj<</Type/Catalog>>endobj\n"_ba << QSize(0, 0);
    QTest::newRow("SVG") << "<?xml version=\"1.0\"?>\n"
                            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\">"
                            "<image href=\"file:///etc/passwd\"/></svg>"_ba
                         << QSize(0, 0);
}

void tst_PosterImage::decodesRasterPicturesOnly()
{
    QFETCH(QByteArray, bytes);
    QTEST(decodePoster(bytes).size(), "size");
}

void tst_PosterImage::aThinPictureKeepsAPixel()
{
    QCOMPARE(scaledPoster(decodePoster(blank({2, 9000})), 1).size(), QSize(1, 210));
    QCOMPARE(scaledPoster(decodePoster(blank({9000, 2})), 2).size(), QSize(280, 1));
}

void tst_PosterImage::paintsWhatTheOriginalPaints_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const QSize &size, QImage::Format format) {
        QTest::addRow("%dx%d %s", size.width(), size.height(), name)
            << encoded(noise(size, format));
    };
    // Among them ratios that the painter rounds twice, and pictures that need no reduction.
    for (const QSize &size : {QSize(600, 900), QSize(1000, 1426), QSize(500, 301), QSize(141, 210),
                              QSize(140, 210), QSize(2, 3), QSize(2000, 20), QSize(20, 2000)}) {
        row("opaque", size, QImage::Format_RGB32);
    }
    const QSize size(600, 850);
    row("translucent", size, QImage::Format_ARGB32);
    row("grey", size, QImage::Format_Grayscale8);
    row("indexed", size, QImage::Format_Indexed8);
    row("mono", size, QImage::Format_Mono);
}

void tst_PosterImage::paintsWhatTheOriginalPaints()
{
    QFETCH(QByteArray, bytes);
    QPixmap original;
    QVERIFY(original.loadFromData(bytes));
    const QIcon expected(original);
    for (const qreal pixelRatio : {1.0, 1.25, 1.5, 2.0}) {
        const QImage reduced = scaledPoster(decodePoster(bytes), pixelRatio);
        QVERIFY(reduced.width() <= 140 * pixelRatio);
        QVERIFY(reduced.height() <= 211 * pixelRatio);
        const QIcon icon = makePosterIcon(QPixmap::fromImage(reduced), original.size());
        QCOMPARE(icon.availableSizes(), expected.availableSizes());
        QCOMPARE(icon.actualSize({9999, 9999}), original.size());
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled}) {
            QCOMPARE(painted(icon, pixelRatio, mode), painted(expected, pixelRatio, mode));
        }
        // A copy that is changed is one of its own.
        QIcon copy = icon;
        copy.setIsMask(true);
        QVERIFY(!icon.isMask());
        QCOMPARE(painted(copy, pixelRatio, QIcon::Normal),
                 painted(icon, pixelRatio, QIcon::Normal));
    }
}

VANTIRO_TEST_MAIN(tst_PosterImage)
#include "tst_PosterImage.moc"
