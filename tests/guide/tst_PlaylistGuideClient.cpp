#include "fakeprovider/HttpServer.h"
#include "guide/PlaylistGuideClient.h"
#include "providers/ReplyBody.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QNetworkAccessManager>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

// Which guides a playlist names, without its download. tst_GuideAttributes shows how the line is
// read. Runs with VANTIRO_NET_DEBUG=1 in its environment.

namespace {

const QByteArray header = "#EXTM3U x-tvg-url=\"http://h/guide.xml\" tvg-shift=\"2\"\n"_ba;
const QString guideAddress = u"http://h/guide.xml"_s;

/// A playlist that never ends.
HttpReply endless(const QByteArray &head)
{
    HttpReply reply;
    reply.producer = [head](qint64 offset) {
        return offset < head.size() ? head.sliced(offset) : QByteArray(64LL * 1024, '#');
    };
    return reply;
}

} // namespace

class tst_PlaylistGuideClient : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void firstLines_data();
    void firstLines();
    void endsTheDownload_data();
    void endsTheDownload();
    void failures_data();
    void failures();
    void filesAreReadAtOnce();
    void traces_data();
    void traces();
    void destroyedClientNeverCallsBack();

private:
    std::optional<PlaylistGuide> fetch(const QString &address);
    bool isDisconnected() const;

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlaylistGuideClient> client;
    int calls = 0;
};

void tst_PlaylistGuideClient::init()
{
    server = std::make_unique<HttpServer>();
    client = std::make_unique<PlaylistGuideClient>(nullptr);
}

bool tst_PlaylistGuideClient::isDisconnected() const
{
#ifdef Q_OS_WIN
    return true; // Wine does not always tell a server that waits to send of the connection's end
#else
    return server->openConnections() == 0;
#endif
}

std::optional<PlaylistGuide> tst_PlaylistGuideClient::fetch(const QString &address)
{
    calls = 0;
    std::optional<PlaylistGuide> result;
    client->fetch(address, {}, [&](const std::optional<PlaylistGuide> &guide) {
        ++calls;
        result = guide;
    });
    (void)QTest::qWaitFor([this] { return calls > 0; }, 20'000);
    // What is still connected would report again.
    (void)QTest::qWaitFor([this] { return isDisconnected(); }, 20'000);
    QCoreApplication::processEvents();
    return result;
}

void tst_PlaylistGuideClient::firstLines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("addresses");
    const QStringList found{guideAddress};
    const QByteArray rest = "#EXTINF:-1 x-tvg-url=\"http://h/other.xml\",One\nhttp://h/1\n"_ba;
    QTest::newRow("a header") << header + rest << found;
    QTest::newRow("a header alone") << header << found;
    QTest::newRow("a header without an end") << header.chopped(1) << found;
    QTest::newRow("Windows line ends") << QByteArray(header + rest).replace("\n", "\r\n") << found;
    QTest::newRow("a byte-order mark") << "\xef\xbb\xbf"_ba + header + rest << found;
    QTest::newRow("empty lines before it") << "\n \r\n"_ba + header + rest << found;
    QTest::newRow("in small letters") << "#extm3u url-tvg=\"http://h/guide.xml\"\n"_ba << found;
    QTest::newRow("a header that tells nothing") << "#EXTM3U\n"_ba + rest << QStringList();
    QTest::newRow("no header") << rest << QStringList();
    QTest::newRow("nothing") << ""_ba << QStringList();
}

void tst_PlaylistGuideClient::firstLines()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, addresses);
    server->on(u"/list.m3u"_s, bodyReply(text));
    server->on(u"/moved"_s, HttpReply::redirect(server->url(u"/list.m3u"_s)));
    const auto guide = fetch(server->url(u"/moved"_s));
    QCOMPARE(calls, 1);
    QVERIFY(guide);
    QCOMPARE(guide->addresses, addresses);

    const QTemporaryDir folder;
    writeFile(folder.filePath(u"list.m3u"_s), text);
    QCOMPARE(fetch(folder.filePath(u"list.m3u"_s)), guide);
}

