#include "ServerTest.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

/// The ways in which the server can be slow, close early or be gone.
class tst_HttpServerFaults : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void cutsTheBody();
    void stallsAndIsDropped();
    void delays();
    void holdsUntilReleased();
    void keepsSilent();
    void pacesTheBody();
    void noticesThatTheClientLeft();
    void refusesAndListensAgain();
    void endsPromptlyWithRepliesInFlight();
};

namespace {

HttpReply endless()
{
    HttpReply reply;
    reply.producer = [](qint64) { return QByteArray(1000, 'x'); };
    return reply;
}

} // namespace

void tst_HttpServerFaults::cutsTheBody()
{
    server->on(u"/x"_s, cutShort(bodyReply("0123456789"_ba), 4));
    QNetworkReply *reply = fetch(u"/x"_s);
    QCOMPARE(reply->error(), QNetworkReply::RemoteHostClosedError);
    QCOMPARE(reply->header(QNetworkRequest::ContentLengthHeader).toInt(), 10);
    QCOMPARE(reply->readAll(), "0123"_ba);
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_HttpServerFaults::stallsAndIsDropped()
{
    server->on(u"/x"_s, stalling(bodyReply("0123456789"_ba), 4));
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
    HttpReply late = bodyReply("late"_ba);
    late.delayMs = 200;
    server->on(u"/late"_s, late);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(fetch(u"/late"_s)->readAll(), "late"_ba);
    QVERIFY(clock.elapsed() >= 190);
}

void tst_HttpServerFaults::holdsUntilReleased()
{
    server->on(u"/x"_s, heldReply("free"_ba));
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

void tst_HttpServerFaults::keepsSilent()
{
    server->on(u"/x"_s, neverAnswers());
    QNetworkReply *reply = get(u"/x"_s);
    QTRY_COMPARE(server->openConnections(u"/x"_s), 1);
    server->release(u"/x"_s);
    QVERIFY(!reply->isFinished());
    server.reset();
    QVERIFY(finished(reply));
    // Qt sends a GET once more when the connection was closed before any answer.
    QCOMPARE(reply->error(), QNetworkReply::ConnectionRefusedError);
}

void tst_HttpServerFaults::pacesTheBody()
{
    HttpReply paced = bodyReply(QByteArray(4000, 'x'));
    paced.bytesPerSecond = 10'000;
    paced.burst = 1000;
    server->on(u"/x"_s, paced);
    QElapsedTimer clock;
    clock.start();
    QNetworkReply *reply = fetch(u"/x"_s);
    QVERIFY(clock.elapsed() >= 290);
    QCOMPARE(reply->readAll().size(), 4000);
}

void tst_HttpServerFaults::noticesThatTheClientLeft()
{
    server->on(u"/silent"_s, neverAnswers());
    server->on(u"/endless"_s, endless());
    for (const QString &path : {u"/silent"_s, u"/endless"_s}) {
        QNetworkReply *reply = get(path);
        QTRY_COMPARE(server->openConnections(path), 1);
        reply->abort();
        QTRY_COMPARE(server->openConnections(path), 0);
    }
}

void tst_HttpServerFaults::refusesAndListensAgain()
{
    server->on(u"/x"_s, bodyReply("x"_ba));
    QCOMPARE(fetch(u"/x"_s)->error(), QNetworkReply::NoError);
    server->refuse();
    QCOMPARE(fetch(u"/x"_s)->error(), QNetworkReply::ConnectionRefusedError);
    QVERIFY(server->listenAgain());
    QCOMPARE(fetch(u"/x"_s)->readAll(), "x"_ba);
}

void tst_HttpServerFaults::endsPromptlyWithRepliesInFlight()
{
    HttpReply late;
    late.delayMs = 3'600'000;
    server->on(u"/silent"_s, neverAnswers());
    server->on(u"/late"_s, late);
    server->on(u"/stalled"_s, stalling(bodyReply("0123456789"_ba), 4));
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
