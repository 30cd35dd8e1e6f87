#include "fakeprovider/HttpServer.h"
#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/XtreamClient.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString api = u"/player_api.php"_s;
const QString unreachable = u"Could not reach server or invalid response"_s;
const QString refused = u"Authentication failed - check server URL, username, and password"_s;

using Reply = std::pair<QJsonDocument, bool>;
using Login = std::pair<bool, QString>;

Answer<Reply> get(XtreamClient &client, const QString &action = {}, const QString &extra = {})
{
    return await<Reply>([&](auto callback) {
        client.get(action, extra, [callback](const QJsonDocument &document, bool ok) {
            callback({document, ok});
        });
    });
}

Answer<Login> login(XtreamClient &client)
{
    return await<Login>([&](auto callback) {
        client.testLogin([callback](bool ok, const QString &message) { callback({ok, message}); });
    });
}

HttpReply status(int code, const QByteArray &body = {})
{
    HttpReply reply;
    reply.status = code;
    reply.body = body;
    return reply;
}

} // namespace

Q_DECLARE_METATYPE(HttpReply)

class tst_XtreamClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void outcomes_data();
    void outcomes();
    void refusedConnection();
    void strangeServerAddresses_data();
    void strangeServerAddresses();
    void wholeDocumentArrives();
    void redirects_data();
    void redirects();
    void redirectToAnotherHost();
    void redirectsInACircle();
    void redirectWithoutATarget();
    void redirectFromTlsToPlain();
    void untrustedCertificate();

    void login_data();
    void login();
    void loginOverTheNetwork_data();
    void loginOverTheNetwork();

    void destroyedClientNeverCallsBack();
    void destroyedInItsOwnCallback();
    void manyRequestsAtOnce();
    void answersInAnyOrder();
    void reconfiguringKeepsRequestsInFlight();
    void requestsFromWithinACallback();
    void repliesAreDeleted();

private:
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<XtreamClient> client;
};

void tst_XtreamClient::init()
{
    server = std::make_unique<HttpServer>();
    server->on(api, HttpReply::json("{}"_ba));
    client = std::make_unique<XtreamClient>(nullptr);
    client->configure(server->url(), u"joe"_s, u"secret"_s);
}

void tst_XtreamClient::cleanup()
{
    client.reset();
    server.reset();
}

void tst_XtreamClient::outcomes_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("document");
    const QByteArray body = R"({"a":[1,"x",null]})"_ba;
    const QByteArray none;
    QTest::newRow("object") << HttpReply::json(body) << true << body;
    QTest::newRow("array") << HttpReply::json("[]"_ba) << true << "[]"_ba;
    QTest::newRow("any content type") << status(200, body) << true << body;
    QTest::newRow("another success status") << status(203, body) << true << body;
    QTest::newRow("blanks around") << status(200, "\n " + body + "\r\n") << true << body;
    QTest::newRow("byte-order mark") << status(200, "\xef\xbb\xbf" + body) << true << body;
    HttpReply reply = HttpReply::json(body);
    reply.gzip = true;
    QTest::newRow("gzip") << reply << true << body;
    reply.chunked = true;
    QTest::newRow("gzip in chunks") << reply << true << body;
    reply.gzip = false;
    QTest::newRow("chunks") << reply << true << body;
    reply = HttpReply::json(body);
    reply.delayMs = 50;
    QTest::newRow("late") << reply << true << body;

    QTest::newRow("empty body") << status(200) << false << none;
    QTest::newRow("no content") << status(204) << false << none;
    QTest::newRow("HTML") << status(200, "<html><body>Login</body></html>"_ba) << false << none;
    QTest::newRow("text") << status(200, "\"x\""_ba) << false << none;
    QTest::newRow("number") << status(200, "5"_ba) << false << none;
    QTest::newRow("null") << status(200, "null"_ba) << false << none;
    QTest::newRow("garbage behind") << status(200, body + "<!-- -->") << false << none;
    QTest::newRow("half a document") << status(200, body.chopped(1)) << false << none;
    QTest::newRow("401") << status(401, body) << false << none;
    QTest::newRow("403") << status(403, body) << false << none;
    QTest::newRow("404") << status(404, body) << false << none;
    QTest::newRow("500") << status(500, body) << false << none;
    QTest::newRow("503") << status(503, body) << false << none;
    reply = HttpReply::json(body + QByteArray(1000, ' '));
    reply.cutAfter = body.size();
    QTest::newRow("cut body") << reply << false << none;
}

