#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/ZevrinoClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString path = u"/api/v1/subscription/credentials"_s;

/// The outcome of one exchange: the credentials, separated by "|", or the message for the user.
QString resolve(ZevrinoClient &client, const QString &key = u"KEY-1"_s)
{
    struct Outcome
    {
        bool ok = false;
        ZevrinoClient::Credentials credentials;
        QString message;
    };
    const auto answer = await<Outcome>([&](auto callback) {
        client.resolve(key, [callback](bool ok, const ZevrinoClient::Credentials &credentials,
                                       const QString &message) {
            callback({ok, credentials, message});
        });
    });
    const auto &[ok, found, message] = answer.value;
    if (answer.calls != 1 || ok != message.isEmpty() ||
        (!ok && found != ZevrinoClient::Credentials())) {
        return u"the callback came %1 times"_s.arg(answer.calls);
    }
    return ok ? QStringList{found.serverUrl, found.username, found.password, found.expiresAt,
                            found.streamType}
                    .join(u'|')
              : message;
}

const QByteArray whole = R"({"server_url":"s","username":"u","password":"p"})"_ba;
const QString wholeCredentials = u"s|u|p||"_s;

QByteArray success(const QByteArray &data = whole)
{
    return R"({"status":"success","data":)" + data + '}';
}

} // namespace

class tst_ZevrinoClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void request_data();
    void request();
    void replies_data();
    void replies();
    void networkErrors();
    void untrustedCertificate();
    void redirects();
    void destroyedClientNeverCallsBack();
    void destroyedInItsOwnCallback();

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
    client.reset();
    server = std::make_unique<HttpServer>(HttpServer::Tls{directory.filePath(u"certificate.pem"_s),
                                                          directory.filePath(u"key.pem"_s)});
    client = std::make_unique<ZevrinoClient>(server->url(), nullptr);
}

void tst_ZevrinoClient::request_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("plain") << u"ABC-123"_s << R"({"subscription_key":"ABC-123"})"_ba;
    QTest::newRow("empty") << QString() << R"({"subscription_key":""})"_ba;
    QTest::newRow("quotes and backslashes")
        << uR"(a"b\c/d)"_s << R"({"subscription_key":"a\"b\\c/d"})"_ba;
    QTest::newRow("not ASCII") << u"\u00e9\U0001F511"_s
                               << "{\"subscription_key\":\"\xc3\xa9\xf0\x9f\x94\x91\"}"_ba;
}

void tst_ZevrinoClient::request()
{
    QFETCH(const QString, key);
    QFETCH(const QByteArray, body);
    server->on(path, bodyReply("{}"_ba));
    QCOMPARE(resolve(*client, key), u"Subscription could not be resolved"_s);
    QCOMPARE(server->requests().size(), 1);
    const HttpRequest request = server->requests().first();
    QCOMPARE(request.method, "POST"_ba);
    QCOMPARE(request.target, path);
    QCOMPARE(request.header("Content-Type"_ba), "application/json"_ba);
    QCOMPARE(request.body, body);
    // Besides the content only what Qt's network stack sends for any request.
    QCOMPARE(headerNames(request), "accept-encoding accept-language connection content-length "
                                   "content-type host user-agent"_ba);
    QCOMPARE(request.header("User-Agent"_ba), "Mozilla/5.0"_ba);
}

