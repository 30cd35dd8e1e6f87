#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>
#include <QWidget>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QStringList started{u"playing"_s, u"not paused"_s};

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;
constexpr qint64 filmMs = 60000;

/// Silence of that length as a WAV file.
HttpReply wave(int milliseconds)
{
    const auto number = [](qint64 value, int bytes) {
        QByteArray text;
        for (int shift = 0; shift < bytes; ++shift) {
            text.append(static_cast<char>((value >> (8 * shift)) & 0xff));
        }
        return text;
    };
    const qint64 dataSize = milliseconds * 8LL * 2;
    HttpReply reply;
    reply.contentType = "audio/wav"_ba;
    reply.body = "RIFF"_ba + number(36 + dataSize, 4) + "WAVEfmt "_ba + number(16, 4) +
                 number(1, 2) + number(1, 2) + number(8000, 4) + number(16000, 4) + number(2, 2) +
                 number(16, 2) + "data"_ba + number(dataSize, 4) + QByteArray(dataSize, '\0');
    return reply;
}

} // namespace

class tst_VlcPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void looksAtTheStreamTwiceASecond();
    void makesOnlyTheSurfaceNative();
    void plays_data();
    void plays();
    void aFilmIsFetchedFromItsEnd();
    void pausesAndResumes();
    void stops();
    void keepsTheVolume();
    void seeks();
    void seeksRelatively_data();
    void seeksRelatively();
    void seeksInAFilmShorterThanASecond();
    void aLiveStreamOutlivesRelativeSeeks();
    void secondStreamReplacesTheFirst();

private:
    QString url(const QString &path) const { return server->url(path); }
    bool pauseAt(qint64 ms);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcPlayer::initTestCase()
{
    keepVlcFromOpeningWindows();
    qunsetenv("VANTIRO_VLC_DEBUG");
}

void tst_VlcPlayer::init()
{
    server = std::make_unique<HttpServer>();
    server->serveDirectory(u"/files/"_s, streamPath({}));
    server->on(u"/live.ts"_s, liveTs());
    serveLiveHls(*server, u"/live-hls"_s);
    probe = std::make_unique<PlayerProbe>();
}

void tst_VlcPlayer::cleanup()
{
    probe.reset();
    server.reset();
}

void tst_VlcPlayer::looksAtTheStreamTwiceASecond()
{
    const QTimer *timer = probe->tickTimer();
    QVERIFY(timer != nullptr);
    QCOMPARE(timer->interval(), 500);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());

    // It looks without a stream as well, and says nothing then.
    QTRY_VERIFY(probe->ticks >= 2);
    QCOMPARE(probe->positions, 0);
    QCOMPARE(probe->log, QStringList());

    probe->player.play(url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->positions > 0, openMs);
    const int silentTicks = probe->ticks - probe->positions;
    QTRY_VERIFY_WITH_TIMEOUT(probe->positions >= 5, openMs);
    QCOMPARE(probe->ticks - probe->positions, silentTicks);
}

void tst_VlcPlayer::makesOnlyTheSurfaceNative()
{
    QWidget window;
    auto *panel = new QWidget(&window);
    auto *surface = new QWidget(panel);
    const VlcPlayer player(surface, nullptr);
    QVERIFY(surface->testAttribute(Qt::WA_DontCreateNativeAncestors));
    QVERIFY(surface->testAttribute(Qt::WA_NativeWindow));
    QVERIFY(surface->internalWinId() != 0);
    QVERIFY(!panel->testAttribute(Qt::WA_NativeWindow));
    QCOMPARE(panel->internalWinId(), WId{0});
}

