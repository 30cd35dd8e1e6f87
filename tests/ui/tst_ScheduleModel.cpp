// The days, programmes and hours of a channel's schedule, in local time.

#include "support/TestMain.h"
#include "ui/ScheduleModel.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using Phase = ScheduleRow::Phase;

namespace {

constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

QTimeZone zoneOf(const QString &name)
{
    return QTimeZone(name.toLatin1());
}

qint64 at(const QString &text, const QTimeZone &zone = QTimeZone::utc())
{
    const QDateTime time = QDateTime::fromString(text, u"yyyy-MM-dd HH:mm"_s);
    return QDateTime(time.date(), time.time(), zone).toSecsSinceEpoch();
}

CatchUpRules archiveOf(double days)
{
    CatchUpRules rules;
    rules.form = CatchUpForm::Account;
    rules.days = days;
    return rules;
}

GuideSchedule withArchive(double days)
{
    return {{{}, archiveOf(days)}, {}};
}

/// Programmes of an hour each, from the first time to the second one.
GuideSchedule hourly(qint64 from, qint64 to)
{
    GuideSchedule schedule;
    for (qint64 start = from; start < to; start += hour)
        schedule.programmes.append({start, start + hour, QString::number(start), {}});
    return schedule;
}

QStringList datesOf(const QList<QDate> &days)
{
    QStringList dates;
    for (const QDate date : days)
        dates << date.toString(Qt::ISODate);
    return dates;
}

/// Each row as "title phase", with a plus when the archive holds it.
QStringList described(const QList<ScheduleRow> &rows)
{
    QStringList texts;
    for (const ScheduleRow &row : rows) {
        const QString phase = row.phase == Phase::Over      ? u"over"_s
                              : row.phase == Phase::Running ? u"running"_s
                                                            : u"upcoming"_s;
        texts << row.programme.title + u' ' + phase + (row.inArchive ? u"+"_s : QString());
    }
    return texts;
}

} // namespace

class tst_ScheduleModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(u"de_DE"_s)); }
    void days_data();
    void days();
    void programmesOfADay();
    void aProgrammeOverMidnightIsOfBothDays();
    void hoursOfTheArchive();
    void fromItsFirstSecond();
    void hoursFillTheDaysThatTheGuideLacks();
    void localDays_data();
    void localDays();
    void nextChange_data();
    void nextChange();
};

void tst_ScheduleModel::days_data()
{
    QTest::addColumn<GuideSchedule>("schedule");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    const qint64 now = at(u"2026-03-10 12:00"_s);
    GuideSchedule both = hourly(now - day, now + 2 * day);
    both.entry.catchUp = archiveOf(3);
    QTest::newRow("nothing") << GuideSchedule() << u"2026-03-10"_s << u"2026-03-10"_s;
    QTest::newRow("a guide") << hourly(now - day, now + 2 * day) << u"2026-03-10"_s
                             << u"2026-03-12"_s;
    QTest::newRow("an old guide") << hourly(now - 3 * day, now - 2 * day) << u"2026-03-10"_s
                                  << u"2026-03-10"_s;
    QTest::newRow("an archive") << withArchive(2) << u"2026-03-08"_s << u"2026-03-10"_s;
    QTest::newRow("a guide and an archive") << both << u"2026-03-07"_s << u"2026-03-12"_s;
    QTest::newRow("an endless archive") << withArchive(1e6) << u"2026-01-09"_s << u"2026-03-10"_s;
    QTest::newRow("an archive of less than nothing")
        << withArchive(-5) << u"2026-03-10"_s << u"2026-03-10"_s;
}

void tst_ScheduleModel::days()
{
    QFETCH(const GuideSchedule, schedule);
    QFETCH(const QString, first);
    QFETCH(const QString, last);
    const QStringList days =
        datesOf(ScheduleModel(schedule, QTimeZone::utc()).days(at(u"2026-03-10 12:00"_s), {}));
    QCOMPARE(days.constFirst(), first);
    QCOMPARE(days.constLast(), last);
    QCOMPARE(days.size(),
             QDate::fromString(first, Qt::ISODate).daysTo(QDate::fromString(last, Qt::ISODate)) +
                 1);
}

