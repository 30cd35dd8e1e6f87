// The player's window on Windows: the picture in fullscreen, the menus and the keys. The window
// belongs to this process, so that its controls can be found; input is given through Windows.

#include "WindowFixture.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "support/desktop/Screen.h"
#include "ui/MainWindow.h"
#include "windows/NativeWindow.h"

#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QSlider>

using namespace Qt::StringLiterals;
using namespace desktop;
using NativeKeyboard::Key;

namespace {

constexpr int streamStartMs = 30000;

QRect onScreen(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

/// Whether the screen shows the widget at its place, and not something that covers it.
bool isOnTop(QWidget &widget)
{
    return Screen::difference(Screen::grab(onScreen(widget)), widget.grab().toImage()) < 0.1;
}

} // namespace

class tst_PlayerWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void fullscreenFillsTheScreenWithThePicture();
    void menusOpenAboveTheirButtons_data();
    void menusOpenAboveTheirButtons();
    void keysReachThePlayer();
    void seekKeysReachAFilm();
    void keysOfASearchStayThere();

private:
    /// Opens the window, plays the stream as an entry of that kind, and waits until its picture
    /// moves.
    void watch(qint32 kind, const QString &extension, const QString &stream);
    void click(const QWidget &widget) const;
    QWidget &surface() const { return fixture->find<QWidget>(u"videoSurface"_s); }
    QSlider &volume() const { return fixture->find<QSlider>(u"volumeSlider"_s); }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<WindowFixture> fixture;
    std::optional<NativeWindow> native;
};

void tst_PlayerWindow::init()
{
    server = std::make_unique<HttpServer>();
    fixture = std::make_unique<WindowFixture>();
}

void tst_PlayerWindow::cleanup()
{
    if (QTest::currentTestFailed())
        Screen::save(Screen::grab(),
                     u"failed-"_s + QString::fromLatin1(QTest::currentTestFunction()));
    fixture.reset();
    server.reset();
}

void tst_PlayerWindow::watch(qint32 kind, const QString &extension, const QString &stream)
{
    server->onPrefix(u"/"_s,
                     [stream](const HttpRequest &) { return HttpReply::file(streamPath(stream)); });
    SourceConfig account = accountSource(u"A"_s, server->url());
    account.liveExtension = extension;
    WindowFixture::store(account);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s})
        CatalogCache::save(u"A"_s, section, {});
    fixture->open();
    native =
        NativeWindow::waitFor(QCoreApplication::applicationPid(), fixture->window().windowTitle());
    QVERIFY(native);
    MediaItem item = entry(kind, u"Entry"_s);
    item.containerExtension = extension;
    fixture->window().playMediaItem(item);
    QTRY_VERIFY_WITH_TIMEOUT(fixture->player().isPlaying() && fixture->player().timeMs() > 0,
                             streamStartMs);
    QVERIFY(Screen::waitUntilMoving(onScreen(surface())));
}

void tst_PlayerWindow::click(const QWidget &widget) const
{
    native->click(onScreen(widget).center() - native->clientRect().topLeft());
}

void tst_PlayerWindow::fullscreenFillsTheScreenWithThePicture()
{
    watch(StreamKind::Live, u"ts"_s, u"grey.ts"_s);
    const auto &chrome = fixture->find<QWidget>(u"fullscreenChrome"_s);
    NativeKeyboard::press(Key::F);
    QTRY_VERIFY(fixture->window().isFullScreen());
    QTRY_COMPARE(native->clientRect(), Screen::area());
    QTRY_COMPARE(onScreen(surface()), Screen::area());
    // The stream has the shape of the screen, so the picture reaches every edge.
    const QSize strip(200, 60);
    for (const QPoint &corner :
         {Screen::area().topLeft(), Screen::area().bottomRight() - QPoint(199, 59)})
        QTRY_VERIFY(!Screen::isMostlyBlack(QRect(corner, strip)));
    QVERIFY(Screen::waitUntilMoving(Screen::area()));

    native->moveMouse(QPoint(300, 300));
    native->moveMouse(QPoint(320, 310));
    QTRY_VERIFY(chrome.isVisible());
    QTRY_VERIFY(isOnTop(fixture->find<QPushButton>(u"accentButton"_s)));
    Screen::save(Screen::grab(), u"fullscreen"_s);

    NativeKeyboard::press(Key::Escape);
    QTRY_VERIFY(!fixture->window().isFullScreen());
    QTRY_VERIFY(onScreen(surface()).width() < Screen::area().width());
    QVERIFY(Screen::waitUntilMoving(onScreen(surface())));
}

