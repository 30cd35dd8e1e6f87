#include "app/TraceSecrets.h"
#include "guide/CatchUp.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

// The addresses of past programmes, one row per form, and the zone of their times.

namespace {

/// 2026-03-01 20:15:30 to 21:45:00 UTC, seen at 23:00:00.
const ArchivedProgramme programme{1'772'396'130, 1'772'401'500, u"id-7"_s, 1'772'406'000};

QTimeZone zoneOf(const QString &name)
{
    return QTimeZone(name.toLatin1());
}

} // namespace

class tst_CatchUp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void playlistAddresses_data();
    void playlistAddresses();
    void placeholders_data();
    void placeholders();
    void headersStayBehind_data();
    void headersStayBehind();
    void correction();
    void programmesOwnId();

    void accountAddresses_data();
    void accountAddresses();
    void summerTime_data();
    void summerTime();
    void ordersOfForms_data();
    void ordersOfForms();
    void serverZones_data();
    void serverZones();

    void archiveReach_data();
    void archiveReach();
    void tracesShowNoPassword_data();
    void tracesShowNoPassword();
};

void tst_CatchUp::playlistAddresses_data()
{
    QTest::addColumn<CatchUpForm>("form");
    QTest::addColumn<QString>("stream");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("expected");
    const QString none;
    using enum CatchUpForm;
    const auto row = [](const char *name, CatchUpForm form, const QString &stream,
                        const QString &source, const QString &expected) {
        QTest::newRow(name) << form << stream << source << expected;
    };
    row("default", Default, u"http://h/1"_s, u"http://a/1?t={utc}"_s, u"http://a/1?t=1772396130"_s);
    row("default with a part only", Default, u"http://h/1"_s, u"?t={utc}"_s,
        u"http://h/1?t=1772396130"_s);
    row("default without a template", Default, u"http://h/1"_s, none, none);
    row("append", Append, u"http://h/1"_s, u"?t={utc}"_s, u"http://h/1?t=1772396130"_s);
    row("append to a query", Append, u"http://h/1?k=v"_s, u"?t={utc}"_s,
        u"http://h/1?k=v&t=1772396130"_s);
    row("append an item without a query", Append, u"http://h/1"_s, u"&t={utc}"_s,
        u"http://h/1?t=1772396130"_s);
    row("append an item", Append, u"http://h/1?k=v"_s, u"&t={utc}"_s,
        u"http://h/1?k=v&t=1772396130"_s);
    row("append a path", Append, u"http://h/1"_s, u"/{utc}.ts"_s, u"http://h/1/1772396130.ts"_s);
    row("append without a template", Append, u"http://h/1"_s, none, none);
    row("braces of the channel's own address", Append, u"http://h/{d}"_s, u"?t={d}"_s,
        u"http://h/{d}?t=01"_s);
    row("shift", Shift, u"http://h/1"_s, none, u"http://h/1?utc=1772396130&lutc=1772406000"_s);
    row("shift with a query", Shift, u"http://h/1?k=v"_s, none,
        u"http://h/1?k=v&utc=1772396130&lutc=1772406000"_s);
    row("flussonic, mpegts", Flussonic, u"http://h/c/mpegts?token=t"_s, none,
        u"http://h/c/timeshift_abs-1772396130.ts?token=t"_s);
    row("flussonic, index.m3u8", Flussonic, u"http://h/c/index.m3u8?token=t"_s, none,
        u"http://h/c/timeshift_rel-9870.m3u8?token=t"_s);
    row("flussonic, another list", Flussonic, u"http://h/c/mono.m3u8"_s, none,
        u"http://h/c/mono-timeshift_rel-9870.m3u8"_s);
    row("flussonic, anything else", Flussonic, u"http://h/c/live"_s, none,
        u"http://h/c/timeshift_abs-1772396130.ts"_s);
    row("flussonic, a slash in the query", Flussonic, u"http://h/c/index.m3u8?k=a/b"_s, none,
        u"http://h/c/timeshift_rel-9870.m3u8?k=a/b"_s);
    row("flussonic without a path", Flussonic, u"http://h"_s, none, none);
    row("flussonic-hls, anything else", FlussonicHls, u"http://h/c/live"_s, none,
        u"http://h/c/timeshift_rel-9870.m3u8"_s);
    row("flussonic-hls, mpegts", FlussonicHls, u"http://h/c/mpegts"_s, none,
        u"http://h/c/timeshift_abs-1772396130.ts"_s);
    row("flussonic-ts", FlussonicTs, u"http://h/c/live"_s, none,
        u"http://h/c/timeshift_abs-1772396130.ts"_s);
    row("xc", Xtream, u"http://h:80/joe/pw/12"_s, none,
        u"http://h:80/timeshift/joe/pw/90/2026-03-01:20-15/12.ts"_s);
    row("xc, live", Xtream, u"http://h/live/joe/pw/12.ts"_s, none,
        u"http://h/timeshift/joe/pw/90/2026-03-01:20-15/12.ts"_s);
    row("xc, HLS", Xtream, u"http://h/live/joe/pw/12.m3u8"_s, none,
        u"http://h/timeshift/joe/pw/90/2026-03-01:20-15/12.m3u8"_s);
    row("xc below a path, with a query", Xtream, u"https://h/tv/joe/pw/12?k=v"_s, none,
        u"https://h/tv/timeshift/joe/pw/90/2026-03-01:20-15/12.ts?k=v"_s);
    row("xc in another address", Xtream, u"http://h/12.ts"_s, none, none);
    row("vod", Vod, u"http://h/1"_s, u"http://a/{catchup-id}.mp4"_s, u"http://a/id-7.mp4"_s);
    row("vod without a template", Vod, u"http://h/1"_s, none, u"id-7"_s);
    row("no archive", None, u"http://h/1"_s, u"?t={utc}"_s, none);
}

