#include "player/StallDetector.h"
#include "support/TestMain.h"

#include <QTest>

using Verdict = StallDetector::Verdict;

/// The judgement alone; tst_VlcPlayerStall shows it with real streams.
class tst_StallDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstTimeIsNoProgress();
    void forwardIsProgress();
    void whatNeverAdvancedIsNotJudged();
    void standingStillIsAStall();
    void aStallIsToldOnceUntilTheTimeAdvances();
    void aJumpBackIsNoProgressAndEndsTheStillness();
    void aStallAfterABackwardSeek();
    void aResetForgetsEverything();

private:
    /// Looks at the same time again and again until a stall; the number of looks, 0 without one.
    static int looksUntilStalled(StallDetector &detector, qint64 timeMs);
};

int tst_StallDetector::looksUntilStalled(StallDetector &detector, qint64 timeMs)
{
    constexpr int farMoreThanNeeded = 3 * StallDetector::stallLooks;
    for (int looks = 1; looks <= farMoreThanNeeded; ++looks) {
        if (detector.look(timeMs) == Verdict::Stalled) {
            return looks;
        }
    }
    return 0;
}

void tst_StallDetector::theFirstTimeIsNoProgress()
{
    StallDetector detector;
    QVERIFY(detector.look(700) == Verdict::Unknown);
    QVERIFY(!detector.sawProgress());
}

void tst_StallDetector::forwardIsProgress()
{
    StallDetector detector;
    detector.look(0);
    QVERIFY(detector.look(1) == Verdict::Advancing);
    QVERIFY(detector.look(500) == Verdict::Advancing);
    QVERIFY(detector.sawProgress());
}

void tst_StallDetector::whatNeverAdvancedIsNotJudged()
{
    StallDetector detector;
    QCOMPARE(looksUntilStalled(detector, 0), 0);
    QCOMPARE(looksUntilStalled(detector, -1), 0);
}

void tst_StallDetector::standingStillIsAStall()
{
    StallDetector detector;
    detector.look(1000);
    detector.look(1500);
    QCOMPARE(looksUntilStalled(detector, 1500), 30);
}

void tst_StallDetector::aStallIsToldOnceUntilTheTimeAdvances()
{
    StallDetector detector;
    detector.look(1000);
    detector.look(1500);
    QCOMPARE(looksUntilStalled(detector, 1500), 30);
    QCOMPARE(looksUntilStalled(detector, 1500), 0);
    QVERIFY(detector.look(1600) == Verdict::Advancing);
    QCOMPARE(looksUntilStalled(detector, 1600), 30);
}

void tst_StallDetector::aJumpBackIsNoProgressAndEndsTheStillness()
{
    StallDetector detector;
    detector.look(1000);
    detector.look(9000);
    for (int look = 1; look < StallDetector::stallLooks; ++look) {
        QVERIFY(detector.look(9000) == Verdict::Unknown);
    }
    QVERIFY(detector.look(4000) == Verdict::Unknown);
    QCOMPARE(looksUntilStalled(detector, 4000), 30);
}

void tst_StallDetector::aStallAfterABackwardSeek()
{
    StallDetector detector;
    detector.look(8500);
    detector.look(9000);
    detector.look(2000);
    QVERIFY(detector.sawProgress());
    QCOMPARE(looksUntilStalled(detector, 2000), 30);
}

void tst_StallDetector::aResetForgetsEverything()
{
    StallDetector detector;
    detector.look(1000);
    detector.look(1500);
    detector.reset();
    QVERIFY(!detector.sawProgress());
    QVERIFY(detector.look(9000) == Verdict::Unknown);
    QCOMPARE(looksUntilStalled(detector, 9000), 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_StallDetector)
#include "tst_StallDetector.moc"
