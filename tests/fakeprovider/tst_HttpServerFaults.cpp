#include "fakeprovider/HttpServer.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

/// The ways in which the server can be slow, break off or be gone.
class tst_HttpServerFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cutsTheBody();
    void stallsAndIsDropped();
    void delays();
    void holdsUntilReleased();
    void neverAnswers();
    void producesAnEndlessBody();
    void pacesTheBody();
    void noticesThatTheClientLeft();
    void servesManyAtOnce();
    void refusesAndListensAgain();
    void endsPromptlyWithRepliesInFlight();

private:
    QNetworkReply *get(const QString &path);
    static bool finished(QNetworkReply *reply);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<QNetworkAccessManager> network;
};

namespace {

HttpReply text(const QByteArray &body)
{
    HttpReply reply;
    reply.body = body;
    return reply;
}

HttpReply endless()
{
    HttpReply reply;
    reply.producer = [](qint64) { return QByteArray(1000, 'x'); };
    return reply;
}

} // namespace

void tst_HttpServerFaults::init()
{
    server = std::make_unique<HttpServer>();
    network = std::make_unique<QNetworkAccessManager>();
}

void tst_HttpServerFaults::cleanup()
{
    network.reset();
    server.reset();
}

QNetworkReply *tst_HttpServerFaults::get(const QString &path)
{
    return network->get(QNetworkRequest(QUrl(server->url(path))));
}

bool tst_HttpServerFaults::finished(QNetworkReply *reply)
{
    QSignalSpy spy(reply, &QNetworkReply::finished);
    return reply->isFinished() || spy.wait(5000);
}

