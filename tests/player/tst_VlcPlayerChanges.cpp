#include "PlayerTest.h"
#include "fakeprovider/HangingChannel.h"

#include <QFileInfo>
#include <QSignalSpy>

#include <vlc/vlc.h>

/// The change from one stream to the next: what the next one inherits, what is selected while it
/// waits, and what is still reported of the previous one.
class tst_VlcPlayerChanges : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;
    void cleanup() override;

    void keepsCookies();
    void keepsThePictureButNotTheTime_data();
    void keepsThePictureButNotTheTime();
    void stopEndsTheWait();
    void theLastRequestWins();
    void infoIsThatOfTheWaitingStream();
    void noPictureOfAWaitingStream();
    void opensUntilItPlays();
    void selectsForAWaitingStream_data();
    void selectsForAWaitingStream();
    void subtitleFileForAWaitingStream();
    void oneTrackForAWaitingStream_data();
    void oneTrackForAWaitingStream();
    void resumedBeforeItStarts();
    void resumedWhileItOpens();
    void continuesAt_data();
    void continuesAt();
    void continuesAfterAWait_data();
    void continuesAfterAWait();
    void continuesWhilePaused();
    void continuesWhenItHasOpened();
    void commandsToAStoppingStream();
    void togglingWhileItOpensReportsNothing();
    void reportsOfAnEarlierStreamAreIgnored();

private:
    libvlc_media_player_t *handle() const
    {
        return probe->player.findChild<MediaPlayer *>()->handle();
    }
    /// What libVLC has of PictureSettings, but for the deinterlacing, which it does not tell.
    PictureSettings pictureInLibVlc() const;
    /// Plays the hanging channel and replaces it by that stream, which then waits.
    void playAfterTheHangingChannel(const QString &path, bool live = false);

    std::unique_ptr<HangingChannel> channel;
};

void tst_VlcPlayerChanges::init()
{
    PlayerTest::init();
    channel = std::make_unique<HangingChannel>(*server);
}

void tst_VlcPlayerChanges::cleanup()
{
    channel->letGo();
    PlayerTest::cleanup();
}

void tst_VlcPlayerChanges::playAfterTheHangingChannel(const QString &path, bool live)
{
    probe->player.play(channel->url(), true);
    QTRY_VERIFY_WITH_TIMEOUT(channel->hangs() && probe->positions > 0, openMs);
    QCOMPARE(probe->log, started);
    probe->log.clear();
    play(path, live);
    QCOMPARE(probe->log, QStringList());
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerChanges::keepsCookies()
{
    HttpReply ends = endingStream();
    ends.headers.append({"Set-Cookie"_ba, "session=k7; path=/"_ba});
    server->on(u"/channel.ts"_s, ends);
    for (int round = 1; round <= 3; ++round) {
        play(u"/channel.ts"_s, true);
        QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), round, openMs);
    }
    const QList<HttpRequest> requests = server->requests();
    QCOMPARE(requests.first().header("Cookie"_ba), QByteArray());
    QCOMPARE(requests.last().header("Cookie"_ba), "session=k7"_ba);
}

PictureSettings tst_VlcPlayerChanges::pictureInLibVlc() const
{
    const auto taken = [](char *text) {
        QString copy = QString::fromLatin1(text);
        libvlc_free(text);
        return copy;
    };
    PictureSettings settings;
    settings.aspectRatio = taken(libvlc_video_get_aspect_ratio(handle()));
    settings.crop = taken(libvlc_video_get_crop_geometry(handle()));
    settings.scale = libvlc_video_get_scale(handle());
    return settings;
}

void tst_VlcPlayerChanges::keepsThePictureButNotTheTime_data()
{
    QTest::addColumn<bool>("hangs");
    QTest::newRow("on the same media player") << false;
    QTest::newRow("on another media player") << true;
}

