#include "PlayerTest.h"

#include <QWidget>

namespace {

constexpr qint64 filmMs = 60000;
constexpr qint64 unknownMs = -1;
const QString film = u"/files/film.mp4"_s;

/// 900 ms of silence as a WAV file.
HttpReply shortFilm()
{
    constexpr int bytes = 14400;
    const QByteArray head = QByteArray::fromHex("524946466438000057415645666d74201000000001000100"
                                                "401f0000803e0000020010006461746140380000");
    return bodyReply(head + QByteArray(bytes, '\0'), "audio/wav"_ba);
}

} // namespace

class tst_VlcPlayer : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void checksTheStreamTwiceASecond();
    void makesOnlyTheSurfaceNative();
    void plays_data();
    void plays();
    void pausesAndResumes();
    void stops();
    void keepsTheVolume();
    void seeksRelatively_data();
    void seeksRelatively();
    void seeksInAFilmShorterThanASecond();
    void aLiveStreamOutlivesRelativeSeeks();
};

void tst_VlcPlayer::checksTheStreamTwiceASecond()
{
    const QTimer *timer = probe->progressTimer();
    QCOMPARE(timer->interval(), 500);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    // It runs without a stream as well, and reports nothing then.
    QVERIFY(probe->staysSilent());
    QCOMPARE(probe->log, QStringList());
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
    QTest::newRow("a channel without an end") << u"/live.ts"_s << true << qint64{0};
    QTest::newRow("a channel as HLS") << u"/live-hls/index.m3u8"_s << true << unknownMs;
    QTest::newRow("an HLS film") << u"/files/hls/index.m3u8"_s << false << qint64{30000};
    QTest::newRow("a film with its index at the end") << film << false << filmMs;
    QTest::newRow("sound without a picture") << u"/files/audio.mp3"_s << false << qint64{10000};
}

void tst_VlcPlayer::plays()
{
    QFETCH(QString, path);
    QFETCH(bool, live);
    QFETCH(qint64, length);

    serveLiveHls(*server, u"/live-hls"_s);
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
    if (length != unknownMs) {
        QVERIFY2(qAbs(probe->totalMs - length) < 500, qPrintable(QString::number(probe->totalMs)));
        QCOMPARE(probe->player.lengthMs(), probe->totalMs);
    }
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->errors + probe->interruptions, QStringList());
}

void tst_VlcPlayer::pausesAndResumes()
{
    VlcPlayer &player = probe->player;
    QVERIFY(starts(film));

    // Pausing again does not resume.
    for (int times = 1; times <= 2; ++times) {
        player.pause();
        QCOMPARE(probe->log.mid(2), QStringList(times, u"paused"_s));
        QTRY_VERIFY(!player.isPlaying());
        QVERIFY(probe->staysSilent());
    }
    // Toggling reports the new state although libVLC takes a moment to reach it.
    const int silentPositions = probe->positions - probe->progress;
    for (const bool paused : {false, true, false}) {
        const qsizetype reports = probe->log.size();
        player.togglePause();
        QCOMPARE(probe->log.size(), reports + 1);
        QCOMPARE(probe->log.last(), paused ? u"paused"_s : u"not paused"_s);
        QTRY_COMPARE(player.isPlaying(), !paused);
    }
    // The first check after the pause has nothing to compare with.
    QVERIFY(probe->advances(2));
    QVERIFY(probe->positions - probe->progress > silentPositions);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::stops()
{
    VlcPlayer &player = probe->player;
    player.stop();
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    probe->log.clear();

    QVERIFY(starts(u"/live.ts"_s, true));
    player.stop();
    QCOMPARE(probe->log, started + QStringList{u"stopped"_s});
    QVERIFY(!player.isPlaying());
    QTRY_COMPARE(server->openConnections(u"/live.ts"_s), 0);
    QVERIFY(probe->staysSilent());
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayer::keepsTheVolume()
{
    VlcPlayer &player = probe->player;
    player.setVolume(37);
    QVERIFY(starts(u"/files/audio.mp3"_s));
    QTRY_COMPARE(player.volume(), 37);
    player.setVolume(64);
    QTRY_COMPARE(player.volume(), 64);

    QVERIFY(starts(u"/live.ts"_s, true));
    QTRY_COMPARE(player.volume(), 64);
    for (const int percent : {150, 0}) { // without limits
        player.setVolume(percent);
        QTRY_COMPARE(player.volume(), percent);
    }
}

void tst_VlcPlayer::seeksRelatively_data()
{
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("delta");
    QTest::addColumn<qint64>("lands");
    const auto row = [](const char *name, qint64 from, qint64 delta, qint64 lands) {
        QTest::newRow(name) << from << delta << lands;
    };
    row("forward", 20000, 10000, 30000);
    row("backward", 40000, -10000, 30000);
    row("forward over the end stops a second before it", 55000, 10000, 59000);
    row("backward over the start stops there", 3000, -10000, 0);
    row("forward within the last second returns to its start", 59500, 100, 59000);
}

void tst_VlcPlayer::seeksRelatively()
{
    QFETCH(qint64, from);
    QFETCH(qint64, delta);

    VlcPlayer &player = probe->player;
    QVERIFY(starts(film));
    player.pause();
    QTRY_VERIFY_WITH_TIMEOUT(!player.isPlaying(), openMs);
    player.seek(from);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), from, openMs);
    QCOMPARE(player.lengthMs(), filmMs);
    player.seekRelative(delta);
    QFETCH(qint64, lands);
    QTRY_COMPARE_WITH_TIMEOUT(player.timeMs(), lands, openMs);
}

void tst_VlcPlayer::seeksInAFilmShorterThanASecond()
{
    server->on(u"/short.wav"_s, shortFilm());
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
    QVERIFY(starts(u"/live.ts"_s, true));
    for (const qint64 delta : {-10000, 10000}) {
        probe->player.seekRelative(delta);
        QVERIFY(probe->advances(2));
    }
    QVERIFY(probe->player.isPlaying());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
}

VANTIRO_TEST_MAIN(tst_VlcPlayer)
#include "tst_VlcPlayer.moc"
