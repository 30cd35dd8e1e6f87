#include "support/TestMain.h"
#include "ui/GuideGridLayout.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

/// 2026-03-01 00:00 UTC.
constexpr qint64 march = 1'772'323'200;
constexpr qint64 hour = 3600;

/// 1000 rows of 30 pixels and 48 hours of 200 pixels; 10 rows and 4 hours of them show.
GuideGridLayout sample()
{
    GuideGridLayout layout;
    layout.namesWidth = 100;
    layout.headerHeight = 20;
    layout.rowHeight = 30;
    layout.hourWidth = 200;
    layout.viewport = {900, 320};
    layout.rows = 1000;
    layout.begin = march;
    layout.end = march + 48 * hour;
    return layout;
}

GuideProgramme programme(qint64 start, qint64 stop)
{
    return {start, stop, QString(), QString()};
}

} // namespace

class tst_GuideGridLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesOfTimes_data();
    void placesOfTimes();
    void aTimeLeadsToItsPlaceAndBack();
    void timesFarAwayStayOutside();
    void rowsThatShow_data();
    void rowsThatShow();
    void rowUnderAPlace_data();
    void rowUnderAPlace();
    void ends();
    void mirrored();
    void scrollingToARow_data();
    void scrollingToARow();
    void scrollingToAProgramme_data();
    void scrollingToAProgramme();
    void halfHoursOfTheClock_data();
    void halfHoursOfTheClock();
    void daysOfTheClock_data();
    void daysOfTheClock();
    void whatRuns_data();
    void whatRuns();
    void steps_data();
    void steps();
};

void tst_GuideGridLayout::placesOfTimes_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<int>("scrolled");
    QTest::addColumn<int>("x");
    QTest::newRow("the beginning is beside the names") << march << 0 << 100;
    QTest::newRow("an hour later") << march + hour << 0 << 300;
    QTest::newRow("an hour later, scrolled by half of it") << march + hour << 100 << 200;
    QTest::newRow("before the beginning") << march - hour << 0 << -100;
    QTest::newRow("a part of a pixel is dropped") << march + 17 << 0 << 100;
    QTest::newRow("a pixel") << march + 18 << 0 << 101;
    QTest::newRow("a part of a pixel before") << march - 1 << 0 << 99;
}

void tst_GuideGridLayout::placesOfTimes()
{
    QFETCH(qint64, time);
    QFETCH(int, scrolled);
    GuideGridLayout layout = sample();
    layout.scrolledX = scrolled;
    QTEST(layout.xOf(time), "x");
}

void tst_GuideGridLayout::aTimeLeadsToItsPlaceAndBack()
{
    GuideGridLayout layout = sample();
    for (const int width : {200, 123, 7}) {
        layout.hourWidth = width;
        layout.scrolledX = 57;
        for (int x = 0; x < 900; ++x) {
            QCOMPARE(layout.xOf(layout.timeAt(x)), x);
            QCOMPARE(layout.xOf(layout.timeAt(x) - 1), x - 1);
        }
    }
    QCOMPARE(layout.firstTime(), layout.timeAt(100));
    QCOMPARE(layout.lastTime(), layout.timeAt(900));
}

void tst_GuideGridLayout::timesFarAwayStayOutside()
{
    const GuideGridLayout layout = sample();
    constexpr qint64 year9999 = 253'402'300'799;
    QVERIFY(layout.xOf(year9999) > layout.viewport.width());
    QVERIFY(layout.xOf(-year9999) < 0);
}

void tst_GuideGridLayout::rowsThatShow_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("scrolled");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("at the top") << 1000 << 320 << 0 << 0 << 9;
    QTest::newRow("a pixel further a part of the next one shows") << 1000 << 320 << 1 << 0 << 10;
    QTest::newRow("a whole row further") << 1000 << 320 << 30 << 1 << 10;
    QTest::newRow("at the end") << 1000 << 320 << 29'700 << 990 << 999;
    QTest::newRow("45,000") << 45'000 << 320 << 45'000 * 30 - 300 << 44'990 << 44'999;
    QTest::newRow("fewer rows than fit") << 3 << 320 << 0 << 0 << 2;
    QTest::newRow("no row") << 0 << 320 << 0 << 0 << -1;
    QTest::newRow("no room") << 1000 << 20 << 0 << 0 << -1;
}

void tst_GuideGridLayout::rowsThatShow()
{
    QFETCH(int, rows);
    QFETCH(int, height);
    QFETCH(int, scrolled);
    GuideGridLayout layout = sample();
    layout.rows = rows;
    layout.viewport.setHeight(height);
    layout.scrolledY = scrolled;
    QTEST(layout.firstRow(), "first");
    QTEST(layout.lastRow(), "last");
}

void tst_GuideGridLayout::rowUnderAPlace_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("row");
    QTest::newRow("the header") << 1000 << 19 << -1;
    QTest::newRow("scrolled, the first one") << 1000 << 20 << 1;
    QTest::newRow("the one below") << 1000 << 40 << 2;
    QTest::newRow("the last one") << 3 << 69 << 2;
    QTest::newRow("below the last one") << 3 << 70 << -1;
}

