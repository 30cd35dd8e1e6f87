#include "PlayerProbe.h"
#include "fakeprovider/HangingChannel.h"
#include "player/MediaPlayer.h"
#include "support/TestMain.h"

#include <QTest>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QStringList started{u"playing"_s, u"not paused"_s};

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;

HttpReply neverAnswers()
{
    HttpReply reply;
    reply.neverAnswer = true;
    return reply;
}

} // namespace

/// From one stream to the next: what the one keeps for the other, what is chosen while the next one
/// waits, and what the one before still says.
class tst_VlcPlayerChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void init();
    void cleanup();

    void keepsCookies();
    void stopEndsTheWait();
    void theNewestRequestWins();
    void infoIsThatOfTheWaitingStream();
    void choicesForAWaitingStream_data();
    void choicesForAWaitingStream();
    void subtitleFileForAWaitingStream();
    void resumedBeforeItStarts();
    void choicesDieWithTheirStream();
    void togglingWhileItOpensTellsNothing();
    void newsOfAnEarlierStreamIsDropped_data();
    void newsOfAnEarlierStreamIsDropped();

private:
    QString url(const QString &path) const { return server->url(path); }
    /// Plays the hanging channel, and leaves it for that stream, which then waits.
    void playAfterTheHangingChannel(const QString &path, bool live);

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<HangingChannel> channel;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcPlayerChanges::init()
{
    server = std::make_unique<HttpServer>();
    server->serveDirectory(u"/files/"_s, streamPath({}));
    server->on(u"/live.ts"_s, liveTs());
    server->on(u"/never.ts"_s, neverAnswers());
    channel = std::make_unique<HangingChannel>(*server);
    probe = std::make_unique<PlayerProbe>();
}

void tst_VlcPlayerChanges::cleanup()
{
    channel->letGo();
    probe.reset();
    server.reset();
}

void tst_VlcPlayerChanges::playAfterTheHangingChannel(const QString &path, bool live)
{
    probe->player.play(channel->url(), true);
    QTRY_VERIFY_WITH_TIMEOUT(channel->hangs() && probe->positions > 0, openMs);
    QCOMPARE(probe->log, started);
    probe->log.clear();
    probe->player.play(url(path), live);
    QCOMPARE(probe->log, QStringList());
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerChanges::keepsCookies()
{
    HttpReply ends = HttpReply::file(streamPath(u"short.ts"_s));
    ends.body.truncate(ends.body.size() / 10);
    ends.headers.append({"Set-Cookie"_ba, "session=k7; path=/"_ba});
    server->on(u"/channel.ts"_s, ends);
    for (int round = 1; round <= 3; ++round) {
        probe->player.play(url(u"/channel.ts"_s), true);
        QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), round, openMs);
    }
    const QList<HttpRequest> requests = server->requests();
    QCOMPARE(requests.first().header("Cookie"_ba), QByteArray());
    QCOMPARE(requests.last().header("Cookie"_ba), "session=k7"_ba);
}

void tst_VlcPlayerChanges::stopEndsTheWait()
{
    playAfterTheHangingChannel(u"/live.ts"_s, true);
    probe->player.stop();
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    channel->letGo();
    const int ticks = probe->ticks;
    QTRY_VERIFY(probe->ticks >= ticks + 4);
    QCOMPARE(server->requestCount(u"/live.ts"_s), 0);
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerChanges::theNewestRequestWins()
{
    playAfterTheHangingChannel(u"/files/audio.mp3"_s, false);
    probe->player.play(url(u"/files/film.mp4"_s), false);
    probe->player.play(url(u"/live.ts"_s), true);
    channel->letGo();
    probe->progress = 0;
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    QCOMPARE(server->requestCount(u"/live.ts"_s), 1);
    QCOMPARE(server->requestCount(u"/files/audio.mp3"_s), 0);
    QCOMPARE(server->requestCount(u"/files/film.mp4"_s), 0);
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayerChanges::infoIsThatOfTheWaitingStream()
{
    const QString unknown = u"No track information available yet."_s;
    playAfterTheHangingChannel(u"/files/audio.mp3"_s, false);
    const VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), unknown);
    QCOMPARE(player.lengthMs(), 0);
    QCOMPARE(player.timeMs(), 0);
    QCOMPARE(player.audioTracks(), QList<VlcPlayer::Track>());
    QCOMPARE(player.currentAudioTrack(), -1);
    QCOMPARE(player.currentSubtitleTrack(), -1);

    // The channel hangs on: the film gets a media player of its own.
    QTRY_COMPARE_WITH_TIMEOUT(probe->log, started, openMs);
    QVERIFY(channel->hangs());
    QVERIFY(!player.mediaInfoText().contains(u"Video codec"_s));
    QTRY_VERIFY_WITH_TIMEOUT(player.mediaInfoText().startsWith(u"Audio codec: mp3"_s), openMs);
}

