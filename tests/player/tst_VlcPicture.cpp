#include "PlayerProbe.h"
#include "fakeprovider/HangingChannel.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// How long libVLC may take to show a picture on a busy machine.
constexpr int pictureMs = 20000;

/// The share of pixels, 0 to 1, for which `wanted` holds.
template <typename Wanted>
double share(const QImage &image, Wanted wanted)
{
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    const auto *first = reinterpret_cast<const QRgb *>(pixels.constBits());
    const auto size = pixels.width() * pixels.height();
    return static_cast<double>(std::count_if(first, first + size, wanted)) / size;
}

bool isLit(QRgb pixel)
{
    return qGray(pixel) > 40;
}

bool isWhite(QRgb pixel)
{
    return qRed(pixel) > 235 && qGreen(pixel) > 235 && qBlue(pixel) > 235;
}

} // namespace

class tst_VlcPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsAMovingPicture_data();
    void showsAMovingPicture();
    void outlivesItsNeighboursAndNewSizes();
    void outlivesAReattachedSurface();
    void nextStreamShowsOnTheSameSurface();
    void showsASubtitleFile();
    void drawsAboveAPlayerThatHangs();
    void stopClearsThePictureOfAPlayerThatHangs();

private:
    /// Plays a channel whose stop hangs once it has shown a picture. `count` stops hang then.
    bool playHangingChannel(const HangingChannel &channel, int count = 1) const;
    int substitutes() const { return static_cast<int>(surface->findChildren<QWidget *>().size()); }
    QImage picture() const;
    bool showsMovement(int timeoutMs = pictureMs) const;

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<QWidget> window;
    QWidget *surface = nullptr;
    QLabel *neighbour = nullptr;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcPicture::init()
{
    server = std::make_unique<HttpServer>();
    server->on(u"/live.ts"_s, liveTs());
    server->serveDirectory(u"/files/"_s, streamPath({}));
    window = std::make_unique<QWidget>();
    surface = new QWidget;
    neighbour = new QLabel(u"Channels"_s);
    auto *layout = new QHBoxLayout(window.get());
    layout->addWidget(neighbour);
    layout->addWidget(surface, 1);
    surface->setStyleSheet(u"background-color: black;"_s);
    surface->setAttribute(Qt::WA_StyledBackground);
    window->resize(800, 450);
    probe = std::make_unique<PlayerProbe>(surface);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void tst_VlcPicture::cleanup()
{
    probe.reset();
    window.reset();
    server.reset();
}

/// The part of the screen that the surface covers.
QImage tst_VlcPicture::picture() const
{
    const QPoint corner = surface->mapToGlobal(QPoint(0, 0));
    return window->screen()
        ->grabWindow(0, corner.x(), corner.y(), surface->width(), surface->height())
        .toImage();
}

/// Waits for several different pictures, none of them dark.
bool tst_VlcPicture::showsMovement(int timeoutMs) const
{
    QImage last;
    int changes = 0;
    return QTest::qWaitFor(
        [&] {
            const QImage now = picture();
            if (share(now, isLit) > 0.3 && now != last) {
                ++changes;
                last = now;
            }
            return changes >= 4;
        },
        timeoutMs);
}

void tst_VlcPicture::showsAMovingPicture_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a channel as MPEG-TS") << u"/live.ts"_s;
    QTest::newRow("a film as HLS") << u"/files/hls/index.m3u8"_s;
    QTest::newRow("a film as MP4") << u"/files/film.mp4"_s;
}

void tst_VlcPicture::showsAMovingPicture()
{
    QFETCH(QString, path);
    QVERIFY(share(picture(), isLit) < 0.01);
    probe->player.play(server->url(path), false);
    QVERIFY(showsMovement());

    probe->player.stop();
    QTRY_VERIFY_WITH_TIMEOUT(share(picture(), isLit) < 0.01, pictureMs);
}

