#include "app/NetLog.h"
#include "providers/Await.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QTest>

using namespace Qt::StringLiterals;

// The clients' lines of trace, and that each text in them is redacted; tst_TraceSecrets shows how.
// Runs with VANTIRO_NET_DEBUG=1 in its environment.

namespace {

const QString api = u"/player_api.php"_s;
const QString credentialsPath = u"/api/v1/subscription/credentials"_s;

} // namespace

class tst_XtreamTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void xtreamReplies_data();
    void xtreamReplies();
    void xtreamFailures();
    void xtreamRedirectQuotingThePassword();
    void xtreamUserInformation();
    void xtreamForgetsThePasswordWithTheClient();
    void xtreamFormerPasswordStaysRedacted();
    void linesInTheOrderOfEvents();

    void zevrinoReplies_data();
    void zevrinoReplies();
    void zevrinoFailures();

private:
    /// What one request with this password left in the trace.
    QString traceOfGet(const QString &password, const QString &action = {});
    QString traceOfResolve(const QString &key);
    /// The line of a request whose password is masked.
    QString sentLine(const QString &rest = {}) const;

    std::unique_ptr<HttpServer> server;
};

void tst_XtreamTrace::init()
{
    QVERIFY2(netDebugEnabled(), "run this test with VANTIRO_NET_DEBUG=1");
    server = std::make_unique<HttpServer>();
}

QString tst_XtreamTrace::traceOfGet(const QString &password, const QString &action)
{
    XtreamClient client(nullptr);
    client.configure(server->url(), u"joe"_s, password);
    TraceCapture trace;
    const auto answer = await<bool>([&](auto callback) {
        client.get(action, {}, [callback](const QJsonDocument &, bool ok) { callback(ok); });
    });
    return answer.calls == 1 ? trace.take() : u"no answer"_s;
}

QString tst_XtreamTrace::traceOfResolve(const QString &key)
{
    ZevrinoClient client(server->url(), nullptr);
    TraceCapture trace;
    const auto answer = await<bool>([&](auto callback) {
        client.resolve(key, [callback](bool ok, const ZevrinoClient::Credentials &,
                                       const QString &) { callback(ok); });
    });
    return answer.calls == 1 ? trace.take() : u"no answer"_s;
}

QString tst_XtreamTrace::sentLine(const QString &rest) const
{
    return u"[Xtream] -> "_s + server->url(api) + u"?username=joe&password=***"_s + rest + u" \n"_s;
}

void tst_XtreamTrace::xtreamReplies_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("shown");
    const QString plain = u"Xt-Pw-1"_s;
    QTest::newRow("JSON") << plain << R"({"a":"x \"y\""})"_ba << uR"({"a":"x \"y\""})"_s;
    QTest::newRow("no JSON") << plain << "<html>\xc3\xa9</html>"_ba << u"<html>\u00e9</html>"_s;
    QTest::newRow("empty") << plain << QByteArray() << QString();
    // The password in every form.
    QTest::newRow("signs of queries")
        << u"Q&p=w#1/2?3+4%5"_s << R"(["Q&p=w#1/2?3+4%5",1])"_ba << uR"(["***",1])"_s;
    QTest::newRow("escaped JSON") << uR"(S/p"w\1)"_s << R"(["S\/p\"w\\1"])"_ba << uR"(["***"])"_s;
    QTest::newRow("not ASCII") << u"U\u00e9\U0001F511"_s << "U\xc3\xa9\xf0\x9f\x94\x91"_ba
                               << u"***"_s;
    // 1980 bytes before the cut.
    const QByteArray head(1980, 'x');
    const QString shownHead(1980, u'x');
    QTest::newRow("cut") << plain << head + QByteArray(21, 'y') << shownHead + QString(20, u'y');
    QTest::newRow("cut in the password")
        << plain << head + "0123456789abcdefXt-Pw-1" + QByteArray(3000, 't')
        << shownHead + u"0123456789abcdef***"_s;
}