void tst_CatchUp::playlistAddresses()
{
    QFETCH(CatchUpForm, form);
    QFETCH(QString, stream);
    QFETCH(QString, source);
    QFETCH(QString, expected);
    const CatchUpRules rules{form, source, {}, {}};
    QCOMPARE(playlistCatchUpUrl(stream, rules, programme, QTimeZone::utc()), expected);
}

void tst_CatchUp::placeholders_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QString &source, const QString &expected) {
        QTest::newRow(qPrintable(source)) << source << expected;
    };
    row(u"{utc} ${utc}"_s, u"1772396130 1772396130"_s);
    row(u"{start} ${start}"_s, u"1772396130 1772396130"_s);
    row(u"{utcend} ${end}"_s, u"1772401500 1772401500"_s);
    row(u"{lutc} ${now} ${timestamp}"_s, u"1772406000 1772406000 1772406000"_s);
    row(u"{Y}-{m}-{d}:{H}-{M}-{S}"_s, u"2026-03-01:21-15-30"_s);
    row(u"{duration} {duration:60} {duration:3600}"_s, u"5370 90 2"_s);
    row(u"{offset:1} {offset:60} ${offset}"_s, u"9870 165 9870"_s);
    row(u"{duration:0} {duration:x}"_s, u"5370 5370"_s);
    row(u"{catchup-id}"_s, u"id-7"_s);
    row(u"{utc:YmdHMS}"_s, u"20260301201530"_s);
    row(u"{utcend:Y-m-d H:M}"_s, u"2026-03-01 21:45"_s);
    row(u"${start:YmdHMS}"_s, u"20260301211530"_s);
    row(u"${end:H}"_s, u"22"_s);
    row(u"{lutc:d} ${now:H}"_s, u"01 00"_s);
    row(u"${(b)yyyyMMddHHmmss}"_s, u"20260301211530"_s);
    row(u"${(e)yyyy-MM-ddTHH:mm:ss}"_s, u"2026-03-01T22:45:00"_s);
    row(u"${(b)yyyyMMddHHmmss|UTC}"_s, u"20260301201530"_s);
    row(u"{other} {} {x {utc} ${"_s, u"{other} {} {x 1772396130 ${"_s);
}

