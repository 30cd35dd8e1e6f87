#include "player/StallDetector.h"
#include "support/TestMain.h"

#include <QTest>

using Verdict = StallDetector::Verdict;

/// The judgement alone; tst_VlcPlayerStall shows it with real streams.
class tst_StallDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stallsAfter_data();
    void stallsAfter();
    void forwardIsProgress();
    void reportsAStallOnceUntilTheTimeAdvances();
    void aJumpBackIsNoProgressAndEndsTheStillness();
    void aResetForgetsEverything();

private:
    /// Repeats the same sample until a stall; returns the number of samples, 0 without a stall.
    static int samplesUntilStalled(StallDetector &detector, qint64 timeMs);
};

int tst_StallDetector::samplesUntilStalled(StallDetector &detector, qint64 timeMs)
{
    for (int samples = 1; samples <= 3 * StallDetector::stallSamples; ++samples) {
        if (detector.sample(timeMs) == Verdict::Stalled) {
            return samples;
        }
    }
    return 0;
}

void tst_StallDetector::stallsAfter_data()
{
    QTest::addColumn<QList<qint64>>("before");
    QTest::addColumn<qint64>("still");
    QTest::addColumn<int>("samples");

    using Times = QList<qint64>;
    QTest::newRow("a stream that advanced") << Times{1000, 1500} << qint64{1500} << 30;
    QTest::newRow("after a backward seek") << Times{8500, 9000, 2000} << qint64{2000} << 30;
    QTest::newRow("never advanced") << Times{} << qint64{0} << 0;
    QTest::newRow("never had a time") << Times{} << qint64{-1} << 0;
}

void tst_StallDetector::stallsAfter()
{
    QFETCH(const QList<qint64>, before);
    QFETCH(qint64, still);
    QFETCH(int, samples);
    StallDetector detector;
    for (const qint64 timeMs : before) {
        detector.sample(timeMs);
    }
    QCOMPARE(samplesUntilStalled(detector, still), samples);
}

void tst_StallDetector::forwardIsProgress()
{
    StallDetector detector;
    QVERIFY(detector.sample(0) == Verdict::Unknown);
    QVERIFY(!detector.sawProgress());
    QVERIFY(detector.sample(1) == Verdict::Advancing);
    QVERIFY(detector.sample(500) == Verdict::Advancing);
    QVERIFY(detector.sawProgress());
}

void tst_StallDetector::reportsAStallOnceUntilTheTimeAdvances()
{
    StallDetector detector;
    detector.sample(1000);
    detector.sample(1500);
    QCOMPARE(samplesUntilStalled(detector, 1500), 30);
    QCOMPARE(samplesUntilStalled(detector, 1500), 0);
    QVERIFY(detector.sample(1600) == Verdict::Advancing);
    QCOMPARE(samplesUntilStalled(detector, 1600), 30);
}

void tst_StallDetector::aJumpBackIsNoProgressAndEndsTheStillness()
{
    StallDetector detector;
    detector.sample(1000);
    detector.sample(9000);
    for (int sample = 1; sample < StallDetector::stallSamples; ++sample) {
        QVERIFY(detector.sample(9000) == Verdict::Unknown);
    }
    QVERIFY(detector.sample(4000) == Verdict::Unknown);
    QVERIFY(detector.sawProgress());
    QCOMPARE(samplesUntilStalled(detector, 4000), 30);
}

void tst_StallDetector::aResetForgetsEverything()
{
    StallDetector detector;
    detector.sample(1000);
    detector.sample(1500);
    detector.reset();
    QVERIFY(!detector.sawProgress());
    QVERIFY(detector.sample(9000) == Verdict::Unknown);
    QCOMPARE(samplesUntilStalled(detector, 9000), 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_StallDetector)
#include "tst_StallDetector.moc"
