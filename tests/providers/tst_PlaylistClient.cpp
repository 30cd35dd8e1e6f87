#include "fakeprovider/HttpServer.h"
#include "providers/NetworkTrace.h"
#include "providers/PlaylistClient.h"
#include "providers/SampleCatalogs.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QNetworkAccessManager>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using Outcome = PlaylistReply::Outcome;

// Runs with VANTIRO_NET_DEBUG=1 in its environment.
class tst_PlaylistClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void downloads();
    void downloadFails_data();
    void downloadFails();
    void noServer();
    void readsAFileAtOnce();
    void anythingElseIsAFile();
    void traces_data();
    void traces();
    void destroyedClientNeverCallsBack();

private:
    /// Reads and waits for the answer; `calls` counts the callbacks.
    PlaylistReply read(const QString &address);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlaylistClient> client;
    int calls = 0;
};

void tst_PlaylistClient::init()
{
    server = std::make_unique<HttpServer>();
    client = std::make_unique<PlaylistClient>(nullptr);
}

PlaylistReply tst_PlaylistClient::read(const QString &address)
{
    calls = 0;
    PlaylistReply result;
    client->read(address, {}, [&](const PlaylistReply &reply) {
        ++calls;
        result = reply;
    });
    (void)QTest::qWaitFor([this] { return calls > 0; }, 20'000);
    QCoreApplication::processEvents();
    return result;
}

void tst_PlaylistClient::downloads()
{
    const QString target = u"/get.php?username=u&password=p%26q&type=m3u_plus"_s;
    server->on(u"/get.php"_s, HttpReply::redirect(server->url(u"/list.m3u"_s)));
    for (const QByteArray &body : {twoChannels, ""_ba, QByteArray("\xef\xbb\xbf\xe9\0\r\n\xc3", 8),
                                   QByteArray(10LL * 1024 * 1024, 'a')}) {
        server->on(u"/list.m3u"_s, bodyReply(body));
        server->clearRequests();
        PlaylistReply reply = read(server->url(target));
        QCOMPARE(calls, 1);
        QCOMPARE(reply.outcome, Outcome::Read);
        QCOMPARE(reply.body.size(), body.size());
        QVERIFY(reply.body.join() == body);
        QCOMPARE(reply.error, QString());
        QCOMPARE(server->requestCount(), 2);
        QCOMPARE(server->requests().first().method, "GET"_ba);
        QCOMPARE(server->requests().first().target, target);
    }
}

void tst_PlaylistClient::downloadFails_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("not found") << u"/missing"_s;
    QTest::newRow("half a body") << u"/half"_s;
    QTest::newRow("a circle of redirects") << u"/circle"_s;
    QTest::newRow("an answer that stalls") << u"/stalled"_s;
    QTest::newRow("no answer behind a redirect") << u"/astray-silent"_s;
}

void tst_PlaylistClient::downloadFails()
{
    QFETCH(const QString, path);
    server->on(u"/half"_s, cutShort(bodyReply(twoChannels), 60));
    server->on(u"/circle"_s, HttpReply::redirect(server->url(u"/circle2"_s)));
    server->on(u"/circle2"_s, HttpReply::redirect(server->url(u"/circle"_s)));
    server->on(u"/silent"_s, neverAnswers());
    server->on(u"/stalled"_s, stalling(bodyReply(twoChannels), 10));
    server->on(u"/astray-silent"_s, HttpReply::redirect(server->url(u"/silent"_s)));
    auto *network = client->findChild<QNetworkAccessManager *>();
    QCOMPARE(network->transferTimeout(), 60'000);
    network->setTransferTimeout(1000);
    const PlaylistReply reply = read(server->url(path));
    QCOMPARE(calls, 1);
    QCOMPARE(reply.outcome, Outcome::DownloadFailed);
    QVERIFY(reply.body.isEmpty());
    QVERIFY(!reply.error.isEmpty());
}

void tst_PlaylistClient::noServer()
{
    const QString address = server->url(u"/list.m3u"_s);
    server->refuse();
    QCOMPARE(read(address).error, u"Connection refused"_s);
    QCOMPARE(read(QString(address).replace("http"_L1, "https"_L1)).error, u"Connection refused"_s);
}

void tst_PlaylistClient::readsAFileAtOnce()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"my lïst.m3u"_s);
    writeFile(path, "#EXTINF:-1,Ünï\r\nhttp://x/1\r\n"_ba);
    PlaylistReply result;
    client->read(path, {}, [&](const PlaylistReply &reply) { result = reply; });
    QCOMPARE(result.outcome, Outcome::Read);
    QCOMPARE(result.body.join(), "#EXTINF:-1,Ünï\nhttp://x/1\n"_ba); // read as text
}

void tst_PlaylistClient::anythingElseIsAFile()
{
    for (const QString &address :
         {u"/nowhere/list.m3u"_s, u"C:\\lists\\list.m3u"_s, u"HTTP://127.0.0.1:9/list.m3u"_s,
          u" http://127.0.0.1:9/list.m3u"_s, QDir::tempPath()}) {
        const PlaylistReply reply = read(address);
        QCOMPARE(calls, 1);
        QCOMPARE(reply.outcome, Outcome::FileNotOpened);
        QVERIFY(reply.body.isEmpty());
    }
}

void tst_PlaylistClient::traces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("received");
    QTest::newRow("a password") << u"/list.m3u?password=secret"_s << u"/list.m3u?password=***"_s
                                << u"36 bytes "_s;
    QTest::newRow("a failure") << u"/missing"_s << u"/missing"_s
                               << u"error: Error transferring %1/missing - server replied: "
                                  "Not Found "_s;
    QTest::newRow("a failure behind a redirect with a credential")
        << u"/moved"_s << u"/moved"_s
        << u"error: Error transferring %1/cdn?token=***&x=*** - server replied: Not Found "_s;
}

void tst_PlaylistClient::traces()
{
    QFETCH(const QString, path);
    QFETCH(const QString, sent);
    QFETCH(QString, received);
    server->on(u"/list.m3u"_s, bodyReply(oneChannel(u"One"_s)));
    server->on(u"/moved"_s, HttpReply::redirect(u"/cdn?token=Hop%20Token&x=Hop%20Token"_s));
    TraceCapture capture;
    (void)read(server->url(path));
    (void)read(u"/nowhere"_s); // files are not traced
    QCOMPARE(capture.take(), u"[M3U] -> "_s + server->url(sent) + u" \n[M3U] <- "_s +
                                 received.replace("%1"_L1, server->url()) + u'\n');
}

void tst_PlaylistClient::destroyedClientNeverCallsBack()
{
    server->on(u"/list.m3u"_s, heldReply(twoChannels));
    calls = 0;
    client->read(server->url(u"/list.m3u"_s), {}, [this](const PlaylistReply &) { ++calls; });
    QTRY_COMPARE(server->openConnections(), 1);
    client.reset();
    QTRY_COMPARE(server->openConnections(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_PlaylistClient)
#include "tst_PlaylistClient.moc"