void tst_ScheduleModel::programmesOfADay()
{
    const qint64 now = at(u"2026-03-10 12:00"_s);
    GuideSchedule schedule;
    schedule.entry.catchUp = archiveOf(2.0 / 24);
    schedule.programmes = {{now - 3 * hour, now - 2 * hour - minute, u"A"_s, {}},
                           {now - 2 * hour, now - hour, u"B"_s, {}},
                           {now - hour, now, u"C"_s, {}},
                           {now, now + hour, u"D"_s, {}},
                           {now + hour, now + 2 * hour, u"E"_s, {}}};
    const ScheduleModel model(schedule, QTimeZone::utc());
    const QList<ScheduleRow> rows = model.rows(QDate(2026, 3, 10), now + 1);
    QCOMPARE(described(rows), QStringList({u"A over"_s, u"B over"_s, u"C over+"_s, u"D running+"_s,
                                           u"E upcoming"_s}));
    QCOMPARE(runningRow(rows), 3);
    // The archive moves on with the clock, and in a gap nothing runs.
    const QList<ScheduleRow> later = model.rows(QDate(2026, 3, 10), now + 2 * hour);
    QCOMPARE(described(later),
             QStringList({u"A over"_s, u"B over"_s, u"C over"_s, u"D over+"_s, u"E over+"_s}));
    QCOMPARE(runningRow(later), -1);
    QVERIFY(!model.rows(QDate(2026, 3, 10), now).constFirst().isHour);
}

void tst_ScheduleModel::aProgrammeOverMidnightIsOfBothDays()
{
    const qint64 midnight = at(u"2026-03-10 00:00"_s);
    GuideSchedule schedule;
    schedule.programmes = {{midnight - 2 * hour, midnight - hour, u"A"_s, {}},
                           {midnight - hour, midnight + hour, u"B"_s, {}},
                           {midnight + hour, midnight + day, u"C"_s, {}},
                           {midnight + day, midnight + day + hour, u"D"_s, {}}};
    const ScheduleModel model(schedule, QTimeZone::utc());
    QCOMPARE(described(model.rows(QDate(2026, 3, 9), midnight)),
             QStringList({u"A over"_s, u"B running"_s}));
    QCOMPARE(described(model.rows(QDate(2026, 3, 10), midnight)),
             QStringList({u"B running"_s, u"C upcoming"_s}));
}

void tst_ScheduleModel::hoursOfTheArchive()
{
    const qint64 now = at(u"2026-03-10 03:30"_s);
    const ScheduleModel model(withArchive(1), QTimeZone::utc());
    QVERIFY(!model.isEmpty());
    const QList<ScheduleRow> today = model.rows(QDate(2026, 3, 10), now);
    QCOMPARE(described(today),
             QStringList({u"00:00 - 01:00 over+"_s, u"01:00 - 02:00 over+"_s,
                          u"02:00 - 03:00 over+"_s, u"03:00 - 04:00 running+"_s}));
    QVERIFY(today.constFirst().isHour);
    const QList<ScheduleRow> yesterday = model.rows(QDate(2026, 3, 9), now);
    QCOMPARE(yesterday.size(), 20);
    QCOMPARE(yesterday.constFirst().programme.title, u"04:00 - 05:00"_s);
    QVERIFY(model.rows(QDate(2026, 3, 11), now).isEmpty());
    QVERIFY(ScheduleModel({}, QTimeZone::utc()).isEmpty());
    QVERIFY(ScheduleModel({}, QTimeZone::utc()).rows(QDate(2026, 3, 10), now).isEmpty());
}

/// Rows are asked for when they change: in the first second of an hour, or of a programme.
void tst_ScheduleModel::fromItsFirstSecond()
{
    const qint64 hourStart = at(u"2026-03-10 03:00"_s);
    const QDate date(2026, 3, 10);
    const ScheduleModel hours(withArchive(1.0 / 24), QTimeZone::utc());
    QCOMPARE(hours.nextChange(hourStart - 1), hourStart);
    QCOMPARE(described(hours.rows(date, hourStart)),
             QStringList({u"02:00 - 03:00 over+"_s, u"03:00 - 04:00 running+"_s}));
    const qint64 midnight = at(u"2026-03-10 00:00"_s);
    QCOMPARE(described(hours.rows(date, midnight)), QStringList(u"00:00 - 01:00 running+"_s));
    QVERIFY(hours.rows(date, midnight - 1).isEmpty());

    GuideSchedule schedule;
    schedule.entry.catchUp = archiveOf(1);
    schedule.programmes = {{hourStart, hourStart + hour, u"A"_s, {}}};
    const ScheduleModel guide(schedule, QTimeZone::utc());
    QCOMPARE(described(guide.rows(date, hourStart - 1)), QStringList(u"A upcoming"_s));
    QCOMPARE(described(guide.rows(date, hourStart)), QStringList(u"A running+"_s));
}

void tst_ScheduleModel::hoursFillTheDaysThatTheGuideLacks()
{
    const qint64 now = at(u"2026-03-10 12:30"_s);
    GuideSchedule schedule = hourly(at(u"2026-03-10 00:00"_s), at(u"2026-03-11 00:00"_s));
    schedule.entry.catchUp = archiveOf(2);
    const ScheduleModel model(schedule, QTimeZone::utc());
    QVERIFY(model.rows(QDate(2026, 3, 9), now).constFirst().isHour);
    QVERIFY(!model.rows(QDate(2026, 3, 10), now).constFirst().isHour);
}