void tst_CatchUp::placeholders()
{
    QFETCH(QString, source);
    QFETCH(QString, expected);
    const CatchUpRules rules{CatchUpForm::Default, u"http://h/"_s + source, {}, {}};
    QCOMPARE(playlistCatchUpUrl(u"http://c/1"_s, rules, programme, zoneOf(u"Europe/Berlin"_s)),
             u"http://h/"_s + expected);
}

void tst_CatchUp::headersStayBehind_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the channel's")
        << u"?t={utc}"_s << u"http://h/1?t=1772396130|User-Agent=a&Referer=b"_s;
    QTest::newRow("the template's before the channel's")
        << u"?t={utc}|User-Agent=c"_s << u"http://h/1?t=1772396130|User-Agent=c"_s;
    QTest::newRow("in a placeholder there are none")
        << u"?t={(b)HH|UTC}"_s << u"http://h/1?t=20|User-Agent=a&Referer=b"_s;
}

void tst_CatchUp::headersStayBehind()
{
    QFETCH(QString, source);
    QFETCH(QString, expected);
    const CatchUpRules rules{CatchUpForm::Append, source, {}, {}};
    QCOMPARE(playlistCatchUpUrl(u"http://h/1|User-Agent=a&Referer=b"_s, rules, programme,
                                QTimeZone::utc()),
             expected);
}

void tst_CatchUp::correction()
{
    const CatchUpRules rules{
        CatchUpForm::Append, u"?{H}:{M}&{utc}&{utcend}&{duration}&{offset}&{lutc}"_s, {}, -5400};
    QCOMPARE(playlistCatchUpUrl(u"http://h/1"_s, rules, programme, QTimeZone::utc()),
             u"http://h/1?18:45&1772390730&1772396100&5370&15270&1772406000"_s);
}

void tst_CatchUp::programmesOwnId()
{
    ArchivedProgramme withoutId = programme;
    withoutId.id.clear();
    for (const QString &source : {u"http://a/{catchup-id}"_s, QString()}) {
        const CatchUpRules rules{CatchUpForm::Vod, source, {}, {}};
        QCOMPARE(playlistCatchUpUrl(u"http://h/1|A=b"_s, rules, withoutId, QTimeZone::utc()),
                 QString());
    }
    // A template alone is enough.
    const CatchUpRules rules{{}, u"http://a/{utc}"_s, {}, {}};
    QCOMPARE(playlistCatchUpUrl(u"http://h/1"_s, rules, withoutId, QTimeZone::utc()),
             u"http://a/1772396130"_s);
}

void tst_CatchUp::accountAddresses_data()
{
    QTest::addColumn<AccountArchiveForm>("form");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("expected");
    using enum AccountArchiveForm;
    QTest::newRow("path") << PathTs << u"p w"_s
                          << u"http://h/timeshift/joe/p w/90/2026-03-01:15-15/12.ts"_s;
    QTest::newRow("path, HLS") << PathM3u8 << u"pw"_s
                               << u"http://h/timeshift/joe/pw/90/2026-03-01:15-15/12.m3u8"_s;
    QTest::newRow("query")
        << Query << u"p&w +%26"_s
        << u"http://h/streaming/timeshift.php?username=joe&password=p%26w%20%2B%26"
           "&stream=12&start=2026-03-01:15-15&duration=90"_s;
}

void tst_CatchUp::accountAddresses()
{
    QFETCH(AccountArchiveForm, form);
    QFETCH(QString, password);
    QFETCH(QString, expected);
    QCOMPARE(accountCatchUpUrl({u"http://h"_s, u"joe"_s, password}, u"12"_s, form, programme,
                               zoneOf(u"America/New_York"_s)),
             expected);
}

