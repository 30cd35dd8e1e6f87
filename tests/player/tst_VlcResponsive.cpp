// The window's thread is never held up: however a server behaves, playing, replacing and stopping
// its streams leaves the event loop running.

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// How long the event loop may wait for libVLC, besides what it waits on this machine anyway.
constexpr qint64 allowanceMs = 100;
constexpr int beatMs = 10;

/// Measures the longest time that the event loop was away.
class Heartbeat
{
public:
    Heartbeat()
    {
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { beat(); });
        sinceBeat.start();
        timer.start(beatMs);
    }

    /// Lets the event loop run for so many beats more.
    [[nodiscard]] bool runFor(int wanted)
    {
        const int until = beats + wanted;
        return QTest::qWaitFor([this, until] { return beats >= until; }, 60000);
    }
    void forget() { longest = 0; }
    qint64 longestGap() const { return std::max(longest, sinceBeat.elapsed()); }

private:
    void beat()
    {
        longest = std::max(longest, sinceBeat.restart());
        ++beats;
    }

    QTimer timer;
    QElapsedTimer sinceBeat;
    qint64 longest = 0;
    int beats = 0;
};

HttpReply status(int code)
{
    HttpReply reply;
    reply.status = code;
    return reply;
}

HttpReply content(const QByteArray &type, const QByteArray &body)
{
    HttpReply reply;
    reply.contentType = type;
    reply.body = body;
    return reply;
}

HttpReply garbage()
{
    std::mt19937 numbers(7); // NOLINT: the same bytes each time
    QByteArray bytes(200000, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(),
                  [&numbers] { return static_cast<char>(numbers() & 0xffU); });
    return content("application/octet-stream"_ba, bytes);
}

HttpReply neverAnswers()
{
    HttpReply reply;
    reply.neverAnswer = true;
    return reply;
}

HttpReply stalling(HttpReply reply)
{
    reply.stallAfter = 300000;
    reply.bytesPerSecond = 0;
    return reply;
}

HttpReply cutShort(HttpReply reply)
{
    reply.cutAfter = 300000;
    reply.bytesPerSecond = 0;
    return reply;
}

HttpReply segments(const QByteArray &path)
{
    return content("application/vnd.apple.mpegurl"_ba,
                   "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:0\n"
                   "#EXTINF:2.0,\n" +
                       path + "\n#EXTINF:2.0,\n" + path + '\n');
}

} // namespace

class TestVlcResponsive : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void noticesABlockedLoop();
    void staysResponsive_data();
    void staysResponsive();

private:
    bool healthyStreamPlays();

    HttpServer server;
    std::unique_ptr<QWidget> surface;
    std::unique_ptr<VlcPlayer> player;
    Heartbeat heart;
    int progress = 0;
    /// The longest gap on this machine while a stream plays and nobody touches it.
    qint64 jitterMs = 0;
    qint64 longestMs = 0;
};

void TestVlcResponsive::initTestCase()
{
    server.on(u"/healthy.ts"_s, liveTs());
    server.on(u"/never.ts"_s, neverAnswers());
    HttpReply trickle = HttpReply::file(streamPath(u"hls/segment00.ts"_s));
    trickle.bytesPerSecond = 2000;
    server.on(u"/trickle.ts"_s, trickle);

    surface = std::make_unique<QWidget>();
    surface->resize(480, 270);
    surface->show();
    QVERIFY(QTest::qWaitForWindowExposed(surface.get()));
    player = std::make_unique<VlcPlayer>(surface.get(), nullptr);
    connect(player.get(), &VlcPlayer::playbackProgressing, this, [this] { ++progress; });

    // The first stream loads libVLC's plugins.
    QVERIFY(healthyStreamPlays());
    heart.forget();
    QVERIFY(heart.runFor(300));
    jitterMs = heart.longestGap();
    qInfo() << "longest gap while nothing is asked of libVLC:" << jitterMs << "ms";
}

void TestVlcResponsive::cleanupTestCase()
{
    qInfo() << "longest gap of all streams:" << longestMs << "ms";
    server.dropConnections();
    player.reset();
    surface.reset();
}

bool TestVlcResponsive::healthyStreamPlays()
{
    const int before = progress;
    player->play(server.url(u"/healthy.ts"_s), true);
    return QTest::qWaitFor([&] { return progress > before; }, 30000);
}

// The measure itself: it would see what the other test forbids.
void TestVlcResponsive::noticesABlockedLoop()
{
    heart.forget();
    QElapsedTimer busy;
    busy.start();
    while (!busy.hasExpired(jitterMs + allowanceMs + 1)) {
    }
    QVERIFY(heart.runFor(2));
    QVERIFY(heart.longestGap() > jitterMs + allowanceMs);
}

void TestVlcResponsive::staysResponsive_data()
{
    QTest::addColumn<HttpReply>("reply");
    /// What is asked for when the stream is under way; empty for the stream itself.
    QTest::addColumn<QString>("lastRequest");
    const QString itself;
    QTest::newRow("healthy") << liveTs() << itself;
    for (const int code : {401, 403, 404, 503})
        QTest::addRow("status %d", code) << status(code) << itself;
    QTest::newRow("page") << content("text/html"_ba, "<html><body>Log in</body></html>"_ba)
                          << itself;
    QTest::newRow("empty") << content("video/mp2t"_ba, {}) << itself;
    QTest::newRow("garbage") << garbage() << itself;
    QTest::newRow("never answers") << neverAnswers() << itself;
    QTest::newRow("stalls") << stalling(liveTs()) << itself;
    QTest::newRow("breaks off") << cutShort(liveTs()) << itself;
    QTest::newRow("short, all at once") << HttpReply::file(streamPath(u"short.ts"_s)) << itself;
    QTest::newRow("HLS segments never answer") << segments("/never.ts"_ba) << u"/never.ts"_s;
    QTest::newRow("HLS segments trickle") << segments("/trickle.ts"_ba) << u"/trickle.ts"_s;
    QTest::newRow("HLS segments are missing") << segments("/missing.ts"_ba) << u"/missing.ts"_s;
    QTest::newRow("HLS list of lists that never answer")
        << content("application/vnd.apple.mpegurl"_ba,
                   "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=500000\n/never.ts\n"_ba)
        << u"/never.ts"_s;
}

void TestVlcResponsive::staysResponsive()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const QString, lastRequest);
    const QString path = u"/stream"_s;
    server.on(path, reply);
    const QString awaited = lastRequest.isEmpty() ? path : lastRequest;
    const auto start = [&] {
        const int before = server.requestCount(awaited);
        player->play(server.url(path), true);
        return QTest::qWaitFor([&] { return server.requestCount(awaited) > before; }, 15000);
    };

    heart.forget();
    // Stopped at once, and when it is under way; replaced by itself; left alone for a while;
    // replaced by a stream that plays.
    player->play(server.url(path), true);
    player->stop();
    QVERIFY(start());
    player->stop();
    QVERIFY(start());
    QVERIFY(start());
    QVERIFY(heart.runFor(100));
    player->play(server.url(path), true);
    QVERIFY(healthyStreamPlays());
    longestMs = std::max(longestMs, heart.longestGap());
    QVERIFY2(heart.longestGap() <= jitterMs + allowanceMs,
             qPrintable(u"%1 ms"_s.arg(heart.longestGap())));

    server.dropConnections(awaited);
}

VANTIRO_TEST_MAIN(TestVlcResponsive)
#include "tst_VlcResponsive.moc"
