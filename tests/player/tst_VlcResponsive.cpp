// The event loop keeps running: however a server behaves, playing, replacing and stopping its
// streams does not block the GUI thread.

#include "PlayerTest.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QWidget>

namespace {

/// How long libVLC may block the event loop, in addition to the usual delays on this machine.
constexpr qint64 allowanceMs = 100;
constexpr int beatMs = 10;

/// Measures the longest time during which the event loop did not run.
class Heartbeat
{
public:
    Heartbeat()
    {
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
            longest = std::max(longest, sinceBeat.restart());
            ++beats;
        });
        sinceBeat.start();
        timer.start(beatMs);
    }

    /// Runs the event loop for that many more beats.
    [[nodiscard]] bool runFor(int wanted)
    {
        const int until = beats + wanted;
        return QTest::qWaitFor([this, until] { return beats >= until; }, 60000);
    }
    void reset() { longest = 0; }
    qint64 longestGap() const { return std::max(longest, sinceBeat.elapsed()); }

private:
    QTimer timer;
    QElapsedTimer sinceBeat;
    qint64 longest = 0;
    int beats = 0;
};

HttpReply hls(const QByteArray &entries)
{
    return bodyReply("#EXTM3U\n" + entries, "application/vnd.apple.mpegurl"_ba);
}

HttpReply segments(const QByteArray &path)
{
    return hls("#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:0\n"
               "#EXTINF:2.0,\n" +
               path + "\n#EXTINF:2.0,\n" + path + '\n');
}

} // namespace

class tst_VlcResponsive : public QObject
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
    QTcpServer silent; ///< the system accepts, nobody answers
    std::unique_ptr<QWidget> surface;
    std::unique_ptr<PlayerProbe> probe;
    Heartbeat heart;
    /// The longest gap on this machine while a stream plays and nothing is asked of libVLC.
    qint64 jitterMs = 0;
};

void tst_VlcResponsive::initTestCase()
{
    server.on(u"/healthy.ts"_s, liveTs());
    server.on(u"/never.ts"_s, neverAnswers());
    HttpReply segment = HttpReply::file(streamPath(u"hls/segment00.ts"_s));
    server.on(u"/stalls.ts"_s, stalling(segment, 30000));
    segment.bytesPerSecond = 2000;
    server.on(u"/trickle.ts"_s, segment);

    surface = std::make_unique<QWidget>();
    surface->resize(480, 270);
    surface->show();
    QVERIFY(QTest::qWaitForWindowExposed(surface.get()));
    probe = std::make_unique<PlayerProbe>(surface.get());

    // The first stream loads libVLC's plugins.
    QVERIFY(healthyStreamPlays());
    heart.reset();
    QVERIFY(heart.runFor(300));
    jitterMs = heart.longestGap();
    qInfo() << "longest gap while nothing is asked of libVLC:" << jitterMs << "ms";
}

void tst_VlcResponsive::cleanupTestCase()
{
    server.dropConnections();
    probe.reset();
    surface.reset();
}

bool tst_VlcResponsive::healthyStreamPlays()
{
    probe->player.play(server.url(u"/healthy.ts"_s), true);
    return probe->advances();
}

/// The measurement detects what staysResponsive() forbids.
void tst_VlcResponsive::noticesABlockedLoop()
{
    heart.reset();
    QElapsedTimer busy;
    busy.start();
    while (!busy.hasExpired(jitterMs + allowanceMs + 1)) {
    }
    QVERIFY(heart.runFor(2));
    QVERIFY(heart.longestGap() > jitterMs + allowanceMs);
}

void tst_VlcResponsive::staysResponsive_data()
{
    QTest::addColumn<HttpReply>("reply");
    /// The last path that is requested of the stream.
    QTest::addColumn<QString>("lastRequest");
    const auto row = [](const char *name, const HttpReply &reply,
                        const QString &lastRequest = u"/stream"_s) {
        QTest::newRow(name) << reply << lastRequest;
    };
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    row("healthy", liveTs());
    row("forbidden", statusReply(403));
    row("page", bodyReply("<html><body>Log in</body></html>"_ba, "text/html"_ba));
    row("empty", bodyReply({}, "video/mp2t"_ba));
    row("garbage", garbage());
    row("never answers", neverAnswers());
    row("sends headers only", stalling(liveTs(), 0));
    row("stalls", stalling(liveTs(), 300000));
    row("a film that stalls", stalling(HttpReply::file(streamPath(u"film.mp4"_s)), 100000));
    row("is cut short", cutShort(liveTs(), 300000));
    row("short, all at once", HttpReply::file(streamPath(u"short.ts"_s)));
    row("a TLS handshake that hangs",
        HttpReply::redirect(u"https://127.0.0.1:%1/"_s.arg(silent.serverPort())));
    for (const char *path : {"/never.ts", "/stalls.ts", "/trickle.ts", "/missing.ts"}) {
        row(path, segments(path), QString::fromLatin1(path));
    }
    row("HLS list of lists that never answer",
        hls("#EXT-X-STREAM-INF:BANDWIDTH=500000\n/never.ts\n"_ba), u"/never.ts"_s);
}

void tst_VlcResponsive::staysResponsive()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const QString, lastRequest);
    server.on(u"/stream"_s, reply);
    VlcPlayer &player = probe->player;
    const auto start = [&] {
        const int before = server.requestCount(lastRequest);
        player.play(server.url(u"/stream"_s), true);
        return QTest::qWaitFor([&] { return server.requestCount(lastRequest) > before; }, openMs);
    };

    heart.reset();
    // Stopped at once, and after its request; replaced by itself; left alone for a while; replaced
    // by a stream that plays.
    player.play(server.url(u"/stream"_s), true);
    player.stop();
    QVERIFY(start());
    player.stop();
    QVERIFY(start());
    QVERIFY(start());
    QVERIFY(heart.runFor(100));
    player.play(server.url(u"/stream"_s), true);
    QVERIFY(healthyStreamPlays());
    QVERIFY2(heart.longestGap() <= jitterMs + allowanceMs,
             qPrintable(u"%1 ms"_s.arg(heart.longestGap())));

    server.dropConnections(lastRequest);
}

VANTIRO_TEST_MAIN(tst_VlcResponsive)
#include "tst_VlcResponsive.moc"
