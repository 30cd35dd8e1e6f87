#include "fakeprovider/HttpServer.h"
#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/ZevrinoClient.h"
#include "support/TestMain.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString path = u"/api/v1/subscription/credentials"_s;

struct Outcome
{
    bool ok = false;
    ZevrinoClient::Credentials credentials;
    QString message;
};

Answer<Outcome> resolve(ZevrinoClient &client, const QString &key = u"KEY-1"_s)
{
    return await<Outcome>([&](auto callback) {
        client.resolve(key, [callback](bool ok, const ZevrinoClient::Credentials &credentials,
                                       const QString &message) {
            callback({ok, credentials, message});
        });
    });
}

QByteArray success(const QByteArray &data)
{
    return R"({"status":"success","data":)" + data + '}';
}

} // namespace

Q_DECLARE_METATYPE(HttpReply)

class tst_ZevrinoClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void request_data();
    void request();
    void credentials_data();
    void credentials();
    void failures_data();
    void failures();
    void httpErrors_data();
    void httpErrors();
    void unreachable();
    void untrustedCertificate();
    void redirects();
    void severalAtOnce();
    void destroyedClientNeverCallsBack();
    void destroyedInItsOwnCallback();
    void repliesAreDeleted();
    void isAChildOfItsParent();

private:
    QTemporaryDir directory;
    QSslConfiguration trusting;
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<ZevrinoClient> client;
};

void tst_ZevrinoClient::initTestCase()
{
    const TlsCertificate certificate(directory.path());
    QVERIFY(certificate.isValid());
    trusting = QSslConfiguration::defaultConfiguration();
    trusting.setCaCertificates(QSslCertificate::fromPath(certificate.authorityFile()));
}

void tst_ZevrinoClient::init()
{
    QSslConfiguration::setDefaultConfiguration(trusting);
    server = std::make_unique<HttpServer>(HttpServer::Tls{directory.filePath(u"certificate.pem"_s),
                                                          directory.filePath(u"key.pem"_s)});
    client = std::make_unique<ZevrinoClient>(server->url(), nullptr);
}

void tst_ZevrinoClient::cleanup()
{
    client.reset();
    server.reset();
}

void tst_ZevrinoClient::request_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("plain") << u"ABC-123"_s << R"({"subscription_key":"ABC-123"})"_ba;
    QTest::newRow("empty") << QString() << R"({"subscription_key":""})"_ba;
    QTest::newRow("blanks stay") << u" a b "_s << R"({"subscription_key":" a b "})"_ba;
    QTest::newRow("quotes and backslashes")
        << uR"(a"b\c/d)"_s << R"({"subscription_key":"a\"b\\c/d"})"_ba;
    QTest::newRow("control characters") << u"a\nb\tc"_s << R"({"subscription_key":"a\nb\tc"})"_ba;
    QTest::newRow("not ASCII") << u"\u00e9\U0001F511"_s
                               << "{\"subscription_key\":\"\xc3\xa9\xf0\x9f\x94\x91\"}"_ba;
}

void tst_ZevrinoClient::request()
{
    QFETCH(const QString, key);
    QFETCH(const QByteArray, body);
    server->on(path, HttpReply::json("{}"_ba));
    QCOMPARE(resolve(*client, key).calls, 1);
    QCOMPARE(server->requests().size(), 1);
    const HttpRequest request = server->requests().first();
    QCOMPARE(request.method, "POST"_ba);
    QCOMPARE(request.target, path);
    QCOMPARE(request.header("Content-Type"_ba), "application/json"_ba);
    QCOMPARE(request.body, body);
    QList<QByteArray> names;
    for (const auto &[name, value] : request.headers) {
        names << name.toLower();
    }
    std::sort(names.begin(), names.end());
    // Besides the content type only what Qt's network stack sends for any request.
    QCOMPARE(names, (QList<QByteArray>{"accept-encoding", "accept-language", "connection",
                                       "content-length", "content-type", "host", "user-agent"}));
    QCOMPARE(request.header("User-Agent"_ba), "Mozilla/5.0"_ba);
}

void tst_ZevrinoClient::credentials_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QStringList>("values");
    QTest::newRow("all") << success(R"({"server_url":"http://h:80/","username":"u","password":"p",)"
                                    R"("expires_at":"2030-01-31T00:00:00Z","stream_type":"ts"})"_ba)
                         << QStringList{u"http://h:80/"_s, u"u"_s, u"p"_s,
                                        u"2030-01-31T00:00:00Z"_s, u"ts"_s};
    QTest::newRow("without expiry and stream type")
        << success(R"({"server_url":"s","username":"u","password":"p"})"_ba)
        << QStringList{u"s"_s, u"u"_s, u"p"_s, QString(), QString()};
    QTest::newRow("expiry and stream type of other types")
        << success(R"({"server_url":"s","username":"u","password":"p","expires_at":1900000000,)"
                   R"("stream_type":null})"_ba)
        << QStringList{u"s"_s, u"u"_s, u"p"_s, QString(), QString()};
    QTest::newRow("values are not trimmed")
        << success(R"({"server_url":" s ","username":" ","password":"p\n"})"_ba)
        << QStringList{u" s "_s, u" "_s, u"p\n"_s, QString(), QString()};
    QTest::newRow("a message beside the success")
        << R"({"status":"success","message":"hello","data":{"server_url":"s","username":"u",)"
           R"("password":"p"}})"_ba
        << QStringList{u"s"_s, u"u"_s, u"p"_s, QString(), QString()};
}

