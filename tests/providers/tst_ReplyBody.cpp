// Servers that stop answering or never end: the clients end the exchange, once, and only then.

#include "fakeprovider/Gzip.h"
#include "faults/GuiLoad.h"
#include "providers/Await.h"
#include "providers/ReplyBody.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QByteArray success =
    R"({"status":"success","data":{"server_url":"s","username":"u","password":"p"}})"_ba;

void setTimeout(const QObject &client, int ms)
{
    auto *network = client.findChild<QNetworkAccessManager *>();
    QCOMPARE(network->transferTimeout(), 60'000);
    network->setTransferTimeout(ms);
}

/// Digits, which hardly can be packed, in a JSON array of about so many bytes.
QByteArray numbers(qsizetype bytes)
{
    QByteArray array("[0");
    for (quint32 number = 1; array.size() < bytes; ++number) {
        array += ',' + QByteArray::number(number * 2654435761U);
    }
    return array + ']';
}

} // namespace

Q_DECLARE_METATYPE(HttpReply)

class tst_ReplyBody : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsOnce_data();
    void endsOnce();
    void aSlowReplyIsNotCutOff();
    void largeAnswer_data();
    void largeAnswer();
    void wholeBodies_data();
    void wholeBodies();
    void pieces();

private:
    /// Asks the server with both clients, each of which must end as told.
    static void ask(HttpServer &server, const HttpReply &reply, const HttpReply &target,
                    int timeoutMs, bool succeeds);
};

void tst_ReplyBody::ask(HttpServer &server, const HttpReply &reply, const HttpReply &target,
                        int timeoutMs, bool succeeds)
{
    server.on(u"/player_api.php"_s, reply);
    server.on(u"/api/v1/subscription/credentials"_s, reply);
    server.on(u"/hop"_s, target);
    XtreamClient xtream(nullptr);
    xtream.configure(server.url(), u"joe"_s, u"secret"_s);
    setTimeout(xtream, timeoutMs);
    const auto document = await<bool>([&](auto callback) {
        xtream.get({}, {}, [callback](const QJsonDocument &, bool ok) { callback(ok); });
    });
    QCOMPARE(document.calls, 1);
    QCOMPARE(document.value, succeeds);

    ZevrinoClient zevrino(server.url(), nullptr);
    setTimeout(zevrino, timeoutMs);
    const auto account = await<bool>([&](auto callback) {
        zevrino.resolve(u"KEY"_s, [callback](bool ok, const ZevrinoClient::Credentials &,
                                             const QString &) { callback(ok); });
    });
    QCOMPARE(account.calls, 1);
    QCOMPARE(account.value, succeeds);
#ifndef Q_OS_WIN // Wine does not tell a server that is writing of a connection that was given up
    // The connections of an exchange that ended are closed, too.
    QTRY_VERIFY(succeeds || server.openConnections() == 0);
#endif
}

void tst_ReplyBody::endsOnce_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<HttpReply>("target"); // of a redirect
    const HttpReply redirect = HttpReply::redirect(u"/hop"_s, 307);
    QTest::newRow("no answer") << neverAnswers() << HttpReply();
    QTest::newRow("a part of the body") << stalling(bodyReply(success), 10) << HttpReply();
    QTest::newRow("no answer after a redirect") << redirect << neverAnswers();
    HttpReply stalledRedirect = redirect;
    stalledRedirect.body = "moved"_ba;
    QTest::newRow("a redirect whose body stalls") << stalling(stalledRedirect, 2) << neverAnswers();
    HttpReply trickle = bodyReply(success);
    trickle.bytesPerSecond = 50;
    QTest::newRow("a byte now and then") << trickle << HttpReply();
    trickle.gzip = true;
    QTest::newRow("a packed byte now and then") << trickle << HttpReply();
    HttpReply endless;
    endless.producer = [](qint64) { return QByteArray(65536, ' '); };
    QTest::newRow("a body without an end") << endless << HttpReply();
    HttpReply damaged;
    damaged.headers.append({"Content-Encoding"_ba, "gzip"_ba});
    damaged.body = packedWithGzip(numbers(4LL * 1024 * 1024));
    std::fill_n(damaged.body.begin() + damaged.body.size() / 2, 1000, '\xff');
    QTest::newRow("a packed body that is damaged") << damaged << HttpReply();
    damaged.bytesPerSecond = damaged.body.size() * 5;
    QTest::newRow("a slow packed body that is damaged") << damaged << HttpReply();
    HttpReply announced = bodyReply(success);
    announced.headers.append(
        {"Content-Length"_ba, QByteArray::number(ReplyBody::maxAnswerBytes + 1)});
    QTest::newRow("the announcement of too long a body") << announced << HttpReply();
}

