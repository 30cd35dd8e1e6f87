#include "PlayerTest.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

const QString stallReason = u"The stream stopped advancing for 15 seconds."_s;
constexpr int stallTicks = 30;
/// Enough for two stalls on a busy machine.
constexpr int stallMs = 60000;

} // namespace

/// A stall takes 15 seconds, so all streams run at the same time from the start.
class tst_VlcPlayerStall : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() override;
    void init() override {}
    void cleanup() override {}

    void aStreamThatNeverMovedIsNotJudged();
    void anUnansweredStreamIsNotJudged();
    void aPausedStreamIsNotJudged();
    void aStoppedStreamIsNotJudged();
    void aStalledFilmIsReported();
    void aSecondPlayStartsTheCountAgain();
    void aStallIsReportedOnceUntilTheStreamIsReplayed();

private:
    /// Calls `act` once, when the stream has stood still at that many checks.
    template <typename Act>
    void whenStill(PlayerProbe &watched, int checks, Act act);

    PlayerProbe stalled;
    PlayerProbe replayed;
    PlayerProbe stopped;
    PlayerProbe film;
    PlayerProbe paused;
    PlayerProbe unanswered;
    PlayerProbe unmoving;
};

template <typename Act>
void tst_VlcPlayerStall::whenStill(PlayerProbe &watched, int checks, Act act)
{
    connect(&watched.player, &VlcPlayer::positionChanged, this,
            [&watched, checks, act, done = false]() mutable {
                if (!done && watched.progress > 0 && watched.stillPositions == checks) {
                    done = true;
                    act();
                }
            });
}

void tst_VlcPlayerStall::initTestCase()
{
    PlayerTest::init();
    constexpr qint64 fourSeconds = 240000;
    server->on(u"/stalling.ts"_s, stalling(liveTs(), fourSeconds));
    server->on(u"/stalling.mp4"_s,
               stalling(HttpReply::file(streamPath(u"film-faststart.mp4"_s)), fourSeconds));
    // Enough to be recognized, too little to be shown.
    server->on(u"/unmoving.ts"_s, stalling(liveTs(), 30000));

    const QString stallingUrl = url(u"/stalling.ts"_s);
    stalled.player.play(stallingUrl, true);
    stopped.player.play(stallingUrl, true);
    whenStill(stopped, stallTicks - 5, [this] { stopped.player.stop(); });
    replayed.player.play(stallingUrl, true);
    whenStill(replayed, stallTicks - 5,
              [this, stallingUrl] { replayed.player.play(stallingUrl, true); });
    film.player.play(url(u"/stalling.mp4"_s), false);
    paused.player.play(url(u"/live.ts"_s), true);
    connect(&paused.player, &VlcPlayer::playbackProgressing, this, [this] {
        if (paused.progress == 2) {
            paused.player.pause();
        }
    });
    unanswered.player.play(url(u"/never.ts"_s), true);
    unmoving.player.play(url(u"/unmoving.ts"_s), true);
}

void tst_VlcPlayerStall::aStreamThatNeverMovedIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(unmoving.stillPositions > stallTicks + 2, stallMs);
    QVERIFY(unmoving.player.isPlaying());
    QCOMPARE(unmoving.progress, 0);
    QCOMPARE(unmoving.interruptions, QStringList());
}

void tst_VlcPlayerStall::anUnansweredStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(unanswered.ticks > stallTicks + 2, stallMs);
    QCOMPARE(server->openConnections(u"/never.ts"_s), 1);
    QCOMPARE(unanswered.positions, 0);
    QCOMPARE(unanswered.interruptions, QStringList());
}

void tst_VlcPlayerStall::aPausedStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(paused.log.contains(u"paused"_s), stallMs);
    QTRY_VERIFY(!paused.player.isPlaying());
    const int progress = paused.progress;
    QVERIFY(paused.checksAgain(stallTicks + 3));
    QVERIFY(!paused.player.isPlaying());
    QCOMPARE(paused.progress, progress);
    QCOMPARE(paused.interruptions, QStringList());
}

void tst_VlcPlayerStall::aStoppedStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(stopped.log.contains(u"stopped"_s), stallMs);
    QVERIFY(stopped.checksAgain(11));
    QCOMPARE(stopped.interruptions, QStringList());
}

void tst_VlcPlayerStall::aStalledFilmIsReported()
{
    QTRY_COMPARE_WITH_TIMEOUT(film.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(film.stillAtInterruption, QList<int>{stallTicks});
}

void tst_VlcPlayerStall::aSecondPlayStartsTheCountAgain()
{
    QTRY_COMPARE_WITH_TIMEOUT(replayed.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(replayed.stillAtInterruption, QList<int>{stallTicks});
    QCOMPARE(replayed.log.count(u"playing"_s), 2);
}

void tst_VlcPlayerStall::aStallIsReportedOnceUntilTheStreamIsReplayed()
{
    QTRY_COMPARE_WITH_TIMEOUT(stalled.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(stalled.stillAtInterruption, QList<int>{stallTicks});
    // The stream stands still for as long again, but that is not another report.
    QTRY_VERIFY_WITH_TIMEOUT(stalled.stillPositions > 2 * stallTicks + 2, stallMs);
    QVERIFY(stalled.player.isPlaying());
    QCOMPARE(stalled.interruptions.size(), 1);

    stalled.player.play(url(u"/live.ts"_s), true);
    QVERIFY(stalled.advances(2));
    QCOMPARE(stalled.interruptions.size(), 1);
}

int main(int argc, char **argv)
{
    keepVlcFromOpeningWindows(); // before the class creates its players
    return runTestProgram<QApplication, tst_VlcPlayerStall>(argc, argv);
}
#include "tst_VlcPlayerStall.moc"