void tst_ZevrinoClient::credentials()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QStringList, values);
    server->on(path, HttpReply::json(body));
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.ok);
    QCOMPARE(answer.value.message, QString());
    const ZevrinoClient::Credentials &found = answer.value.credentials;
    QCOMPARE((QStringList{found.serverUrl, found.username, found.password, found.expiresAt,
                          found.streamType}),
             values);
}

void tst_ZevrinoClient::failures_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("message");
    const QString invalid = u"Invalid response from server"_s;
    const QString unresolved = u"Subscription could not be resolved"_s;
    const QString missing = u"Server response was missing credentials"_s;
    const QByteArray whole = R"({"server_url":"s","username":"u","password":"p"})"_ba;
    QTest::newRow("empty body") << QByteArray() << invalid;
    QTest::newRow("HTML") << "<html></html>"_ba << invalid;
    QTest::newRow("half a document") << success(whole).chopped(1) << invalid;
    QTest::newRow("array") << '[' + success(whole) + ']' << invalid;
    QTest::newRow("text") << R"("success")"_ba << invalid;
    QTest::newRow("null") << "null"_ba << invalid;

    QTest::newRow("empty object") << "{}"_ba << unresolved;
    QTest::newRow("status missing") << R"({"data":)"_ba + whole + '}' << unresolved;
    for (const QByteArray &status :
         {"\"error\""_ba, "\"Success\""_ba, "\"SUCCESS\""_ba, "\"success \""_ba, "\"\""_ba,
          "true"_ba, "1"_ba, "null"_ba, "[\"success\"]"_ba, "{\"success\":1}"_ba}) {
        const QByteArray head = R"({"status":)" + status + R"(,"data":)" + whole;
        QTest::newRow(("status " + status).constData()) << head + '}' << unresolved;
        QTest::newRow(("status " + status + " with a message").constData())
            << head + R"(,"message":"No: <b>\"key\"</b> \u00e9\n"})"
            << u"No: <b>\"key\"</b> \u00e9\n"_s;
    }
    QTest::newRow("empty message") << R"({"status":"error","message":""})"_ba << unresolved;
    QTest::newRow("message is a number") << R"({"status":"error","message":5})"_ba << unresolved;
    QTest::newRow("message is an object")
        << R"({"status":"error","message":{"text":"x"}})"_ba << unresolved;
    QTest::newRow("message of blanks") << R"({"status":"error","message":" "})"_ba << u" "_s;
    QTest::newRow("message in data")
        << R"({"status":"error","data":{"message":"x"}})"_ba << unresolved;

    QTest::newRow("data missing") << R"({"status":"success"})"_ba << missing;
    QTest::newRow("data null") << success("null"_ba) << missing;
    QTest::newRow("data an array") << success('[' + whole + ']') << missing;
    QTest::newRow("data empty") << success("{}"_ba) << missing;
    QTest::newRow("credentials outside data")
        << R"({"status":"success","server_url":"s","username":"u","password":"p"})"_ba << missing;
    QTest::newRow("a message without credentials")
        << R"({"status":"success","message":"x"})"_ba << missing;
    for (const QByteArray &key : {"server_url"_ba, "username"_ba, "password"_ba}) {
        QTest::newRow((key + " missing").constData())
            << success(QByteArray(whole).replace('"' + key + '"', "\"other\"")) << missing;
        for (const QByteArray &value : {"\"\""_ba, "null"_ba, "5"_ba, "{}"_ba}) {
            QByteArray data =
                R"({"server_url":"s","username":"u","password":"p",")" + key + "\":" + value + '}';
            QTest::newRow((key + ' ' + value).constData()) << success(data) << missing;
        }
    }
}

void tst_ZevrinoClient::failures()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QString, message);
    server->on(path, HttpReply::json(body));
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.ok);
    QCOMPARE(answer.value.credentials, ZevrinoClient::Credentials());
    QCOMPARE(answer.value.message, message);
    QCOMPARE(server->requestCount(), 1);
}

void tst_ZevrinoClient::httpErrors_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("error");
    QTest::newRow("401") << 401 << int(QNetworkReply::AuthenticationRequiredError);
    QTest::newRow("403") << 403 << int(QNetworkReply::ContentAccessDenied);
    QTest::newRow("404") << 404 << int(QNetworkReply::ContentNotFoundError);
    QTest::newRow("500") << 500 << int(QNetworkReply::InternalServerError);
    QTest::newRow("503") << 503 << int(QNetworkReply::ServiceUnavailableError);
}

