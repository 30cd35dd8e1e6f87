#include "guide/XmltvTime.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

#include <ctime>

class tst_XmltvTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void rejects_data();
    void rejects();
    void agreesWithGmtime();
};

void tst_XmltvTime::reads_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<bool>("zoneUnknown");

    constexpr qint64 noon = 1'718'452'800; // 2024-06-15 12:00:00 UTC
    const auto row = [](const char *name, const char *text, qint64 seconds, bool unknown = false) {
        QTest::newRow(name) << QByteArray(text) << seconds << unknown;
    };
    row("east", "20240615140000 +0200", noon);
    row("west", "20240615070000 -0500", noon);
    row("half an hour west: the sign comes from the text", "20240615113000 -0030", noon);
    row("half an hour east", "20240615123000 +0030", noon);
    row("colon", "20240615173000 +05:30", noon);
    row("hours only", "20240615140000 +02", noon);
    row("one digit", "20240615140000 +2", noon);
    row("no blank before the zone", "20240615140000+0200", noon);
    row("blanks around", " \t20240615120000   +0000 ", noon);
    row("no zone", "20240615120000", noon);
    row("Z", "20240615120000Z", noon);
    row("UTC", "20240615120000 UTC", noon);
    row("gmt", "20240615120000 gmt", noon);
    row("named zone", "20240615120000 CEST", noon, true);
    row("no seconds", "202406151200 +0000", noon);
    row("no minutes", "2024061512", noon);
    row("day", "20240615", noon - 43'200);
    row("month", "202406", noon - 43'200 - 14LL * 86'400);
    row("year", "2024", 1'704'067'200);
    row("day with zone", "20240615 -1200", noon);
    row("leap day", "20240229000000", 1'709'164'800);
    row("end of the day", "20240615240000", noon + 43'200);
    row("leap second", "20240615115960", noon);
    row("before the epoch", "19691231235959", -1);
}

void tst_XmltvTime::reads()
{
    QFETCH(const QByteArray, text);
    QFETCH(const qint64, seconds);
    QFETCH(const bool, zoneUnknown);
    const std::optional<XmltvTime> time = readXmltvTime(text);
    QVERIFY(time);
    QCOMPARE(time->seconds, seconds);
    QCOMPARE(time->zoneUnknown, zoneUnknown);
}

void tst_XmltvTime::rejects_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text : {"",
                             " ",
                             "202",
                             "soon",
                             "20240615120000 {",
                             "-2024",
                             "2024061",
                             "20240615120",
                             "202406151200000",
                             "20241301",
                             "20240001",
                             "20240230",
                             "20230229",
                             "20240600",
                             "2024061525",
                             "202406151260",
                             "20240615120061",
                             "20240615120000 +",
                             "20240615120000 +2400",
                             "20240615120000 +0160",
                             "20240615120000 +020000",
                             "20240615120000 ?"}) {
        QTest::newRow(text) << QByteArray(text);
    }
}

void tst_XmltvTime::rejects()
{
    QFETCH(const QByteArray, text);
    QVERIFY(!readXmltvTime(text));
}

void tst_XmltvTime::agreesWithGmtime()
{
    QRandomGenerator random(20240615);
    for (int round = 0; round < 50'000; ++round) {
        const auto seconds = static_cast<std::time_t>(random.bounded(qint64(8'000'000'000)));
        const int zone = random.bounded(-14 * 60, 14 * 60 + 1); // minutes
        const std::time_t local = seconds + std::time_t{zone} * 60;
        if (local < 0)
            continue;
        const std::tm *parts = std::gmtime(&local);
        QVERIFY(parts);
        const QString text = QString::asprintf(
            "%04d%02d%02d%02d%02d%02d %c%02d%02d", parts->tm_year + 1900, parts->tm_mon + 1,
            parts->tm_mday, parts->tm_hour, parts->tm_min, parts->tm_sec, zone < 0 ? '-' : '+',
            qAbs(zone) / 60, qAbs(zone) % 60);
        const std::optional<XmltvTime> time = readXmltvTime(text.toLatin1());
        QVERIFY2(time && time->seconds == seconds, qPrintable(text));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_XmltvTime)
#include "tst_XmltvTime.moc"
