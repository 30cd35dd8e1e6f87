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
    void initTestCase();
    void init();
    void cleanup();

    void xtreamSuccess();
    void xtreamBodyThatIsNoJson();
    void xtreamHttpError();
    void xtreamWithoutAnswer();
    void xtreamPasswordIsRedactedEverywhere_data();
    void xtreamPasswordIsRedactedEverywhere();
    void xtreamRedirectQuotingThePassword();
    void xtreamRedirectToACredentialOfItsOwn();
    void xtreamUserInformation();
    void xtreamForgetsThePasswordWithTheClient();
    void xtreamTwoSlashesMakeAnEmptySegment();
    void xtreamBodyIsCut();
    void xtreamFormerPasswordStaysRedacted();
    void linesInTheOrderOfEvents();

    void zevrinoSuccess();
    void zevrinoReplyWithoutSuccess_data();
    void zevrinoReplyWithoutSuccess();
    void zevrinoHttpError();
    void zevrinoWithoutAnswer();
    void zevrinoKeyIsRedactedEverywhere_data();
    void zevrinoKeyIsRedactedEverywhere();
    void zevrinoBodyIsCut();

private:
    /// What one request with this password left in the trace.
    QString traceOfGet(const QString &password, const QString &action = {});
    QString traceOfResolve(const QString &key);

    std::unique_ptr<HttpServer> server;
};

void tst_XtreamTrace::initTestCase()
{
    QVERIFY2(netDebugEnabled(), "run this test with VANTIRO_NET_DEBUG=1");
}

void tst_XtreamTrace::init()
{
    server = std::make_unique<HttpServer>();
}

void tst_XtreamTrace::cleanup()
{
    server.reset();
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

void tst_XtreamTrace::xtreamSuccess()
{
    server->on(api, HttpReply::json(R"({"a":"x \"y\""})"_ba));
    QCOMPARE(traceOfGet(u"Xt-Pw-1"_s, u"get_series"_s),
             u"[Xtream] -> "_s + server->url(api) +
                 u"?username=joe&password=***&action=get_series \n"_s +
                 uR"([Xtream] <- 200 {"a":"x \"y\""} )"_s + u"\n"_s);
}

void tst_XtreamTrace::xtreamBodyThatIsNoJson()
{
    server->on(api, bodyReply("<html>\xc3\xa9</html>"_ba));
    QVERIFY(traceOfGet(u"Xt-Pw-2"_s).endsWith(u"\n[Xtream] <- 200 <html>\u00e9</html> \n"_s));
    server->on(api, bodyReply({}));
    QVERIFY(traceOfGet(u"Xt-Pw-2"_s).endsWith(u"\n[Xtream] <- 200  \n"_s));
}

void tst_XtreamTrace::xtreamHttpError()
{
    server->on(api, statusReply(404, "a body that is not shown"_ba));
    const QString url = server->url(api) + u"?username=joe&password=***"_s;
    QCOMPARE(traceOfGet(u"Xt-Pw-3"_s), u"[Xtream] -> "_s + url + u" \n"_s +
                                           u"[Xtream] <- error: Error transferring "_s + url +
                                           u" - server replied: Not Found http status: 404 \n"_s);
}

void tst_XtreamTrace::xtreamWithoutAnswer()
{
    server->refuse();
    QCOMPARE(traceOfGet(u"Xt-Pw-4"_s),
             u"[Xtream] -> "_s + server->url(api) + u"?username=joe&password=*** \n"_s +
                 u"[Xtream] <- error: Connection refused http status: invalid \n"_s);
}

void tst_XtreamTrace::xtreamPasswordIsRedactedEverywhere_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QByteArray>("bodyForm");
    QTest::newRow("signs of queries") << u"Q&p=w#1/2?3+4%5"_s << "Q&p=w#1/2?3+4%5"_ba;
    QTest::newRow("escaped JSON") << u"S/p\"w\\1"_s << R"(S\/p\"w\\1)"_ba;
    QTest::newRow("not ASCII") << u"U\u00e9\U0001F511"_s << "U\xc3\xa9\xf0\x9f\x94\x91"_ba;
    QTest::newRow("a percent sequence") << u"Y%41Z%zz"_s << "Y%41Z%zz"_ba;
}

