// Fullscreen in the real window: the picture plays on through every change, the controls come over
// it with the mouse and go again, and mouse and keys reach the player although libVLC draws there.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "e2e/WindowSystem.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFullscreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void entersAndLeaves_data();
    void entersAndLeaves();
    void controlsComeAndGoWithTheMouse();
    void controlsStayWhileTheMouseMoves();
    void controlsActOverThePicture();
    void controlsFollowTheWindow();
    void filmShowsItsSeekRow();
    void keysReachThePlayer_data();
    void keysReachThePlayer();
    void keysReachThePlayerAfterTheButton();
    void aHeldKeySwitchesOnce();
    void withoutMediaThereIsNothingButBlack();

private:
    void watchChannel();
    bool change(const QString &way) const;
    bool isFullScreen() const;
    Accessible nowPlaying() const { return session->window.find(Role::Label, title); }
    QRect chromeRect() const;
    double chromeShare(const QRect &rect) const;
    QRect pictureAboveChrome() const;

    const QString title = u"Playing: Night News"_s;
    std::unique_ptr<Provider> provider;
    std::unique_ptr<PlayerSession> session;
};

void TestFullscreen::init()
{
    PrivateProfile::current().clear();
    provider = std::make_unique<Provider>();
    provider->addChannel(u"Night News"_s, liveStream(u"grey.ts"_s, 30));
    provider->addFilm(u"Long Film"_s, u"mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    provider->store();
    // Sources whose names begin with keys of the player.
    provider->storeAlso(u"Film Club"_s, u"/film-club.m3u"_s);
    provider->storeAlso(u"Music"_s, u"/music.m3u"_s);
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
}

void TestFullscreen::cleanup()
{
    if (!QTest::currentTestFailed()) {
        QVERIFY(session->close());
        QCOMPARE(session->app.exitCode(), 0);
    }
    session.reset();
}

void TestFullscreen::watchChannel()
{
    QVERIFY(session->openChannels());
    QVERIFY(session->playChannel(u"Night News"_s));
    QVERIFY(session->showsLabel(title));
    QVERIFY(session->seesPicture());
}

bool TestFullscreen::change(const QString &way) const
{
    if (way == "button"_L1) {
        // In fullscreen the button comes with the mouse.
        return Mouse::moveTo(session->videoRect().center()) &&
               session->clickButton(u"Fullscreen"_s);
    }
    if (way == "double click"_L1)
        return Mouse::doubleClick(session->videoRect().center());
    return Keyboard::press(way);
}

bool TestFullscreen::isFullScreen() const
{
    return session->app.nativeWindow(u"Vantiro Player"_s).isFullScreen();
}

/// From the top of the now-playing line to the bottom edge of the window.
QRect TestFullscreen::chromeRect() const
{
    QRect rect = session->app.nativeWindow(u"Vantiro Player"_s).geometry();
    rect.setTop(nowPlaying().rect().top());
    return rect;
}

/// How much of it is what the controls lie on: black, while the picture fills the screen with grey.
double TestFullscreen::chromeShare(const QRect &rect) const
{
    const QImage image = Screen::grab(rect);
    int same = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            same += image.pixel(x, y) == qRgb(0, 0, 0) ? 1 : 0;
    }
    return static_cast<double>(same) / (static_cast<double>(image.width()) * image.height());
}

QRect TestFullscreen::pictureAboveChrome() const
{
    QRect rect = session->videoRect();
    rect.setBottom(chromeRect().top() - 20);
    return rect;
}

void TestFullscreen::entersAndLeaves_data()
{
    QTest::addColumn<QString>("enter");
    QTest::addColumn<QString>("leave");
    QTest::newRow("by the button and Escape") << u"button"_s << u"Escape"_s;
    QTest::newRow("by F and the button") << u"f"_s << u"button"_s;
    QTest::newRow("by a double click on the picture, both ways")
        << u"double click"_s << u"double click"_s;
    QTest::newRow("by a double click and F") << u"double click"_s << u"f"_s;
}

