#include "desktop/InhibitService.h"
#include "desktop/SleepKeeper.h"
#include "player/PlayerTest.h"

#include <QHBoxLayout>

#include <memory>
#include <optional>

/// When the computer is kept awake: real libVLC plays on a real screen, and a service on a bus of
/// the test's own stands in for the desktop's. Whoever asks it, libVLC included, is counted.
class tst_SleepKeeper : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() override; ///< keeps the screen
    void cleanupTestCase() { bus.reset(); }
    void init() override;
    void cleanup() override;
    void itStaysAwakeWhileAStreamPlays_data();
    void itStaysAwakeWhileAStreamPlays();
    void itSleepsAfter_data();
    void itSleepsAfter();
    void aStreamThatNeverPlaysKeepsNothingAwake();

private:
    /// Plays the stream and waits until the computer is kept awake for it.
    [[nodiscard]] bool staysAwakeFor(const QString &path) const
    {
        return starts(path) && QTest::qWaitFor([this] { return isAwake(); }, openMs);
    }
    bool isAwake() const { return !service->held.isEmpty(); }

    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<ScreenSaverService> service;
    std::unique_ptr<QWidget> surface;
};

// The D-Bus library keeps the address of the first session bus that a program has found.
void tst_SleepKeeper::initTestCase()
{
    bus = std::make_unique<PrivateBus>();
}

void tst_SleepKeeper::init()
{
    service = std::make_unique<ScreenSaverService>(*bus);
    PlayerTest::init();
    surface = std::make_unique<QWidget>();
    surface->resize(480, 270);
    surface->show();
    QVERIFY(QTest::qWaitForWindowExposed(surface.get()));
    probe = std::make_unique<PlayerProbe>(surface.get());
    new SleepKeeper(&probe->player, &probe->player);
}

void tst_SleepKeeper::cleanup()
{
    PlayerTest::cleanup();
    surface.reset();
    service.reset();
}

void tst_SleepKeeper::itStaysAwakeWhileAStreamPlays_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("hasPicture");
    QTest::newRow("picture and sound") << u"/files/film-faststart.mp4"_s << true;
    QTest::newRow("a picture alone") << u"/files/silent.mp4"_s << true;
    QTest::newRow("sound alone") << u"/files/audio.mp3"_s << false;
}

void tst_SleepKeeper::itStaysAwakeWhileAStreamPlays()
{
    QFETCH(const QString, path);
    QVERIFY(staysAwakeFor(path));
    QTEST(probe->player.hasPicture(), "hasPicture");
    // Nobody asks twice, and libVLC does not ask beside us.
    QVERIFY(probe->advances(3));
    QCOMPARE(service->granted, QStringList{u"Vantiro Player"_s});
    probe->player.togglePause();
    QTRY_VERIFY(!isAwake());
    QVERIFY(probe->checksAgain());
    QVERIFY(!isAwake());
    probe->player.togglePause();
    QTRY_VERIFY_WITH_TIMEOUT(isAwake(), openMs);
    QCOMPARE(service->granted, QStringList(2, u"Vantiro Player"_s));
}

void tst_SleepKeeper::itSleepsAfter_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("what");
    for (const QString &path : {u"/files/silent.mp4"_s, u"/files/audio.mp3"_s}) {
        for (const QString &what : {u"its end"_s, u"a stop"_s, u"a failure"_s, u"the program"_s}) {
            QTest::addRow("%ls of %ls", qUtf16Printable(what), qUtf16Printable(path))
                << path << what;
        }
    }
}

void tst_SleepKeeper::itSleepsAfter()
{
    QFETCH(const QString, path);
    QFETCH(const QString, what);
    QVERIFY(staysAwakeFor(path));
    if (what == u"its end") {
        bool isOver = false;
        connect(&probe->player, &VlcPlayer::finished, this, [&isOver] { isOver = true; });
        probe->player.seek(9000);
        QTRY_VERIFY_WITH_TIMEOUT(isOver, openMs);
    } else if (what == u"a stop") {
        probe->player.stop();
    } else if (what == u"a failure") {
        Q_EMIT probe->player.playbackInterrupted(u"it broke"_s);
        probe->player.stop();
    } else {
        probe.reset();
    }
    QTRY_VERIFY(!isAwake());
}

void tst_SleepKeeper::aStreamThatNeverPlaysKeepsNothingAwake()
{
    play(u"/never.ts"_s);
    QVERIFY(probe->checksAgain());
    QCOMPARE(service->granted, QStringList());
}

VANTIRO_TEST_MAIN(tst_SleepKeeper)
#include "tst_SleepKeeper.moc"