void tst_XtreamTrace::xtreamPasswordIsRedactedEverywhere()
{
    QFETCH(const QString, password);
    QFETCH(const QByteArray, bodyForm);
    const QString request =
        u"[Xtream] -> "_s + server->url(api) + u"?username=joe&password=*** \n"_s;
    server->on(api, bodyReply("[\"" + bodyForm + "\",1]"));
    QCOMPARE(traceOfGet(password), request + u"[Xtream] <- 200 [\"***\",1] \n"_s);

    server->on(api, statusReply(500));
    const QString failed = traceOfGet(password);
    QVERIFY2(failed.startsWith(request + u"[Xtream] <- error: "_s), qPrintable(failed));
    QVERIFY2(failed.contains(u"?username=joe&password=*** - server replied"_s), qPrintable(failed));
    QVERIFY2(!failed.contains(password), qPrintable(failed));
}

void tst_XtreamTrace::xtreamRedirectQuotingThePassword()
{
    // The address that failed in the end quotes the password.
    server->on(api, HttpReply::redirect(u"/joe/Redir%2DPw/x?p=Redir-Pw"_s));
    server->on(u"/joe/Redir-Pw/x"_s, statusReply(403));
    const QString trace = traceOfGet(u"Redir-Pw"_s);
    QVERIFY2(trace.contains(u"/joe/***/x?p=***"_s), qPrintable(trace));
    QVERIFY2(!trace.contains(u"Redir"_s), qPrintable(trace));
    QCOMPARE(trace.count(u'\n'), 2);
}

void tst_XtreamTrace::xtreamRedirectToACredentialOfItsOwn()
{
    server->on(api, HttpReply::redirect(u"/cdn?token=Hop-Token&q=Hop-Token"_s));
    server->on(u"/cdn"_s, statusReply(403));
    const QString trace = traceOfGet(u"Own-Redir-Pw"_s);
    QVERIFY2(trace.contains(server->url(u"/cdn?token=***&q=*** "_s)), qPrintable(trace));
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

void tst_XtreamTrace::xtreamTwoSlashesMakeAnEmptySegment()
{
    XtreamClient client(nullptr);
    client.configure(server->url(u"//"_s), u"joe"_s, u"Slash-Pw"_s);
    TraceCapture trace;
    client.get({}, {}, [](const QJsonDocument &, bool) {});
    QCOMPARE(trace.take(), u"[Xtream] -> "_s + server->url(u"//player_api.php"_s) +
                               u"?username=joe&password=*** \n"_s);
}

void tst_XtreamTrace::xtreamBodyIsCut()
{
    const QByteArray head = "[\"" + QByteArray(1978, 'x'); // 1980 bytes
    server->on(api, bodyReply(head + QByteArray(21, 'y')));
    QVERIFY(traceOfGet(u"Cut-Pw-Trace"_s).endsWith(QString(20, u'y') + u" \n"_s));
    server->on(api, bodyReply(head + "0123456789abCut-Pw-Trace" + QByteArray(3000, 't')));
    QVERIFY(traceOfGet(u"Cut-Pw-Trace"_s).endsWith(u"x0123456789ab*** \n"_s));
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
    QCOMPARE(trace.take(), u"[Xtream] -> "_s + server->url(api) +
                               u"?username=joe&password=***&action=get_live_streams"
                               u"&category_id=5 \n"_s);
    QTRY_COMPARE(calls, 1);
    QCOMPARE(trace.take(), QString());
}

void tst_XtreamTrace::zevrinoSuccess()
{
    server->on(credentialsPath,
               HttpReply::json(R"({"status":"success","data":{"server_url":"http://h","username":)"
                               R"("u","password":"Zv-Pw-1"},"key":"ZV-KEY-1"})"_ba));
    QCOMPARE(traceOfResolve(u"ZV-KEY-1"_s),
             u"[Zevrino] -> "_s + server->url(credentialsPath) +
                 uR"( {"subscription_key":"***"} )"_s + u"\n"_s +
                 uR"([Zevrino] <- 200 {"status":"success","data":{"server_url":"http://h",)"_s +
                 uR"("username":"u","password":"***"},"key":"***"} )"_s + u"\n"_s);
}

void tst_XtreamTrace::zevrinoReplyWithoutSuccess_data()
{
    QTest::addColumn<QByteArray>("body");
    const QByteArray data = R"("data":{"username":"u","password":"Unknown-Pw"})"_ba;
    QTest::newRow("refused") << R"({"status":"expired",)" + data + '}';
    QTest::newRow("cut") << R"({"status":"success","data":{"password":"Unknown-Pw)"_ba;
    QTest::newRow("over the cut") << R"({"status":"expired","x":")" + QByteArray(1930, 'x') +
                                         "\"," + data + '}';
}