void tst_XtreamClient::outcomes()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const bool, ok);
    QFETCH(const QByteArray, document);
    server->on(api, reply);
    const auto answer = get(*client, u"get_series"_s);
    QCOMPARE(answer.calls, 1);
    QCOMPARE(answer.value.second, ok);
    QCOMPARE(answer.value.first.toJson(QJsonDocument::Compact), document);
    QCOMPARE(answer.value.first.isNull(), !ok);
    QCOMPARE(server->requestCount(), 1); // nothing is tried again
}

void tst_XtreamClient::refusedConnection()
{
    server->refuse();
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.second);
    QVERIFY(answer.value.first.isNull());
}

void tst_XtreamClient::strangeServerAddresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("empty") << QString();
    QTest::newRow("only a slash") << u"/"_s;
    QTest::newRow("no scheme") << u"127.0.0.1"_s;
    QTest::newRow("unknown scheme") << u"gopher://127.0.0.1"_s;
    QTest::newRow("no host") << u"http://"_s;
    QTest::newRow("bad port") << u"http://127.0.0.1:99999"_s;
    QTest::newRow("words") << u"my provider"_s;
    QTest::newRow("blank before the scheme") << u" http://"_s;
}

void tst_XtreamClient::strangeServerAddresses()
{
    QFETCH(const QString, address);
    client->configure(address, u"u"_s, u"p"_s);
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.second);
}

void tst_XtreamClient::wholeDocumentArrives()
{
    QByteArray body = "["_ba;
    for (int index = 0; index < 100'000; ++index) {
        body += QByteArray::number(index) + ',';
    }
    body += "-1]";
    server->on(api, HttpReply::json(body));
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.second);
    QCOMPARE(answer.value.first.array().size(), 100'001);
    QCOMPARE(answer.value.first.array().last().toInt(), -1);
}

void tst_XtreamClient::redirects_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("count");
    for (const int code : {301, 302, 303, 307, 308}) {
        QTest::addRow("%d", code) << code << 1;
    }
    QTest::newRow("a chain of two") << 302 << 2;
    QTest::newRow("a chain of ten") << 302 << 10;
}

void tst_XtreamClient::redirects()
{
    QFETCH(const int, code);
    QFETCH(const int, count);
    server->on(api, HttpReply::redirect(u"/hop/1?x=y"_s, code));
    for (int hop = 1; hop < count; ++hop) {
        server->on(u"/hop/%1"_s.arg(hop),
                   HttpReply::redirect(server->url(u"/hop/%1"_s.arg(hop + 1)), code));
    }
    server->on(u"/hop/%1"_s.arg(count), HttpReply::json("[7]"_ba));
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.second);
    QCOMPARE(answer.value.first.toJson(QJsonDocument::Compact), "[7]"_ba);
    QCOMPARE(server->requestCount(), count + 1); // each hop is asked once
    QCOMPARE(server->requests().at(1).target, u"/hop/1?x=y"_s);
}

void tst_XtreamClient::redirectToAnotherHost()
{
    HttpServer other;
    other.on(u"/elsewhere"_s, HttpReply::json("[1]"_ba));
    server->on(api, HttpReply::redirect(other.url(u"/elsewhere"_s)));
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.second);
    QCOMPARE(other.requestCount(u"/elsewhere"_s), 1);
}

void tst_XtreamClient::redirectsInACircle()
{
    server->on(api, HttpReply::redirect(u"/around"_s));
    server->on(u"/around"_s, HttpReply::redirect(u"/around"_s));
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.second);
    QVERIFY(answer.value.first.isNull());
}

void tst_XtreamClient::redirectWithoutATarget()
{
    server->on(api, status(302, "[]"_ba));
    QCOMPARE(get(*client).calls, 1);
}

void tst_XtreamClient::redirectFromTlsToPlain()
{
#ifdef Q_OS_WIN
    QSKIP("Windows' own TLS cannot serve under Wine");
#endif
    QTemporaryDir directory;
    const TlsCertificate certificate(directory.path());
    QVERIFY(certificate.isValid());
    HttpServer secure(HttpServer::Tls{certificate.certificateFile(), certificate.keyFile()});
    secure.on(api, HttpReply::redirect(server->url(u"/plain"_s)));
    server->on(u"/plain"_s, HttpReply::json("[1]"_ba));

    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    trusting.setCaCertificates(QSslCertificate::fromPath(certificate.authorityFile()));
    QSslConfiguration::setDefaultConfiguration(trusting);
    client->configure(secure.url(), u"u"_s, u"p"_s);
    const auto answer = get(*client);
    QSslConfiguration::setDefaultConfiguration(before);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.second);
    QCOMPARE(secure.requestCount(), 1);
    QCOMPARE(server->requestCount(u"/plain"_s), 1);
}

