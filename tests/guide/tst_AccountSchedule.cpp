#include "guide/AccountSchedule.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QTest>

using namespace Qt::StringLiterals;

// What an account's schedule of a channel tells, however the server writes it.

namespace {

/// "start-stop title/description" of each programme, with '*' for one in the archive.
QString shown(const std::optional<QList<ScheduledProgramme>> &schedule)
{
    if (!schedule) {
        return u"no schedule"_s;
    }
    QStringList programmes;
    for (const ScheduledProgramme &programme : *schedule) {
        programmes << u"%1-%2%3 %4/%5"_s.arg(programme.start)
                          .arg(programme.stop)
                          .arg(programme.inArchive ? u"*"_s : QString(), programme.title,
                               programme.description);
    }
    return programmes.join(u", "_s);
}

std::optional<QList<ScheduledProgramme>> read(const QByteArray &listings)
{
    return readSchedule(QJsonDocument::fromJson(R"({"epg_listings":)" + listings + '}'),
                        QTimeZone("Europe/Berlin"));
}

} // namespace

class tst_AccountSchedule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replies_data();
    void replies();
    void times_data();
    void times();
    void texts_data();
    void texts();
    void archive_data();
    void archive();
};

void tst_AccountSchedule::replies_data()
{
    QTest::addColumn<QByteArray>("listings");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &listings, const QString &expected) {
        QTest::newRow(name) << listings << expected;
    };
    row("complete", R"([{"id":"1","epg_id":"2","title":"TmV3cyBhdCBuaW5l","lang":"en",
        "start":"2026-03-01 21:00:00","end":"2026-03-01 21:30:00","description":"VG9kYXk=",
        "channel_id":"a.uk","start_timestamp":"100","stop_timestamp":"200","now_playing":1,
        "has_archive":1}])",
        u"100-200* News at nine/Today"_s);
    row("Base64 of no text", R"([{"start_timestamp":1,"stop_timestamp":2,"title":"YQFi"}])",
        u"1-2 YQFi/"_s);
    row("object", R"({"b":{"start_timestamp":100,"stop_timestamp":200,"title":"B!"},
                      "a":{"start_timestamp":200,"stop_timestamp":300,"title":"A!"}})",
        u"100-200 B!/, 200-300 A!/"_s);
    row("empty array", "[]", {});
    row("empty object", "{}", {});
    row("null", "null", u"no schedule"_s);
    row("text", R"("")", u"no schedule"_s);
    row("elements of other types", R"([null,7,"x",[],{},{"start_timestamp":1,"stop_timestamp":2}])",
        u"1-2 /"_s);
    row("null for everything else", R"([{"start_timestamp":1,"stop_timestamp":2,"title":null,
        "description":null,"has_archive":null,"start":null,"end":null}])",
        u"1-2 /"_s);
    row("in another order", R"([{"start_timestamp":5,"stop_timestamp":6},
                                {"start_timestamp":1,"stop_timestamp":2}])",
        u"1-2 /, 5-6 /"_s);
    row("the last of one start", R"([{"start_timestamp":1,"stop_timestamp":9,"title":"a"},
        {"start_timestamp":1,"stop_timestamp":2,"title":"b"},
        {"start_timestamp":3,"stop_timestamp":4}])",
        u"1-2 b/, 3-4 /"_s);
    row("an end after the next start", R"([{"start_timestamp":1,"stop_timestamp":9},
                                           {"start_timestamp":3,"stop_timestamp":9}])",
        u"1-3 /, 3-9 /"_s);
    row("without ends", R"([{"start_timestamp":100},{"start_timestamp":200,"stop_timestamp":200},
                            {"start_timestamp":99999,"stop_timestamp":1}])",
        u"100-200 /, 200-21800 /, 99999-121599 /"_s);
}

void tst_AccountSchedule::replies()
{
    QFETCH(QByteArray, listings);
    QFETCH(QString, expected);
    QCOMPARE(shown(read(listings)), expected);
    QCOMPARE(shown(readSchedule(QJsonDocument(QJsonArray()), QTimeZone::utc())), u"no schedule"_s);
}

