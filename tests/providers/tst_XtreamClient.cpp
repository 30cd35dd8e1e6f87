#include "fakeprovider/TlsCertificate.h"
#include "providers/XtreamSession.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

// What becomes of a request; tst_XtreamRequests shows what is sent.

namespace {

const QString api = XtreamSession::api.toString();
const QByteArray failed = XtreamSession::failed;
const QString accepted = u"accepted"_s;
const QString unreachable = u"Could not reach server or invalid response"_s;
const QString refused = u"Authentication failed - check server URL, username, and password"_s;

} // namespace

class tst_XtreamClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outcomes_data();
    void outcomes();
    void malformedServerAddresses();
    void noLocalFileIsRead();
    void redirects();
    void manyRequestsAtOnce();
    void tls_data();
    void tls();

    void login_data();
    void login();

    void destroyedClientNeverCallsBack();
    void destroyedInItsOwnCallback();
};

void tst_XtreamClient::outcomes_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<QByteArray>("outcome");
    const QByteArray body = R"({"a":[1,"x",null]})"_ba;
    QTest::newRow("object") << HttpReply::json(body) << body;
    QTest::newRow("array") << HttpReply::json("[]"_ba) << "[]"_ba;
    QTest::newRow("another success status") << statusReply(203, body) << body;
    QTest::newRow("white space around") << bodyReply("\n " + body + "\r\n") << body;
    QTest::newRow("byte-order mark") << bodyReply("\xef\xbb\xbf" + body) << body;
    HttpReply reply = bodyReply(body);
    reply.gzip = true;
    QTest::newRow("gzip") << reply << body;
    reply.gzip = false;
    reply.chunked = true;
    QTest::newRow("chunks") << reply << body;

    QTest::newRow("empty body") << bodyReply({}) << failed;
    for (const QByteArray &malformed :
         {"<html></html>"_ba, "5"_ba, "null"_ba, body + "<!-- -->", body.chopped(1)}) {
        QTest::newRow(malformed.constData()) << bodyReply(malformed) << failed;
    }
    for (const int status : {401, 404, 503}) {
        QTest::addRow("%d", status) << statusReply(status, body) << failed;
    }
    QTest::newRow("cut body") << cutShort(bodyReply(body + QByteArray(1000, ' ')), body.size())
                              << failed;
}

void tst_XtreamClient::outcomes()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const QByteArray, outcome);
    XtreamSession xtream;
    xtream.reply(reply);
    QCOMPARE(xtream.get(u"get_series"_s), outcome);
    QCOMPARE(xtream.server.requestCount(), 1); // nothing is retried
    QTRY_VERIFY(xtream.client->findChildren<QNetworkReply *>().isEmpty());
}

void tst_XtreamClient::malformedServerAddresses()
{
    XtreamSession xtream;
    for (const QString &address :
         {u""_s, u"/"_s, u"127.0.0.1"_s, u"gopher://127.0.0.1"_s, u"http://"_s,
          u"http://127.0.0.1:99999"_s, u"my provider"_s, u" http://"_s}) {
        xtream.client->configure(address, u"u"_s, u"p"_s);
        QVERIFY2(xtream.get() == failed, qPrintable(address));
    }
}

/// A subscription's reply names the server, so it must not name a file.
void tst_XtreamClient::noLocalFileIsRead()
{
    QTemporaryDir directory;
    writeFile(directory.filePath(u"player_api.php"_s), "[1]"_ba);
    const QString file = QUrl::fromLocalFile(directory.path()).toString();
    XtreamSession xtream;
    for (const QString &address :
         {file, file.toUpper().replace(directory.path().toUpper(), directory.path()),
          directory.path(), u"data:application/json,[1]"_s, u"qrc:/"_s, u"ftp://127.0.0.1"_s,
          u"smb://127.0.0.1/share"_s, u"//127.0.0.1/share"_s, uR"(\\127.0.0.1\share)"_s}) {
        xtream.client->configure(address, u"u"_s, u"p"_s);
        QVERIFY2(xtream.get() == failed, qPrintable(address));
    }
}

/// tst_HttpExchange shows which ones are followed. The account stays with the first address.
void tst_XtreamClient::redirects()
{
    XtreamSession xtream;
    xtream.reply(HttpReply::redirect(u"/moved?x=y"_s));
    xtream.server.on(u"/moved"_s, bodyReply("[7]"_ba));
    QCOMPARE(xtream.get(), "[7]"_ba);
    QCOMPARE(xtream.server.requestCount(), 2);
    QCOMPARE(xtream.server.requests().at(1).target, u"/moved?x=y"_s);
    xtream.reply(HttpReply::redirect(u"file:///etc/hostname"_s));
    QCOMPARE(xtream.get(), failed);
}

