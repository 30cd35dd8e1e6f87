#include "support/TestMain.h"
#include "ui/ReconnectDelay.h"

#include <limits>

class tst_ReconnectDelay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doublesUpToItsLongest();
};

void tst_ReconnectDelay::doublesUpToItsLongest()
{
    QCOMPARE(reconnectDelayMs(1), 1000);
    QCOMPARE(reconnectDelayMs(2), 2000);
    QCOMPARE(reconnectDelayMs(3), 4000);
    QCOMPARE(reconnectDelayMs(4), 8000);
    // Past every number of attempts at which a shift would overflow.
    for (int attempt = 5; attempt <= 1000; ++attempt) {
        QCOMPARE(reconnectDelayMs(attempt), 15000);
    }
    QCOMPARE(reconnectDelayMs(std::numeric_limits<int>::max()), 15000);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ReconnectDelay)
#include "tst_ReconnectDelay.moc"
