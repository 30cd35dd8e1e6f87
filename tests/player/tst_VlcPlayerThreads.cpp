#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/MediaPlayer.h"
#include "support/TestMain.h"

#include <QTest>
#include <QThread>
#include <QWidget>

#include <atomic>
#include <memory>

#include <sys/resource.h>

#ifdef __has_feature
#if __has_feature(undefined_behavior_sanitizer)
#define NEEDS_FILES_ITSELF
#endif
#endif

using namespace Qt::StringLiterals;

namespace {

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;
constexpr int rounds = 8;

/// While it lives, the process cannot open a file: libVLC finds no modules and does not start.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit none{0, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before); }
    Q_DISABLE_COPY_MOVE(NoMoreFiles)

private:
    rlimit before{};
};

} // namespace

class tst_VlcPlayerThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { keepsModulesLoaded.reset(); }

    void aBrokenStartMakesAPlayerThatDoesNothing();
    void tellsOnItsOwnThread_data();
    void tellsOnItsOwnThread();
    void destroyedAtOnce_data();
    void destroyedAtOnce();
    void destroyedWhenTheServerIsAsked_data();
    void destroyedWhenTheServerIsAsked();
    void destroyedWithItsNewsUnderWay_data();
    void destroyedWithItsNewsUnderWay();
    void destroyedWhilePlaying();
    void replacedAgainAndAgain();

private:
    void addStreams();
    void addFailingStreams();

    std::unique_ptr<HttpServer> server;
    /// libVLC reads its hundreds of modules anew for every player that is the only one.
    std::unique_ptr<VlcPlayer> keepsModulesLoaded;
};

void tst_VlcPlayerThreads::initTestCase()
{
    keepVlcFromOpeningWindows();
}

void tst_VlcPlayerThreads::init()
{
    const bool first =
        qstrcmp(QTest::currentTestFunction(), "aBrokenStartMakesAPlayerThatDoesNothing") == 0;
    if (!first && !keepsModulesLoaded) {
        keepsModulesLoaded = std::make_unique<VlcPlayer>(nullptr, nullptr);
    }
    server = std::make_unique<HttpServer>();
    server->on(u"/live.ts"_s, liveTs());
    server->on(u"/film.mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    HttpReply never;
    never.neverAnswer = true;
    server->on(u"/never.ts"_s, never);
    HttpReply stalls = liveTs();
    stalls.bytesPerSecond = 0;
    stalls.stallAfter = 100000;
    server->on(u"/stalls.ts"_s, stalls);
    HttpReply ends = liveTs();
    ends.producer = [inner = ends.producer](qint64 offset) {
        return offset < 30000 ? inner(offset) : QByteArray();
    };
    ends.bytesPerSecond = 0;
    server->on(u"/ends.ts"_s, ends);
    HttpReply empty;
    empty.contentType = "video/mp2t"_ba;
    server->on(u"/empty.ts"_s, empty);
}

void tst_VlcPlayerThreads::addStreams()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a channel") << u"/live.ts"_s;
    QTest::newRow("a film") << u"/film.mp4"_s;
    QTest::newRow("a server that never answers") << u"/never.ts"_s;
    QTest::newRow("a server that stalls") << u"/stalls.ts"_s;
    QTest::newRow("a stream that ends") << u"/ends.ts"_s;
    QTest::newRow("an empty stream") << u"/empty.ts"_s;
    QTest::newRow("a missing stream") << u"/missing.ts"_s;
}

void tst_VlcPlayerThreads::addFailingStreams()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a stream that ends") << u"/ends.ts"_s;
    QTest::newRow("a missing stream") << u"/missing.ts"_s;
}