void TestFullscreen::entersAndLeaves()
{
    QFETCH(const QString, enter);
    QFETCH(const QString, leave);
    watchChannel();
    const QRect windowed = session->app.nativeWindow(u"Vantiro Player"_s).geometry();
    const QRect videoBefore = session->videoRect();

    QVERIFY(change(enter));
    QTRY_VERIFY(isFullScreen());
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(!session->window.find(Role::Tabs));
    QVERIFY(!session->window.find(Role::Button, u"Add Source..."_s));
    QTRY_VERIFY(!nowPlaying());
    session->keepScreenshot(u"fullscreen-bare"_s);

    QVERIFY(change(leave));
    QTRY_VERIFY(!isFullScreen());
    QTRY_COMPARE(session->app.nativeWindow(u"Vantiro Player"_s).geometry().size(), windowed.size());
    QTRY_COMPARE(session->videoRect().size(), videoBefore.size());
    QVERIFY(session->window.waitFor(Role::Tabs));
    QVERIFY(session->window.waitFor(Role::Button, u"Add Source..."_s));
    QVERIFY(session->showsLabel(title));
    QVERIFY(session->seesPicture());
    QCOMPARE(provider->server.requestCount(u"/live/viewer/secret/1.ts"_s), 1);
}

void TestFullscreen::controlsComeAndGoWithTheMouse()
{
    watchChannel();
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(!nowPlaying());
    const QRect bottomEdge(0, Screen::area().bottom(), Screen::area().width(), 1);
    QVERIFY(chromeShare(bottomEdge) < 0.01);

    QElapsedTimer sinceMovement;
    sinceMovement.start();
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(session->showsLabel(title));
    QVERIFY(session->window.find(Role::Button, u"Pause"_s).isShowing());
    QTRY_VERIFY(chromeShare(bottomEdge) > 0.95);
    QVERIFY2(chromeShare(chromeRect()) > 0.4,
             qPrintable(QString::number(chromeShare(chromeRect()))));
    QVERIFY(chromeRect().height() < 200);
    QVERIFY(!pointerIsHidden());
    QVERIFY(Screen::waitUntilMoving(pictureAboveChrome()));
    session->keepScreenshot(u"fullscreen-controls"_s);

    QTRY_VERIFY(!nowPlaying());
    // Three seconds, of which a coarse timer may leave out a twentieth.
    QVERIFY(sinceMovement.hasExpired(2850));
    QTRY_VERIFY(pointerIsHidden());
    QTRY_VERIFY(chromeShare(bottomEdge) < 0.01);
    QVERIFY(session->seesPicture());

    QVERIFY(Mouse::moveTo(Screen::area().center() + QPoint(50, 50)));
    QVERIFY(session->showsLabel(title));
    QTRY_VERIFY(!pointerIsHidden());

    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_VERIFY(!isFullScreen());
    QTRY_VERIFY(!pointerIsHidden());
}

void TestFullscreen::controlsStayWhileTheMouseMoves()
{
    watchChannel();
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    const Accessible label = session->window.waitFor(Role::Label, title);
    QElapsedTimer clock;
    clock.start();
    for (int step = 0; !clock.hasExpired(5000); ++step) {
        QVERIFY(Mouse::moveTo(Screen::area().center() + QPoint(step % 200, 0)));
        QVERIFY(label.isShowing());
    }
    QVERIFY(label.waitUntilGone());
}