void tst_XtreamTrace::zevrinoReplyWithoutSuccess()
{
    QFETCH(const QByteArray, body);
    server->on(credentialsPath, HttpReply::json(body));
    const QString trace = traceOfResolve(u"ZV-KEY-5"_s);
    QVERIFY2(trace.contains(u"***"_s), qPrintable(trace));
    QVERIFY2(trace.contains(uR"("password":"***)"_s), qPrintable(trace));
    QVERIFY2(!trace.contains(u"Unkn"_s), qPrintable(trace));
}

void tst_XtreamTrace::zevrinoHttpError()
{
    server->on(credentialsPath, statusReply(503, "ZV-KEY-2"_ba));
    QCOMPARE(traceOfResolve(u"ZV-KEY-2"_s),
             u"[Zevrino] -> "_s + server->url(credentialsPath) +
                 uR"( {"subscription_key":"***"} )"_s + u"\n"_s +
                 u"[Zevrino] <- error: Error transferring "_s + server->url(credentialsPath) +
                 u" - server replied: Service Unavailable http status: 503 \n"_s);
}

void tst_XtreamTrace::zevrinoWithoutAnswer()
{
    server->refuse();
    QCOMPARE(traceOfResolve(u"ZV-KEY-3"_s),
             u"[Zevrino] -> "_s + server->url(credentialsPath) +
                 uR"( {"subscription_key":"***"} )"_s + u"\n"_s +
                 u"[Zevrino] <- error: Connection refused http status: invalid \n"_s);
}

void tst_XtreamTrace::zevrinoKeyIsRedactedEverywhere_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("bodyForm");
    QTest::newRow("quotes and backslashes") << u"ZA\"b\\c"_s << R"(ZA\"b\\c)"_ba;
    QTest::newRow("not ASCII") << u"ZC\u00e9\U0001F511"_s << R"(ZC\u00E9\uD83D\uDD11)"_ba;
}

void tst_XtreamTrace::zevrinoKeyIsRedactedEverywhere()
{
    QFETCH(const QString, key);
    QFETCH(const QByteArray, bodyForm);
    server->on(credentialsPath, bodyReply(R"({"message":"No: )" + bodyForm + "\"}"));
    const QString expected = u"[Zevrino] -> "_s + server->url(credentialsPath) +
                             uR"( {"subscription_key":"***"} )"_s + u"\n"_s +
                             uR"([Zevrino] <- 200 {"message":"No: ***"} )"_s + u"\n"_s;
    QCOMPARE(traceOfResolve(key), expected);
}

void tst_XtreamTrace::zevrinoBodyIsCut()
{
    server->on(credentialsPath,
               bodyReply(QByteArray(1990, 'x') + "yyyyyZV-KEY-4" + QByteArray(500, 't')));
    const QString trace = traceOfResolve(u"ZV-KEY-4"_s);
    QCOMPARE(trace.mid(trace.indexOf(u'\n') + 1),
             u"[Zevrino] <- 200 "_s + QString(1990, u'x') + u"yyyyy*** \n"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamTrace)
#include "tst_XtreamTrace.moc"