void tst_ReplyBody::endsOnce()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const HttpReply, target);
    HttpServer server;
    ask(server, reply, target, 300, false);
}

void tst_ReplyBody::aSlowReplyIsNotCutOff()
{
    // Takes twice as long as it may stall.
    constexpr int stallMs = 2000;
    HttpReply slow = bodyReply(success + QByteArray(24 * ReplyBody::minProgressBytes, ' '));
    slow.bytesPerSecond = slow.body.size() / 4;
    HttpServer server;
    ask(server, slow, {}, stallMs, true);
    ask(server, HttpReply::redirect(u"/hop"_s, 307), slow, stallMs, true);
}

void tst_ReplyBody::largeAnswer_data()
{
    QTest::addColumn<bool>("gzip");
    QTest::addColumn<bool>("chunked");
    QTest::newRow("plain") << false << false;
    QTest::newRow("packed") << true << false;
    QTest::newRow("chunked") << false << true;
}

// More than what waits to be read at a time, and so much that it is parsed on another thread.
void tst_ReplyBody::largeAnswer()
{
    QFETCH(const bool, gzip);
    QFETCH(const bool, chunked);
    HttpReply large = bodyReply(numbers(12LL * 1024 * 1024), "application/json"_ba);
    large.gzip = gzip;
    large.chunked = chunked;
    HttpServer server;
    server.on(u"/player_api.php"_s, large);
    XtreamClient xtream(nullptr);
    xtream.configure(server.url(), u"joe"_s, u"secret"_s);
    GuiLoad load;
    const auto document = await<QJsonDocument>([&](auto callback) {
        xtream.get({}, {}, [callback](const QJsonDocument &answer, bool) { callback(answer); });
    });
    const double longestMs = load.longestMs();
    QCOMPARE(document.calls, 1);
    QVERIFY(document.value == QJsonDocument::fromJson(large.body));
    QVERIFY2(longestMs < 100 * slowness, qPrintable(QString::number(longestMs)));
}

void tst_ReplyBody::wholeBodies_data()
{
    QTest::addColumn<bool>("gzip");
    QTest::addColumn<bool>("chunked");
    QTest::newRow("with a length") << false << false;
    QTest::newRow("in chunks") << false << true;
    QTest::newRow("packed") << true << false;
    QTest::newRow("packed, in chunks") << true << true;
}

/// Bodies below, at and beyond what waits to be read, however well they pack.
void tst_ReplyBody::wholeBodies()
{
    QFETCH(const bool, gzip);
    QFETCH(const bool, chunked);
    constexpr int kib = 1024;
    HttpServer server;
    QNetworkAccessManager network;
    network.setTransferTimeout(5000);
    QRandomGenerator random(7);
    for (const int size : {0, 1, 63 * kib, 64 * kib, 255 * kib, 256 * kib, 256 * kib + 1,
                           1024 * kib, 1024 * kib + 1, 4096 * kib, 6000 * kib}) {
        for (const int distinct : {1, 256}) {
            HttpReply reply;
            reply.gzip = gzip;
            reply.chunked = chunked;
            reply.body.resize(size);
            for (char &byte : reply.body)
                byte = static_cast<char>(random.bounded(distinct));
            server.on(u"/body"_s, reply);
            QNetworkReply *answer = network.get(QNetworkRequest(QUrl(server.url(u"/body"_s))));
            auto *body = new ReplyBody(answer, ReplyBody::maxCatalogBytes);
            QSignalSpy finished(body, &ReplyBody::finished);
            QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 10'000);
            QCOMPARE(answer->error(), QNetworkReply::NoError);
            QVERIFY(body->take().join() == reply.body);
            delete answer;
        }
    }
}

void tst_ReplyBody::pieces()
{
    ReplyBytes bytes;
    QByteArray expected;
    for (const qsizetype size : std::initializer_list<qsizetype>{
             0, 1, ReplyBytes::pieceBytes - 1, 5, ReplyBytes::pieceBytes + 1, 1}) {
        const QByteArray piece(size, static_cast<char>('a' + expected.size() % 26));
        bytes.append(piece);
        expected += piece;
        QCOMPARE(bytes.size(), expected.size());
        QVERIFY(expected.startsWith(bytes.head()));
        QVERIFY(bytes.head().size() >= std::min(expected.size(), ReplyBytes::pieceBytes));
    }
    ReplyBytes shared = bytes;
    QVERIFY(shared.join() == expected);
    QVERIFY(shared.isEmpty());
    QVERIFY(bytes.join() == expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ReplyBody)
#include "tst_ReplyBody.moc"
