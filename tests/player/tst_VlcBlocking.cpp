#include "PlayerTest.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTcpServer>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Far more than a busy machine adds, and than a user takes for a frozen window.
constexpr auto blockedTooLong = std::chrono::seconds(5);

/// Closes all connections of a server if the creating thread is blocked for too long.
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

    bool hasIntervened() const
    {
        const std::lock_guard guard(mutex);
        return intervened;
    }

private:
    void watch(HttpServer &server)
    {
        std::unique_lock guard(mutex);
        while (!changed.wait_for(guard, blockedTooLong, [this] { return over; })) {
            intervened = true;
            server.dropConnections();
        }
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    bool over = false;
    bool intervened = false;
    std::thread worker;
};

} // namespace

/// A server that does not answer must not freeze the window: replacing a stream, stopping it and
/// destroying the player return while the server is still silent.
class tst_VlcBlocking : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;

    void leavesASilentServer_data();
    void leavesASilentServer();
    void leavesAHangingTlsHandshake();
};

void tst_VlcBlocking::init()
{
    PlayerTest::init();
    const HttpReply film = HttpReply::file(streamPath(u"film.mp4"_s));
    const HttpReply playlist = HttpReply::file(streamPath(u"hls/index.m3u8"_s));
    const HttpReply segment = stalling(HttpReply::file(streamPath(u"hls/segment00.ts"_s)), 30000);
    server->on(u"/never.m3u8"_s, neverAnswers());
    server->on(u"/head.ts"_s, stalling(liveTs(), 0));
    server->on(u"/stalls.ts"_s, stalling(liveTs(), 300000));
    server->on(u"/stalls.mp4"_s, stalling(film, 100000));
    server->on(u"/hls-never/index.m3u8"_s, playlist);
    server->onPrefix(u"/hls-never/segment"_s, [](const HttpRequest &) { return neverAnswers(); });
    server->on(u"/hls-stalls/index.m3u8"_s, playlist);
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
    const QList<Way> ways{{"another stream", [this] { play(u"/files/film.mp4"_s); }},
                          {"stop", [this] { probe->player.stop(); }},
                          {"destroy the player", [this] { probe.reset(); }}};
    for (const Way &way : ways) {
        probe = std::make_unique<PlayerProbe>();
        play(path, true);
        QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(silentPath), 1, openMs);
        // Let libVLC process what it has received.
        QVERIFY(probe->checksAgain(2));

        QElapsedTimer clock;
        clock.start();
        bool rescued = false;
        {
            const Rescue rescue(*server);
            way.leave();
            rescued = rescue.hasIntervened();
        }
        qInfo("%s: blocked for %lld ms", way.name, static_cast<long long>(clock.elapsed()));
        QVERIFY2(!rescued, way.name);
        // A missing segment may still delay libVLC's stop, in the background.
        server->dropConnections(silentPath);
        probe.reset();
        QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(silentPath), 0, openMs);
    }
}

void tst_VlcBlocking::leavesAHangingTlsHandshake()
{
    QTcpServer silent; // the system accepts, nobody answers
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    probe->player.play(u"https://127.0.0.1:%1/live.ts"_s.arg(silent.serverPort()), true);
    QTRY_VERIFY_WITH_TIMEOUT(silent.hasPendingConnections(), openMs);
    probe->player.stop();
    QCOMPARE(probe->interruptions, QStringList());
    probe.reset();
}

VANTIRO_TEST_MAIN(tst_VlcBlocking)
#include "tst_VlcBlocking.moc"
