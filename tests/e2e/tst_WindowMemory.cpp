// What the window remembers from one run to the next under a real window manager, which has a say
// in where and how large it is.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QSettings>
#include <QTest>

#include <csignal>
#include <sys/types.h>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestWindowMemory : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void thePlaceComesBack();
    void theMaximizedWindowComesBack();
    void alsoAfterAKill();
    void alsoFromFullscreen();

private:
    void fill() override;
    /// A place where the window manager puts no new window.
    bool arrange() const { return window().setGeometry(place) && isAt(place); }
    bool maximize() const;
    bool restart() { return session->close() && session->start(); }
    NativeWindow window() const { return session->nativeWindow(); }
    bool isAt(const QRect &wanted) const
    {
        return QTest::qWaitFor([&] { return window().geometry() == wanted; }) && isCalm();
    }
    bool isCalm() const;

    const QRect place{60, 90, 1100, 700};
};

/// Of a program that was arranged before: soon after its very first start, a change counts as the
/// window manager's.
void TestWindowMemory::fill()
{
    provider->addChannel(u"One"_s, liveTs());
    QSettings(u"Vantiro"_s, u"Window"_s).setValue(u"geometry"_s, QByteArray());
}

/// Whether the program has the size that the window system tells.
bool TestWindowMemory::isCalm() const
{
    return QTest::qWaitFor([this] { return session->window.rect() == window().geometry(); });
}

bool TestWindowMemory::maximize() const
{
    return window().setMaximized(true) && QTest::qWaitFor([this] {
               return window().geometry().width() == Screen::area().width();
           }) &&
           isCalm();
}

void TestWindowMemory::thePlaceComesBack()
{
    QCOMPARE(window().geometry().size(), QSize(1200, 750));
    QVERIFY(arrange());
    for (int run = 0; run < 2; ++run) {
        QVERIFY(restart());
        QVERIFY2(isAt(place), qPrintable(QDebug::toString(window().geometry())));
        QVERIFY(!window().isMaximized());
    }
}

void TestWindowMemory::theMaximizedWindowComesBack()
{
    QVERIFY(arrange());
    QVERIFY(maximize());
    const QRect maximized = window().geometry();
    QCOMPARE(maximized.width(), Screen::area().width());
    for (int run = 0; run < 2; ++run) {
        QVERIFY(restart());
        QTRY_VERIFY(window().isMaximized());
        QVERIFY2(isAt(maximized), qPrintable(QDebug::toString(window().geometry())));
    }
    session->keepScreenshot(u"window-maximized-again"_s);

    // As in the run before, it goes back to where it was.
    QVERIFY(window().setMaximized(false));
    QVERIFY2(isAt(place), qPrintable(QDebug::toString(window().geometry())));
    QVERIFY(restart());
    QVERIFY(isAt(place));
    QVERIFY(!window().isMaximized());
}

void TestWindowMemory::alsoAfterAKill()
{
    QVERIFY(maximize());
    const auto isStored = [] {
        return QSettings(u"Vantiro"_s, u"Window"_s).value(u"maximized"_s).toBool();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isStored(), 20'000);
    QCOMPARE(::kill(pid_t(session->app.processId()), SIGKILL), 0);
    QVERIFY(session->app.waitUntilEnded());
    QVERIFY(session->start());
    QTRY_VERIFY(window().isMaximized());
}

void TestWindowMemory::alsoFromFullscreen()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(u"One"_s));
    QVERIFY(maximize());
    const QRect maximized = window().geometry();
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(window().isFullScreen());
    QTRY_COMPARE(session->videoRect(), Screen::area());
    QVERIFY(restart());
    QTRY_VERIFY(window().isMaximized());
    QVERIFY(!window().isFullScreen());
    QVERIFY2(isAt(maximized), qPrintable(QDebug::toString(window().geometry())));
}

VANTIRO_TEST_MAIN(TestWindowMemory)
#include "tst_WindowMemory.moc"