void tst_PlaylistGuideClient::endsTheDownload_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QStringList>("addresses");
    QTest::newRow("behind the first line") << header << QStringList{guideAddress};
    QTest::newRow("in a first line without an end")
        << header.chopped(1) + " x=" << QStringList{guideAddress};
    QTest::newRow("in something else") << "<html>"_ba << QStringList();
}

void tst_PlaylistGuideClient::endsTheDownload()
{
    QFETCH(const QByteArray, head);
    QFETCH(const QStringList, addresses);
    server->on(u"/list.m3u"_s, endless(head));
    const auto guide = fetch(server->url(u"/list.m3u"_s));
    QCOMPARE(calls, 1);
    QVERIFY(guide);
    QCOMPARE(guide->addresses, addresses);
    QVERIFY(isDisconnected());
}

void tst_PlaylistGuideClient::failures_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("not found, with a text that looks right") << u"/missing"_s;
    QTest::newRow("cut short") << u"/cut"_s;
    QTest::newRow("no answer") << u"/silent"_s;
    QTest::newRow("no answer behind a redirect") << u"/astray"_s;
    QTest::newRow("a first line that stalls") << u"/stalled"_s;
}

void tst_PlaylistGuideClient::failures()
{
    QFETCH(const QString, path);
    server->on(u"/missing"_s, statusReply(404, header));
    server->on(u"/cut"_s, cutShort(bodyReply(header), 20));
    server->on(u"/silent"_s, neverAnswers());
    server->on(u"/astray"_s, HttpReply::redirect(server->url(u"/silent"_s)));
    server->on(u"/stalled"_s, stalling(bodyReply(header), 20));
    auto *network = client->findChild<QNetworkAccessManager *>();
    QCOMPARE(network->transferTimeout(), replyTimeoutMs);
    network->setTransferTimeout(500);
    QVERIFY(!fetch(server->url(path)));
    QCOMPARE(calls, 1);
    QVERIFY(!fetch(u"https://127.0.0.1:1/list.m3u"_s));
}

void tst_PlaylistGuideClient::filesAreReadAtOnce()
{
    calls = 0;
    for (const QString &path : {u"/nowhere/list.m3u"_s, QDir::tempPath()}) {
        client->fetch(path, {}, [this](const std::optional<PlaylistGuide> &guide) {
            calls += guide ? 100 : 1;
        });
    }
    QCOMPARE(calls, 2);
}

void tst_PlaylistGuideClient::traces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("received");
    QTest::newRow("a playlist") << u"/list.m3u?password="_s << u"addresses of guides: 1 "_s;
    QTest::newRow("a failure") << u"/none?password="_s
                               << u"error: Error transferring %1/none?password=*** - server "
                                  "replied: Not Found "_s;
}

void tst_PlaylistGuideClient::traces()
{
    QFETCH(const QString, path);
    QFETCH(QString, received);
    server->on(u"/list.m3u"_s, bodyReply(header));
    TraceCapture capture;
    (void)fetch(server->url(path + u"secret"_s));
    QCOMPARE(capture.take(), u"[M3U] -> "_s + server->url(path + u"*** \n[M3U] <- "_s) +
                                 received.replace("%1"_L1, server->url()) + u'\n');
}

void tst_PlaylistGuideClient::destroyedClientNeverCallsBack()
{
    server->on(u"/list.m3u"_s, heldReply(header));
    calls = 0;
    client->fetch(server->url(u"/list.m3u"_s), {}, [this](const auto &) { ++calls; });
    QTRY_COMPARE(server->openConnections(), 1);
    client.reset();
    QTRY_COMPARE(server->openConnections(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_PlaylistGuideClient)
#include "tst_PlaylistGuideClient.moc"
