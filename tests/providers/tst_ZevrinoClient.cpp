#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/ZevrinoClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QNetworkAccessManager>
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
    void cleanup();

    void request_data();
    void request();
    void replies_data();
    void replies();
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
    server->on(path, bodyReply("{}"_ba));
    QCOMPARE(resolve(*client, key), u"Subscription could not be resolved"_s);
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
    QTest::newRow("a message beside the success")
        << R"({"status":"success","message":"hello","data":)" + whole + '}' << wholeCredentials;

    for (const QByteArray &body : {""_ba, "<html></html>"_ba, success().chopped(1),
                                   '[' + success() + ']', R"("success")"_ba, "null"_ba}) {
        QTest::addRow("body %s", body.constData()) << body << u"Invalid response from server"_s;
    }

    const QString unresolved = u"Subscription could not be resolved"_s;
    QTest::newRow("empty object") << "{}"_ba << unresolved;
    QTest::newRow("status missing") << R"({"data":)"_ba + whole + '}' << unresolved;
    for (const QByteArray &status :
         {"\"error\""_ba, "\"Success\""_ba, "\"success \""_ba, "\"\""_ba, "true"_ba, "1"_ba,
          "null"_ba, "[\"success\"]"_ba, "{\"success\":1}"_ba}) {
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
    QTest::newRow("message of a space") << R"({"status":"error","message":" "})"_ba << u" "_s;
    QTest::newRow("message in data")
        << R"({"status":"error","data":{"message":"x"}})"_ba << unresolved;

    const QString missing = u"Server response was missing credentials"_s;
    QTest::newRow("data missing") << R"({"status":"success","message":"x"})"_ba << missing;
    for (const QByteArray &data : {"null"_ba, '[' + whole + ']', "{}"_ba}) {
        QTest::newRow(("data " + data).constData()) << success(data) << missing;
    }
    QTest::newRow("credentials outside data")
        << R"({"status":"success",)"_ba + whole.sliced(1) << missing;
    for (const QByteArray &key : {"server_url"_ba, "username"_ba, "password"_ba}) {
        QTest::newRow((key + " missing").constData())
            << success(QByteArray(whole).replace('"' + key + '"', "\"other\"")) << missing;
        for (const QByteArray &value : {"\"\""_ba, "null"_ba, "5"_ba, "{}"_ba}) {
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
    server->on(path, statusReply(status, R"({"status":"error","message":"from the body"})"_ba));
    const QString outcome = resolve(*client);

    // The same request without the client gives the message of the network layer.
    QNetworkAccessManager network;
    QNetworkRequest request{QUrl(server->url(path))};
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    const std::unique_ptr<QNetworkReply> own(network.post(request, "{}"_ba));
    QTRY_VERIFY(own->isFinished());
    QCOMPARE(int(own->error()), error);
    QVERIFY(!own->errorString().isEmpty());
    QCOMPARE(outcome, u"Could not reach server: "_s + own->errorString());
}

void tst_ZevrinoClient::unreachable()
{
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

void tst_ZevrinoClient::severalAtOnce()
{
    server->on(path, [](const HttpRequest &request) {
        const bool good = request.body.contains("good");
        return bodyReply(good ? success()
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
    QVERIFY(client == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 1);
}

void tst_ZevrinoClient::repliesAreDeleted()
{
    const auto *network = client->findChild<QNetworkAccessManager *>();
    QVERIFY(network != nullptr);
    server->on(path, bodyReply(success()));
    QCOMPARE(resolve(*client), wholeCredentials);
    server->refuse();
    QVERIFY(resolve(*client) != wholeCredentials);
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