void tst_ZevrinoClient::httpErrors()
{
    QFETCH(const int, status);
    QFETCH(const int, error);
    HttpReply reply = HttpReply::json(R"({"status":"error","message":"from the body"})"_ba);
    reply.status = status;
    server->on(path, reply);
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.ok);
    QCOMPARE(answer.value.credentials, ZevrinoClient::Credentials());

    // The same request by hand tells the network layer's own words.
    QNetworkAccessManager network;
    QNetworkRequest request{QUrl(server->url(path))};
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    const std::unique_ptr<QNetworkReply> own(network.post(request, "{}"_ba));
    QTRY_VERIFY(own->isFinished());
    QCOMPARE(int(own->error()), error);
    QVERIFY(!own->errorString().isEmpty());
    QCOMPARE(answer.value.message, u"Could not reach server: "_s + own->errorString());
}

void tst_ZevrinoClient::unreachable()
{
    server->refuse();
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.ok);
    QCOMPARE(answer.value.credentials, ZevrinoClient::Credentials());
    QCOMPARE(answer.value.message, u"Could not reach server: Connection refused"_s);
}

void tst_ZevrinoClient::untrustedCertificate()
{
    QSslConfiguration strict = trusting;
    strict.setCaCertificates({});
    QSslConfiguration::setDefaultConfiguration(strict);
    server->on(path, HttpReply::json("{}"_ba));
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(!answer.value.ok);
    const QString prefix = u"Could not reach server: "_s;
    QVERIFY(answer.value.message.startsWith(prefix));
    QVERIFY(answer.value.message.size() > prefix.size());
    QCOMPARE(server->requestCount(), 0); // the key was not sent
}

void tst_ZevrinoClient::redirects()
{
    // Qt's default follows them as long as they do not leave TLS.
    server->on(path, HttpReply::redirect(u"/moved"_s, 307));
    server->on(u"/moved"_s,
               HttpReply::json(success(R"({"server_url":"s","username":"u","password":"p"})"_ba)));
    const auto answer = resolve(*client);
    QCOMPARE(answer.calls, 1);
    QVERIFY(answer.value.ok);

    HttpServer plain;
    plain.on(u"/moved"_s,
             HttpReply::json(success(R"({"server_url":"s","username":"u","password":"p"})"_ba)));
    server->on(path, HttpReply::redirect(plain.url(u"/moved"_s), 307));
    const auto plainAnswer = resolve(*client);
    QCOMPARE(plainAnswer.calls, 1);
    QVERIFY(!plainAnswer.value.ok);
    QVERIFY(plainAnswer.value.message.startsWith(u"Could not reach server: "_s));
    QCOMPARE(plain.requestCount(), 0);
}

void tst_ZevrinoClient::severalAtOnce()
{
    server->on(path, [](const HttpRequest &request) {
        const bool good = request.body.contains("good");
        return HttpReply::json(good ? success(R"({"server_url":"s","username":"u","password":"p"})")
                                    : R"({"status":"error","message":)" +
                                          request.body.mid(request.body.indexOf(':') + 1));
    });
    QStringList results;
    for (const QString &key : {u"good"_s, u"bad1"_s, u"bad2"_s, u"good"_s}) {
        client->resolve(key, [&results](bool ok, const ZevrinoClient::Credentials &credentials,
                                        const QString &message) {
            results << (ok ? credentials.serverUrl : message);
        });
    }
    QVERIFY(results.isEmpty());
    QTRY_COMPARE(results.size(), 4);
    QCoreApplication::processEvents();
    results.sort();
    QCOMPARE(results, (QStringList{u"bad1"_s, u"bad2"_s, u"s"_s, u"s"_s}));
}

void tst_ZevrinoClient::destroyedClientNeverCallsBack()
{
    HttpReply held = HttpReply::json("{}"_ba);
    held.held = true;
    server->on(path, held);
    int calls = 0;
    client->resolve(
        u"KEY"_s, [&calls](bool, const ZevrinoClient::Credentials &, const QString &) { ++calls; });
    QTRY_COMPARE(server->openConnections(), 1);
    client.reset();
    QTRY_COMPARE(server->openConnections(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

void tst_ZevrinoClient::destroyedInItsOwnCallback()
{
    server->on(path, HttpReply::json("{}"_ba));
    int calls = 0;
    client->resolve(u"KEY"_s,
                    [this, &calls](bool, const ZevrinoClient::Credentials &, const QString &) {
                        ++calls;
                        client.reset();
                    });
    QTRY_COMPARE(calls, 1);
    QVERIFY(client == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 1);
}

void tst_ZevrinoClient::repliesAreDeleted()
{
    const auto *network = client->findChild<QNetworkAccessManager *>();
    QVERIFY(network != nullptr);
    server->on(path, HttpReply::json("{}"_ba));
    QCOMPARE(resolve(*client).calls, 1);
    server->refuse();
    QCOMPARE(resolve(*client).calls, 1);
    QTRY_VERIFY(network->findChildren<QNetworkReply *>().isEmpty());
}

void tst_ZevrinoClient::isAChildOfItsParent()
{
    QObject parent;
    const auto *child = new ZevrinoClient(&parent);
    QCOMPARE(child->parent(), &parent);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ZevrinoClient)
#include "tst_ZevrinoClient.moc"