void tst_VlcPlayer::plays_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("live");
    QTest::addColumn<qint64>("length");

    QTest::newRow("a channel without an end, as MPEG-TS") << u"/live.ts"_s << true << qint64{0};
    QTest::newRow("a channel as HLS") << u"/live-hls/index.m3u8"_s << true << qint64{-1};
    QTest::newRow("an HLS film") << u"/files/hls/index.m3u8"_s << false << qint64{30000};
    QTest::newRow("an MP4 film with its index at the end")
        << u"/files/film.mp4"_s << false << filmMs;
    QTest::newRow("an MP4 film with its index in front")
        << u"/files/film-faststart.mp4"_s << false << filmMs;
    QTest::newRow("sound without a picture") << u"/files/audio.mp3"_s << false << qint64{10000};
}

void tst_VlcPlayer::plays()
{
    QFETCH(QString, path);
    QFETCH(bool, live);
    QFETCH(qint64, length);

    probe->player.play(url(path), live);
    QCOMPARE(probe->log, started);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 3, openMs);

    QVERIFY(probe->player.isPlaying());
    // The first look has nothing to compare with.
    QVERIFY(probe->positions > probe->progress);
    QVERIFY(probe->currentMs > 0);
    // libVLC may set the clock of a stream in segments back a little at the edge of one.
    const bool clockMayStepBack = live || path.endsWith(".m3u8"_L1);
    QVERIFY(probe->player.timeMs() >= (clockMayStepBack ? 1 : probe->currentMs));
    if (length > 0) {
        QVERIFY2(qAbs(probe->totalMs - length) < 500, qPrintable(QString::number(probe->totalMs)));
        QCOMPARE(probe->player.lengthMs(), probe->totalMs);
    } else if (length == 0) {
        QCOMPARE_LE(probe->totalMs, 0);
    }
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->errors, QStringList());
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::aFilmIsFetchedFromItsEnd()
{
    probe->player.play(url(u"/files/film.mp4"_s), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    const QList<HttpRequest> requests = server->requests();
    QVERIFY(std::any_of(requests.cbegin(), requests.cend(), [](const HttpRequest &request) {
        const QByteArray range = request.header("Range"_ba);
        return !range.isEmpty() && range != "bytes=0-"_ba;
    }));
}

void tst_VlcPlayer::pausesAndResumes()
{
    VlcPlayer &player = probe->player;
    player.play(url(u"/files/film.mp4"_s), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);

    player.pause();
    QCOMPARE(probe->log, started + QStringList{u"paused"_s});
    QTRY_VERIFY(!player.isPlaying());
    const int positions = probe->positions;
    const int ticks = probe->ticks;
    QTRY_VERIFY(probe->ticks >= ticks + 3);
    QCOMPARE(probe->positions, positions);

    // Pausing again does not resume.
    player.pause();
    QCOMPARE(probe->log, started + QStringList({u"paused"_s, u"paused"_s}));
    QVERIFY(!player.isPlaying());

    // What toggling tells is the state that it leads to, though libVLC takes a moment to get there.
    player.togglePause();
    QCOMPARE(probe->log.size(), 5);
    QCOMPARE(probe->log.last(), u"not paused"_s);
    QTRY_VERIFY(player.isPlaying());
    QTRY_VERIFY(probe->positions > positions);
    player.togglePause();
    QCOMPARE(probe->log.size(), 6);
    QCOMPARE(probe->log.last(), u"paused"_s);
    QTRY_VERIFY(!player.isPlaying());
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::stops()
{
    VlcPlayer &player = probe->player;
    player.stop();
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    probe->log.clear();

    player.play(url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    player.stop();
    QCOMPARE(probe->log, started + QStringList{u"stopped"_s});
    QVERIFY(!player.isPlaying());
    const int positions = probe->positions;
    const int ticks = probe->ticks;
    QTRY_COMPARE(server->openConnections(u"/live.ts"_s), 0);
    QTRY_VERIFY(probe->ticks >= ticks + 3);
    QCOMPARE(probe->positions, positions);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::keepsTheVolume()
{
    VlcPlayer &player = probe->player;
    player.setVolume(37);
    player.play(url(u"/files/audio.mp3"_s), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    QTRY_COMPARE(player.volume(), 37);
    player.setVolume(64);
    QTRY_COMPARE(player.volume(), 64);

    player.play(url(u"/live.ts"_s), true);
    probe->progress = 0;
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    QCOMPARE(player.volume(), 64);
    player.setVolume(150); // not limited here
    QTRY_COMPARE(player.volume(), 150);
    player.setVolume(0);
    QTRY_COMPARE(player.volume(), 0);
}

/// Plays the film, pauses it and goes to `ms`.
bool tst_VlcPlayer::pauseAt(qint64 ms)
{
    VlcPlayer &player = probe->player;
    player.play(url(u"/files/film.mp4"_s), false);
    if (!QTest::qWaitFor([this] { return probe->progress >= 1; }, openMs)) {
        return false;
    }
    player.pause();
    if (!QTest::qWaitFor([&player] { return !player.isPlaying(); }, openMs)) {
        return false;
    }
    player.seek(ms);
    return QTest::qWaitFor([&player, ms] { return player.timeMs() == ms; }, openMs);
}

void tst_VlcPlayer::seeks()
{
    VlcPlayer &player = probe->player;
    player.play(url(u"/files/film.mp4"_s), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    player.seek(40000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 40000, openMs);
    QCOMPARE_LE(probe->currentMs, 45000);
    player.seek(10000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs < 40000, openMs);
    QCOMPARE_GE(probe->currentMs, 9000);
    probe->progress = 0;
    QTRY_VERIFY(probe->progress >= 2);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::seeksRelatively_data()
{
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("delta");
    QTest::addColumn<qint64>("lands");

    const qint64 step = 10000;
    QTest::newRow("forward") << qint64{20000} << step << qint64{30000};
    QTest::newRow("backward") << qint64{40000} << -step << qint64{30000};
    QTest::newRow("forward over the end stops a second before it")
        << qint64{55000} << step << qint64{59000};
    QTest::newRow("backward over the start stops there") << qint64{3000} << -step << qint64{0};
    QTest::newRow("forward within the last second goes back to its begin")
        << qint64{59500} << qint64{100} << qint64{59000};
}

void tst_VlcPlayer::seeksRelatively()
{
    QFETCH(qint64, from);
    QFETCH(qint64, delta);
    QFETCH(qint64, lands);

    QVERIFY(pauseAt(from));
    QCOMPARE(probe->player.lengthMs(), filmMs);
    probe->player.seekRelative(delta);
    QTRY_COMPARE_WITH_TIMEOUT(probe->player.timeMs(), lands, openMs);
}

void tst_VlcPlayer::seeksInAFilmShorterThanASecond()
{
    server->on(u"/short.wav"_s, wave(900));
    VlcPlayer &player = probe->player;
    player.play(url(u"/short.wav"_s), false);
    player.pause();
    QTRY_COMPARE_WITH_TIMEOUT(player.lengthMs(), 900, openMs);
    player.seek(500);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), 500, openMs);
    player.seekRelative(100);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), 0, openMs);
}

void tst_VlcPlayer::aLiveStreamOutlivesRelativeSeeks()
{
    VlcPlayer &player = probe->player;
    player.play(url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    for (const qint64 delta : {-10000, 10000}) {
        player.seekRelative(delta);
        probe->progress = 0;
        QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 2, openMs);
    }
    QVERIFY(player.isPlaying());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
}

void tst_VlcPlayer::secondStreamReplacesTheFirst()
{
    VlcPlayer &player = probe->player;
    player.play(url(u"/files/film.mp4"_s), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    player.seek(40000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 40000, openMs);

    player.play(url(u"/files/audio.mp3"_s), false);
    QTRY_COMPARE(probe->log, started + started);
    QTRY_VERIFY_WITH_TIMEOUT(probe->totalMs < filmMs, openMs);
    QVERIFY(probe->currentMs < 10000);
    QTRY_COMPARE(server->openConnections(u"/files/film.mp4"_s), 0);
    probe->progress = 0;
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(probe->errors, QStringList());
}

VANTIRO_TEST_MAIN(tst_VlcPlayer)
#include "tst_VlcPlayer.moc"
