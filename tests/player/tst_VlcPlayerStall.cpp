#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString stallReason = u"The stream stopped advancing for 15 seconds."_s;
constexpr int stillLooks = 30;
/// Long enough for a stall to be told twice over on a busy machine.
constexpr int stallMs = 60000;

/// The reply sends that many bytes and then nothing more, with the connection open.
HttpReply stalling(HttpReply reply, qint64 bytes)
{
    reply.stallAfter = bytes;
    reply.bytesPerSecond = 0;
    return reply;
}

} // namespace

/// All streams run side by side from the start on: a stall takes its time.
class tst_VlcPlayerStall : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void aStreamThatNeverMovedIsNotJudged();
    void anUnansweredStreamIsNotJudged();
    void aPausedStreamIsNotJudged();
    void aStoppedStreamIsNotJudged();
    void aStalledFilmIsTold();
    void aSecondPlayCountsAnew();
    void aStallIsToldOnceUntilTheStreamIsReplayed();

private:
    /// Calls `act` once, when the stream has stood still for that many looks.
    template <typename Act>
    void whenStill(PlayerProbe &probe, int looks, Act act);

    HttpServer server;
    PlayerProbe stalled;
    PlayerProbe replayed;
    PlayerProbe stopped;
    PlayerProbe film;
    PlayerProbe paused;
    PlayerProbe unanswered;
    PlayerProbe unmoving;
};

template <typename Act>
void tst_VlcPlayerStall::whenStill(PlayerProbe &probe, int looks, Act act)
{
    connect(&probe.player, &VlcPlayer::positionChanged, this,
            [&probe, looks, act, done = false]() mutable {
                if (!done && probe.progress > 0 && probe.stillPositions == looks) {
                    done = true;
                    act();
                }
            });
}

void tst_VlcPlayerStall::initTestCase()
{
    constexpr qint64 fourSeconds = 240000;
    server.on(u"/live.ts"_s, liveTs());
    server.on(u"/stalling.ts"_s, stalling(liveTs(), fourSeconds));
    server.on(u"/stalling.mp4"_s,
              stalling(HttpReply::file(streamPath(u"film-faststart.mp4"_s)), fourSeconds));
    HttpReply never;
    never.neverAnswer = true;
    server.on(u"/unanswered.ts"_s, never);
    // Enough to be recognised, too little to be shown.
    server.on(u"/unmoving.ts"_s, stalling(liveTs(), 30000));

    const QString stallingUrl = server.url(u"/stalling.ts"_s);
    stalled.player.play(stallingUrl, true);
    stopped.player.play(stallingUrl, true);
    whenStill(stopped, stillLooks - 5, [this] { stopped.player.stop(); });
    replayed.player.play(stallingUrl, true);
    whenStill(replayed, stillLooks - 5,
              [this, stallingUrl] { replayed.player.play(stallingUrl, true); });
    film.player.play(server.url(u"/stalling.mp4"_s), false);
    paused.player.play(server.url(u"/live.ts"_s), true);
    connect(&paused.player, &VlcPlayer::playbackProgressing, this, [this] {
        if (paused.progress == 2) {
            paused.player.pause();
        }
    });
    unanswered.player.play(server.url(u"/unanswered.ts"_s), true);
    unmoving.player.play(server.url(u"/unmoving.ts"_s), true);
}

void tst_VlcPlayerStall::aStreamThatNeverMovedIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(unmoving.stillPositions > stillLooks + 2, stallMs);
    QVERIFY(unmoving.player.isPlaying());
    QCOMPARE(unmoving.progress, 0);
    QCOMPARE(unmoving.interruptions, QStringList());
}

void tst_VlcPlayerStall::anUnansweredStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(unanswered.ticks > stillLooks + 2, stallMs);
    QCOMPARE(server.openConnections(u"/unanswered.ts"_s), 1);
    QCOMPARE(unanswered.positions, 0);
    QCOMPARE(unanswered.interruptions, QStringList());
}

void tst_VlcPlayerStall::aPausedStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(paused.log.contains(u"paused"_s), stallMs);
    QTRY_VERIFY(!paused.player.isPlaying());
    const int ticks = paused.ticks;
    const int progress = paused.progress;
    QTRY_VERIFY_WITH_TIMEOUT(paused.ticks > ticks + stillLooks + 2, stallMs);
    QVERIFY(!paused.player.isPlaying());
    QCOMPARE(paused.progress, progress);
    QCOMPARE(paused.interruptions, QStringList());
}

void tst_VlcPlayerStall::aStoppedStreamIsNotJudged()
{
    QTRY_VERIFY_WITH_TIMEOUT(stopped.log.contains(u"stopped"_s), stallMs);
    const int ticks = stopped.ticks;
    QTRY_VERIFY_WITH_TIMEOUT(stopped.ticks > ticks + 10, stallMs);
    QCOMPARE(stopped.interruptions, QStringList());
}

void tst_VlcPlayerStall::aStalledFilmIsTold()
{
    QTRY_COMPARE_WITH_TIMEOUT(film.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(film.stillAtInterruption, QList<int>{stillLooks});
}

void tst_VlcPlayerStall::aSecondPlayCountsAnew()
{
    QTRY_COMPARE_WITH_TIMEOUT(replayed.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(replayed.stillAtInterruption, QList<int>{stillLooks});
    QCOMPARE(replayed.log.count(u"playing"_s), 2);
}

void tst_VlcPlayerStall::aStallIsToldOnceUntilTheStreamIsReplayed()
{
    QTRY_COMPARE_WITH_TIMEOUT(stalled.interruptions, QStringList(stallReason), stallMs);
    QCOMPARE(stalled.stillAtInterruption, QList<int>{stillLooks});
    // As many looks again: it is not told again, though the stream still stands.
    QTRY_VERIFY_WITH_TIMEOUT(stalled.stillPositions > 2 * stillLooks + 2, stallMs);
    QVERIFY(stalled.player.isPlaying());
    QCOMPARE(stalled.interruptions.size(), 1);

    stalled.progress = 0;
    stalled.player.play(server.url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(stalled.progress >= 2, stallMs);
    QCOMPARE(stalled.interruptions.size(), 1);
}

int main(int argc, char **argv)
{
    keepVlcFromOpeningWindows(); // before the players that the test class holds
    return runTestProgram<QApplication, tst_VlcPlayerStall>(argc, argv);
}
#include "tst_VlcPlayerStall.moc"
