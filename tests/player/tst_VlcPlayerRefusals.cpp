#include "PlayerTest.h"

#include <QWidget>

#include <dlfcn.h>

#include <vlc/vlc.h>

namespace {

/// Which of libVLC's calls fail, as they otherwise do only when memory, threads or files run out.
enum class Refusal
{
    None,
    Instance,
    MediaPlayer,
    Media,
    Play
};
Refusal refusal = Refusal::None;

template <typename Function>
Function *fromLibrary(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name)); // NOLINT: dlsym has one type
}

} // namespace

// Linked before the library's own functions.

extern "C" libvlc_instance_t *libvlc_new(int count, const char *const *arguments)
{
    return refusal == Refusal::Instance
               ? nullptr
               : fromLibrary<decltype(libvlc_new)>(__func__)(count, arguments);
}

extern "C" libvlc_media_player_t *libvlc_media_player_new(libvlc_instance_t *instance)
{
    return refusal == Refusal::MediaPlayer
               ? nullptr
               : fromLibrary<decltype(libvlc_media_player_new)>(__func__)(instance);
}

extern "C" libvlc_media_t *libvlc_media_new_location(libvlc_instance_t *instance, const char *url)
{
    return refusal == Refusal::Media
               ? nullptr
               : fromLibrary<decltype(libvlc_media_new_location)>(__func__)(instance, url);
}

extern "C" int libvlc_media_player_play(libvlc_media_player_t *player)
{
    return refusal == Refusal::Play
               ? -1
               : fromLibrary<decltype(libvlc_media_player_play)>(__func__)(player);
}

/// What the player does when libVLC refuses, and that the next attempt works.
class tst_VlcPlayerRefusals : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;

    void noInstance();
    void noMedia();
    void noStart();
    void noMediaPlayer();

private:
    bool playsAgain();

    /// The messages show it as it was given.
    QString channel;
};

void tst_VlcPlayerRefusals::init()
{
    refusal = Refusal::None;
    PlayerTest::init();
    server->on(u"/a channel.ts"_s, liveTs());
    channel = url(u"/a channel.ts"_s);
}

bool tst_VlcPlayerRefusals::playsAgain()
{
    refusal = Refusal::None;
    probe->log.clear();
    probe->player.play(channel, true);
    return probe->advances() && probe->log == started && probe->errors.size() == 1;
}

void tst_VlcPlayerRefusals::noInstance()
{
    refusal = Refusal::Instance;
    QWidget surface;
    probe = std::make_unique<PlayerProbe>(&surface);
    VlcPlayer &player = probe->player;
    player.play(channel, false);
    player.pause();
    player.togglePause();
    player.setVolume(50);
    player.seek(1000);
    player.seekRelative(1000);
    player.setAudioTrack(1);
    player.setSubtitleTrack(1);
    player.setSubtitlesEnabled(true);
    player.setSubtitlesEnabled(false);
    player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    player.attachToWidget();
    player.reattach();
    player.stop();
    QVERIFY(probe->staysSilent());

    QVERIFY(!player.isPlaying());
    QCOMPARE(player.volume(), 0);
    QCOMPARE(player.lengthMs(), 0);
    QCOMPARE(player.timeMs(), 0);
    QCOMPARE(player.audioTracks() + player.subtitleTracks(), QList<VlcPlayer::Track>());
    QCOMPARE(player.currentAudioTrack(), -1);
    QCOMPARE(player.currentSubtitleTrack(), -1);
    QVERIFY(!player.hasSubtitles());
    QVERIFY(!player.subtitlesEnabled());
    QCOMPARE(player.mediaInfoText(), u"No player."_s);
    QCOMPARE(probe->log + probe->errors + probe->interruptions, QStringList());
    QCOMPARE(server->requestCount(), 0);
}

void tst_VlcPlayerRefusals::noMedia()
{
    QVERIFY(starts(u"/live.ts"_s, true));
    refusal = Refusal::Media;
    probe->player.play(channel, false);
    QCOMPARE(probe->errors, QStringList(u"Could not create media for URL: "_s + channel));
    QCOMPARE(probe->log, started);

    // The previous stream plays on, as the channel that it is.
    QVERIFY(probe->advances());
    server->dropConnections(u"/live.ts"_s);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions, QStringList(liveEndReason), openMs);
    QVERIFY(playsAgain());
}

void tst_VlcPlayerRefusals::noStart()
{
    refusal = Refusal::Play;
    probe->player.play(channel, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + channel));
    QCOMPARE(probe->log, QStringList());
    QVERIFY(playsAgain());
}

void tst_VlcPlayerRefusals::noMediaPlayer()
{
    refusal = Refusal::MediaPlayer;
    probe = std::make_unique<PlayerProbe>();
    VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), u"No player."_s);
    player.setVolume(40);
    player.play(channel, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + channel));
    QCOMPARE(probe->log, QStringList());
    QVERIFY(playsAgain());
    QTRY_COMPARE(player.volume(), 40);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerRefusals)
#include "tst_VlcPlayerRefusals.moc"