void tst_VlcPicture::outlivesItsNeighboursAndNewSizes()
{
    probe->player.play(server->url(u"/live.ts"_s), true);
    QVERIFY(showsMovement());
    const int width = surface->width();
    for (const bool visible : {false, true}) {
        neighbour->setVisible(visible);
        QTRY_COMPARE(surface->width() > width, !visible);
        QVERIFY(showsMovement());
    }
    for (const QSize size : {QSize(500, 400), QSize(1000, 600)}) {
        window->resize(size);
        QTRY_COMPARE(window->size(), size);
        QVERIFY(showsMovement());
    }
    window->showFullScreen();
    QTRY_COMPARE(window->size(), window->screen()->size());
    QVERIFY(showsMovement());
    window->showNormal();
    QTRY_COMPARE(window->size(), QSize(1000, 600));
    QVERIFY(showsMovement());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPicture::outlivesAReattachedSurface()
{
    probe->player.play(server->url(u"/live.ts"_s), true);
    QVERIFY(showsMovement());
    probe->player.attachToWidget();
    probe->player.reattach();
    QVERIFY(showsMovement());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
}

void tst_VlcPicture::nextStreamShowsOnTheSameSurface()
{
    probe->player.play(server->url(u"/live.ts"_s), true);
    QVERIFY(showsMovement());
    for (const QString &path : {u"/files/film.mp4"_s, u"/files/hls/index.m3u8"_s}) {
        probe->player.play(server->url(path), false);
        QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, pictureMs);
        QTRY_VERIFY_WITH_TIMEOUT(server->openConnections(u"/live.ts"_s) == 0, pictureMs);
        QVERIFY(showsMovement());
    }
}

void tst_VlcPicture::showsASubtitleFile()
{
    VlcPlayer &player = probe->player;
    player.play(server->url(u"/files/film.mp4"_s), false);
    QVERIFY(showsMovement());
    const auto whiteAtTheBottom = [this] {
        const QImage image = picture();
        return share(image.copy(0, image.height() / 2, image.width(), image.height() / 2), isWhite);
    };
    player.pause();
    QTRY_VERIFY(!player.isPlaying());
    const double before = whiteAtTheBottom();
    player.togglePause();
    player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_VERIFY_WITH_TIMEOUT(whiteAtTheBottom() > before + 0.05, pictureMs);
    QVERIFY(player.subtitlesEnabled());
    player.setSubtitlesEnabled(false);
    QTRY_VERIFY_WITH_TIMEOUT(whiteAtTheBottom() < before + 0.02, pictureMs);
}

bool tst_VlcPicture::playHangingChannel(const HangingChannel &channel, int count) const
{
    probe->player.play(channel.url(), true);
    const auto showsAndHangs = [this, &channel, count] {
        return channel.hangs(count) && probe->player.isPlaying() && share(picture(), isLit) > 0.3;
    };
    return QTest::qWaitFor(showsAndHangs, pictureMs);
}

void tst_VlcPicture::drawsAboveAPlayerThatHangs()
{
    HangingChannel channel(*server);
    QVERIFY(playHangingChannel(channel));
    probe->player.play(server->url(u"/live.ts"_s), true);
    QVERIFY(showsMovement());
    QVERIFY(channel.hangs());
    QCOMPARE(substitutes(), 1);
    window->resize(1000, 600);
    QTRY_COMPARE(window->size(), QSize(1000, 600));
    QTRY_COMPARE(surface->findChild<QWidget *>()->size(), surface->size());
    QVERIFY(showsMovement());

    // A second hanging player keeps that window, and another one covers it.
    QVERIFY(playHangingChannel(channel, 2));
    probe->player.play(server->url(u"/live.ts"_s), true);
    QVERIFY(showsMovement());
    QCOMPARE(substitutes(), 2);

    channel.letGo();
    QTRY_VERIFY_WITH_TIMEOUT(server->openConnections(u"/hanging.ts"_s) == 0, pictureMs);
    const auto surfaceIsFree = [this] {
        probe->player.play(server->url(u"/files/film.mp4"_s), false);
        return showsMovement() && substitutes() == 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(surfaceIsFree(), pictureMs);
}

void tst_VlcPicture::stopClearsThePictureOfAPlayerThatHangs()
{
    HangingChannel channel(*server);
    QVERIFY(playHangingChannel(channel));
    probe->player.stop();
    QTRY_VERIFY_WITH_TIMEOUT(share(picture(), isLit) < 0.01, pictureMs);
    QVERIFY(channel.hangs());
    QCOMPARE(substitutes(), 1);
    channel.letGo();
    QTRY_COMPARE_WITH_TIMEOUT(substitutes(), 0, pictureMs);
    QVERIFY(share(picture(), isLit) < 0.01);
}

VANTIRO_TEST_MAIN(tst_VlcPicture)
#include "tst_VlcPicture.moc"