void tst_XtreamClient::untrustedCertificate()
{
#ifdef Q_OS_WIN
    QSKIP("Windows' own TLS cannot serve under Wine");
#endif
    QTemporaryDir directory;
    const TlsCertificate certificate(directory.path());
    HttpServer secure(HttpServer::Tls{certificate.certificateFile(), certificate.keyFile()});
    secure.on(api, HttpReply::json("[1]"_ba));
    client->configure(secure.url(), u"u"_s, u"p"_s);
    const auto answer = get(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.second);
    QCOMPARE(secure.requestCount(), 0);
}

void tst_XtreamClient::login_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("ok");
    const auto row = [](const char *name, const QByteArray &body, bool ok) {
        QTest::newRow(name) << body << ok;
    };
    row("auth 1", R"({"user_info":{"auth":1,"status":"Active"},"server_info":{}})"_ba, true);
    row("auth 1, expired", R"({"user_info":{"auth":1,"status":"Expired"}})"_ba, true);
    row("auth 1, banned", R"({"user_info":{"auth":1,"status":"Banned"}})"_ba, true);
    row("auth 1.0", R"({"user_info":{"auth":1.0}})"_ba, true);
    row("auth 0", R"({"user_info":{"auth":0}})"_ba, false);
    row("auth 0, active", R"({"user_info":{"auth":0,"status":"Active"}})"_ba, false);
    row("auth 2", R"({"user_info":{"auth":2}})"_ba, false);
    row("auth -1", R"({"user_info":{"auth":-1}})"_ba, false);
    row("auth 1.5", R"({"user_info":{"auth":1.5}})"_ba, false);
    row("auth beyond 32 bits", R"({"user_info":{"auth":4294967297}})"_ba, false);
    row("auth as a text", R"({"user_info":{"auth":"1"}})"_ba, false);
    row("auth as a bool", R"({"user_info":{"auth":true}})"_ba, false);
    row("auth null", R"({"user_info":{"auth":null}})"_ba, false);
    row("auth missing", R"({"user_info":{"status":"Active"}})"_ba, false);
    row("auth outside", R"({"auth":1,"user_info":{}})"_ba, false);
    row("user_info missing", R"({"server_info":{}})"_ba, false);
    row("user_info null", R"({"user_info":null})"_ba, false);
    row("user_info an array", R"({"user_info":[{"auth":1}]})"_ba, false);
    row("root an array", R"([{"user_info":{"auth":1}}])"_ba, false);
    row("root empty", "{}"_ba, false);
}

void tst_XtreamClient::login()
{
    QFETCH(const QByteArray, body);
    QFETCH(const bool, ok);
    server->on(api, HttpReply::json(body));
    const auto answer = ::login(*client);
    QCOMPARE(answer.calls, 1);
    QCOMPARE(answer.value.first, ok);
    QCOMPARE(answer.value.second, ok ? QString() : refused);
    QCOMPARE(server->requests().size(), 1);
    QCOMPARE(server->requests().first().target, u"/player_api.php?username=joe&password=secret"_s);
}

void tst_XtreamClient::loginOverTheNetwork_data()
{
    QTest::addColumn<HttpReply>("reply");
    const QByteArray body = R"({"user_info":{"auth":1}})"_ba;
    QTest::newRow("HTML") << status(200, "<html></html>"_ba);
    QTest::newRow("empty") << status(200);
    QTest::newRow("403") << status(403, body);
    QTest::newRow("404") << status(404, body);
    QTest::newRow("500") << status(500, body);
    HttpReply cut = HttpReply::json(body + QByteArray(100, ' '));
    cut.cutAfter = body.size();
    QTest::newRow("cut") << cut;
}

void tst_XtreamClient::loginOverTheNetwork()
{
    QFETCH(const HttpReply, reply);
    server->on(api, reply);
    const auto answer = ::login(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.first);
    QCOMPARE(answer.value.second, unreachable);
    server->refuse();
    const auto answerWithoutServer = ::login(*client);
    QCOMPARE(answerWithoutServer.calls, 1);
    QVERIFY(!answerWithoutServer.value.first);
    QCOMPARE(answerWithoutServer.value.second, unreachable);
}