void tst_VlcPlayerChanges::keepsThePictureButNotTheTime()
{
    QFETCH(const bool, hangs);
    VlcPlayer &player = probe->player;
    if (hangs) {
        player.play(channel->url(), true);
        QTRY_VERIFY_WITH_TIMEOUT(channel->hangs() && probe->positions > 0, openMs);
    } else {
        QVERIFY(starts(u"/files/film.mp4"_s));
    }
    const PictureSettings settings{u"4:3"_s, u"16:9"_s, 0.5F, false};
    player.setPicture(settings);
    player.setRate(1.5F);
    player.setAudioDelay(300);
    player.setSubtitleDelay(400);
    QCOMPARE(pictureInLibVlc(), settings);
    if (!hangs) { // whose stream takes no speed any more
        QTRY_COMPARE(libvlc_media_player_get_rate(handle()), 1.5F);
        QTRY_COMPARE(libvlc_audio_get_delay(handle()), 300'000);
        QTRY_COMPARE(libvlc_video_get_spu_delay(handle()), 400'000);
    }

    const libvlc_media_player_t *before = handle();
    play(u"/files/tracks.mkv"_s);
    QVERIFY(probe->advances());
    QCOMPARE(handle() == before, !hangs);
    QCOMPARE(pictureInLibVlc(), settings);
    QCOMPARE(libvlc_media_player_get_rate(handle()), 1.0F);
    QCOMPARE(libvlc_audio_get_delay(handle()), 0);
    QCOMPARE(libvlc_video_get_spu_delay(handle()), 0);
    QCOMPARE(player.rate(), 1.0F);
    QCOMPARE(player.audioDelayMs(), 0);
    QCOMPARE(player.subtitleDelayMs(), 0);
}

void tst_VlcPlayerChanges::stopEndsTheWait()
{
    playAfterTheHangingChannel(u"/live.ts"_s, true);
    probe->player.stop();
    channel->letGo();
    QVERIFY(probe->checksAgain(4));
    QCOMPARE(server->requestCount(u"/live.ts"_s), 0);
    QCOMPARE(probe->log, QStringList(u"stopped"_s));
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerChanges::theLastRequestWins()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    // What is selected dies with its stream.
    probe->player.pause();
    probe->player.seek(30000);
    probe->log.clear();
    play(u"/files/tracks.mkv"_s);
    QCOMPARE(probe->player.timeMs(), 0);
    channel->letGo();
    QVERIFY(probe->advances(2));
    QVERIFY(probe->currentMs < 10000);
    QCOMPARE(server->requestCount(u"/files/film.mp4"_s), 0);
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->interruptions, QStringList());
}

void tst_VlcPlayerChanges::infoIsThatOfTheWaitingStream()
{
    const QString unknown = u"No track information available yet."_s;
    playAfterTheHangingChannel(u"/files/audio.mp3"_s);
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

void tst_VlcPlayerChanges::noPictureOfAWaitingStream()
{
    const QString path = PrivateProfile::current().root() + u"/picture.png"_s;
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    const QSignalSpy taken(&probe->player, &VlcPlayer::snapshotTaken);
    probe->player.takeSnapshot(path);
    QCOMPARE(taken.size(), 1);
    QCOMPARE(taken.constFirst(), QVariantList({path, false}));
    QVERIFY(!QFileInfo::exists(path));
}

void tst_VlcPlayerChanges::opensUntilItPlays()
{
    VlcPlayer &player = probe->player;
    QVERIFY(!player.isOpening());
    play(u"/never.ts"_s, true);
    QVERIFY(player.isOpening());
    player.stop();
    QVERIFY(!player.isOpening());
    probe->log.clear();
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    QVERIFY(!player.isOpening()); // it waits, and libVLC has none of it
    channel->letGo();
    QVERIFY(probe->advances());
    QVERIFY(!player.isOpening());
}

void tst_VlcPlayerChanges::selectsForAWaitingStream_data()
{
    QTest::addColumn<bool>("hangs");
    QTest::newRow("the previous stream stops") << false;
    QTest::newRow("the previous stream hangs") << true;
}

void tst_VlcPlayerChanges::selectsForAWaitingStream()
{
    QFETCH(bool, hangs);
    playAfterTheHangingChannel(u"/files/tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    player.togglePause();
    QCOMPARE(probe->log, QStringList(u"paused"_s));
    player.seek(2000);
    player.seekRelative(6000);
    QCOMPARE(player.timeMs(), 8000);
    player.setAudioTrack(2);
    QCOMPARE(player.currentAudioTrack(), 2);
    QCOMPARE(player.trackLanguage(2), QString());
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
    QCOMPARE(player.trackLanguage(2), u"deu"_s);
    QTRY_VERIFY_WITH_TIMEOUT(player.timeMs() >= 7500, openMs);
    QTRY_VERIFY(!player.isPlaying());
    QVERIFY(probe->staysSilent());

    player.togglePause();
    QCOMPARE(probe->log.last(), u"not paused"_s);
    QTRY_VERIFY_WITH_TIMEOUT(player.isPlaying(), openMs);
    QVERIFY(player.timeMs() < 15000);
}

void tst_VlcPlayerChanges::subtitleFileForAWaitingStream()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    probe->player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    channel->letGo();
    QTRY_COMPARE_WITH_TIMEOUT(probe->player.subtitleTracks().size(), 1, openMs);
    QTRY_VERIFY(probe->player.subtitlesEnabled());
}

void tst_VlcPlayerChanges::oneTrackForAWaitingStream_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isAudio");
    QTest::addColumn<int>("track"); ///< the second of its kind
    QTest::newRow("sound") << u"/files/tracks.mkv"_s << true << 2;
    QTest::newRow("subtitles") << u"/files/tracks.mkv"_s << false << 4;
    QTest::newRow("sound of a transport stream, which announces it late")
        << u"/files/two-tracks.ts"_s << true << 0x102;
}

void tst_VlcPlayerChanges::oneTrackForAWaitingStream()
{
    QFETCH(const QString, path);
    QFETCH(const bool, isAudio);
    QFETCH(const int, track);
    playAfterTheHangingChannel(path);
    VlcPlayer &player = probe->player;
    if (isAudio) {
        player.setAudioTrack(track);
    } else {
        player.setSubtitleTrack(track);
    }
    channel->letGo();
    QVERIFY(probe->advances());
    QTRY_COMPARE_WITH_TIMEOUT(isAudio ? player.currentAudioTrack() : player.currentSubtitleTrack(),
                              track, openMs);
}

void tst_VlcPlayerChanges::resumedBeforeItStarts()
{
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    probe->player.pause();
    probe->player.togglePause();
    QCOMPARE(probe->log, (QStringList{u"paused"_s, u"not paused"_s}));
    channel->letGo();
    QVERIFY(probe->advances());
}

void tst_VlcPlayerChanges::resumedWhileItOpens()
{
    playAfterTheHangingChannel(u"/never.ts"_s, true);
    probe->player.pause();
    channel->letGo();
    QTRY_VERIFY_WITH_TIMEOUT(probe->player.isOpening(), openMs);
    probe->player.togglePause();
    QCOMPARE(probe->log.last(), u"not paused"_s);
}

void tst_VlcPlayerChanges::continuesAt_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<qint64>("fromMs"); ///< where it plays then
    const auto row = [](const char *kind, const QString &path, qint64 ms, qint64 fromMs) {
        QTest::newRow(kind) << path << ms << fromMs;
    };
    row("index at the end", u"/files/film.mp4"_s, 40000, 39000);
    row("index in front", u"/files/film-faststart.mp4"_s, 40000, 39000);
    row("segments", u"/files/hls/index.m3u8"_s, 20000, 15000);
    row("a shorter stream", u"/files/audio.mp3"_s, 10500, 0);
    row("a stream without a length", u"/files/live.ts"_s, 40000, 0);
}

