#include "fakeprovider/HttpServer.h"
#include "fakeprovider/TlsCertificate.h"
#include "providers/Await.h"
#include "providers/HttpExchange.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QNetworkAccessManager>
#include <QSignalSpy>
#include <QSslConfiguration>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Redirects = HttpQuestion::Redirects;

QString hop(int number)
{
    return u"/hop/%1"_s.arg(number);
}

/// From "/hop/0" over as many redirects to an answer.
void serveHops(HttpServer &server, int count, int status = 302)
{
    for (int number = 0; number < count; ++number) {
        server.on(hop(number), HttpReply::redirect(hop(number + 1), status));
    }
    server.on(hop(count), bodyReply("answer"_ba));
}

HttpQuestion questionFor(const QString &url)
{
    HttpQuestion question;
    question.request.setUrl(QUrl(url));
    question.maxBytes = 1000;
    return question;
}

} // namespace

class tst_HttpExchange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void asksEachHopOnce_data();
    void asksEachHopOnce();
    void asksEachHopOnceAmongOthers();
    void targets_data();
    void targets();
    void methods_data();
    void methods();
    void refusedTargets_data();
    void refusedTargets();
    void countsRedirects_data();
    void countsRedirects();
    void lessSafeTargets_data();
    void lessSafeTargets();
    void receivesTheAnswerOnly_data();
    void receivesTheAnswerOnly();
    void receiverEndsTheExchange();
    void limitsBodies_data();
    void limitsBodies();
    void aborts();
    void neverReportsBehindItsManager();

private:
    /// Waits for its end.
    HttpExchange &ask(const HttpQuestion &question);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<QNetworkAccessManager> network;
};

void tst_HttpExchange::init()
{
    server = std::make_unique<HttpServer>();
    network = std::make_unique<QNetworkAccessManager>();
}

HttpExchange &tst_HttpExchange::ask(const HttpQuestion &question)
{
    auto *exchange = new HttpExchange(network.get(), question);
    int ends = 0;
    connect(exchange, &HttpExchange::finished, this, [&ends] { ++ends; });
    (void)waitUntil([&ends] { return ends > 0; });
    QCoreApplication::processEvents();
    disconnect(exchange, nullptr, this, nullptr);
    (void)QTest::qCompare(ends, 1, "ends", "1", __FILE__, __LINE__);
    return *exchange;
}

void tst_HttpExchange::asksEachHopOnce_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("count");
    for (const int status : {301, 302, 303, 307, 308}) {
        QTest::addRow("%d", status) << status << 1;
    }
    QTest::newRow("a chain of two") << 302 << 2;
    QTest::newRow("a chain of ten") << 302 << 10;
}

void tst_HttpExchange::asksEachHopOnce()
{
    QFETCH(const int, status);
    QFETCH(const int, count);
    serveHops(*server, count, status);
    HttpExchange &exchange = ask(questionFor(server->url(hop(0))));
    QCOMPARE(exchange.error(), QNetworkReply::NoError);
    QCOMPARE(exchange.take().join(), "answer"_ba);
    QCOMPARE(exchange.reply().url(), QUrl(server->url(hop(count))));
    QStringList asked;
    for (const HttpRequest &request : server->requests()) {
        asked << server->url(request.target);
    }
    QCOMPARE(asked.size(), count + 1);
    QCOMPARE(QUrl::toStringList(exchange.addresses()), asked);
}

void tst_HttpExchange::asksEachHopOnceAmongOthers()
{
    serveHops(*server, 5);
    int answers = 0;
    for (int count = 1; count <= 12; ++count) {
        auto *exchange = new HttpExchange(network.get(), questionFor(server->url(hop(0))));
        connect(exchange, &HttpExchange::finished, this, [&answers, exchange] {
            answers += exchange->take().join() == "answer" ? 1 : 1000;
        });
    }
    QVERIFY(waitUntil([&answers] { return answers >= 12; }));
    QCOMPARE(answers, 12);
    QCOMPARE(server->requestCount(), 12 * 6);
}

void tst_HttpExchange::targets_data()
{
    QTest::addColumn<QByteArray>("location");
    QTest::addColumn<QString>("target");
    QTest::newRow("a path with a query") << "/b?x=y%26"_ba << u"/b?x=y%26"_s;
    QTest::newRow("beside the address") << "b"_ba << u"/folder/b"_s;
    QTest::newRow("above it") << "../b"_ba << u"/b"_s;
    QTest::newRow("a query alone") << "?c=d"_ba << u"/folder/a?c=d"_s;
    QTest::newRow("not encoded") << "/Für alle.png"_ba << u"/F%C3%BCr%20alle.png"_s;
    QTest::newRow("with a fragment") << "/b#top"_ba << u"/b"_s;
}

