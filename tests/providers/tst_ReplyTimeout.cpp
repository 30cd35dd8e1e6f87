// Servers that stop answering: the clients end the exchange, once, and only when nothing moves.

#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QNetworkAccessManager>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString api = u"/player_api.php"_s;
const QString credentialsPath = u"/api/v1/subscription/credentials"_s;
const QByteArray success =
    R"({"status":"success","data":{"server_url":"s","username":"u","password":"p"}})"_ba;

void setTimeout(const QObject &client, int ms)
{
    client.findChild<QNetworkAccessManager *>()->setTransferTimeout(ms);
}

} // namespace

Q_DECLARE_METATYPE(HttpReply)

class tst_ReplyTimeout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void initialValue();
    void endsOnce_data();
    void endsOnce();
    void aSlowReplyIsNotCutOff_data();
    void aSlowReplyIsNotCutOff();

private:
    QTemporaryDir directory;
    std::unique_ptr<HttpServer> plain;
    std::unique_ptr<HttpServer> secure;
    std::unique_ptr<XtreamClient> xtream;
    std::unique_ptr<ZevrinoClient> zevrino;
};

void tst_ReplyTimeout::initTestCase()
{
    const TlsCertificate certificate(directory.path());
    QVERIFY(certificate.isValid());
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.setCaCertificates(QSslCertificate::fromPath(certificate.authorityFile()));
    QSslConfiguration::setDefaultConfiguration(trusting);
}

void tst_ReplyTimeout::init()
{
    xtream.reset();
    zevrino.reset();
    plain = std::make_unique<HttpServer>();
    secure = std::make_unique<HttpServer>(HttpServer::Tls{directory.filePath(u"certificate.pem"_s),
                                                          directory.filePath(u"key.pem"_s)});
    xtream = std::make_unique<XtreamClient>(nullptr);
    xtream->configure(plain->url(), u"joe"_s, u"secret"_s);
    zevrino = std::make_unique<ZevrinoClient>(secure->url(), nullptr);
}

void tst_ReplyTimeout::initialValue()
{
    QCOMPARE(xtream->findChild<QNetworkAccessManager *>()->transferTimeout(), 60'000);
    QCOMPARE(zevrino->findChild<QNetworkAccessManager *>()->transferTimeout(), 60'000);
}

void tst_ReplyTimeout::endsOnce_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<HttpReply>("target"); // of a redirect
    QTest::newRow("no answer") << neverAnswers() << HttpReply();
    QTest::newRow("a part of the body") << stalling(bodyReply(success), 10) << HttpReply();
    QTest::newRow("no answer after a redirect")
        << HttpReply::redirect(u"/hop"_s, 307) << neverAnswers();
    HttpReply stalledRedirect = HttpReply::redirect(u"/hop"_s, 307);
    stalledRedirect.body = "moved"_ba;
    QTest::newRow("a redirect whose body stalls") << stalling(stalledRedirect, 2) << neverAnswers();
}

void tst_ReplyTimeout::endsOnce()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const HttpReply, target);
    for (HttpServer *server : {plain.get(), secure.get()}) {
        server->on(api, reply);
        server->on(credentialsPath, reply);
        server->on(u"/hop"_s, target);
    }
    setTimeout(*xtream, 300);
    setTimeout(*zevrino, 300);
    const auto document = await<bool>([&](auto callback) {
        xtream->get({}, {}, [callback](const QJsonDocument &, bool ok) { callback(ok); });
    });
    QCOMPARE(document.calls, 1);
    QCOMPARE(document.value, false);

    using Resolved = std::pair<bool, QString>;
    const auto credentials = await<Resolved>([&](auto callback) {
        zevrino->resolve(u"KEY"_s, [callback](bool ok, const ZevrinoClient::Credentials &,
                                              const QString &message) {
            callback({ok, message});
        });
    });
    QCOMPARE(credentials.calls, 1);
    QCOMPARE(credentials.value.first, false);
    QVERIFY(credentials.value.second.startsWith(u"Could not reach server: "_s));
    // The connections are closed, too.
    QTRY_COMPARE(plain->openConnections() + secure->openConnections(), 0);
}

void tst_ReplyTimeout::aSlowReplyIsNotCutOff_data()
{
    QTest::addColumn<bool>("redirected");
    QTest::newRow("at once") << false;
    QTest::newRow("after a redirect") << true;
}

void tst_ReplyTimeout::aSlowReplyIsNotCutOff()
{
    QFETCH(const bool, redirected);
    // Takes three times as long as it may stall.
    HttpReply slow = bodyReply(success);
    slow.bytesPerSecond = success.size() / 3;
    for (HttpServer *server : {plain.get(), secure.get()}) {
        const HttpReply first = redirected ? HttpReply::redirect(u"/hop"_s, 307) : slow;
        server->on(api, first);
        server->on(credentialsPath, first);
        server->on(u"/hop"_s, slow);
    }
    setTimeout(*xtream, 1000);
    setTimeout(*zevrino, 1000);
    int documents = 0;
    int accounts = 0;
    xtream->get({}, {}, [&](const QJsonDocument &, bool ok) { documents += ok ? 1 : 100; });
    zevrino->resolve(u"KEY"_s, [&](bool ok, const ZevrinoClient::Credentials &, const QString &) {
        accounts += ok ? 1 : 100;
    });
    QTRY_VERIFY_WITH_TIMEOUT(documents > 0 && accounts > 0, 20'000);
    QCOMPARE(documents, 1);
    QCOMPARE(accounts, 1);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ReplyTimeout)
#include "tst_ReplyTimeout.moc"