void tst_XtreamClient::destroyedClientNeverCallsBack()
{
    HttpReply held = HttpReply::json("{}"_ba);
    held.held = true;
    server->on(api, held);
    int calls = 0;
    client->get({}, {}, [&calls](const QJsonDocument &, bool) { ++calls; });
    client->testLogin([&calls](bool, const QString &) { ++calls; });
    client->fetchSeries({}, [&calls](const QList<MediaItem> &) { ++calls; });
    QTRY_COMPARE(server->openConnections(), 3);
    client.reset();
    // Its requests go with it, and nobody is told.
    QTRY_COMPARE(server->openConnections(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

void tst_XtreamClient::destroyedInItsOwnCallback()
{
    int calls = 0;
    client->get({}, {}, [this, &calls](const QJsonDocument &, bool) {
        ++calls;
        client.reset();
    });
    QTRY_COMPARE(calls, 1);
    QVERIFY(client == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 1);
}

void tst_XtreamClient::manyRequestsAtOnce()
{
    server->on(api, [](const HttpRequest &request) {
        const QString number = request.queryValue(u"n"_s);
        return number.endsWith(u'7') ? status(500) : HttpReply::json('[' + number.toLatin1() + ']');
    });
    QHash<int, int> calls;
    int wrong = 0;
    for (int number = 0; number < 50; ++number) {
        client->get(
            u"a"_s, u"n=%1"_s.arg(number),
            [&calls, &wrong, number](const QJsonDocument &document, bool ok) {
                ++calls[number];
                const bool expected = number % 10 != 7;
                wrong +=
                    ok != expected || (ok && document.array().first().toInt() != number) ? 1 : 0;
                wrong += QThread::currentThread() != QCoreApplication::instance()->thread() ? 1 : 0;
            });
    }
    QTRY_COMPARE(calls.size(), 50);
    QCoreApplication::processEvents();
    QCOMPARE(calls.values(), QList<int>(50, 1));
    QCOMPARE(wrong, 0);
    QCOMPARE(server->requestCount(), 50);
}

void tst_XtreamClient::answersInAnyOrder()
{
    client->configure(server->url(u"/slow"_s), u"u"_s, u"p"_s);
    HttpReply held = HttpReply::json("[]"_ba);
    held.held = true;
    server->on(u"/slow/player_api.php"_s, held);
    QStringList order;
    client->get({}, {}, [&order](const QJsonDocument &, bool) { order << u"slow"_s; });
    QTRY_COMPARE(server->openConnections(), 1);
    client->configure(server->url(), u"u"_s, u"p"_s);
    client->get({}, {}, [&order](const QJsonDocument &, bool) { order << u"quick"_s; });
    QTRY_COMPARE(order, QStringList{u"quick"_s});
    server->release(u"/slow/player_api.php"_s);
    QTRY_COMPARE(order, (QStringList{u"quick"_s, u"slow"_s}));
}

void tst_XtreamClient::reconfiguringKeepsRequestsInFlight()
{
    HttpReply held = HttpReply::json("[1]"_ba);
    held.held = true;
    server->on(api, held);
    int calls = 0;
    bool succeeded = false;
    client->get(u"a"_s, {}, [&](const QJsonDocument &document, bool ok) {
        ++calls;
        succeeded = ok && document.isArray();
    });
    client->configure(u"http://127.0.0.1:1"_s, u"other"_s, u"else"_s);
    QCOMPARE(client->liveStreamUrl(u"1"_s, u"ts"_s), u"http://127.0.0.1:1/live/other/else/1.ts"_s);
    QTRY_COMPARE(server->openConnections(), 1);
    server->release(api);
    QTRY_COMPARE(calls, 1);
    QVERIFY(succeeded);
    QCOMPARE(server->requests().first().target,
             u"/player_api.php?username=joe&password=secret&action=a"_s);
}

void tst_XtreamClient::requestsFromWithinACallback()
{
    int calls = 0;
    client->get({}, {}, [this, &calls](const QJsonDocument &, bool) {
        ++calls;
        client->get({}, {}, [&calls](const QJsonDocument &, bool) { ++calls; });
    });
    QTRY_COMPARE(calls, 2);
    QCOMPARE(server->requestCount(), 2);
}

void tst_XtreamClient::repliesAreDeleted()
{
    const auto *network = client->findChild<QNetworkAccessManager *>();
    QVERIFY(network != nullptr);
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(get(*client).calls, 1);
    }
    server->on(api, status(500));
    QCOMPARE(get(*client).calls, 1);
    QTRY_VERIFY(network->findChildren<QNetworkReply *>().isEmpty());
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamClient)
#include "tst_XtreamClient.moc"