void tst_HttpExchange::targets()
{
    QFETCH(const QByteArray, location);
    QFETCH(const QString, target);
    HttpReply redirect;
    redirect.status = 302;
    redirect.headers.append({"Location"_ba, location});
    server->onPrefix(u"/"_s, [redirect](const HttpRequest &request) {
        return request.target == "/folder/a?old=1"_L1 ? redirect : bodyReply("answer"_ba);
    });
    QCOMPARE(ask(questionFor(server->url(u"/folder/a?old=1"_s))).take().join(), "answer"_ba);
    QCOMPARE(server->requests().last().target, target);
}

void tst_HttpExchange::methods_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QByteArray>("body");
    for (const int status : {301, 302, 303}) {
        QTest::addRow("%d", status) << status << "GET"_ba
                                    << ""_ba;
    }
    for (const int status : {307, 308}) {
        QTest::addRow("%d", status) << status << "POST"_ba
                                    << "question"_ba;
    }
}

void tst_HttpExchange::methods()
{
    QFETCH(const int, status);
    serveHops(*server, 2, status);
    HttpQuestion question = questionFor(server->url(hop(0)));
    question.request.setHeader(QNetworkRequest::ContentTypeHeader, u"text/plain"_s);
    question.request.setHeader(QNetworkRequest::UserAgentHeader, u"Agent/1"_s);
    question.posted = "question"_ba;
    QCOMPARE(ask(question).take().join(), "answer"_ba);
    QCOMPARE(server->requestCount(), 3);
    const HttpRequest first = server->requests().first();
    QCOMPARE(first.method, "POST"_ba);
    QCOMPARE(first.body, "question"_ba);
    const HttpRequest last = server->requests().last();
    QTEST(last.method, "method");
    QTEST(last.body, "body");
    QCOMPARE(last.header("User-Agent"), "Agent/1"_ba);
}

void tst_HttpExchange::refusedTargets_data()
{
    QTest::addColumn<QByteArray>("location");
    QTest::newRow("a local file") << "file:///etc/hostname"_ba;
    QTest::newRow("a resource") << ":/qt-project.org/qmime/packages/freedesktop.org.xml"_ba;
    QTest::newRow("data") << "data:text/plain,answer"_ba;
    QTest::newRow("FTP") << "ftp://127.0.0.1/"_ba;
    QTest::newRow("none") << ""_ba;
    QTest::newRow("no address") << "http://[/"_ba;
}

void tst_HttpExchange::refusedTargets()
{
    QFETCH(const QByteArray, location);
    HttpReply redirect;
    redirect.status = 302;
    redirect.body = "moved"_ba;
    redirect.headers.append({"Location"_ba, location});
    server->on(hop(0), redirect);
    // The network layer's own text for the same answer.
    const std::unique_ptr<QNetworkReply> own(
        network->get(questionFor(server->url(hop(0))).request));
    QVERIFY(waitUntil([&own] { return own->isFinished(); }));
    server->clearRequests();

    for (const Redirects redirects : {Redirects::NotToLessSafe, Redirects::Anywhere}) {
        HttpQuestion question = questionFor(server->url(hop(0)));
        question.redirects = redirects;
        HttpExchange &exchange = ask(question);
        QCOMPARE(exchange.error(), own->error());
        QCOMPARE(exchange.errorString(), own->errorString());
        QVERIFY(exchange.take().isEmpty());
    }
    QCOMPARE(server->requestCount(), 2);
}

void tst_HttpExchange::countsRedirects_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("error");
    QTest::newRow("as many as Qt follows") << 50 << QString();
    QTest::newRow("one more") << 51 << u"Too many redirects"_s;
}

void tst_HttpExchange::countsRedirects()
{
    QFETCH(const int, count);
    QFETCH(const QString, error);
    QCOMPARE(QNetworkRequest().maximumRedirectsAllowed(), HttpExchange::maxRedirects);
    serveHops(*server, count);
    const HttpExchange &exchange = ask(questionFor(server->url(hop(0))));
    QCOMPARE(exchange.failed() ? exchange.errorString() : QString(), error);
    QCOMPARE(exchange.error() == QNetworkReply::TooManyRedirectsError, !error.isEmpty());
    QCOMPARE(server->requestCount(), 51);
}

void tst_HttpExchange::lessSafeTargets_data()
{
    QTest::addColumn<Redirects>("redirects");
    QTest::addColumn<QNetworkReply::NetworkError>("error");
    QTest::newRow("refused") << Redirects::NotToLessSafe << QNetworkReply::InsecureRedirectError;
    QTest::newRow("followed") << Redirects::Anywhere << QNetworkReply::NoError;
}

