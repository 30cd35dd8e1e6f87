#include "PlayerTest.h"
#include "support/TestMain.h"

#include <dlfcn.h>

#include <vlc/vlc.h>

using namespace Qt::StringLiterals;

namespace {

/// Which of libVLC's calls fail, as they otherwise do only when memory or threads run out.
bool refusesMedia = false;
bool refusesToPlay = false;
bool refusesMediaPlayers = false;

template <typename Function>
Function *fromLibrary(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name)); // NOLINT: dlsym has one type
}

} // namespace

// Linked before the library's own functions.

extern "C" libvlc_media_t *libvlc_media_new_location(libvlc_instance_t *instance, const char *url)
{
    return refusesMedia ? nullptr
                        : fromLibrary<decltype(libvlc_media_new_location)>(__func__)(instance, url);
}

extern "C" int libvlc_media_player_play(libvlc_media_player_t *player)
{
    return refusesToPlay ? -1 : fromLibrary<decltype(libvlc_media_player_play)>(__func__)(player);
}

extern "C" libvlc_media_player_t *libvlc_media_player_new(libvlc_instance_t *instance)
{
    return refusesMediaPlayers ? nullptr
                               : fromLibrary<decltype(libvlc_media_player_new)>(__func__)(instance);
}

/// What play() reports when libVLC refuses, and that the next attempt works.
class tst_VlcPlayerRefusals : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;

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
    refusesMedia = false;
    refusesToPlay = false;
    refusesMediaPlayers = false;
    PlayerTest::init();
    server->on(u"/a channel.ts"_s, liveTs());
    channel = url(u"/a channel.ts"_s);
}

bool tst_VlcPlayerRefusals::playsAgain()
{
    probe->log.clear();
    probe->player.play(channel, true);
    return probe->advances() && probe->log == started && probe->errors.size() == 1;
}

void tst_VlcPlayerRefusals::noMedia()
{
    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances());
    refusesMedia = true;
    probe->player.play(channel, false);
    QCOMPARE(probe->errors, QStringList(u"Could not create media for URL: "_s + channel));
    QCOMPARE(probe->log, started);
    refusesMedia = false;

    // The previous stream plays on, as the channel that it is.
    QVERIFY(probe->advances());
    server->dropConnections(u"/live.ts"_s);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions,
                              QStringList(u"The live stream stopped sending data."_s), openMs);
    QVERIFY(playsAgain());
}

void tst_VlcPlayerRefusals::noStart()
{
    refusesToPlay = true;
    probe->player.play(channel, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + channel));
    QCOMPARE(probe->log, QStringList());
    refusesToPlay = false;
    QVERIFY(playsAgain());
}

void tst_VlcPlayerRefusals::noMediaPlayer()
{
    refusesMediaPlayers = true;
    probe = std::make_unique<PlayerProbe>();
    VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), u"No player."_s);
    player.stop();
    player.pause();
    player.togglePause();
    player.setVolume(40);
    QCOMPARE(player.volume(), 0);
    QCOMPARE(probe->log, QStringList());

    player.play(channel, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + channel));
    QCOMPARE(probe->log, QStringList());
    refusesMediaPlayers = false;
    QVERIFY(playsAgain());
    QTRY_COMPARE(player.volume(), 40);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerRefusals)
#include "tst_VlcPlayerRefusals.moc"
