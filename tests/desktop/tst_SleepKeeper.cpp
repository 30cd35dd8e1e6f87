#include "desktop/InhibitService.h"
#include "desktop/SleepKeeper.h"
#include "player/PlayerTest.h"

#include <QHBoxLayout>

#include <memory>

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
    [[nodiscard]] bool staysAwakeFor(const QString &path, bool isLive = false) const
    {
        return starts(path, isLive) && QTest::qWaitFor([this] { return isAwake(); }, openMs);
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
    service = std::make_unique<ScreenSaverService>(*bus, u"/ScreenSaver"_s); // libVLC's path
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
    QTest::addColumn<QString>("who");
    QTest::newRow("picture and sound: libVLC") << u"/files/film-faststart.mp4"_s << u"vlc"_s;
    QTest::newRow("a picture alone: libVLC") << u"/files/silent.mp4"_s << u"vlc"_s;
    QTest::newRow("sound alone: the player") << u"/files/audio.mp3"_s << u"Vantiro Player"_s;
}

void tst_SleepKeeper::itStaysAwakeWhileAStreamPlays()
{
    QFETCH(const QString, path);
    QFETCH(const QString, who);
    QVERIFY(staysAwakeFor(path));
    // The time of a short film without sound stands still as soon as all of it is decoded.
    QVERIFY(probe->checksAgain(5));
    QCOMPARE(service->granted, QStringList(who));
    probe->player.togglePause();
    QTRY_VERIFY(!isAwake());
    QVERIFY(probe->checksAgain());
    QVERIFY(!isAwake());
    probe->player.togglePause();
    QTRY_VERIFY_WITH_TIMEOUT(isAwake(), openMs);
    QCOMPARE(service->granted, QStringList(2, who));
}

void tst_SleepKeeper::itSleepsAfter_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isLive");
    QTest::addColumn<QString>("what");
    const QString film = u"/files/silent.mp4"_s;
    const QString sound = u"/files/audio.mp3"_s;
    QTest::newRow("a film's end") << film << false << u"end"_s;
    QTest::newRow("the end of sound") << sound << false << u"end"_s;
    QTest::newRow("an early end") << u"/cut.mp4"_s << false << u"end"_s;
    QTest::newRow("a channel's end") << sound << true << u"end"_s;
    QTest::newRow("a stop of a film") << film << false << u"stop"_s;
    QTest::newRow("a stop of sound") << sound << false << u"stop"_s;
    QTest::newRow("the program, with a film") << film << false << u"program"_s;
    QTest::newRow("the program, with sound") << sound << false << u"program"_s;
}

void tst_SleepKeeper::itSleepsAfter()
{
    QFETCH(const QString, path);
    QFETCH(const bool, isLive);
    QFETCH(const QString, what);
    HttpReply cut = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    cut.body.truncate(cut.body.size() / 4);
    server->on(u"/cut.mp4"_s, cut);
    QVERIFY(staysAwakeFor(path, isLive));
    if (what == u"end") {
        probe->player.seek(path == u"/cut.mp4" ? 12000 : 9000);
    } else if (what == u"stop") {
        probe->player.stop();
    } else {
        probe.reset();
    }
    QTRY_VERIFY_WITH_TIMEOUT(!isAwake(), openMs);
}

void tst_SleepKeeper::aStreamThatNeverPlaysKeepsNothingAwake()
{
    play(u"/never.ts"_s);
    QVERIFY(probe->checksAgain());
    QCOMPARE(service->granted, QStringList());
}

VANTIRO_TEST_MAIN(tst_SleepKeeper)
#include "tst_SleepKeeper.moc"