void tst_GuideGridLayout::rowUnderAPlace()
{
    QFETCH(int, rows);
    QFETCH(int, y);
    GuideGridLayout layout = sample();
    layout.rows = rows;
    layout.scrolledY = 40;
    QTEST(layout.rowAt(y), "row");
}

void tst_GuideGridLayout::ends()
{
    GuideGridLayout layout = sample();
    QCOMPARE(layout.mostX(), 48 * 200 - 800);
    QCOMPARE(layout.mostY(), 1000 * 30 - 300);
    QCOMPARE(layout.rowsOfPage(), 10);
    layout.viewport = {20'000, 40'000};
    QCOMPARE(layout.mostX(), 0);
    QCOMPARE(layout.mostY(), 0);
    layout.viewport = {10, 10};
    QCOMPARE(layout.rowsOfPage(), 1);
    QCOMPARE(layout.cells().size(), QSize(0, 0));
}

void tst_GuideGridLayout::mirrored()
{
    const GuideGridLayout layout = sample();
    QCOMPARE(layout.nameOf(2), QRect(0, 80, 100, 30));
    QCOMPARE(layout.mirrored(layout.nameOf(2)), QRect(800, 80, 100, 30));
    const QRect cell = layout.cellOf(0, march + hour, march + 2 * hour);
    QCOMPARE(cell, QRect(300, 20, 200, 30));
    QCOMPARE(layout.mirrored(cell), QRect(400, 20, 200, 30));
    QCOMPARE(layout.mirrored(layout.mirrored(cell)), cell);
}

void tst_GuideGridLayout::scrollingToARow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expected");
    QTest::newRow("it shows") << 5 << 320 << 100;
    QTest::newRow("its top is hidden") << 3 << 320 << 90;
    QTest::newRow("its bottom is hidden") << 13 << 320 << 120;
    QTest::newRow("less room than a row") << 13 << 30 << 390;
}

void tst_GuideGridLayout::scrollingToARow()
{
    QFETCH(int, row);
    QFETCH(int, height);
    GuideGridLayout layout = sample();
    layout.viewport.setHeight(height);
    layout.scrolledY = 100;
    QTEST(layout.scrolledToRow(row), "expected");
}

void tst_GuideGridLayout::scrollingToAProgramme_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("stop");
    QTest::addColumn<int>("expected");
    // From 10:00 to 14:00 show.
    QTest::newRow("it shows") << march + 11 * hour << march + 12 * hour << 2000;
    QTest::newRow("it began before") << march + 9 * hour << march + 11 * hour << 1800;
    QTest::newRow("it ends later") << march + 13 * hour << march + 15 * hour << 2200;
    QTest::newRow("it does not fit") << march + 13 * hour << march + 20 * hour << 2600;
    QTest::newRow("it fills everything") << march + 9 * hour << march + 20 * hour << 1800;
}

void tst_GuideGridLayout::scrollingToAProgramme()
{
    QFETCH(qint64, start);
    QFETCH(qint64, stop);
    GuideGridLayout layout = sample();
    layout.scrolledX = 2000;
    QCOMPARE(layout.scrolledToTime(layout.firstTime()), 2000);
    QTEST(layout.scrolledToSpan(start, stop), "expected");
}

void tst_GuideGridLayout::halfHoursOfTheClock_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<QString>("labels");
    const auto row = [](const char *name, const QByteArray &zone, qint64 from, qint64 to,
                        const QString &labels) {
        if (QTimeZone::isTimeZoneIdAvailable(zone)) // Wine knows few zones
            QTest::newRow(name) << zone << from << to << labels;
    };
    row("the first time counts, the last one does not", "UTC", march, march + hour,
        u"00:00 00:30"_s);
    row("the next half hour", "UTC", march + 1, march + hour + 1, u"00:30 01:00"_s);
    row("before the epoch", "UTC", -hour - 1, 0, u"23:00 23:30"_s);
    row("a zone of three quarters", "Asia/Kathmandu", march, march + hour, u"06:00 06:30"_s);
    // 2026-03-29 and 2026-10-25, 01:00 UTC.
    row("summer begins in Berlin", "Europe/Berlin", 1'774'744'200, 1'774'747'800, u"01:30 03:00"_s);
    row("summer ends in Berlin", "Europe/Berlin", 1'792'888'200, 1'792'893'600,
        u"02:30 02:00 02:30"_s);
    // 2026-03-08, 07:00 UTC; 2026-11-01, 06:00 UTC.
    row("summer begins in New York", "America/New_York", 1'772'951'400, 1'772'955'000,
        u"01:30 03:00"_s);
    row("summer ends in New York", "America/New_York", 1'793'511'000, 1'793'516'400,
        u"01:30 01:00 01:30"_s);
    // 2026-10-03, 15:30 UTC; 2026-04-04, 15:00 UTC. The clock moves by half an hour.
    row("summer begins on Lord Howe Island", "Australia/Lord_Howe", 1'791'039'600, 1'791'043'200,
        u"01:30 02:30"_s);
    row("summer ends on Lord Howe Island", "Australia/Lord_Howe", 1'775'313'000, 1'775'316'600,
        u"01:30 01:30"_s);
}