void tst_XtreamTrace::xtreamReplies()
{
    QFETCH(const QString, password);
    QFETCH(const QByteArray, body);
    QFETCH(const QString, shown);
    server->on(api, bodyReply(body));
    QCOMPARE(traceOfGet(password, u"get_series"_s),
             sentLine(u"&action=get_series"_s) + u"[Xtream] <- 200 "_s + shown + u" \n"_s);
}

void tst_XtreamTrace::xtreamFailures()
{
    server->on(api, statusReply(404, "a body that is not shown"_ba));
    const QString url = server->url(api) + u"?username=joe&password=***"_s;
    QCOMPARE(traceOfGet(u"Q&p=w#1/2?3+4%5"_s),
             sentLine() + u"[Xtream] <- error: Error transferring "_s + url +
                 u" - server replied: Not Found http status: 404 \n"_s);
    server->refuse();
    QCOMPARE(traceOfGet(u"Xt-Pw-4"_s),
             sentLine() + u"[Xtream] <- error: Connection refused http status: invalid \n"_s);
}

void tst_XtreamTrace::xtreamRedirectQuotingThePassword()
{
    // The address that failed in the end quotes the password, and a credential of its own.
    server->on(api, HttpReply::redirect(u"/joe/Redir%2DPw/x?p=Redir-Pw&token=Hop-Tk&q=Hop-Tk"_s));
    server->on(u"/joe/Redir-Pw/x"_s, statusReply(403));
    const QString trace = traceOfGet(u"Redir-Pw"_s);
    QVERIFY2(trace.contains(server->url(u"/joe/***/x?p=***&token=***&q=*** "_s)),
             qPrintable(trace));
    QCOMPARE(trace.count(u'\n'), 2);
}

void tst_XtreamTrace::xtreamUserInformation()
{
    const QString address = server->url().replace(u"://"_s, u"://anna:Info%2FPw@"_s);
    XtreamClient client(nullptr);
    client.configure(address, u"joe"_s, u"User-Info-Pw"_s);
    server->on(api, bodyReply(R"(["Info\/Pw"])"_ba));
    TraceCapture trace;
    int calls = 0;
    client.get({}, {}, [&calls](const QJsonDocument &, bool) { ++calls; });
    QTRY_COMPARE(calls, 1);
    const QString shown = server->url().replace(u"://"_s, u"://anna:***@"_s);
    QCOMPARE(trace.take(), u"[Xtream] -> "_s + shown +
                               u"/player_api.php?username=joe&password=*** \n"_s +
                               u"[Xtream] <- 200 [\"***\"] \n"_s);
}

void tst_XtreamTrace::xtreamForgetsThePasswordWithTheClient()
{
    // The source dialog tests an account with a client of its own.
    (void)traceOfGet(u"get_series"_s);
    server->on(api, bodyReply(R"(["get_series"])"_ba));
    const QString trace = traceOfGet(u"Another-Pw"_s, u"get_series"_s);
    QVERIFY2(trace.contains(u"&action=get_series "_s), qPrintable(trace));
    QVERIFY2(trace.endsWith(u"200 [\"get_series\"] \n"_s), qPrintable(trace));
}

void tst_XtreamTrace::xtreamFormerPasswordStaysRedacted()
{
    server->on(api, heldReply(R"(["Former-Pw","Later-Pw"])"_ba));
    XtreamClient client(nullptr);
    client.configure(server->url(), u"joe"_s, u"Former-Pw"_s);
    TraceCapture trace;
    int calls = 0;
    client.get({}, {}, [&calls](const QJsonDocument &, bool) { ++calls; });
    client.configure(server->url(), u"joe"_s, u"Later-Pw"_s);
    QTRY_COMPARE(server->openConnections(), 1);
    server->release(api);
    QTRY_COMPARE(calls, 1);
    const QString text = trace.take();
    QVERIFY2(text.endsWith(u"[Xtream] <- 200 [\"***\",\"***\"] \n"_s), qPrintable(text));
}

