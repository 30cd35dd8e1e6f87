// Fullscreen in the real window: the picture plays on through every change, the controls come over
// it with the mouse and go again, and mouse and keys reach the player although libVLC draws there.

#include "e2e/AccountTest.h"
#include "e2e/StoredSources.h"
#include "e2e/WindowSystem.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

/// How much of a part of the screen is what the controls lie on: black, while the picture fills the
/// screen with grey.
double chromeShare(const QRect &rect)
{
    return Screen::share(Screen::grab(rect), [](QRgb pixel) { return pixel == qRgb(0, 0, 0); });
}

} // namespace

class TestFullscreen : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
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
    void fill() override;
    void watchChannel();
    void watchFullScreen();
    bool change(const QString &way) const;
    bool isFullScreen() const { return session->nativeWindow().isFullScreen(); }
    /// Whether the controls come with a movement of the mouse.
    bool callControls() const;
    Accessible nowPlaying() const { return session->window.find(Role::Label, title); }
    Accessible volume() const { return session->window.find(Role::Slider, u"Volume"_s); }
    QRect chromeRect() const;
    QRect pictureAboveChrome() const;
    double bottomEdgeShare() const;

    const QString title = UiTexts::playing(u"Night News"_s);
    QString channelPath;
};

void TestFullscreen::fill()
{
    channelPath = provider->addChannel(u"Night News"_s, liveClip(streamPath(u"grey.ts"_s), 30, 2));
    provider->addFilm(u"Long Film"_s, u"mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    // Sources whose names begin with keys of the player.
    storePlaylist(u"Film Club"_s, provider->http().url(u"/film-club.m3u"_s));
    storePlaylist(u"Music"_s, provider->http().url(u"/music.m3u"_s));
}

void TestFullscreen::watchChannel()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(u"Night News"_s));
}

