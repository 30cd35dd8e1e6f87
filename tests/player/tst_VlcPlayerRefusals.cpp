#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

#include <memory>

#include <dlfcn.h>

#include <vlc/vlc.h>

using namespace Qt::StringLiterals;

namespace {

/// libVLC's calls that this program refuses, as libVLC does only when memory or threads run out.
bool refusesMedia = false;
bool refusesToPlay = false;
bool refusesMediaPlayers = false;

template <typename Function>
Function *fromLibrary(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name)); // NOLINT: dlsym has one type
}

} // namespace

// Stand before the library's own when the program is linked.

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

/// What play() tells when libVLC refuses, and that it tries again the next time.
class tst_VlcPlayerRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void init();
    void cleanup();

    void noMedia();
    void noStart();
    void noMediaPlayer();

private:
    bool playsAgain();

    const QStringList started{u"playing"_s, u"not paused"_s};
    HttpServer server;
    std::unique_ptr<PlayerProbe> probe;
    /// The messages show it as it was given.
    QString url;
};

void tst_VlcPlayerRefusals::init()
{
    server.on(u"/a channel.ts"_s, liveTs());
    server.on(u"/other.ts"_s, liveTs());
    server.clearRequests();
    url = server.url(u"/a channel.ts"_s);
}

void tst_VlcPlayerRefusals::cleanup()
{
    refusesMedia = false;
    refusesToPlay = false;
    refusesMediaPlayers = false;
    probe.reset();
}

bool tst_VlcPlayerRefusals::playsAgain()
{
    probe->log.clear();
    probe->progress = 0;
    probe->player.play(url, true);
    return QTest::qWaitFor([this] { return probe->progress >= 1; }, 20000) &&
           probe->log == started && probe->errors.size() == 1;
}

void tst_VlcPlayerRefusals::noMedia()
{
    probe = std::make_unique<PlayerProbe>();
    probe->player.play(server.url(u"/other.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, 20000);
    refusesMedia = true;
    probe->player.play(url, false);
    QCOMPARE(probe->errors, QStringList(u"Could not create media for URL: "_s + url));
    QCOMPARE(probe->log, started);
    refusesMedia = false;

    // The stream before plays on, as the channel that it is.
    probe->progress = 0;
    QTRY_VERIFY(probe->progress >= 1);
    server.dropConnections(u"/other.ts"_s);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions,
                              QStringList(u"The live stream stopped sending data."_s), 20000);
    QVERIFY(playsAgain());
}

void tst_VlcPlayerRefusals::noStart()
{
    probe = std::make_unique<PlayerProbe>();
    refusesToPlay = true;
    probe->player.play(url, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + url));
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

    player.play(url, true);
    QCOMPARE(probe->errors, QStringList(u"Playback failed to start for: "_s + url));
    QCOMPARE(probe->log, QStringList());
    refusesMediaPlayers = false;
    QVERIFY(playsAgain());
    QTRY_COMPARE(player.volume(), 40);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerRefusals)
#include "tst_VlcPlayerRefusals.moc"
