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
    row("a negative time counts as zero", -61000, u"00:00"_s);
    row("a part of a second is dropped", 999, u"00:00"_s);
    row("minutes have two digits", 61000, u"01:01"_s);
    row("just below an hour", 3599999, u"59:59"_s);
    row("minutes and seconds keep two digits after the hours", 3661000, u"1:01:01"_s);
    row("hours are not padded", 35999999, u"9:59:59"_s);
    row("hours do not become days", 360000000, u"100:00:00"_s);
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
