#include "support/TestMain.h"
#include "ui/ReconnectDelay.h"

#include <limits>

class tst_ReconnectDelay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void delay_data();
    void delay();
    void staysAtItsLongestOnEveryLaterAttempt();
};

void tst_ReconnectDelay::delay_data()
{
    QTest::addColumn<int>("attempt");
    QTest::addColumn<int>("expectedMs");

    QTest::newRow("first attempt") << 1 << 1000;
    QTest::newRow("second doubles") << 2 << 2000;
    QTest::newRow("third doubles") << 3 << 4000;
    QTest::newRow("fourth doubles") << 4 << 8000;
    QTest::newRow("fifth is capped") << 5 << 15000;
    QTest::newRow("attempt 20") << 20 << 15000;
    QTest::newRow("attempt 21") << 21 << 15000;
    QTest::newRow("where the shift would reach the sign") << 23 << 15000;
    QTest::newRow("where the shift would be as wide as the number") << 33 << 15000;
    QTest::newRow("where a 64-bit shift would overflow") << 65 << 15000;
    QTest::newRow("the highest attempt") << std::numeric_limits<int>::max() << 15000;
}

void tst_ReconnectDelay::delay()
{
    QFETCH(int, attempt);
    QFETCH(int, expectedMs);
    QCOMPARE(reconnectDelayMs(attempt), expectedMs);
}

void tst_ReconnectDelay::staysAtItsLongestOnEveryLaterAttempt()
{
    for (int attempt = 5; attempt <= 1000; ++attempt) {
        QCOMPARE(reconnectDelayMs(attempt), 15000);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_ReconnectDelay)
#include "tst_ReconnectDelay.moc"
