#include "ServerTest.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

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
    void stallsAndIsDropped();
    void holdsUntilReleased();
    void refusesAndListensAgain();
    void refusesAfterTheReplyUnderWay();
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

void tst_HttpServerFaults::refusesAndListensAgain()
{
    server->on(u"/x"_s, bodyReply("x"_ba));
    QCOMPARE(fetch(u"/x"_s)->error(), QNetworkReply::NoError);
    server->refuse();
    QCOMPARE(fetch(u"/x"_s)->error(), QNetworkReply::ConnectionRefusedError);
    QVERIFY(server->listenAgain());
    QCOMPARE(fetch(u"/x"_s)->readAll(), "x"_ba);
}

void tst_HttpServerFaults::refusesAfterTheReplyUnderWay()
{
    server->on(u"/x"_s, heldReply("x"_ba));
    QNetworkReply *reply = get(u"/x"_s);
    QTRY_COMPARE(server->openConnections(u"/x"_s), 1);
    server->refuse();
    server->release(u"/x"_s);
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->readAll(), "x"_ba);
    // Not on the same connection.
    QCOMPARE(fetch(u"/x"_s)->error(), QNetworkReply::ConnectionRefusedError);
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
