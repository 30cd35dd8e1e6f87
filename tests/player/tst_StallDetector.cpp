#include "player/StallDetector.h"
#include "support/TestMain.h"

using Verdict = StallDetector::Verdict;

/// The judgement alone; tst_VlcPlayerEnds shows it with a real stream.
class tst_StallDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stalls_data();
    void stalls();
    void forwardIsProgress();
    void aResetForgetsEverything();
};

void tst_StallDetector::stalls_data()
{
    using Times = QList<qint64>;
    QTest::addColumn<Times>("times");
    QTest::addColumn<QList<int>>("stalledAt"); ///< indexes of the samples
    const Times still(30, 1500);
    const Times later(30, 1600);
    QTest::newRow("once") << Times{1000} + still + Times(60, 1500) << QList<int>{31};
    QTest::newRow("again after it advanced")
        << Times{1000} + still + Times{1500, 1500, 1600} + later << QList<int>{31, 63};
    QTest::newRow("after a backward seek")
        << Times{1000} + later + still + Times{1500} << QList<int>{61};
    QTest::newRow("not when it never advanced") << Times(90, 0) << QList<int>{};
    QTest::newRow("not when it never had a time") << Times(90, -1) << QList<int>{};
    QTest::newRow("not after its first time") << Times{-1} + still + still << QList<int>{};
}

void tst_StallDetector::stalls()
{
    QFETCH(const QList<qint64>, times);
    StallDetector detector;
    QList<int> stalledAt;
    for (int index = 0; index < times.size(); ++index) {
        if (detector.sample(times.at(index)) == Verdict::Stalled) {
            stalledAt << index;
        }
    }
    QTEST(stalledAt, "stalledAt");
}

void tst_StallDetector::forwardIsProgress()
{
    StallDetector detector;
    QVERIFY(detector.sample(0) == Verdict::Unknown);
    QVERIFY(!detector.sawProgress());
    QVERIFY(detector.sample(1) == Verdict::Advancing);
    QVERIFY(detector.sample(500) == Verdict::Advancing);
    QVERIFY(detector.sample(400) == Verdict::Unknown);
    QVERIFY(detector.sawProgress());
}

void tst_StallDetector::aResetForgetsEverything()
{
    StallDetector detector;
    detector.sample(1000);
    detector.sample(1500);
    detector.reset();
    QVERIFY(!detector.sawProgress());
    QVERIFY(detector.sample(9000) == Verdict::Unknown);
    for (int sample = 0; sample <= StallDetector::stallSamples; ++sample) {
        QVERIFY(detector.sample(9000) == Verdict::Unknown);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_StallDetector)
#include "tst_StallDetector.moc"