void tst_ScheduleModel::localDays_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QStringList>("hours"); ///< those around the change
    QTest::addColumn<int>("count");
    const auto row = [](const char *name, const QString &zone, QDate date, int count,
                        const QStringList &hours) {
        QTest::newRow(name) << zone << date << hours << count;
    };
    const QString berlin = u"Europe/Berlin"_s;
    const QString newYork = u"America/New_York"_s;
    const QString lordHowe = u"Australia/Lord_Howe"_s;
    row("Berlin, usual", berlin, QDate(2026, 3, 28), 24, {u"01:00 - 02:00"_s, u"02:00 - 03:00"_s});
    row("Berlin, spring", berlin, QDate(2026, 3, 29), 23, {u"01:00 - 03:00"_s, u"03:00 - 04:00"_s});
    row("Berlin, autumn", berlin, QDate(2026, 10, 25), 25,
        {u"01:00 - 02:00"_s, u"02:00 - 02:00"_s, u"02:00 - 03:00"_s});
    row("New York, spring", newYork, QDate(2026, 3, 8), 23,
        {u"01:00 - 03:00"_s, u"03:00 - 04:00"_s});
    row("New York, autumn", newYork, QDate(2026, 11, 1), 25,
        {u"00:00 - 01:00"_s, u"01:00 - 01:00"_s, u"01:00 - 02:00"_s});
    // By half an hour.
    row("Lord Howe, spring", lordHowe, QDate(2026, 10, 4), 24,
        {u"01:00 - 02:30"_s, u"02:30 - 03:00"_s, u"03:00 - 04:00"_s});
    row("Lord Howe, autumn", lordHowe, QDate(2026, 4, 5), 25,
        {u"01:00 - 01:30"_s, u"01:30 - 02:00"_s, u"02:00 - 03:00"_s});
}

/// The hours of a day follow each other without a gap, and programmes of the day are the same ones.
void tst_ScheduleModel::localDays()
{
    QFETCH(const QString, zone);
    QFETCH(const QDate, date);
    QFETCH(const QStringList, hours);
    QFETCH(const int, count);
    const QTimeZone local = zoneOf(zone);
    QVERIFY(local.isValid());
    const qint64 begin = at(date.toString(Qt::ISODate) + u" 00:00"_s, local);
    const qint64 end = at(date.addDays(1).toString(Qt::ISODate) + u" 00:00"_s, local);
    const qint64 now = end + hour;
    const QList<ScheduleRow> rows = ScheduleModel(withArchive(7), local).rows(date, now);
    QCOMPARE(rows.size(), count);
    qint64 last = begin;
    QStringList titles;
    for (const ScheduleRow &row : rows) {
        QCOMPARE(row.programme.start, last);
        QVERIFY(row.programme.stop - row.programme.start <= hour);
        last = row.programme.stop;
        titles << row.programme.title;
    }
    QCOMPARE(last, end);
    QVERIFY2(titles.join(u'|').contains(hours.join(u'|')), qPrintable(titles.join(u'|')));

    const ScheduleModel guide(hourly(begin - day, end + day / 2), local);
    const QList<ScheduleRow> programmes = guide.rows(date, now);
    QCOMPARE(programmes.constFirst().programme.start, begin);
    QVERIFY(programmes.constLast().programme.stop >= end);
    QVERIFY(programmes.constLast().programme.start < end);
    QCOMPARE(guide.dayOf(begin), date);
    QCOMPARE(guide.dayOf(end - 1), date);
    QCOMPARE(datesOf(guide.days(begin, {})),
             QStringList({date.toString(Qt::ISODate), date.addDays(1).toString(Qt::ISODate)}));
}

void tst_ScheduleModel::nextChange_data()
{
    QTest::addColumn<qint64>("secondsAfterNoon");
    QTest::addColumn<qint64>("change"); ///< likewise
    QTest::newRow("the next start") << qint64(0) << 10 * minute;
    QTest::newRow("at a start: its end") << 10 * minute << 20 * minute;
    QTest::newRow("in a gap") << 25 * minute << 30 * minute;
    QTest::newRow("no more: the next hour") << 35 * minute << hour;
}

void tst_ScheduleModel::nextChange()
{
    QFETCH(const qint64, secondsAfterNoon);
    QFETCH(const qint64, change);
    const qint64 noon = at(u"2026-03-10 12:00"_s);
    GuideSchedule schedule;
    schedule.programmes = {{noon + 10 * minute, noon + 20 * minute, {}, {}},
                           {noon + 30 * minute, noon + 2 * hour, {}, {}}};
    const ScheduleModel model(schedule, QTimeZone::utc());
    QCOMPARE(model.nextChange(noon + secondsAfterNoon), noon + change);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ScheduleModel)
#include "tst_ScheduleModel.moc"