void tst_AccountSchedule::times_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &members, const QString &expected) {
        QTest::newRow(name) << members << expected;
    };
    row("seconds before the clock", R"("start":"2026-03-01 21:00:00","end":"2026-03-01 22:00:00",
                                      "start_timestamp":" 10 ","stop_timestamp":20.0)",
        u"10-20 /"_s);
    // 20:15 to 21:45 UTC
    row("clock", R"("start":"2026-03-01 21:15:00","end":"2026-03-01 22:45:00")",
        u"1772396100-1772401500 /"_s);
    row("clock without seconds", R"("start":"2026-03-01 21:15","end":"2026-03-01 22:45")",
        u"1772396100-1772401500 /"_s);
    row("14 digits", R"("start":"20260301211500","end":20260301224500)",
        u"1772396100-1772401500 /"_s);
    row("with a T", R"("start":"2026-03-01T21:15:00","stop":"2026-03-01T22:45:00")",
        u"1772396100-1772401500 /"_s);
    row("in summer", R"("start":"2026-07-01 12:00:00","end":"2026-07-01 13:00:00")",
        u"1782900000-1782903600 /"_s);
    row("no use in the seconds", R"("start_timestamp":"0","stop_timestamp":null,
                                   "start":"2026-03-01 21:15:00","end":"2026-03-01 22:45:00")",
        u"1772396100-1772401500 /"_s);
    row("no start", R"("start":"soon","end":"2026-03-01 22:45:00")", {});
}

void tst_AccountSchedule::times()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, expected);
    QCOMPARE(shown(read("[{" + members + "}]")), expected);
}

void tst_AccountSchedule::texts_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &value, const QString &expected) {
        QTest::newRow(name) << value << expected;
    };
    row("Base64", R"("RGllIFNlbmR1bmc=")", u"Die Sendung"_s);
    row("beyond ASCII", R"("VMOpbMOp")", u"T\u00e9l\u00e9"_s);
    row("several lines", R"("YQpiDQpj")", u"a\nb\r\nc"_s);
    row("white space around", R"(" IGEg ")", u"a"_s);
    row("plain", R"("The News")", u"The News"_s);
    row("plain, one word", R"("Tatort")", u"Tatort"_s);
    row("plain, four letters", R"("News")", u"News"_s);
    row("plain, twelve letters", R"("Fernsehen123")", u"Fernsehen123"_s);
    row("plain, beyond ASCII", R"("T\u00e9l\u00e9")", u"T\u00e9l\u00e9"_s);
    row("Base64 of other bytes", R"("/wD+gA==")", u"/wD+gA=="_s);
    row("Base64 of half a character", R"("YWLD")", u"YWLD"_s);
    row("without its padding", R"("RGllIFNlbmR1bmc")", u"RGllIFNlbmR1bmc"_s);
    row("a number", "24", u"24"_s);
    row("empty", R"("")", {});
    row("null", "null", {});
    row("an array", R"(["a"])", {});
}

void tst_AccountSchedule::texts()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, expected);
    const auto schedule =
        read(R"([{"start_timestamp":1,"title":)" + value + R"(,"description":)" + value + "}]");
    QVERIFY(schedule && schedule->size() == 1);
    QCOMPARE(schedule->first().title, expected);
    QCOMPARE(schedule->first().description, expected);
}

void tst_AccountSchedule::archive_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("expected");
    for (const QByteArray &yes : {"1"_ba, R"("1")"_ba, "true"_ba})
        QTest::newRow(yes.constData()) << yes << true;
    for (const QByteArray &no : {"0"_ba, R"("0")"_ba, "false"_ba, "null"_ba, R"("")"_ba, "[]"_ba})
        QTest::newRow(no.constData()) << no << false;
}

void tst_AccountSchedule::archive()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, expected);
    const auto schedule = read(R"([{"start_timestamp":1,"has_archive":)" + value + "}]");
    QVERIFY(schedule && schedule->size() == 1);
    QCOMPARE(schedule->first().inArchive, expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_AccountSchedule)
#include "tst_AccountSchedule.moc"