void tst_XtreamClient::manyRequestsAtOnce()
{
    XtreamSession xtream;
    xtream.server.on(api, [](const HttpRequest &request) {
        const QString number = request.queryValue(u"n"_s);
        return number.endsWith(u'7') ? statusReply(500) : bodyReply('[' + number.toLatin1() + ']');
    });
    QMap<int, QList<int>> answers; // -1 for a failure
    QMap<int, QList<int>> expected;
    for (int number = 0; number < 50; ++number) {
        expected[number] << (number % 10 == 7 ? -1 : number);
        xtream.client->get(u"a"_s, u"n=%1"_s.arg(number),
                           [&answers, number](const QJsonDocument &document, bool ok) {
                               answers[number] << (ok ? document.array().first().toInt() : -1);
                           });
    }
    QTRY_COMPARE(answers.size(), 50);
    QCOMPARE(answers, expected);
}

void tst_XtreamClient::tls_data()
{
    QTest::addColumn<bool>("trusted");
    QTest::newRow("redirected from TLS to plain HTTP") << true;
    QTest::newRow("untrusted certificate") << false;
}

void tst_XtreamClient::tls()
{
#ifdef Q_OS_WIN
    QSKIP("Windows' own TLS cannot serve under Wine");
#endif
    QFETCH(const bool, trusted);
    QTemporaryDir directory;
    const TlsCertificate certificate(directory.path());
    QVERIFY(certificate.isValid());
    XtreamSession xtream;
    HttpServer secure(HttpServer::Tls{certificate.certificateFile(), certificate.keyFile()});
    secure.on(api, HttpReply::redirect(xtream.server.url(u"/plain"_s)));
    xtream.server.on(u"/plain"_s, bodyReply("[1]"_ba));

    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    trusting.setCaCertificates(QSslCertificate::fromPath(certificate.authorityFile()));
    QSslConfiguration::setDefaultConfiguration(trusted ? trusting : before);
    xtream.client->configure(secure.url(), u"u"_s, u"p"_s);
    const QByteArray outcome = xtream.get();
    QSslConfiguration::setDefaultConfiguration(before);
    QCOMPARE(outcome, trusted ? "[1]"_ba : failed);
    QCOMPARE(secure.requestCount(), trusted ? 1 : 0);
    QCOMPARE(xtream.server.requestCount(u"/plain"_s), trusted ? 1 : 0);
}

void tst_XtreamClient::login_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<QString>("outcome");
    const auto row = [](const QByteArray &body, const QString &outcome) {
        QTest::newRow(body.constData()) << bodyReply(body) << outcome;
    };
    const QByteArray good = R"({"user_info":{"auth":1}})"_ba;
    row(good, accepted);
    row(R"({"user_info":{"auth":1.0,"status":"Expired"},"server_info":{}})"_ba, accepted);
    for (const QByteArray &auth :
         {"0,\"status\":\"Active\""_ba, "2"_ba, "1.5"_ba, "4294967297"_ba, "\"1\""_ba, "true"_ba}) {
        row(R"({"user_info":{"auth":)" + auth + "}}", refused);
    }
    row(R"({"auth":1,"user_info":{}})"_ba, refused);
    row(R"({"user_info":[{"auth":1}]})"_ba, refused);
    row(R"([{"user_info":{"auth":1}}])"_ba, refused);
    row("<html></html>"_ba, unreachable);
    QTest::newRow("403") << statusReply(403, good) << unreachable;
}

void tst_XtreamClient::login()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const QString, outcome);
    XtreamSession xtream;
    xtream.reply(reply);
    QCOMPARE(xtream.login(), outcome);
    QCOMPARE(xtream.onlyQuery(), u"username=joe&password=secret"_s);
}

void tst_XtreamClient::destroyedClientNeverCallsBack()
{
    XtreamSession xtream;
    xtream.reply(heldReply("{}"_ba));
    int calls = 0;
    xtream.client->get({}, {}, [&calls](const QJsonDocument &, bool) { ++calls; });
    xtream.client->testLogin([&calls](bool, const QString &) { ++calls; });
    xtream.client->fetchSeries({}, [&calls](const QList<MediaItem> &) { ++calls; });
    QTRY_COMPARE(xtream.server.openConnections(), 3);
    xtream.client.reset();
    // Its requests are aborted without a callback.
    QTRY_COMPARE(xtream.server.openConnections(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

void tst_XtreamClient::destroyedInItsOwnCallback()
{
    XtreamSession xtream;
    int calls = 0;
    xtream.client->get({}, {}, [&](const QJsonDocument &, bool) {
        ++calls;
        xtream.client.reset();
    });
    QTRY_COMPARE(calls, 1);
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamClient)
#include "tst_XtreamClient.moc"