void tst_HttpExchange::lessSafeTargets()
{
#ifdef Q_OS_WIN
    QSKIP("Windows' own TLS cannot serve under Wine");
#endif
    QFETCH(const Redirects, redirects);
    QFETCH(const QNetworkReply::NetworkError, error);
    const QTemporaryDir directory;
    const TlsCertificate certificate(directory.path());
    QVERIFY(certificate.isValid());
    HttpServer secure(HttpServer::Tls{certificate.certificateFile(), certificate.keyFile()});
    secure.on(hop(0), HttpReply::redirect(hop(1)));
    secure.on(hop(1), HttpReply::redirect(server->url(u"/plain"_s)));
    server->on(u"/plain"_s, bodyReply("answer"_ba));

    HttpQuestion question = questionFor(secure.url(hop(0)));
    question.redirects = redirects;
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.setCaCertificates(QSslCertificate::fromPath(certificate.authorityFile()));
    question.request.setSslConfiguration(trusting);
    HttpExchange &exchange = ask(question);
    QCOMPARE(exchange.error(), error);
    QCOMPARE(secure.requestCount(), 2);
    QCOMPARE(server->requestCount(), exchange.failed() ? 0 : 1);
    if (exchange.failed()) {
        QCOMPARE(exchange.errorString(), u"Insecure redirect"_s);
    }
}

void tst_HttpExchange::receivesTheAnswerOnly_data()
{
    QTest::addColumn<HttpReply>("answer");
    QTest::addColumn<QByteArray>("received");
    QTest::newRow("an answer") << bodyReply("answer"_ba) << "answer"_ba;
    QTest::newRow("a failure") << statusReply(404, "not found"_ba) << ""_ba;
}

void tst_HttpExchange::receivesTheAnswerOnly()
{
    QFETCH(const HttpReply, answer);
    HttpReply redirect = HttpReply::redirect(hop(1));
    redirect.body = "moved"_ba;
    server->on(hop(0), redirect);
    server->on(hop(1), answer);
    HttpQuestion question = questionFor(server->url(hop(0)));
    QByteArray received;
    question.receive = [&received](QByteArrayView bytes) {
        received += bytes;
        return true;
    };
    HttpExchange &exchange = ask(question);
    QTEST(received, "received");
    QCOMPARE(exchange.failed(), answer.status != 200);
    QVERIFY(exchange.take().isEmpty());
}

void tst_HttpExchange::receiverEndsTheExchange()
{
    HttpReply endless;
    endless.producer = [](qint64) { return QByteArray(65536, ' '); };
    server->on(hop(0), endless);
    HttpQuestion question = questionFor(server->url(hop(0)));
    question.maxBytes = 1024LL * 1024 * 1024;
    int calls = 0;
    question.receive = [&calls](QByteArrayView) { return ++calls < 3; };
    QCOMPARE(ask(question).error(), QNetworkReply::OperationCanceledError);
    QCOMPARE(calls, 3);
}

void tst_HttpExchange::limitsBodies_data()
{
    QTest::addColumn<qsizetype>("bytes");
    QTest::addColumn<QNetworkReply::NetworkError>("error");
    QTest::newRow("as long as allowed") << qsizetype(1000) << QNetworkReply::NoError;
    QTest::newRow("longer") << qsizetype(1001) << QNetworkReply::OperationCanceledError;
}

void tst_HttpExchange::limitsBodies()
{
    QFETCH(const qsizetype, bytes);
    QFETCH(const QNetworkReply::NetworkError, error);
    HttpReply chunked = bodyReply(QByteArray(bytes, 'x'));
    chunked.chunked = true;
    server->on(hop(0), HttpReply::redirect(hop(1)));
    server->on(hop(1), chunked);
    HttpExchange &exchange = ask(questionFor(server->url(hop(0))));
    QCOMPARE(exchange.error(), error);
    QCOMPARE(exchange.take().size(), exchange.failed() ? 0 : bytes);
}

void tst_HttpExchange::aborts()
{
    server->on(hop(0), HttpReply::redirect(hop(1)));
    server->on(hop(1), neverAnswers());
    auto *exchange = new HttpExchange(network.get(), questionFor(server->url(hop(0))));
    const QSignalSpy begun(exchange, &HttpExchange::begun);
    const QSignalSpy finished(exchange, &HttpExchange::finished);
    QVERIFY(waitUntil([this] { return server->openConnections(hop(1)) == 1; }));
    QVERIFY(!begun.isEmpty());
    exchange->abort();
    QVERIFY(waitUntil([&finished] { return !finished.isEmpty(); }));
    exchange->abort();
    QCoreApplication::processEvents();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(exchange->error(), QNetworkReply::OperationCanceledError);
}

void tst_HttpExchange::neverReportsBehindItsManager()
{
    server->on(hop(0), HttpReply::redirect(hop(1)));
    server->on(hop(1), heldReply("answer"_ba));
    int ends = 0;
    auto *exchange = new HttpExchange(network.get(), questionFor(server->url(hop(0))));
    connect(exchange, &HttpExchange::finished, this, [&ends] { ++ends; });
    QVERIFY(waitUntil([this] { return server->openConnections(hop(1)) == 1; }));
    network.reset();
    QCoreApplication::processEvents();
    QCOMPARE(ends, 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_HttpExchange)
#include "tst_HttpExchange.moc"