void tst_HttpServerFaults::cutsTheBody()
{
    HttpReply cut = text("0123456789"_ba);
    cut.cutAfter = 4;
    server->on(u"/x"_s, cut);
    QNetworkReply *reply = get(u"/x"_s);
    QVERIFY(finished(reply));
    QCOMPARE(reply->error(), QNetworkReply::RemoteHostClosedError);
    QCOMPARE(reply->header(QNetworkRequest::ContentLengthHeader).toInt(), 10);
    QCOMPARE(reply->readAll(), "0123"_ba);
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_HttpServerFaults::stallsAndIsDropped()
{
    HttpReply stalled = text("0123456789"_ba);
    stalled.stallAfter = 4;
    server->on(u"/x"_s, stalled);
    QNetworkReply *reply = get(u"/x"_s);
    QTRY_COMPARE(reply->bytesAvailable(), 4);
    QCOMPARE(server->openConnections(u"/x"_s), 1);
    QVERIFY(!reply->isFinished());

    server->dropConnections(u"/other"_s);
    QCOMPARE(server->openConnections(u"/x"_s), 1);
    server->dropConnections(u"/x"_s);
    QVERIFY(finished(reply));
    QCOMPARE(reply->error(), QNetworkReply::RemoteHostClosedError);
    QCOMPARE(server->openConnections(u"/x"_s), 0);
}

void tst_HttpServerFaults::delays()
{
    HttpReply late = text("late"_ba);
    late.delayMs = 200;
    server->on(u"/late"_s, late);
    server->on(u"/soon"_s, text("soon"_ba));
    QElapsedTimer clock;
    clock.start();
    QNetworkReply *lateReply = get(u"/late"_s);
    QNetworkReply *soonReply = get(u"/soon"_s);
    QVERIFY(finished(soonReply));
    QVERIFY(finished(lateReply));
    QVERIFY(clock.elapsed() >= 190);
    QCOMPARE(lateReply->readAll(), "late"_ba);
}

void tst_HttpServerFaults::holdsUntilReleased()
{
    HttpReply held = text("free"_ba);
    held.held = true;
    server->on(u"/x"_s, held);
    QNetworkReply *first = get(u"/x"_s);
    QNetworkReply *second = get(u"/x"_s);
    QTRY_COMPARE(server->openConnections(u"/x"_s), 2);
    QVERIFY(!first->isFinished() && !second->isFinished());
    server->release(u"/x"_s);
    QVERIFY(finished(first));
    QVERIFY(finished(second));
    QCOMPARE(first->readAll(), "free"_ba);
    QNetworkReply *third = get(u"/x"_s);
    QVERIFY2(finished(third), "A reply after the release is not held");
    QCOMPARE(server->peakConnections(u"/x"_s), 2);
}

void tst_HttpServerFaults::neverAnswers()
{
    HttpReply silent;
    silent.neverAnswer = true;
    server->on(u"/x"_s, silent);
    QNetworkReply *reply = get(u"/x"_s);
    QTRY_COMPARE(server->openConnections(u"/x"_s), 1);
    server->release(u"/x"_s);
    QVERIFY(!reply->isFinished());
    server.reset();
    QVERIFY(finished(reply));
    // Qt sends a GET once more when the connection was closed before any answer.
    QCOMPARE(reply->error(), QNetworkReply::ConnectionRefusedError);
}

void tst_HttpServerFaults::producesAnEndlessBody()
{
    server->on(u"/x"_s, endless());
    QNetworkReply *reply = get(u"/x"_s);
    qint64 read = 0;
    connect(reply, &QNetworkReply::readyRead, reply,
            [reply, &read] { read += reply->readAll().size(); });
    QTRY_VERIFY(read > 5'000'000);
    QCOMPARE(server->openConnections(u"/x"_s), 1);
    server->dropConnections(u"/x"_s);
    QVERIFY(finished(reply));
    QCOMPARE(server->openConnections(u"/x"_s), 0);
}

void tst_HttpServerFaults::pacesTheBody()
{
    HttpReply paced = text(QByteArray(4000, 'x'));
    paced.bytesPerSecond = 10'000;
    paced.burst = 1000;
    server->on(u"/x"_s, paced);
    QElapsedTimer clock;
    clock.start();
    QNetworkReply *reply = get(u"/x"_s);
    QVERIFY(finished(reply));
    QVERIFY(clock.elapsed() >= 290);
    QCOMPARE(reply->readAll().size(), 4000);
}

void tst_HttpServerFaults::noticesThatTheClientLeft()
{
    HttpReply silent;
    silent.neverAnswer = true;
    server->on(u"/silent"_s, silent);
    server->on(u"/endless"_s, endless());
    for (const QString &path : {u"/silent"_s, u"/endless"_s}) {
        QNetworkReply *reply = get(path);
        QTRY_COMPARE(server->openConnections(path), 1);
        reply->abort();
        QTRY_COMPARE(server->openConnections(path), 0);
    }
}

void tst_HttpServerFaults::servesManyAtOnce()
{
    HttpReply held = text("x"_ba);
    held.held = true;
    server->on(u"/x"_s, held);
    std::vector<std::unique_ptr<QTcpSocket>> clients;
    for (int i = 0; i < 100; ++i) {
        clients.push_back(std::make_unique<QTcpSocket>());
        clients.back()->connectToHost(QHostAddress::LocalHost, server->port());
        clients.back()->write("GET /x HTTP/1.0\r\n\r\n");
    }
    QTRY_COMPARE(server->openConnections(u"/x"_s), 100);
    server->release(u"/x"_s);
    for (const auto &client : clients) {
        QTRY_COMPARE(client->state(), QAbstractSocket::UnconnectedState);
        QVERIFY(client->readAll().endsWith("\r\n\r\nx"));
    }
    QCOMPARE(server->openConnections(), 0);
}

void tst_HttpServerFaults::refusesAndListensAgain()
{
    server->on(u"/x"_s, text("x"_ba));
    QNetworkReply *before = get(u"/x"_s);
    QVERIFY(finished(before));
    QCOMPARE(before->error(), QNetworkReply::NoError);

    server->refuse();
    QNetworkReply *refused = get(u"/x"_s);
    QVERIFY(finished(refused));
    QCOMPARE(refused->error(), QNetworkReply::ConnectionRefusedError);

    QVERIFY(server->listenAgain());
    QNetworkReply *after = get(u"/x"_s);
    QVERIFY(finished(after));
    QCOMPARE(after->readAll(), "x"_ba);
}

void tst_HttpServerFaults::endsPromptlyWithRepliesInFlight()
{
    HttpReply silent;
    silent.neverAnswer = true;
    HttpReply late;
    late.delayMs = 3'600'000;
    HttpReply stalled = text("0123456789"_ba);
    stalled.stallAfter = 4;
    server->on(u"/silent"_s, silent);
    server->on(u"/late"_s, late);
    server->on(u"/stalled"_s, stalled);
    server->on(u"/endless"_s, endless());
    // Clients that never read, so that the endless reply is stuck in a full socket.
    std::vector<std::unique_ptr<QTcpSocket>> clients;
    for (const QByteArray &path : {"/silent"_ba, "/late"_ba, "/stalled"_ba, "/endless"_ba}) {
        clients.push_back(std::make_unique<QTcpSocket>());
        clients.back()->setReadBufferSize(1);
        clients.back()->connectToHost(QHostAddress::LocalHost, server->port());
        clients.back()->write("GET " + path + " HTTP/1.1\r\n\r\n");
    }
    QTRY_COMPARE(server->openConnections(), 4);
    server.reset(); // the test's time limit is the check
    for (const auto &client : clients) {
        client->setReadBufferSize(0);
        QTRY_COMPARE(client->state(), QAbstractSocket::UnconnectedState);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_HttpServerFaults)
#include "tst_HttpServerFaults.moc"
