#include "ServerTest.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QTcpSocket>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_HttpServer : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void answersWithTheReplyOfThePath();
    void passesTheRequestOn();
    void keepsTheConnection();
    void longestPrefixWins();
    void range_data();
    void range();
    void sendsChunksAndGzip();
};

void tst_HttpServer::answersWithTheReplyOfThePath()
{
    HttpReply forbidden = statusReply(403, "no"_ba);
    forbidden.headers.append({"X-Reason"_ba, "agent"_ba});
    server->on(u"/there"_s, bodyReply("yes"_ba));
    server->on(u"/forbidden"_s, forbidden);

    QNetworkReply *there = fetch(u"/there?any=query"_s);
    QCOMPARE(there->readAll(), "yes"_ba);
    QCOMPARE(there->header(QNetworkRequest::ContentTypeHeader).toString(), u"text/plain"_s);

    QNetworkReply *refused = fetch(u"/forbidden"_s);
    QCOMPARE(refused->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 403);
    QCOMPARE(refused->rawHeader("X-Reason"_ba), "agent"_ba);

    QCOMPARE(fetch(u"/missing"_s)->error(), QNetworkReply::ContentNotFoundError);

    QCOMPARE(server->requestCount(), 3);
    QCOMPARE(server->requestCount(u"/there"_s), 1);
    QCOMPARE(server->requests().last().path, u"/missing"_s);
    server->clearRequests();
    QCOMPARE(server->requestCount(), 0);
}

void tst_HttpServer::passesTheRequestOn()
{
    server->on(u"/a b"_s, bodyReply({}));
    QNetworkRequest request{QUrl(server->url(u"/a%20b?one=1%262&one=x+y&empty"_s))};
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    QNetworkReply *reply = network->post(request, "{\"key\":\"\r\n\r\n\"}"_ba);
    QVERIFY(finished(reply));
    QCOMPARE(reply->error(), QNetworkReply::NoError);

    const HttpRequest seen = server->requests().constFirst();
    QCOMPARE(seen.method, "POST"_ba);
    QCOMPARE(seen.path, u"/a b"_s);
    QCOMPARE(seen.target, u"/a%20b?one=1%262&one=x+y&empty"_s);
    QCOMPARE(seen.query.size(), 3);
    QCOMPARE(seen.queryValue(u"one"_s), u"1&2"_s);
    QCOMPARE(seen.query.at(1).second, u"x+y"_s);
    QCOMPARE(seen.header("content-TYPE"_ba), "application/json"_ba);
    QCOMPARE(seen.body, "{\"key\":\"\r\n\r\n\"}"_ba);
}

void tst_HttpServer::keepsTheConnection()
{
    server->on(u"/x"_s, bodyReply("body"_ba));
    QTcpSocket client;
    client.connectToHost(QHostAddress::LocalHost, server->port());
    QVERIFY(client.waitForConnected());
    client.write("GET /x HTTP/1.1\r\nHost: a\r\n\r\nGET /x HTTP/1.1\r\nHost: a\r\n\r\n");
    QTRY_COMPARE(server->requestCount(u"/x"_s), 2);
    client.write("HEAD /x HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
    QTRY_COMPARE(client.state(), QAbstractSocket::UnconnectedState);
    const QByteArray answers = client.readAll();
    QCOMPARE(answers.count("Content-Length: 4\r\n"), 3);
    QCOMPARE(answers.count("\r\n\r\nbody"), 2);
    QVERIFY(answers.endsWith("\r\n\r\n"));
}

void tst_HttpServer::longestPrefixWins()
{
    server->onPrefix(u"/live/"_s, [](const HttpRequest &) { return bodyReply("short"_ba); });
    server->onPrefix(u"/live/user/"_s, [](const HttpRequest &) { return bodyReply("long"_ba); });
    server->on(u"/live/user/1"_s, bodyReply("exact"_ba));
    const QList<std::pair<QString, QByteArray>> expected{{u"/live/1"_s, "short"_ba},
                                                         {u"/live/user/2"_s, "long"_ba},
                                                         {u"/live/user/1"_s, "exact"_ba}};
    for (const auto &[path, body] : expected) {
        QCOMPARE(fetch(path)->readAll(), body);
    }
}

void tst_HttpServer::range_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("contentRange");
    QTest::addColumn<bool>("produced");
    const auto row = [](const QByteArray &header, int status, const QByteArray &body,
                        const QByteArray &contentRange) {
        QTest::addRow("%s", header.constData())
            << header << status << body << contentRange << false;
        QTest::addRow("%s of a computed body", header.constData())
            << header << status << body << contentRange << true;
    };
    row("bytes=2-4"_ba, 206, "234"_ba, "bytes 2-4/10"_ba);
    row("bytes=7-"_ba, 206, "789"_ba, "bytes 7-9/10"_ba);
    row("bytes=8-99"_ba, 206, "89"_ba, "bytes 8-9/10"_ba);
    row("bytes=-3"_ba, 206, "789"_ba, "bytes 7-9/10"_ba);
    row("bytes=10-"_ba, 416, {}, "bytes */10"_ba);
}

void tst_HttpServer::range()
{
    QFETCH(const QByteArray, header);
    QFETCH(const bool, produced);
    HttpReply sent = bodyReply("0123456789"_ba);
    if (produced) {
        sent.body.clear();
        sent.producedBytes = 10;
        sent.producer = [](qint64 offset) { return "0123456789 and more"_ba.sliced(offset, 3); };
    }
    server->on(u"/x"_s, sent);
    QNetworkReply *reply = fetch(u"/x"_s, header);
    QTEST(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), "status");
    QTEST(reply->readAll(), "body");
    QTEST(reply->rawHeader("Content-Range"_ba), "contentRange");

    sent.supportRange = false;
    server->on(u"/x"_s, sent);
    QNetworkReply *whole = fetch(u"/x"_s, header);
    QCOMPARE(whole->readAll(), "0123456789"_ba);
    QVERIFY(!whole->hasRawHeader("Accept-Ranges"_ba));
}

void tst_HttpServer::sendsChunksAndGzip()
{
    HttpReply sent = bodyReply(QByteArray("0123456789abcdef").repeated(100'000));
    for (const bool chunked : {false, true}) {
        for (const bool gzip : {false, true}) {
            sent.chunked = chunked;
            sent.gzip = gzip;
            server->on(u"/x"_s, sent);
            QNetworkReply *reply = fetch(u"/x"_s);
            QVERIFY(reply->readAll() == sent.body);
            QCOMPARE(reply->hasRawHeader("Transfer-Encoding"_ba), chunked);
        }
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_HttpServer)
#include "tst_HttpServer.moc"