void tst_VlcPlayerChanges::continuesAt()
{
    QFETCH(const QString, path);
    QFETCH(const qint64, ms);
    QFETCH(const qint64, fromMs);
    play(path);
    probe->player.continueAt(ms);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs > fromMs, openMs);
    QVERIFY(probe->advances(2));
    QVERIFY2(probe->currentMs < fromMs + 10000, qPrintable(QString::number(probe->currentMs)));
}

void tst_VlcPlayerChanges::continuesAfterAWait_data()
{
    QTest::addColumn<bool>("seeksThen");
    QTest::addColumn<qint64>("fromMs");
    QTest::newRow("where it was told to") << false << qint64(40000);
    QTest::newRow("another seek takes its place") << true << qint64(20000);
}

void tst_VlcPlayerChanges::continuesAfterAWait()
{
    QFETCH(const bool, seeksThen);
    QFETCH(const qint64, fromMs);
    playAfterTheHangingChannel(u"/files/film.mp4"_s);
    probe->player.continueAt(40000);
    if (seeksThen)
        probe->player.seek(20000);
    QCOMPARE(probe->player.timeMs(), fromMs);
    channel->letGo();
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= fromMs - 1000, openMs);
    QVERIFY(probe->advances(2));
    QVERIFY(probe->currentMs < fromMs + 10000);
}