void tst_CatchUp::summerTime_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QString>("utc");
    QTest::addColumn<QString>("start");
    const auto row = [](const char *name, const QString &zone, const QString &utc,
                        const QString &start) { QTest::newRow(name) << zone << utc << start; };
    row("Berlin, before spring", u"Europe/Berlin"_s, u"2026-03-29T00:59:00Z"_s,
        u"2026-03-29:01-59"_s);
    row("Berlin, after", u"Europe/Berlin"_s, u"2026-03-29T01:00:00Z"_s, u"2026-03-29:03-00"_s);
    row("Berlin, before autumn", u"Europe/Berlin"_s, u"2026-10-25T00:59:00Z"_s,
        u"2026-10-25:02-59"_s);
    row("Berlin, after autumn", u"Europe/Berlin"_s, u"2026-10-25T01:00:00Z"_s,
        u"2026-10-25:02-00"_s);
    row("New York, before spring", u"America/New_York"_s, u"2026-03-08T06:59:00Z"_s,
        u"2026-03-08:01-59"_s);
    row("New York, after", u"America/New_York"_s, u"2026-03-08T07:00:00Z"_s, u"2026-03-08:03-00"_s);
    row("New York, after autumn", u"America/New_York"_s, u"2026-11-01T06:00:00Z"_s,
        u"2026-11-01:01-00"_s);
    row("Sydney, before its autumn", u"Australia/Sydney"_s, u"2026-04-04T15:59:00Z"_s,
        u"2026-04-05:02-59"_s);
    row("Sydney, after its spring", u"Australia/Sydney"_s, u"2026-10-03T16:00:00Z"_s,
        u"2026-10-04:03-00"_s);
}

void tst_CatchUp::summerTime()
{
    QFETCH(QString, zone);
    QFETCH(QString, utc);
    QFETCH(QString, start);
    ArchivedProgramme archived = programme;
    archived.start = QDateTime::fromString(utc, Qt::ISODate).toSecsSinceEpoch();
    archived.stop = archived.start + 3600;
    QCOMPARE(accountCatchUpUrl({u"http://h"_s, u"u"_s, u"p"_s}, u"1"_s, AccountArchiveForm::PathTs,
                               archived, zoneOf(zone)),
             u"http://h/timeshift/u/p/60/"_s + start + u"/1.ts"_s);
}

void tst_CatchUp::ordersOfForms_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<int>("worked"); ///< -1: none
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("ts") << u"ts"_s << -1 << QList{0, 1, 2};
    QTest::newRow("m3u8") << u"m3u8"_s << -1 << QList{1, 0, 2};
    QTest::newRow("what worked first") << u"m3u8"_s << 2 << QList{2, 1, 0};
    QTest::newRow("a number that is no form") << u"ts"_s << 9 << QList{0, 1, 2};
}

void tst_CatchUp::ordersOfForms()
{
    QFETCH(QString, extension);
    QFETCH(int, worked);
    QFETCH(QList<int>, expected);
    const auto remembered =
        worked < 0 ? std::nullopt : std::optional(static_cast<AccountArchiveForm>(worked));
    QList<int> forms;
    for (const AccountArchiveForm form : accountArchiveForms(extension, remembered)) {
        forms << int(form);
    }
    QCOMPARE(forms, expected);
}

void tst_CatchUp::serverZones_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<int>("secondsAhead"); ///< on the day of the programme
    const auto row = [](const char *name, const QByteArray &server, int secondsAhead) {
        QTest::newRow(name) << server << secondsAhead;
    };
    if (QTimeZone::isTimeZoneIdAvailable("Asia/Kolkata")) // Wine knows few zones
        row("named", R"({"timezone":"Asia/Kolkata"})", 19'800);
    row("named, before its clock",
        R"({"timezone":"UTC","time_now":"2026-03-01 22:00:00","timestamp_now":1772395200})", 0);
    row("a path", R"({"timezone":"../../etc/passwd"})", 0);
    row("unknown",
        R"({"timezone":"Nowhere","time_now":"2026-03-01 22:00:00","timestamp_now":1772395200})",
        7200);
    row("missing", R"({"time_now":"2026-03-01 14:30:00","timestamp_now":"1772395200"})", -19'800);
    row("to the quarter", R"({"timezone":"","time_now":"2026-03-02 01:51:20",
                              "timestamp_now":1772395200})",
        20'700);
    row("a clock that is wrong by days",
        R"({"time_now":"2026-03-05 22:00:00","timestamp_now":1772395200})", 0);
    row("a clock that is slow by days",
        R"({"time_now":"2026-02-27 22:00:00","timestamp_now":1772395200})", 0);
    row("a clock without its seconds", R"({"time_now":"2026-03-01 22:00:00"})", 0);
    row("no clock", R"({"time_now":"now","timestamp_now":1772395200})", 0);
    row("null", R"({"timezone":null,"time_now":null,"timestamp_now":null})", 0);
    row("an array", "[]", 0);
}

