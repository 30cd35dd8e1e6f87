#include "PlayerTest.h"
#include "fakeprovider/HangingChannel.h"

#include <QHBoxLayout>
#include <QScreen>

#include <algorithm>

namespace {

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

class tst_VlcPicture : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() override {} // keeps the screen
    void init() override;
    void cleanup() override;

    void streamsShowOneAfterAnother();
    void outlivesNewSizesAndAReattachedSurface();
    void showsASubtitleFile();
    void drawsAboveAPlayerThatHangs();
    void stopClearsThePictureOfAPlayerThatHangs();

private:
    /// Plays a channel whose stop hangs once it has shown a picture. `count` stops hang then.
    bool playHangingChannel(const HangingChannel &channel, int count = 1) const;
    int substitutes() const { return static_cast<int>(surface->findChildren<QWidget *>().size()); }
    QImage picture() const;
    bool isDark() const { return share(picture(), isLit) < 0.01; }
    bool showsMovement() const;

    std::unique_ptr<QWidget> window;
    QWidget *surface = nullptr;
};

void tst_VlcPicture::init()
{
    PlayerTest::init();
    window = std::make_unique<QWidget>();
    surface = new QWidget;
    auto *layout = new QHBoxLayout(window.get());
    layout->addWidget(surface);
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
    PlayerTest::cleanup();
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
bool tst_VlcPicture::showsMovement() const
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
        openMs);
}

void tst_VlcPicture::streamsShowOneAfterAnother()
{
    QTRY_VERIFY(isDark());
    for (const QString &path : {u"/live.ts"_s, u"/files/film.mp4"_s, u"/files/hls/index.m3u8"_s}) {
        play(path);
        QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
        QTRY_COMPARE(server->openConnections(u"/live.ts"_s), path == "/live.ts"_L1 ? 1 : 0);
        QVERIFY(showsMovement());
    }
    probe->player.stop();
    QTRY_VERIFY_WITH_TIMEOUT(isDark(), openMs);
}

void tst_VlcPicture::outlivesNewSizesAndAReattachedSurface()
{
    play(u"/live.ts"_s, true);
    QVERIFY(showsMovement());
    const QSize size(1000, 600);
    window->resize(size);
    QTRY_COMPARE(window->size(), size);
    QVERIFY(showsMovement());
    window->showFullScreen();
    QTRY_COMPARE(window->size(), window->screen()->size());
    QVERIFY(showsMovement());
    window->showNormal();
    QTRY_COMPARE(window->size(), size);
    probe->player.reattach();
    QVERIFY(showsMovement());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPicture::showsASubtitleFile()
{
    VlcPlayer &player = probe->player;
    play(u"/files/film.mp4"_s);
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
    QTRY_VERIFY_WITH_TIMEOUT(whiteAtTheBottom() > before + 0.05, openMs);
    QVERIFY(player.subtitlesEnabled());
    player.setSubtitlesEnabled(false);
    QTRY_VERIFY_WITH_TIMEOUT(whiteAtTheBottom() < before + 0.02, openMs);
}

bool tst_VlcPicture::playHangingChannel(const HangingChannel &channel, int count) const
{
    probe->player.play(channel.url(), true);
    const auto showsAndHangs = [this, &channel, count] {
        return channel.hangs(count) && probe->player.isPlaying() && share(picture(), isLit) > 0.3;
    };
    return QTest::qWaitFor(showsAndHangs, openMs);
}

void tst_VlcPicture::drawsAboveAPlayerThatHangs()
{
    HangingChannel channel(*server);
    QVERIFY(playHangingChannel(channel));
    play(u"/live.ts"_s, true);
    QVERIFY(showsMovement());
    QVERIFY(channel.hangs());
    QTRY_COMPARE(substitutes(), 1);
    window->resize(1000, 600);
    QTRY_COMPARE(window->size(), QSize(1000, 600));
    QTRY_COMPARE(surface->findChild<QWidget *>()->size(), surface->size());
    QVERIFY(showsMovement());

    // A second hanging player keeps that window, and another one covers it.
    QVERIFY(playHangingChannel(channel, 2));
    play(u"/live.ts"_s, true);
    QVERIFY(showsMovement());
    QTRY_COMPARE(substitutes(), 2);

    channel.letGo();
    QTRY_VERIFY_WITH_TIMEOUT(server->openConnections(u"/hanging.ts"_s) == 0, openMs);
    const auto surfaceIsFree = [this] {
        play(u"/files/film.mp4"_s);
        return showsMovement() && substitutes() == 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(surfaceIsFree(), openMs);
}

void tst_VlcPicture::stopClearsThePictureOfAPlayerThatHangs()
{
    HangingChannel channel(*server);
    QVERIFY(playHangingChannel(channel));
    probe->player.stop();
    QTRY_VERIFY_WITH_TIMEOUT(isDark(), openMs);
    QVERIFY(channel.hangs());
    QTRY_COMPARE(substitutes(), 1);
    channel.letGo();
    QTRY_COMPARE_WITH_TIMEOUT(substitutes(), 0, openMs);
    QTRY_VERIFY(isDark());
}

VANTIRO_TEST_MAIN(tst_VlcPicture)
#include "tst_VlcPicture.moc"
