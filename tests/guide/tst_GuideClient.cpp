#include "app/NetLog.h"
#include "guide/GuideClient.h"
#include "providers/Await.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What GuideClient sends, and what becomes of the answers; tst_AccountSchedule shows how they are
// read. Runs with VANTIRO_NET_DEBUG=1 in its environment.

namespace {

const QString api = u"/player_api.php"_s;
const HttpReply schedule =
    HttpReply::json(R"({"epg_listings":[{"start_timestamp":1,"stop_timestamp":2}]})"_ba);
/// What many servers answer to an action that they do not know.
const HttpReply summary = HttpReply::json(R"({"user_info":{"auth":1}})"_ba);

using Schedule = GuideClient::Schedule;

} // namespace

class tst_GuideClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void shortSchedule();
    void fullSchedule();
    void misspeltFullSchedule();
    void noFullSchedule();
    void failures_data();
    void failures();
    void fewAtATime();
    void cancelled();
    void addresses();
    void tracesShowNoPassword();

private:
    /// The "action" and what follows of each request, without the account.
    QStringList asked() const;
    /// Answers to one action only.
    void answerOnlyTo(const QString &action);

    Answer<Schedule> fetchShort();
    Answer<Schedule> fetchFull(const QString &streamId = u"7"_s);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<GuideClient> client;
};

void tst_GuideClient::init()
{
    server = std::make_unique<HttpServer>();
    client = std::make_unique<GuideClient>(XtreamAccount{server->url(), u"joe"_s, u"Guide-Pw"_s},
                                           QTimeZone::utc(), nullptr);
}

QStringList tst_GuideClient::asked() const
{
    QStringList actions;
    for (const HttpRequest &request : server->requests()) {
        actions << request.target.section(u"action="_s, 1);
    }
    return actions;
}

void tst_GuideClient::answerOnlyTo(const QString &action)
{
    server->on(api, [action](const HttpRequest &request) {
        return request.queryValue(u"action"_s) == action ? schedule : summary;
    });
}

Answer<Schedule> tst_GuideClient::fetchShort()
{
    return await<Schedule>([this](auto callback) { client->fetchShort(u"7"_s, callback); });
}

Answer<Schedule> tst_GuideClient::fetchFull(const QString &streamId)
{
    return await<Schedule>([&](auto callback) { client->fetchFull(streamId, callback); });
}

void tst_GuideClient::shortSchedule()
{
    server->on(api, schedule);
    const auto answer = fetchShort();
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value && answer.value->size() == 1);
    QCOMPARE(answer.value->first().stop, 2);
    QCOMPARE(server->requests().size(), 1);
    QCOMPARE(server->requests().first().target,
             api + u"?username=joe&password=Guide-Pw&action=get_short_epg&stream_id=7"_s);
}

void tst_GuideClient::fullSchedule()
{
    answerOnlyTo(u"get_simple_data_table"_s);
    QVERIFY(fetchFull().value);
    QCOMPARE(asked(), QStringList{u"get_simple_data_table&stream_id=7"_s});
    // What worked is known: a channel without a schedule is not asked for twice.
    server->on(api, summary);
    QVERIFY(!fetchFull(u"8"_s).value);
    QCOMPARE(asked().sliced(1), QStringList{u"get_simple_data_table&stream_id=8"_s});
}

void tst_GuideClient::misspeltFullSchedule()
{
    answerOnlyTo(u"get_simple_date_table"_s);
    const auto answer = fetchFull();
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value);
    QVERIFY(fetchFull(u"8"_s).value);
    QCOMPARE(asked(), QStringList({u"get_simple_data_table&stream_id=7"_s,
                                   u"get_simple_date_table&stream_id=7"_s,
                                   u"get_simple_date_table&stream_id=8"_s}));
}

void tst_GuideClient::noFullSchedule()
{
    server->on(api, summary);
    const auto answer = fetchFull();
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value);
    QCOMPARE(asked().size(), 2);
}

void tst_GuideClient::failures_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::newRow("unavailable") << statusReply(503, schedule.body);
    QTest::newRow("a page") << bodyReply("<html></html>"_ba);
    QTest::newRow("empty") << bodyReply({});
    QTest::newRow("cut short") << cutShort(schedule, 20);
    QTest::newRow("another document") << summary;
}

void tst_GuideClient::failures()
{
    QFETCH(HttpReply, reply);
    server->on(api, reply);
    const auto answer = fetchShort();
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value);
    // The next one is sent all the same.
    server->on(api, schedule);
    QVERIFY(fetchShort().value);
}

void tst_GuideClient::fewAtATime()
{
    constexpr int count = 10;
    HttpReply slow = schedule;
    slow.delayMs = 250; // all that are sent are there at once
    server->on(api, slow);
    QStringList expected;
    QStringList answered;
    for (int number = 0; number < count; ++number) {
        const QString id = QString::number(number);
        expected << id;
        client->fetchShort(id, [&answered, id](const Schedule &) { answered << id; });
    }
    QTRY_COMPARE(answered.size(), count);
    answered.sort();
    QCOMPARE(answered, expected);
    QCOMPARE(server->peakConnections(api), GuideClient::mostRequests);
}

void tst_GuideClient::cancelled()
{
    server->on(api, held(schedule));
    int answers = 0;
    for (int number = 0; number < 10; ++number) {
        client->fetchFull(QString::number(number), [&answers](const Schedule &) { ++answers; });
    }
    QTRY_COMPARE(server->requestCount(api), GuideClient::mostRequests);
    client->cancelWaiting();
    server->release(api);
    QTRY_COMPARE(answers, GuideClient::mostRequests);
    server->on(api, schedule);
    QVERIFY(fetchShort().value);
    QCOMPARE(answers, GuideClient::mostRequests);
    QCOMPARE(server->requestCount(api), GuideClient::mostRequests + 1);
}

void tst_GuideClient::addresses()
{
    const XtreamAccount account{u"http://h/tv"_s, u"joe"_s, u"p&w +%26"_s};
    QCOMPARE(GuideClient::guideUrl(account),
             u"http://h/tv/xmltv.php?username=joe&password=p%26w%20%2B%26"_s);
    QCOMPARE(GuideClient::channelsUrl(account),
             u"http://h/tv/player_api.php?username=joe&password=p%26w%20%2B%26"
             "&action=get_live_streams"_s);
}

void tst_GuideClient::tracesShowNoPassword()
{
    QVERIFY2(netDebugEnabled(), "run this test with VANTIRO_NET_DEBUG=1");
    server->on(api, HttpReply::json(R"({"epg_listings":[],"x":"Guide-Pw"})"_ba));
    TraceCapture trace;
    QVERIFY(fetchShort().value);
    QVERIFY(fetchFull().value);
    server->on(api, statusReply(404));
    QVERIFY(!fetchShort().value);
    const QString text = trace.take();
    QCOMPARE(text.count(u'\n'), 6);
    QVERIFY2(!text.contains("Guide-Pw"_L1), qPrintable(text));
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideClient)
#include "tst_GuideClient.moc"
