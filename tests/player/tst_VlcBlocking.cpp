#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTest>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;
/// Far more than what a user takes for a frozen window, and than what a busy machine adds.
constexpr auto patience = std::chrono::seconds(5);

/// Hangs up on all clients of a server when the thread that made this is blocked for too long.
class Rescue
{
public:
    explicit Rescue(HttpServer &server)
        : worker([this, &server] { watch(server); })
    {}
    ~Rescue()
    {
        {
            const std::lock_guard guard(mutex);
            over = true;
        }
        changed.notify_one();
        worker.join();
    }
    Q_DISABLE_COPY_MOVE(Rescue)

    bool wasNeeded() const
    {
        const std::lock_guard guard(mutex);
        return needed;
    }

private:
    void watch(HttpServer &server)
    {
        std::unique_lock guard(mutex);
        while (!changed.wait_for(guard, patience, [this] { return over; })) {
            needed = true;
            server.dropConnections();
        }
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    bool over = false;
    bool needed = false;
    std::thread worker;
};

HttpReply never()
{
    HttpReply reply;
    reply.neverAnswer = true;
    return reply;
}

HttpReply stalling(HttpReply reply, qint64 bytes)
{
    reply.bytesPerSecond = 0;
    reply.stallAfter = bytes;
    return reply;
}

} // namespace

/// The window must not freeze because a server does not answer: changing the stream, stopping it
/// and ending the player return while the server is still silent.
class tst_VlcBlocking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void init();

    void leavesASilentServer_data();
    void leavesASilentServer();
    void leavesAHangingTlsHandshake();

private:
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcBlocking::init()
{
    server = std::make_unique<HttpServer>();
    server->on(u"/next.mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    server->on(u"/live.ts"_s, liveTs());
    server->on(u"/never.ts"_s, never());
    server->on(u"/never.m3u8"_s, never());
    server->on(u"/head.ts"_s, stalling(liveTs(), 0));
    server->on(u"/stalls.ts"_s, stalling(liveTs(), 300000));
    server->on(u"/stalls.mp4"_s, stalling(HttpReply::file(streamPath(u"film.mp4"_s)), 100000));
    const HttpReply playlist = HttpReply::file(streamPath(u"hls/index.m3u8"_s));
    server->on(u"/hls-never/index.m3u8"_s, playlist);
    server->onPrefix(u"/hls-never/segment"_s, [](const HttpRequest &) { return never(); });
    server->on(u"/hls-stalls/index.m3u8"_s, playlist);
    const HttpReply segment = stalling(HttpReply::file(streamPath(u"hls/segment00.ts"_s)), 30000);
    server->onPrefix(u"/hls-stalls/segment"_s, [segment](const HttpRequest &) { return segment; });
}

void tst_VlcBlocking::leavesASilentServer_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("silentPath");

    const auto row = [](const char *name, const QString &path) {
        QTest::newRow(name) << path << path;
    };
    row("a healthy channel", u"/live.ts"_s);
    row("a server that never answers", u"/never.ts"_s);
    row("a server that never answers for a playlist", u"/never.m3u8"_s);
    row("a server that sends headers only", u"/head.ts"_s);
    row("a channel that stalls", u"/stalls.ts"_s);
    row("a film that stalls", u"/stalls.mp4"_s);
    QTest::newRow("an HLS segment that never comes")
        << u"/hls-never/index.m3u8"_s << u"/hls-never/segment00.ts"_s;
    QTest::newRow("an HLS segment that stalls")
        << u"/hls-stalls/index.m3u8"_s << u"/hls-stalls/segment00.ts"_s;
}

void tst_VlcBlocking::leavesASilentServer()
{
    QFETCH(QString, path);
    QFETCH(QString, silentPath);

    struct Way
    {
        const char *name;
        std::function<void()> leave;
    };
    const QList<Way> ways{
        {"another stream", [this] { probe->player.play(server->url(u"/next.mp4"_s), false); }},
        {"stop", [this] { probe->player.stop(); }},
        {"end of the player", [this] { probe.reset(); }}};
    for (const Way &way : ways) {
        probe = std::make_unique<PlayerProbe>();
        probe->player.play(server->url(path), true);
        QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(silentPath), 1, openMs);
        // What has come is on its way through libVLC; give it a few looks.
        const int ticks = probe->ticks;
        QTRY_VERIFY(probe->ticks >= ticks + 2);

        QElapsedTimer clock;
        clock.start();
        bool rescued = false;
        {
            const Rescue rescue(*server);
            way.leave();
            rescued = rescue.wasNeeded();
        }
        qInfo("%s: blocked for %lld ms", way.name, static_cast<long long>(clock.elapsed()));
        QVERIFY2(!rescued, way.name);
        // A segment that is due holds libVLC back, but only behind the scenes.
        server->dropConnections(silentPath);
        probe.reset();
        QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(silentPath), 0, openMs);
    }
}

void tst_VlcBlocking::leavesAHangingTlsHandshake()
{
    QTcpServer silent; // the system accepts, nobody answers
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    probe = std::make_unique<PlayerProbe>();
    probe->player.play(u"https://127.0.0.1:%1/live.ts"_s.arg(silent.serverPort()), true);
    QTRY_VERIFY_WITH_TIMEOUT(silent.hasPendingConnections(), openMs);
    probe->player.stop();
    QCOMPARE(probe->interruptions, QStringList());
    probe.reset();
}

VANTIRO_TEST_MAIN(tst_VlcBlocking)
#include "tst_VlcBlocking.moc"