void tst_GuideGridLayout::halfHoursOfTheClock()
{
    QFETCH(QByteArray, zone);
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    const QTimeZone timeZone(zone);
    QStringList labels;
    const QList<qint64> times = halfHours(from, to, timeZone);
    for (const qint64 time : times) {
        labels << QDateTime::fromSecsSinceEpoch(time, timeZone).toString(u"HH:mm"_s);
        QCOMPARE(halfHourBefore(time, timeZone), time);
        QCOMPARE(halfHourBefore(time + 60, timeZone), time);
    }
    QTEST(labels.join(u' '), "labels");
}

void tst_GuideGridLayout::daysOfTheClock_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("hours");
    const auto row = [](const char *name, const QByteArray &zone, const QString &from, int days,
                        int hours) {
        if (QTimeZone::isTimeZoneIdAvailable(zone)) // Wine knows few zones
            QTest::newRow(name) << zone << from << days << hours;
    };
    row("a day", "UTC", u"2026-03-28T20:15"_s, 1, 24);
    row("a day back", "UTC", u"2026-03-28T20:15"_s, -1, -24);
    row("the short day in Berlin", "Europe/Berlin", u"2026-03-28T20:15"_s, 1, 23);
    row("the long day in Berlin", "Europe/Berlin", u"2026-10-24T20:15"_s, 1, 25);
    row("the long day in Berlin, back", "Europe/Berlin", u"2026-10-25T20:15"_s, -1, -25);
    row("the short day in New York", "America/New_York", u"2026-03-07T20:15"_s, 1, 23);
    row("the long day in New York", "America/New_York", u"2026-10-31T20:15"_s, 1, 25);
}

void tst_GuideGridLayout::daysOfTheClock()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, from);
    QFETCH(int, days);
    QFETCH(int, hours);
    const QTimeZone timeZone(zone);
    const QDateTime start(QDate::fromString(from.left(10), Qt::ISODate),
                          QTime::fromString(from.mid(11), u"HH:mm"_s), timeZone);
    const qint64 time = start.toSecsSinceEpoch();
    const qint64 later = daysLater(time, days, timeZone);
    QCOMPARE(later - time, hours * hour);
    QCOMPARE(dayOf(later, timeZone), start.date().addDays(days));
    const qint64 midnight = startOfDay(start.date(), timeZone);
    QCOMPARE(dayOf(midnight, timeZone), start.date());
    QCOMPARE(dayOf(midnight - 1, timeZone), start.date().addDays(-1));
}

void tst_GuideGridLayout::whatRuns_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<qsizetype>("index");
    QTest::newRow("before the first one") << qint64(99) << qsizetype(-1);
    QTest::newRow("its start") << qint64(100) << qsizetype(0);
    QTest::newRow("its last second") << qint64(199) << qsizetype(0);
    QTest::newRow("the start of the next one") << qint64(200) << qsizetype(1);
    QTest::newRow("a gap") << qint64(300) << qsizetype(-1);
    QTest::newRow("the last one") << qint64(400) << qsizetype(2);
    QTest::newRow("after the last one") << qint64(500) << qsizetype(-1);
}

void tst_GuideGridLayout::whatRuns()
{
    QFETCH(qint64, time);
    const QList<GuideProgramme> programmes{programme(100, 200), programme(200, 300),
                                           programme(400, 500)};
    QTEST(programmeAt(programmes, time), "index");
    QCOMPARE(programmeAt({}, time), -1);
}

void tst_GuideGridLayout::steps_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<qint64>("next");
    QTest::addColumn<qint64>("previous");
    const auto row = [](const char *name, qint64 minute, qint64 next, qint64 previous) {
        QTest::newRow(name) << march + minute * 60 << march + next * 60 << march + previous * 60;
    };
    // From 10 to 20, 20 to 40 and 100 to 125 minutes after midnight.
    row("from one to the next", 15, 20, 0);
    row("from its start", 20, 100, 10);
    row("from its middle", 30, 100, 10);
    row("over the gap", 100, 125, 20);
    row("in the gap", 60, 100, 20);
    row("before the first one", 5, 10, 0);
    row("on a half hour before the first one", 0, 10, -30);
    row("behind the last one", 130, 150, 100);
}

void tst_GuideGridLayout::steps()
{
    QFETCH(qint64, time);
    const auto at = [](qint64 minute) { return march + minute * 60; };
    const QList<GuideProgramme> programmes{programme(at(10), at(20)), programme(at(20), at(40)),
                                           programme(at(100), at(125))};
    QTEST(timeOfNext(programmes, time, QTimeZone::utc()), "next");
    QTEST(timeOfPrevious(programmes, time, QTimeZone::utc()), "previous");
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideGridLayout)
#include "tst_GuideGridLayout.moc"