void tst_VlcPlayerChanges::choicesForAWaitingStream_data()
{
    QTest::addColumn<bool>("hangs");
    QTest::newRow("the stream before lets go") << false;
    QTest::newRow("the stream before hangs") << true;
}

void tst_VlcPlayerChanges::choicesForAWaitingStream()
{
    QFETCH(bool, hangs);
    playAfterTheHangingChannel(u"/files/tracks.mkv"_s, false);
    VlcPlayer &player = probe->player;
    player.togglePause();
    QCOMPARE(probe->log, QStringList(u"paused"_s));
    player.seek(2000);
    player.seekRelative(6000);
    QCOMPARE(player.timeMs(), 8000);
    player.setAudioTrack(2);
    QCOMPARE(player.currentAudioTrack(), 2);
    player.setSubtitleTrack(3);
    player.setSubtitlesEnabled(false);
    QVERIFY(!player.subtitlesEnabled());
    player.setSubtitlesEnabled(true);
    QCOMPARE(player.currentSubtitleTrack(), 3);
    if (!hangs) {
        channel->letGo();
    }

    const QStringList startedPaused{u"paused"_s, u"playing"_s, u"paused"_s};
    QTRY_COMPARE_WITH_TIMEOUT(probe->log, startedPaused, openMs);
    QTRY_COMPARE_WITH_TIMEOUT(player.currentAudioTrack(), 2, openMs);
    QTRY_COMPARE(player.currentSubtitleTrack(), 3);
    QTRY_VERIFY_WITH_TIMEOUT(player.timeMs() >= 7500, openMs);
    QTRY_VERIFY(!player.isPlaying());
    const int positions = probe->positions;
    const int ticks = probe->ticks;
    QTRY_VERIFY(probe->ticks >= ticks + 3);
    QCOMPARE(probe->positions, positions);

    player.togglePause();
    QCOMPARE(probe->log.last(), u"not paused"_s);
    QTRY_VERIFY_WITH_TIMEOUT(player.isPlaying(), openMs);
    QVERIFY(player.timeMs() < 15000);
}

void tst_VlcPlayerChanges::subtitleFileForAWaitingStream()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s, false);
    probe->player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    channel->letGo();
    QTRY_COMPARE_WITH_TIMEOUT(probe->player.subtitleTracks().size(), 1, openMs);
    QTRY_VERIFY(probe->player.subtitlesEnabled());
}

void tst_VlcPlayerChanges::resumedBeforeItStarts()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s, false);
    probe->player.pause();
    probe->player.togglePause();
    QCOMPARE(probe->log, QStringList({u"paused"_s, u"not paused"_s}));
    channel->letGo();
    probe->progress = 0;
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
}

void tst_VlcPlayerChanges::choicesDieWithTheirStream()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s, false);
    probe->player.pause();
    probe->player.seek(30000);
    probe->player.play(url(u"/files/tracks.mkv"_s), false);
    QCOMPARE(probe->player.timeMs(), 0);
    channel->letGo();
    probe->progress = 0;
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 2, openMs);
    QVERIFY(probe->currentMs < 10000);
}

void tst_VlcPlayerChanges::togglingWhileItOpensTellsNothing()
{
    probe->player.play(url(u"/never.ts"_s), true);
    probe->player.togglePause();
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(u"/never.ts"_s), 1, openMs);
    probe->player.togglePause();
    QCOMPARE(probe->log, started);
}

void tst_VlcPlayerChanges::newsOfAnEarlierStreamIsDropped_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("live");
    QTest::newRow("a channel's error") << u"/missing.ts"_s << true;
    QTest::newRow("a channel's end") << u"/short.ts"_s << true;
    // It would be one if it were taken for the channel that follows.
    QTest::newRow("a recording's normal end") << u"/short.ts"_s << false;
}

void tst_VlcPlayerChanges::newsOfAnEarlierStreamIsDropped()
{
    QFETCH(QString, path);
    QFETCH(bool, live);
    HttpReply ends = HttpReply::file(streamPath(u"short.ts"_s));
    ends.body.truncate(ends.body.size() / 10);
    server->on(u"/short.ts"_s, ends);
    std::atomic<bool> told = false;
    const auto *source = probe->player.findChild<MediaPlayer *>();
    for (const auto signal : {&MediaPlayer::failed, &MediaPlayer::ended}) {
        connect(
            source, signal, this,
            [&told] {
                told = true;
                told.notify_one();
            },
            Qt::DirectConnection);
    }
    probe->player.play(url(path), live);
    // This thread handles no event, so that the news is still in its queue.
    told.wait(false);
    probe->player.play(url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 2, openMs);
    QCOMPARE(probe->interruptions, QStringList());
}

VANTIRO_TEST_MAIN(tst_VlcPlayerChanges)
#include "tst_VlcPlayerChanges.moc"