void tst_ZevrinoClient::replies_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("all") << success(R"({"server_url":"http://h:80/","username":"u","password":"p",)"
                                    R"("expires_at":"2030-01-31T00:00:00Z","stream_type":"ts"})"_ba)
                         << u"http://h:80/|u|p|2030-01-31T00:00:00Z|ts"_s;
    QTest::newRow("without expiry and stream type") << success() << wholeCredentials;
    QTest::newRow("expiry and stream type of other types")
        << success(R"({"server_url":"s","username":"u","password":"p","expires_at":1900000000,)"
                   R"("stream_type":null})"_ba)
        << wholeCredentials;
    QTest::newRow("values are not trimmed")
        << success(R"({"server_url":" s ","username":" ","password":"p\n"})"_ba)
        << u" s | |p\n||"_s;

    for (const QByteArray &body : {""_ba, success().chopped(1), '[' + success() + ']', "null"_ba}) {
        QTest::addRow("body %s", body.constData()) << body << u"Invalid response from server"_s;
    }

    const QString unresolved = u"Subscription could not be resolved"_s;
    QTest::newRow("status missing") << R"({"data":)"_ba + whole + '}' << unresolved;
    for (const QByteArray &status :
         {"\"error\""_ba, "\"Success\""_ba, "\"success \""_ba, "true"_ba, "[\"success\"]"_ba}) {
        const QByteArray head = R"({"status":)" + status + R"(,"data":)" + whole;
        QTest::newRow(("status " + status).constData()) << head + '}' << unresolved;
        QTest::newRow(("status " + status + " with a message").constData())
            << head + R"(,"message":"No: <b>\"key\"</b> \u00e9\n"})"
            << u"No: <b>\"key\"</b> \u00e9\n"_s;
    }
    for (const QByteArray &message : {"\"\""_ba, "5"_ba, R"({"text":"x"})"_ba}) {
        QTest::newRow(("message " + message).constData())
            << R"({"status":"error","message":)" + message + '}' << unresolved;
    }
    QTest::newRow("message in data")
        << R"({"status":"error","data":{"message":"x"}})"_ba << unresolved;

    const QString missing = u"Server response was missing credentials"_s;
    QTest::newRow("data is an array") << success('[' + whole + ']') << missing;
    QTest::newRow("credentials outside data")
        << R"({"status":"success","message":"x",)"_ba + whole.sliced(1) << missing;
    for (const QByteArray &key : {"server_url"_ba, "username"_ba, "password"_ba}) {
        for (const QByteArray &value : {"\"\""_ba, "5"_ba}) {
            const QByteArray data = whole.chopped(1) + ",\"" + key + "\":" + value + '}';
            QTest::newRow((key + ' ' + value).constData()) << success(data) << missing;
        }
    }
}

void tst_ZevrinoClient::replies()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QString, outcome);
    server->on(path, bodyReply(body));
    QCOMPARE(resolve(*client), outcome);
    QCOMPARE(server->requestCount(), 1);
    QTRY_VERIFY(client->findChildren<QNetworkReply *>().isEmpty());
}

void tst_ZevrinoClient::networkErrors()
{
    server->on(path, statusReply(503, R"({"status":"error","message":"from the body"})"_ba));
    QCOMPARE(resolve(*client), u"Could not reach server: Error transferring "_s +
                                   server->url(path) + u" - server replied: Service Unavailable"_s);
    server->refuse();
    QCOMPARE(resolve(*client), u"Could not reach server: Connection refused"_s);
}

void tst_ZevrinoClient::untrustedCertificate()
{
    QSslConfiguration strict = trusting;
    strict.setCaCertificates({});
    QSslConfiguration::setDefaultConfiguration(strict);
    server->on(path, bodyReply("{}"_ba));
    const QString prefix = u"Could not reach server: "_s;
    const QString outcome = resolve(*client);
    QVERIFY2(outcome.startsWith(prefix) && outcome != prefix, qPrintable(outcome));
    QCOMPARE(server->requestCount(), 0); // the key was not sent
}

void tst_ZevrinoClient::redirects()
{
    // Qt's default follows them as long as they stay on TLS.
    server->on(path, HttpReply::redirect(u"/moved"_s, 307));
    server->on(u"/moved"_s, bodyReply(success()));
    QCOMPARE(resolve(*client), wholeCredentials);

    HttpServer plain;
    plain.on(u"/moved"_s, bodyReply(success()));
    server->on(path, HttpReply::redirect(plain.url(u"/moved"_s), 307));
    QVERIFY(resolve(*client).startsWith(u"Could not reach server: "_s));
    QCOMPARE(plain.requestCount(), 0);
}

void tst_ZevrinoClient::destroyedClientNeverCallsBack()
{
    server->on(path, heldReply("{}"_ba));
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
    server->on(path, bodyReply("{}"_ba));
    int calls = 0;
    client->resolve(u"KEY"_s,
                    [this, &calls](bool, const ZevrinoClient::Credentials &, const QString &) {
                        ++calls;
                        client.reset();
                    });
    QTRY_COMPARE(calls, 1);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ZevrinoClient)
#include "tst_ZevrinoClient.moc"
