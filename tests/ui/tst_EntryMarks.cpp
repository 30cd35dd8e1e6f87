#include "library/LibraryRecords.h"
#include "support/TestMain.h"
#include "ui/EntryMarks.h"

class tst_EntryMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void percent_data();
    void percent();
};

void tst_EntryMarks::percent_data()
{
    QTest::addColumn<qint64>("positionMs");
    QTest::addColumn<qint64>("durationMs");
    QTest::addColumn<int>("expected");
    QTest::newRow("nothing to continue") << qint64(0) << qint64(1000) << 0;
    QTest::newRow("of unknown length") << qint64(500) << qint64(0) << 0;
    QTest::newRow("just begun") << qint64(1) << qint64(1000) << 1;
    QTest::newRow("in the middle") << qint64(500) << qint64(1000) << 50;
}

void tst_EntryMarks::percent()
{
    QFETCH(const qint64, positionMs);
    QFETCH(const qint64, durationMs);
    QFETCH(const int, expected);
    Progress row;
    row.positionMs = positionMs;
    row.durationMs = durationMs;
    QCOMPARE(percentOf(row), expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_EntryMarks)
#include "tst_EntryMarks.moc"
