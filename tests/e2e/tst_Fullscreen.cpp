// Fullscreen in the real window: the picture plays on through every change, the controls come over
// it with the mouse and go again, and mouse and keys reach the player although libVLC draws there.

#include "e2e/AccountTest.h"
#include "e2e/Pointer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFullscreen : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void entersAndLeaves_data();
    void entersAndLeaves();
    void controlsComeAndGoWithTheMouse();
    void controlsActOverThePicture();
    void keysReachThePlayer_data();
    void keysReachThePlayer();
    void withoutMediaThereIsNothingButBlack();

private:
    void fill() override;
    void watchChannel();
    void watchFullScreen();
    bool change(const QString &way) const;
    bool isFullScreen() const { return session->nativeWindow().isFullScreen(); }
    /// Moves the mouse until the controls show, and goes on until this holds with them. They are
    /// gone three seconds later, which a busy machine may need for a search of the window.
    bool callControls(const std::function<bool()> &holds = [] { return true; }) const;
    Accessible nowPlaying() const { return session->window.find(Role::Label, title); }
    Accessible volume() const { return session->window.find(Role::Slider, u"Volume"_s); }
    /// Empty without the controls.
    QRect pictureAboveControls() const;
    double blackAtTheBottomEdge() const;

    const QString title = UiTexts::playing(u"Night News"_s);
    QString channelPath;
};

void TestFullscreen::fill()
{
    channelPath = provider->addChannel(u"Night News"_s, liveClip(streamPath(u"grey.ts"_s), 30, 2));
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
    const QPoint middle = session->videoRect().center();
    if (way == "double click"_L1)
        return Mouse::doubleClick(middle);
    // In fullscreen the button comes with the mouse.
    if (way == "button"_L1)
        return Mouse::moveTo(middle) && session->clickButton(u"Fullscreen"_s);
    return Keyboard::press(way);
}

bool TestFullscreen::callControls(const std::function<bool()> &holds) const
{
    int tries = 0;
    const auto shows = [&] {
        const QPoint place = Screen::area().center() + QPoint(++tries % 2, 0);
        return Mouse::moveTo(place) && volume() && nowPlaying() && holds();
    };
    return QTest::qWaitFor(shows, Accessible::defaultTimeoutMs);
}

QRect TestFullscreen::pictureAboveControls() const
{
    const QRect controls = nowPlaying().rect();
    QRect rect = session->videoRect();
    rect.setBottom(controls.top() - 20);
    return controls.isEmpty() ? QRect() : rect;
}

/// The controls lie on black, while the picture fills the screen with grey.
double TestFullscreen::blackAtTheBottomEdge() const
{
    const QRect area = Screen::area();
    return Screen::share(Screen::grab(QRect(area.left(), area.bottom(), area.width(), 1)),
                         [](QRgb pixel) { return pixel == qRgb(0, 0, 0); });
}

void TestFullscreen::entersAndLeaves_data()
{
    QTest::addColumn<QString>("enter");
    QTest::addColumn<QString>("leave");
    QTest::newRow("by the button and Escape") << u"button"_s << u"Escape"_s;
    QTest::newRow("by F and the button") << u"f"_s << u"button"_s;
    QTest::newRow("by a double click, both ways") << u"double click"_s << u"double click"_s;
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
    QTRY_VERIFY(!nowPlaying());

    QVERIFY(change(leave));
    QTRY_VERIFY(!isFullScreen());
    QTRY_COMPARE(session->nativeWindow().geometry().size(), windowed);
    QTRY_COMPARE(session->videoRect().size(), videoBefore);
    QVERIFY(session->showsLabel(title));
    QVERIFY(session->seesPicture());
    QCOMPARE(provider->http().requestCount(channelPath), 1);
}

void TestFullscreen::controlsComeAndGoWithTheMouse()
{
    watchFullScreen();
    QTRY_VERIFY(!nowPlaying());
    QTRY_VERIFY(blackAtTheBottomEdge() < 0.01);

    QVERIFY(callControls([this] { return blackAtTheBottomEdge() > 0.95 && !pointerIsHidden(); }));
    QRect picture;
    QVERIFY(callControls([&] { return !(picture = pictureAboveControls()).isEmpty(); }));
    QVERIFY(Screen::waitUntilMoving(picture));
    session->keepScreenshot(u"fullscreen-controls"_s);

    QTRY_VERIFY(!nowPlaying());
    QTRY_VERIFY(pointerIsHidden());
    QTRY_VERIFY(blackAtTheBottomEdge() < 0.01);
    QVERIFY(session->seesPicture());
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_VERIFY(!pointerIsHidden());
}

void TestFullscreen::controlsActOverThePicture()
{
    watchFullScreen();
    QRect picture;
    QVERIFY(callControls([&] { return !(picture = pictureAboveControls()).isEmpty(); }));
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

    QRect groove;
    QVERIFY(callControls([&] { return !(groove = volume().rect()).isEmpty(); }));
    QVERIFY(Mouse::drag({groove.right() - 6, groove.center().y()}, groove.center()));
    QTRY_VERIFY(volume().value() > 20 && volume().value() < 80);

    QVERIFY(session->clickButton(u"Play"_s));
    QVERIFY(session->window.waitFor(Role::Button, u"Pause"_s));
    QVERIFY(Screen::waitUntilMoving(picture));
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

    QVERIFY(Keyboard::press(u"Down"_s, 3));
    QTRY_COMPARE(slider.value(), 85.0);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(slider.value(), 0.0);
    QVERIFY(session->seesPicture());
}

void TestFullscreen::withoutMediaThereIsNothingButBlack()
{
    QVERIFY(Mouse::doubleClick(session->videoRect().center()));
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QTRY_VERIFY(Screen::isMostlyBlack(QRect()));
}

VANTIRO_TEST_MAIN(TestFullscreen)
#include "tst_Fullscreen.moc"