/// Stands first: libVLC must not have found its modules before.
void tst_VlcPlayerThreads::aBrokenStartMakesAPlayerThatDoesNothing()
{
#ifdef NEEDS_FILES_ITSELF
    QSKIP("the sanitizer opens files to check virtual calls");
#endif
    QWidget surface;
    std::unique_ptr<PlayerProbe> probe;
    {
        const NoMoreFiles noMoreFiles;
        probe = std::make_unique<PlayerProbe>(&surface);
    }
    VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), u"No player."_s);

    player.play(server->url(u"/film.mp4"_s), false);
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
    QTRY_VERIFY(probe->ticks >= 2);

    QVERIFY(!player.isPlaying());
    QCOMPARE(player.volume(), 0);
    QCOMPARE(player.lengthMs(), 0);
    QCOMPARE(player.timeMs(), 0);
    QVERIFY(player.audioTracks().isEmpty());
    QVERIFY(player.subtitleTracks().isEmpty());
    QCOMPARE(player.currentAudioTrack(), -1);
    QCOMPARE(player.currentSubtitleTrack(), -1);
    QVERIFY(!player.hasSubtitles());
    QVERIFY(!player.subtitlesEnabled());
    QCOMPARE(player.mediaInfoText(), u"No player."_s);
    QCOMPARE(probe->log, QStringList());
    QCOMPARE(probe->errors, QStringList());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(probe->positions, 0);
    QCOMPARE(server->requestCount(), 0);
}

void tst_VlcPlayerThreads::tellsOnItsOwnThread_data()
{
    addFailingStreams();
}

void tst_VlcPlayerThreads::tellsOnItsOwnThread()
{
    QFETCH(QString, path);
    QThread *emitter = nullptr;
    VlcPlayer player(nullptr, nullptr);
    connect(
        &player, &VlcPlayer::playbackInterrupted, this,
        [&emitter] { emitter = QThread::currentThread(); }, Qt::DirectConnection);
    player.play(server->url(path), true);
    QTRY_VERIFY_WITH_TIMEOUT(emitter != nullptr, openMs);
    QCOMPARE(emitter, thread());
}

void tst_VlcPlayerThreads::destroyedAtOnce_data()
{
    addStreams();
}

void tst_VlcPlayerThreads::destroyedAtOnce()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        PlayerProbe probe;
        probe.player.play(server->url(path), true);
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::destroyedWhenTheServerIsAsked_data()
{
    addStreams();
}

void tst_VlcPlayerThreads::destroyedWhenTheServerIsAsked()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        server->clearRequests();
        PlayerProbe probe;
        probe.player.play(server->url(path), true);
        QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::destroyedWithItsNewsUnderWay_data()
{
    addFailingStreams();
}

void tst_VlcPlayerThreads::destroyedWithItsNewsUnderWay()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        std::atomic<bool> told = false;
        auto probe = std::make_unique<PlayerProbe>();
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
        probe->player.play(server->url(path), true);
        // This thread handles no event, so that the news is still in its queue.
        told.wait(false);
        QCOMPARE(probe->interruptions, QStringList());
        probe.reset();
        QCoreApplication::processEvents();
    }
}

void tst_VlcPlayerThreads::destroyedWhilePlaying()
{
    for (int round = 0; round < 3; ++round) {
        PlayerProbe probe;
        probe.player.play(server->url(u"/live.ts"_s), true);
        QTRY_VERIFY_WITH_TIMEOUT(probe.positions > 0, openMs);
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::replacedAgainAndAgain()
{
    const QStringList paths{u"/live.ts"_s,  u"/never.ts"_s, u"/missing.ts"_s, u"/stalls.ts"_s,
                            u"/film.mp4"_s, u"/empty.ts"_s, u"/ends.ts"_s};
    PlayerProbe probe;
    for (int round = 0; round < 10; ++round) {
        for (const QString &path : paths) {
            server->clearRequests();
            probe.player.play(server->url(path), true);
            if (round % 2 == 0) {
                QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
            }
        }
    }
    probe.progress = 0;
    probe.player.play(server->url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe.progress >= 2, openMs);
    QCOMPARE(server->openConnections(), 1);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerThreads)
#include "tst_VlcPlayerThreads.moc"