void tst_VlcPlayerChanges::continuesWhilePaused()
{
    QVERIFY(starts(u"/files/film.mp4"_s));
    probe->player.togglePause();
    QTRY_VERIFY(!probe->player.isPlaying());
    probe->player.continueAt(40000);
    probe->player.togglePause();
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 39000, openMs);
}

/// A server that takes its time: the player asks several times whether the stream plays.
void tst_VlcPlayerChanges::continuesWhenItHasOpened()
{
    HttpReply slow = HttpReply::file(streamPath(u"film.mp4"_s));
    slow.delayMs = 1500;
    server->on(u"/slow.mp4"_s, slow);
    play(u"/slow.mp4"_s);
    QVERIFY(probe->player.isOpening());
    probe->player.continueAt(40000);
    QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= 39000, openMs);
}

/// It takes no command any more. The picture's settings are those of the next stream.
void tst_VlcPlayerChanges::commandsToAStoppingStream()
{
    VlcPlayer &player = probe->player;
    player.play(channel->url(), true);
    QTRY_VERIFY_WITH_TIMEOUT(channel->hangs() && probe->positions > 0, openMs);
    player.stop();
    PictureSettings picture;
    picture.aspectRatio = u"4:3"_s;
    player.setPicture(picture);
    player.setRate(2);
    player.setAudioDelay(100);
    player.setSubtitleDelay(100);
    player.setSubtitlesEnabled(true);
    player.setSubtitleTrack(1);
    player.pause();
    player.togglePause();
    QVERIFY(!player.isPlaying());
    QVERIFY(!player.hasPicture());
    QVERIFY(!player.hasSubtitles());
    QCOMPARE(player.trackLanguage(0), QString());
    channel->letGo();

    QVERIFY(starts(u"/files/film.mp4"_s));
    QCOMPARE(pictureInLibVlc().aspectRatio, u"4:3"_s);
    QCOMPARE(libvlc_audio_get_delay(handle()), 0);
}

void tst_VlcPlayerChanges::togglingWhileItOpensReportsNothing()
{
    play(u"/never.ts"_s, true);
    probe->player.togglePause();
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(u"/never.ts"_s), 1, openMs);
    probe->player.togglePause();
    QCOMPARE(probe->log, started);
    QVERIFY(probe->checksAgain());
    QCOMPARE(probe->positions, 0);
}

void tst_VlcPlayerChanges::reportsOfAnEarlierStreamAreIgnored()
{
    server->on(u"/short.ts"_s, endingStream());
    for (const QString &path : {u"/missing.ts"_s, u"/short.ts"_s}) {
        playUntilReported(path, true);
        QVERIFY(starts(u"/live.ts"_s, true));
        QCOMPARE(probe->interruptions, QStringList());
    }
}

VANTIRO_TEST_MAIN(tst_VlcPlayerChanges)
#include "tst_VlcPlayerChanges.moc"
