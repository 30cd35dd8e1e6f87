#include "PlayerTest.h"
#include "support/TestMain.h"

#include <QThread>
#include <QWidget>

#include <sys/resource.h>

#ifdef __has_feature
#if __has_feature(undefined_behavior_sanitizer)
#define NEEDS_FILES_ITSELF
#endif
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 8;

/// Keeps the process from opening files, so that libVLC finds no modules and does not start.
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

class tst_VlcPlayerThreads : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;
    void cleanupTestCase() { keepsModulesLoaded.reset(); }

    void aBrokenStartMakesAPlayerThatDoesNothing();
    void reportsOnTheGuiThread_data() { addFailingStreams(); }
    void reportsOnTheGuiThread();
    void destroyedAtOnce_data() { addStreams(); }
    void destroyedAtOnce();
    void destroyedAfterTheRequest_data() { addStreams(); }
    void destroyedAfterTheRequest();
    void destroyedWithQueuedReports_data() { addFailingStreams(); }
    void destroyedWithQueuedReports();
    void destroyedWhilePlaying();
    void replacedRepeatedly();

private:
    static void addStreams();
    static void addFailingStreams();

    /// libVLC reads its hundreds of modules again for every player that is the only one.
    std::unique_ptr<VlcPlayer> keepsModulesLoaded;
};

void tst_VlcPlayerThreads::init()
{
    const bool first =
        qstrcmp(QTest::currentTestFunction(), "aBrokenStartMakesAPlayerThatDoesNothing") == 0;
    if (!first && !keepsModulesLoaded) {
        keepsModulesLoaded = std::make_unique<VlcPlayer>(nullptr, nullptr);
    }
    PlayerTest::init();
    server->on(u"/stalls.ts"_s, stalling(liveTs(), 100000));
    server->on(u"/ends.ts"_s, endingStream());
    server->on(u"/empty.ts"_s, bodyReply({}, "video/mp2t"_ba));
}

void tst_VlcPlayerThreads::addStreams()
{
    addFailingStreams();
    QTest::newRow("a channel") << u"/live.ts"_s;
    QTest::newRow("a film") << u"/files/film.mp4"_s;
    QTest::newRow("a server that never answers") << u"/never.ts"_s;
    QTest::newRow("a server that stalls") << u"/stalls.ts"_s;
    QTest::newRow("an empty stream") << u"/empty.ts"_s;
}

void tst_VlcPlayerThreads::addFailingStreams()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a stream that ends") << u"/ends.ts"_s;
    QTest::newRow("a missing stream") << u"/missing.ts"_s;
}

/// Must be the first test: libVLC must not have found its modules before.
void tst_VlcPlayerThreads::aBrokenStartMakesAPlayerThatDoesNothing()
{
#ifdef NEEDS_FILES_ITSELF
    QSKIP("the sanitizer opens files to check virtual calls");
#endif
    QWidget surface;
    probe.reset();
    {
        const NoMoreFiles noMoreFiles;
        probe = std::make_unique<PlayerProbe>(&surface);
    }
    VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), u"No player."_s);

    player.play(url(u"/files/film.mp4"_s), false);
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
    QVERIFY(probe->checksAgain(2));

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

void tst_VlcPlayerThreads::reportsOnTheGuiThread()
{
    QFETCH(QString, path);
    QThread *emitter = nullptr;
    connect(
        &probe->player, &VlcPlayer::playbackInterrupted, this,
        [&emitter] { emitter = QThread::currentThread(); }, Qt::DirectConnection);
    play(path, true);
    QTRY_VERIFY_WITH_TIMEOUT(emitter != nullptr, openMs);
    QCOMPARE(emitter, thread());
}

void tst_VlcPlayerThreads::destroyedAtOnce()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        probe = std::make_unique<PlayerProbe>();
        play(path, true);
        probe.reset();
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::destroyedAfterTheRequest()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        server->clearRequests();
        probe = std::make_unique<PlayerProbe>();
        play(path, true);
        QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
        probe.reset();
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::destroyedWithQueuedReports()
{
    QFETCH(QString, path);
    for (int round = 0; round < rounds; ++round) {
        probe = std::make_unique<PlayerProbe>();
        playUntilReported(path, true);
        QCOMPARE(probe->interruptions, QStringList());
        probe.reset();
        QCoreApplication::processEvents();
    }
}

void tst_VlcPlayerThreads::destroyedWhilePlaying()
{
    for (int round = 0; round < 3; ++round) {
        probe = std::make_unique<PlayerProbe>();
        play(u"/live.ts"_s, true);
        QTRY_VERIFY_WITH_TIMEOUT(probe->positions > 0, openMs);
        probe.reset();
    }
    QTRY_COMPARE(server->openConnections(), 0);
}

void tst_VlcPlayerThreads::replacedRepeatedly()
{
    const QStringList paths{u"/live.ts"_s,        u"/never.ts"_s, u"/missing.ts"_s, u"/stalls.ts"_s,
                            u"/files/film.mp4"_s, u"/empty.ts"_s, u"/ends.ts"_s};
    for (int round = 0; round < 10; ++round) {
        for (const QString &path : paths) {
            server->clearRequests();
            play(path, true);
            if (round % 2 == 0) {
                QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
            }
        }
    }
    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances(2));
    QCOMPARE(server->openConnections(), 1);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerThreads)
#include "tst_VlcPlayerThreads.moc"