void tst_XtreamTrace::linesInTheOrderOfEvents()
{
    XtreamClient client(nullptr);
    client.configure(server->url(), u"joe"_s, u"Order-Pw"_s);
    server->on(api, HttpReply::json("[]"_ba));
    TraceCapture trace;
    int calls = 0;
    client.fetchLiveStreams(u"5"_s, [&](const QList<MediaItem> &) {
        ++calls;
        // The reply's line is written before its callback.
        QCOMPARE(trace.take(), u"[Xtream] <- 200 [] \n"_s);
    });
    QCOMPARE(trace.take(), sentLine(u"&action=get_live_streams&category_id=5"_s));
    QTRY_COMPARE(calls, 1);
    QCOMPARE(trace.take(), QString());
}

void tst_XtreamTrace::zevrinoReplies_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("shown");
    const QString plain = u"ZV-KEY-1"_s;
    QTest::newRow("success")
        << plain
        << R"({"status":"success","data":{"server_url":"http://h","username":"u",)"
           R"("password":"Zv-Pw-1"},"x":"Zv-Pw-1","key":"ZV-KEY-1"})"_ba
        << uR"({"status":"success","data":{"server_url":"http://h","username":"u",)"
           uR"("password":"***"},"x":"***","key":"***"})"_s;
    // The password of an account that was not handed out.
    QTest::newRow("refused") << plain
                             << R"({"status":"expired","data":{"password":"Unknown-Pw"}})"_ba
                             << uR"({"status":"expired","data":{"password":"***"}})"_s;
    QTest::newRow("cut short") << plain << R"({"status":"success","data":{"password":"Unkn)"_ba
                               << uR"({"status":"success","data":{"password":"***)"_s;
    QTest::newRow("a key with quotes")
        << uR"(ZA"b\c)"_s << R"({"message":"No: ZA\"b\\c"})"_ba << uR"({"message":"No: ***"})"_s;
    QTest::newRow("a key that is not ASCII")
        << u"ZC\u00e9\U0001F511"_s << R"({"message":"No: ZC\u00E9\uD83D\uDD11"})"_ba
        << uR"({"message":"No: ***"})"_s;
    QTest::newRow("cut in the key")
        << plain << QByteArray(1990, 'x') + "yyyyyZV-KEY-1" + QByteArray(500, 't')
        << QString(1990, u'x') + u"yyyyy***"_s;
    const QByteArray long1970(1970, 'x');
    QTest::newRow("cut in a password")
        << plain << "{\"" + long1970 + R"(":1,"password":"Unknown-Pw-and-more-of-it"})"
        << u"{\""_s + QString::fromLatin1(long1970) + uR"(":1,"password":"***)"_s;
}

void tst_XtreamTrace::zevrinoReplies()
{
    QFETCH(const QString, key);
    QFETCH(const QByteArray, body);
    QFETCH(const QString, shown);
    server->on(credentialsPath, bodyReply(body));
    QCOMPARE(traceOfResolve(key), u"[Zevrino] -> "_s + server->url(credentialsPath) +
                                      uR"( {"subscription_key":"***"} )"_s + u'\n' +
                                      u"[Zevrino] <- 200 "_s + shown + u" \n"_s);
}

void tst_XtreamTrace::zevrinoFailures()
{
    const QString received = u" \n[Zevrino] <- error: "_s;
    const QString url = server->url(credentialsPath);
    server->on(credentialsPath, statusReply(503, "ZV-KEY-2"_ba));
    QCOMPARE(traceOfResolve(u"ZV-KEY-2"_s).section(received, 1),
             u"Error transferring "_s + url +
                 u" - server replied: Service Unavailable http status: 503 \n"_s);
    server->refuse();
    QCOMPARE(traceOfResolve(u"ZV-KEY-3"_s).section(received, 1),
             u"Connection refused http status: invalid \n"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamTrace)
#include "tst_XtreamTrace.moc"