void tst_PlayerWindow::menusOpenAboveTheirButtons_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("sound") << u"audioButton"_s;
    QTest::newRow("subtitles") << u"subtitlesButton"_s;
}

void tst_PlayerWindow::menusOpenAboveTheirButtons()
{
    QFETCH(QString, button);
    watch(StreamKind::Movie, u"mkv"_s, u"tracks.mkv"_s);
    const auto &opener = fixture->find<QPushButton>(button);
    QRect place;
    bool shown = false;
    fixture->dialogs.nextMenu([&](QMenu &menu) {
        shown = QTest::qWaitFor([&menu] { return isOnTop(menu); });
        place = onScreen(menu);
        Screen::save(Screen::grab(), u"menu-"_s + menu.actions().constFirst()->text());
    });
    click(opener);
    QTRY_COMPARE(fixture->dialogs.waiting(), 0);
    QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
    QVERIFY(shown);
    QCOMPARE(QPoint(place.left(), place.top() + place.height()), onScreen(opener).topLeft());
}

void tst_PlayerWindow::keysReachThePlayer()
{
    watch(StreamKind::Live, u"ts"_s, u"live.ts"_s);
    NativeKeyboard::press(Key::Down);
    QTRY_COMPARE(volume().value(), 95);
    NativeKeyboard::press(Key::Up);
    QTRY_COMPARE(volume().value(), 100);
    NativeKeyboard::press(Key::M);
    QTRY_COMPARE(volume().value(), 0);
    NativeKeyboard::press(Key::M);
    QTRY_COMPARE(volume().value(), 100);
    NativeKeyboard::press(Key::F);
    QTRY_VERIFY(fixture->window().isFullScreen());
    NativeKeyboard::press(Key::F);
    QTRY_VERIFY(!fixture->window().isFullScreen());
}

void tst_PlayerWindow::seekKeysReachAFilm()
{
    watch(StreamKind::Movie, u"mp4"_s, u"film-faststart.mp4"_s);
    const VlcPlayer &player = fixture->player();
    const QSignalSpy paused(&player, &VlcPlayer::pausedChanged);
    NativeKeyboard::press(Key::Space);
    QTRY_COMPARE(paused.count(), 1);
    QVERIFY(paused.constFirst().constFirst().toBool());
    NativeKeyboard::press(Key::Space);
    QTRY_COMPARE(paused.count(), 2);
    const qint64 before = player.timeMs();
    NativeKeyboard::press(Key::Right);
    QTRY_VERIFY(player.timeMs() >= before + 9000);
    const qint64 later = player.timeMs();
    NativeKeyboard::press(Key::Left);
    QTRY_VERIFY(player.timeMs() < later - 5000);
}

void tst_PlayerWindow::keysOfASearchStayThere()
{
    watch(StreamKind::Live, u"ts"_s, u"live.ts"_s);
    const QSignalSpy paused(&fixture->player(), &VlcPlayer::pausedChanged);
    auto &search = fixture->find<QLineEdit>(u"liveAllSearch"_s);
    click(search);
    QTRY_VERIFY(search.hasFocus());
    for (const Key key : {Key::Up, Key::Down, Key::Left, Key::Right, Key::M, Key::F, Key::Space})
        NativeKeyboard::press(key);
    QTRY_COMPARE(search.text(), u"mf "_s);
    QCOMPARE(volume().value(), 100);
    QCOMPARE(paused.count(), 0);
    QVERIFY(!fixture->window().isFullScreen());
}

VANTIRO_TEST_MAIN(tst_PlayerWindow)
#include "tst_PlayerWindow.moc"