void TestFullscreen::controlsActOverThePicture()
{
    watchChannel();
    const Accessible volume = session->window.waitFor(Role::Slider, u"Volume"_s);
    QVERIFY(change(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());

    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(session->showsLabel(title));
    const QRect picture = pictureAboveChrome();
    QVERIFY(session->clickButton(u"Pause"_s));
    QVERIFY(session->window.waitFor(Role::Button, u"Play"_s));
    QVERIFY(Screen::waitUntilStill(picture));

    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(session->clickButton(u"Audio"_s));
    const Accessible menu = session->app.waitForMenu();
    QVERIFY(menu);
    const QRect button = session->window.find(Role::Button, u"Audio"_s).rect();
    QCOMPARE(menu.rect().left(), button.left());
    QCOMPARE(menu.rect().bottom() + 1, button.top());
    QTRY_VERIFY(!Screen::isMostlyBlack(menu.rect()));
    session->keepScreenshot(u"fullscreen-menu"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(menu.waitUntilGone());
    QVERIFY2(isFullScreen(), "Escape closes the menu only");

    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(session->window.waitFor(Role::Slider, u"Volume"_s));
    const QRect groove = volume.rect();
    QVERIFY(Mouse::drag({groove.right() - 6, groove.center().y()}, groove.center()));
    QTRY_VERIFY(volume.value() > 20 && volume.value() < 80);

    QVERIFY(session->clickButton(u"Play"_s));
    QVERIFY(session->window.waitFor(Role::Button, u"Pause"_s));
    QVERIFY(Screen::waitUntilMoving(picture));
}

void TestFullscreen::controlsFollowTheWindow()
{
    watchChannel();
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(isFullScreen());
    QVERIFY(session->seesPicture());
    QVERIFY(endFullScreen());
    QTRY_VERIFY(!isFullScreen());
    const NativeWindow window = session->app.nativeWindow(u"Vantiro Player"_s);
    QVERIFY(!session->window.find(Role::Tabs));

    // Each time the controls show already when the size changes.
    for (const QSize &size : {QSize(1000, 700), QSize(1300, 860), QSize(800, 500)}) {
        QVERIFY(Mouse::moveTo(session->videoRect().center() + QPoint(size.width() % 37, 0)));
        QVERIFY(session->showsLabel(title));
        QVERIFY(window.resize(size));
        QTRY_COMPARE(session->videoRect(), window.geometry());
        const QRect area = window.geometry();
        const QRect bottomEdge(area.left(), area.bottom(), area.width(), 1);
        QTRY_VERIFY(chromeShare(bottomEdge) > 0.95);
        QTRY_COMPARE(session->window.find(Role::Slider, u"Volume"_s).rect().right(), area.right());
        QVERIFY(Screen::waitUntilMoving(pictureAboveChrome()));
        session->keepScreenshot(u"fullscreen-controls-%1"_s.arg(size.width()));
    }

    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(session->window.waitFor(Role::Tabs));
    QVERIFY(session->seesPicture());
}

void TestFullscreen::filmShowsItsSeekRow()
{
    QVERIFY(session->openFilms());
    QVERIFY(session->playFilm(u"Long Film"_s));
    QVERIFY(session->showsLabel(u"Playing: Long Film"_s));
    QVERIFY(session->seesPicture());
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(!session->window.find(Role::Slider, u"Position"_s));

    QVERIFY(Mouse::moveTo(Screen::area().center()));
    const Accessible slider = session->window.waitFor(Role::Slider, u"Position"_s);
    const Accessible label = session->window.waitFor(Role::Label, u"Playing: Long Film"_s);
    const Accessible pause = session->window.waitFor(Role::Button, u"Pause"_s);
    QVERIFY(label.rect().bottom() < slider.rect().top());
    QVERIFY(slider.rect().bottom() < pause.rect().top());
    session->keepScreenshot(u"fullscreen-film"_s);

    // A click on the slider seeks there.
    QTRY_COMPARE(slider.maximum(), 60000.0);
    QVERIFY(Mouse::click(slider));
    QTRY_VERIFY(slider.value() > 25000 && slider.value() < 40000);
    QVERIFY(Screen::waitUntilMoving(session->videoRect().adjusted(0, 0, 0, -200)));
}

void TestFullscreen::keysReachThePlayer_data()
{
    QTest::addColumn<bool>("fullscreen");
    QTest::newRow("in the window") << false;
    QTest::newRow("in fullscreen") << true;
}

void TestFullscreen::keysReachThePlayer()
{
    QFETCH(const bool, fullscreen);
    watchChannel();
    const Accessible volume = session->window.waitFor(Role::Slider, u"Volume"_s);
    QVERIFY(volume);

    // The keyboard comes back from the search line with a click on the picture.
    const Accessible search = session->window.waitFor(Role::Edit, u"Search..."_s);
    QVERIFY(Mouse::click(search));
    QTRY_VERIFY(search.isFocused());
    QVERIFY(Mouse::click(session->videoRect().center()));
    QTRY_VERIFY(!search.isFocused());
    if (fullscreen) {
        QVERIFY(Keyboard::press(u"f"_s));
        QTRY_COMPARE(session->videoRect(), Screen::area());
        QVERIFY(session->seesPicture());
    }

    QVERIFY(Keyboard::press(u"space"_s));
    QVERIFY(Screen::waitUntilStill(session->videoRect()));
    QVERIFY(!Screen::isMostlyBlack(session->videoRect()));
    QVERIFY(Keyboard::press(u"space"_s));
    QVERIFY(session->seesPicture());

    QCOMPARE(volume.value(), 100.0);
    QVERIFY(Keyboard::press(u"Down"_s, 3));
    QTRY_COMPARE(volume.value(), 85.0);
    QVERIFY(Keyboard::press(u"Up"_s));
    QTRY_COMPARE(volume.value(), 90.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume.value(), 0.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume.value(), 90.0);
    QVERIFY(Keyboard::press(u"Up"_s, 3));
    QTRY_COMPARE(volume.value(), 100.0);
    QVERIFY(session->seesPicture());
}

void TestFullscreen::keysReachThePlayerAfterTheButton()
{
    watchChannel();
    const Accessible volume = session->window.waitFor(Role::Slider, u"Volume"_s);
    const Accessible source = session->window.waitFor(Role::ComboBox, 0);
    const QString sourceName = source.text();
    QVERIFY(change(u"button"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(change(u"button"_s));
    QTRY_VERIFY(!isFullScreen());
    QVERIFY(session->window.waitFor(Role::Button, u"Add Source..."_s));

    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume.value(), 0.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume.value(), 100.0);
    QVERIFY(Keyboard::press(u"Down"_s));
    QTRY_COMPARE(volume.value(), 95.0);
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(isFullScreen());
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(!isFullScreen());
    // None of them chose another source.
    QVERIFY(session->window.waitFor(Role::Tabs));
    QCOMPARE(session->window.waitFor(Role::ComboBox, 0).text(), sourceName);
    QVERIFY(session->showsLabel(title));
    QCOMPARE(provider->server.requestCount(u"/film-club.m3u"_s), 0);
    QCOMPARE(provider->server.requestCount(u"/music.m3u"_s), 0);
    session->keepScreenshot(u"after-fullscreen"_s);
}

void TestFullscreen::aHeldKeySwitchesOnce()
{
    watchChannel();
    const Accessible volume = session->window.waitFor(Role::Slider, u"Volume"_s);
    const Accessible search = session->window.waitFor(Role::Edit, u"Search..."_s);
    // The screen's own repeats: a search line shows that they come.
    QVERIFY(Mouse::click(search));
    QTRY_VERIFY(search.isFocused());
    QVERIFY(Keyboard::hold(u"m"_s));
    QTRY_VERIFY(search.text().size() > 3);
    QVERIFY(Keyboard::release(u"m"_s));
    QVERIFY(Keyboard::fill(search, {}));

    QVERIFY(Mouse::click(session->videoRect().center()));
    QTRY_VERIFY(!search.isFocused());
    QVERIFY(Keyboard::hold(u"Down"_s));
    QTRY_VERIFY(volume.value() < 60.0);
    QVERIFY(Keyboard::release(u"Down"_s));
    QVERIFY(Keyboard::hold(u"m"_s));
    QTRY_COMPARE(volume.value(), 0.0);
    // Repeats would have come while the picture is looked at.
    QVERIFY(session->seesPicture());
    QCOMPARE(volume.value(), 0.0);
    QVERIFY(Keyboard::release(u"m"_s));
    QCOMPARE(volume.value(), 0.0);
}

void TestFullscreen::withoutMediaThereIsNothingButBlack()
{
    QVERIFY(Mouse::doubleClick(session->videoRect().center()));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QTRY_VERIFY(Screen::isMostlyBlack(QRect()));
    QVERIFY(!session->window.find(Role::Button, u"Pause"_s));
    QVERIFY(Mouse::doubleClick(session->videoRect().center()));
    QVERIFY(session->window.waitFor(Role::Tabs));
}

VANTIRO_TEST_MAIN(TestFullscreen)
#include "tst_Fullscreen.moc"
