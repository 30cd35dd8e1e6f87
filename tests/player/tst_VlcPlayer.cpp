#include "PlayerTest.h"
#include "support/TestMain.h"

#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 filmMs = 60000;
const QString film = u"/files/film.mp4"_s;

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

class tst_VlcPlayer : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;

    void checksTheStreamTwiceASecond();
    void makesOnlyTheSurfaceNative();
    void plays_data();
    void plays();
    void aFilmIsFetchedFromItsEnd();
    void pausesAndResumes();
    void aPauseStartsTheJudgementAgain();
    void stops();
    void keepsTheVolume();
    void seeks();
    void seeksRelatively_data();
    void seeksRelatively();
    void seeksInAFilmShorterThanASecond();
    void aLiveStreamOutlivesRelativeSeeks();
    void secondStreamReplacesTheFirst();

private:
    /// Whether the player does nothing at the next checks of the stream.
    bool staysSilent() const;
};

void tst_VlcPlayer::init()
{
    PlayerTest::init();
    serveLiveHls(*server, u"/live-hls"_s);
}

bool tst_VlcPlayer::staysSilent() const
{
    const int positions = probe->positions;
    return probe->checksAgain() && probe->positions == positions;
}

void tst_VlcPlayer::checksTheStreamTwiceASecond()
{
    const QTimer *timer = probe->progressTimer();
    QVERIFY(timer != nullptr);
    QCOMPARE(timer->interval(), 500);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());

    // It runs without a stream as well, and reports nothing then.
    QVERIFY(probe->checksAgain(2));
    QCOMPARE(probe->positions, 0);
    QCOMPARE(probe->log, QStringList());

    play(u"/live.ts"_s, true);
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
    QTest::newRow("an MP4 film with its index at the end") << film << false << filmMs;
    QTest::newRow("an MP4 film with its index in front")
        << u"/files/film-faststart.mp4"_s << false << filmMs;
    QTest::newRow("sound without a picture") << u"/files/audio.mp3"_s << false << qint64{10000};
}

void tst_VlcPlayer::plays()
{
    QFETCH(QString, path);
    QFETCH(bool, live);
    QFETCH(qint64, length);

    play(path, live);
    QCOMPARE(probe->log, started);
    QVERIFY(probe->advances(3));

    QVERIFY(probe->player.isPlaying());
    // The first check has nothing to compare with.
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
    play(film);
    QVERIFY(probe->advances());
    const QList<HttpRequest> requests = server->requests();
    QVERIFY(std::any_of(requests.cbegin(), requests.cend(), [](const HttpRequest &request) {
        const QByteArray range = request.header("Range"_ba);
        return !range.isEmpty() && range != "bytes=0-"_ba;
    }));
}

void tst_VlcPlayer::pausesAndResumes()
{
    VlcPlayer &player = probe->player;
    play(film);
    QVERIFY(probe->advances());

    player.pause();
    QCOMPARE(probe->log, started + QStringList{u"paused"_s});
    QTRY_VERIFY(!player.isPlaying());
    QVERIFY(staysSilent());

    // Pausing again does not resume.
    player.pause();
    QCOMPARE(probe->log, started + QStringList({u"paused"_s, u"paused"_s}));
    QVERIFY(!player.isPlaying());

    // Toggling reports the new state although libVLC takes a moment to reach it.
    for (const bool paused : {false, true}) {
        const qsizetype reports = probe->log.size();
        player.togglePause();
        QCOMPARE(probe->log.size(), reports + 1);
        QCOMPARE(probe->log.last(), paused ? u"paused"_s : u"not paused"_s);
        QTRY_COMPARE(player.isPlaying(), !paused);
    }
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::aPauseStartsTheJudgementAgain()
{
    play(film);
    QVERIFY(probe->advances());
    probe->player.pause();
    QTRY_VERIFY(!probe->player.isPlaying());
    QVERIFY(probe->checksAgain());
    const int silentPositions = probe->positions - probe->progress;
    probe->player.togglePause();
    QVERIFY(probe->advances(2));
    // The first check after the pause has nothing to compare with.
    QVERIFY(probe->positions - probe->progress > silentPositions);
}

void tst_VlcPlayer::stops()
{
    VlcPlayer &player = probe->player;
    player.stop();
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    probe->log.clear();

    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances());
    player.stop();
    QCOMPARE(probe->log, started + QStringList{u"stopped"_s});
    QVERIFY(!player.isPlaying());
    QTRY_COMPARE(server->openConnections(u"/live.ts"_s), 0);
    QVERIFY(staysSilent());
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::keepsTheVolume()
{
    VlcPlayer &player = probe->player;
    player.setVolume(37);
    play(u"/files/audio.mp3"_s);
    QVERIFY(probe->advances());
    QTRY_COMPARE(player.volume(), 37);
    player.setVolume(64);
    QTRY_COMPARE(player.volume(), 64);

    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances());
    QCOMPARE(player.volume(), 64);
    for (const int percent : {150, 0}) { // without limits
        player.setVolume(percent);
        QTRY_COMPARE(player.volume(), percent);
    }
}

void tst_VlcPlayer::seeks()
{
    play(film);
    QVERIFY(probe->advances());
    probe->player.seek(40000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 40000, openMs);
    QCOMPARE_LE(probe->currentMs, 45000);
    probe->player.seek(10000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs < 40000, openMs);
    QCOMPARE_GE(probe->currentMs, 9000);
    QVERIFY(probe->advances(2));
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
    QTest::newRow("forward within the last second returns to its start")
        << qint64{59500} << qint64{100} << qint64{59000};
}

void tst_VlcPlayer::seeksRelatively()
{
    QFETCH(qint64, from);
    QFETCH(qint64, delta);
    QFETCH(qint64, lands);

    VlcPlayer &player = probe->player;
    play(film);
    QVERIFY(probe->advances());
    player.pause();
    QTRY_VERIFY_WITH_TIMEOUT(!player.isPlaying(), openMs);
    player.seek(from);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), from, openMs);
    QCOMPARE(player.lengthMs(), filmMs);
    player.seekRelative(delta);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), lands, openMs);
}

void tst_VlcPlayer::seeksInAFilmShorterThanASecond()
{
    server->on(u"/short.wav"_s, wave(900));
    VlcPlayer &player = probe->player;
    play(u"/short.wav"_s);
    player.pause();
    QTRY_COMPARE_WITH_TIMEOUT(player.lengthMs(), 900, openMs);
    player.seek(500);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), 500, openMs);
    player.seekRelative(100);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), 0, openMs);
}

void tst_VlcPlayer::aLiveStreamOutlivesRelativeSeeks()
{
    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances());
    for (const qint64 delta : {-10000, 10000}) {
        probe->player.seekRelative(delta);
        QVERIFY(probe->advances(2));
    }
    QVERIFY(probe->player.isPlaying());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
}

void tst_VlcPlayer::secondStreamReplacesTheFirst()
{
    play(film);
    QVERIFY(probe->advances());
    probe->player.seek(40000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 40000, openMs);

    play(u"/files/audio.mp3"_s);
    QTRY_COMPARE(probe->log, started + started);
    QTRY_VERIFY_WITH_TIMEOUT(probe->totalMs < filmMs, openMs);
    QVERIFY(probe->currentMs < 10000);
    QTRY_COMPARE(server->openConnections(film), 0);
    QVERIFY(probe->advances());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(probe->errors, QStringList());
}

VANTIRO_TEST_MAIN(tst_VlcPlayer)
#include "tst_VlcPlayer.moc"
