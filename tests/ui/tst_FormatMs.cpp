#include "support/TestMain.h"
#include "ui/FormatMs.h"

#include <limits>

using namespace Qt::StringLiterals;

class tst_FormatMs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
};

void tst_FormatMs::text_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, qint64 ms, const QString &expected) {
        QTest::newRow(name) << ms << expected;
    };
    row("zero", 0, u"00:00"_s);
    row("a negative time counts as zero", -1, u"00:00"_s);
    row("the lowest time counts as zero", std::numeric_limits<qint64>::min(), u"00:00"_s);
    row("a part of a second is dropped", 999, u"00:00"_s);
    row("one second", 1000, u"00:01"_s);
    row("just below a minute", 59999, u"00:59"_s);
    row("one minute", 60000, u"01:00"_s);
    row("minutes have two digits", 61000, u"01:01"_s);
    row("ten minutes", 600000, u"10:00"_s);
    row("just below an hour", 3599999, u"59:59"_s);
    row("from one hour on with hours", 3600000, u"1:00:00"_s);
    row("minutes and seconds keep two digits after the hours", 3661000, u"1:01:01"_s);
    row("just below two hours", 7199999, u"1:59:59"_s);
    row("hours are not padded", 35999999, u"9:59:59"_s);
    row("ten hours", 36000000, u"10:00:00"_s);
    row("hours do not become days", 360000000, u"100:00:00"_s);
    row("above 32 bits of milliseconds", 4294967296, u"1193:02:47"_s);
    row("the highest time", std::numeric_limits<qint64>::max(), u"2562047788015:12:55"_s);
}

void tst_FormatMs::text()
{
    QFETCH(qint64, ms);
    QFETCH(QString, expected);
    QCOMPARE(formatMs(ms), expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_FormatMs)
#include "tst_FormatMs.moc"