void TestFullscreen::watchFullScreen()
{
    watchChannel();
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
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

bool TestFullscreen::callControls() const
{
    return Mouse::moveTo(Screen::area().center()) &&
           session->window.waitFor(Role::Slider, u"Volume"_s);
}

/// From the top of the now-playing line to the bottom edge of the window.
QRect TestFullscreen::chromeRect() const
{
    QRect rect = session->nativeWindow().geometry();
    rect.setTop(nowPlaying().rect().top());
    return rect;
}

QRect TestFullscreen::pictureAboveChrome() const
{
    QRect rect = session->videoRect();
    rect.setBottom(chromeRect().top() - 20);
    return rect;
}

double TestFullscreen::bottomEdgeShare() const
{
    const QRect area = session->nativeWindow().geometry();
    return chromeShare(QRect(area.left(), area.bottom(), area.width(), 1));
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
    const QSize windowed = session->nativeWindow().geometry().size();
    const QSize videoBefore = session->videoRect().size();

    QVERIFY(change(enter));
    QTRY_VERIFY(isFullScreen());
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(!session->window.find(Role::Tabs));
    QVERIFY(!session->window.find(Role::Button, UiTexts::addSourceButton));
    QTRY_VERIFY(!nowPlaying());
    session->keepScreenshot(u"fullscreen-bare"_s);

    QVERIFY(change(leave));
    QTRY_VERIFY(!isFullScreen());
    QTRY_COMPARE(session->nativeWindow().geometry().size(), windowed);
    QTRY_COMPARE(session->videoRect().size(), videoBefore);
    QVERIFY(session->window.waitFor(Role::Tabs));
    QVERIFY(session->window.waitFor(Role::Button, UiTexts::addSourceButton));
    QVERIFY(session->showsLabel(title));
    QVERIFY(session->seesPicture());
    QCOMPARE(provider->http().requestCount(channelPath), 1);
}

void TestFullscreen::controlsComeAndGoWithTheMouse()
{
    watchFullScreen();
    QVERIFY(!nowPlaying());
    QVERIFY(bottomEdgeShare() < 0.01);

    QElapsedTimer sinceMovement;
    sinceMovement.start();
    QVERIFY(callControls());
    QVERIFY(nowPlaying());
    QVERIFY(session->window.find(Role::Button, u"Pause"_s));
    QTRY_VERIFY(bottomEdgeShare() > 0.95);
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
    QTRY_VERIFY(bottomEdgeShare() < 0.01);
    QVERIFY(session->seesPicture());

    QVERIFY(Mouse::moveTo(Screen::area().center() + QPoint(50, 50)));
    QVERIFY(session->showsLabel(title));
    QTRY_VERIFY(!pointerIsHidden());
    QTRY_VERIFY(pointerIsHidden());
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_VERIFY(!isFullScreen());
    QTRY_VERIFY(!pointerIsHidden());
}

void TestFullscreen::controlsStayWhileTheMouseMoves()
{
    watchFullScreen();
    QVERIFY(callControls());
    const Accessible label = nowPlaying();
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
    watchFullScreen();
    QVERIFY(callControls());
    const QRect picture = pictureAboveChrome();
    QVERIFY(session->clickButton(u"Pause"_s));
    QVERIFY(session->window.waitFor(Role::Button, u"Play"_s));
    QVERIFY(Screen::waitUntilStill(picture));

    QVERIFY(callControls());
    const Accessible menu = session->openMenu(u"Audio"_s);
    const QRect button = session->window.find(Role::Button, u"Audio"_s).rect();
    QCOMPARE(QPoint(menu.rect().left(), menu.rect().bottom() + 1), button.topLeft());
    QTRY_VERIFY(!Screen::isMostlyBlack(menu.rect()));
    session->keepScreenshot(u"fullscreen-menu"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(menu.waitUntilGone());
    QVERIFY2(isFullScreen(), "Escape closes the menu only");

    QVERIFY(callControls());
    const QRect groove = volume().rect();
    QVERIFY(Mouse::drag({groove.right() - 6, groove.center().y()}, groove.center()));
    QTRY_VERIFY(volume().value() > 20 && volume().value() < 80);

    QVERIFY(session->clickButton(u"Play"_s));
    QVERIFY(session->window.waitFor(Role::Button, u"Pause"_s));
    QVERIFY(Screen::waitUntilMoving(picture));
}

void TestFullscreen::controlsFollowTheWindow()
{
    watchFullScreen();
    QVERIFY(endFullScreen());
    QTRY_VERIFY(!isFullScreen());
    const NativeWindow window = session->nativeWindow();
    QVERIFY(!session->window.find(Role::Tabs));

    // Each time the controls show already when the size changes.
    for (const QSize &size : {QSize(1000, 700), QSize(1300, 860), QSize(800, 500)}) {
        QVERIFY(Mouse::moveTo(session->videoRect().center() + QPoint(size.width() % 37, 0)));
        QVERIFY(session->showsLabel(title));
        QVERIFY(window.resize(size));
        QTRY_COMPARE(session->videoRect(), window.geometry());
        QTRY_VERIFY(bottomEdgeShare() > 0.95);
        QTRY_COMPARE(volume().rect().right(), window.geometry().right());
        QVERIFY(Screen::waitUntilMoving(pictureAboveChrome()));
        session->keepScreenshot(u"fullscreen-controls-%1"_s.arg(size.width()));
    }

    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(session->window.waitFor(Role::Tabs));
    QVERIFY(session->seesPicture());
}

void TestFullscreen::filmShowsItsSeekRow()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(u"Long Film"_s));
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(!session->seekSlider());

    QVERIFY(callControls());
    const Accessible slider = session->seekSlider();
    const Accessible label = session->window.find(Role::Label, UiTexts::playing(u"Long Film"_s));
    QVERIFY(label.rect().bottom() < slider.rect().top());
    QVERIFY(slider.rect().bottom() < volume().rect().top());
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
    const Accessible slider = volume();

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

    QCOMPARE(slider.value(), 100.0);
    QVERIFY(Keyboard::press(u"Down"_s, 3));
    QTRY_COMPARE(slider.value(), 85.0);
    QVERIFY(Keyboard::press(u"Up"_s));
    QTRY_COMPARE(slider.value(), 90.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(slider.value(), 0.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(slider.value(), 90.0);
    QVERIFY(session->seesPicture());
}

void TestFullscreen::keysReachThePlayerAfterTheButton()
{
    watchChannel();
    const QString sourceName = session->window.waitFor(Role::ComboBox).text();
    QVERIFY(change(u"button"_s));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(session->seesPicture());
    QVERIFY(change(u"button"_s));
    QTRY_VERIFY(!isFullScreen());
    QVERIFY(session->window.waitFor(Role::Button, UiTexts::addSourceButton));

    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume().value(), 0.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(volume().value(), 100.0);
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(isFullScreen());
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(!isFullScreen());
    // None of them chose another source.
    QVERIFY(session->window.waitFor(Role::Tabs));
    QCOMPARE(session->window.waitFor(Role::ComboBox).text(), sourceName);
    QVERIFY(session->showsLabel(title));
    QCOMPARE(provider->http().requestCount(u"/film-club.m3u"_s), 0);
    QCOMPARE(provider->http().requestCount(u"/music.m3u"_s), 0);
}

void TestFullscreen::aHeldKeySwitchesOnce()
{
    watchChannel();
    const Accessible slider = volume();
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
    QTRY_VERIFY(slider.value() < 60.0);
    QVERIFY(Keyboard::release(u"Down"_s));
    QVERIFY(Keyboard::hold(u"m"_s));
    QTRY_COMPARE(slider.value(), 0.0);
    // Repeats would have come while the picture is looked at.
    QVERIFY(session->seesPicture());
    QCOMPARE(slider.value(), 0.0);
    QVERIFY(Keyboard::release(u"m"_s));
    QCOMPARE(slider.value(), 0.0);
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