void tst_CatchUp::serverZones()
{
    QFETCH(QByteArray, server);
    QFETCH(int, secondsAhead);
    const auto summary = QJsonDocument::fromJson(R"({"server_info":)" + server + '}');
    QVERIFY(!summary.isNull());
    QCOMPARE(serverZone(summary).offsetFromUtc(QDateTime::fromSecsSinceEpoch(programme.start)),
             secondsAhead);
}

void tst_CatchUp::archiveReach_data()
{
    QTest::addColumn<std::optional<CatchUpForm>>("form");
    QTest::addColumn<QString>("source");
    QTest::addColumn<std::optional<double>>("days");
    QTest::addColumn<qint64>("seconds");
    const std::optional<CatchUpForm> unknown;
    const std::optional shift = CatchUpForm::Shift;
    QTest::newRow("days") << shift << QString() << std::optional(1.5) << qint64(129'600);
    QTest::newRow("no days") << shift << QString() << std::optional(0.0) << qint64(0);
    QTest::newRow("unknown days") << shift << QString() << std::optional<double>()
                                  << qint64(604'800);
    QTest::newRow("no archive") << std::optional(CatchUpForm::None) << u"?t"_s << std::optional(3.0)
                                << qint64(0);
    QTest::newRow("a template alone") << unknown << u"?t"_s << std::optional(1.0) << qint64(86'400);
    QTest::newRow("days alone") << unknown << QString() << std::optional(3.0) << qint64(0);
}

void tst_CatchUp::archiveReach()
{
    QFETCH(std::optional<CatchUpForm>, form);
    QFETCH(QString, source);
    QFETCH(std::optional<double>, days);
    QFETCH(qint64, seconds);
    const CatchUpRules rules{form, source, days, {}};
    QCOMPARE(archiveSeconds(rules), seconds);
    ArchivedProgramme archived = programme;
    archived.start = programme.now - seconds;
    QCOMPARE(archiveHolds(rules, archived), seconds > 0);
    archived.start -= 1;
    QVERIFY(!archiveHolds(rules, archived));
    archived.start = programme.now; // it begins now
    QCOMPARE(archiveHolds(rules, archived), seconds > 0);
    archived.start += 1;
    QVERIFY(!archiveHolds(rules, archived));
}

void tst_CatchUp::tracesShowNoPassword_data()
{
    QTest::addColumn<QString>("url");
    const XtreamAccount account{u"http://h"_s, u"joe"_s, u"Secret-Pw"_s};
    for (const AccountArchiveForm form : accountArchiveForms(u"ts"_s)) {
        QTest::addRow("account, form %d", int(form))
            << accountCatchUpUrl(account, u"12"_s, form, programme, QTimeZone::utc());
    }
    const CatchUpRules xtream{CatchUpForm::Xtream, {}, {}, {}};
    QTest::newRow("xc") << playlistCatchUpUrl(u"http://h/joe/Secret-Pw/12"_s, xtream, programme,
                                              QTimeZone::utc());
    const CatchUpRules shift{CatchUpForm::Shift, {}, {}, {}};
    QTest::newRow("shift") << playlistCatchUpUrl(u"http://h/live/joe/Secret-Pw/12.ts"_s, shift,
                                                 programme, QTimeZone::utc());
    const CatchUpRules flussonic{CatchUpForm::Flussonic, {}, {}, {}};
    QTest::newRow("flussonic") << playlistCatchUpUrl(u"http://h/c/mpegts?token=Secret-Pw"_s,
                                                     flussonic, programme, QTimeZone::utc());
}

void tst_CatchUp::tracesShowNoPassword()
{
    QFETCH(QString, url);
    QVERIFY(url.contains("Secret-Pw"_L1));
    QVERIFY2(!traceSafeUrl(url).contains("Secret"_L1), qPrintable(traceSafeUrl(url)));
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatchUp)
#include "tst_CatchUp.moc"
