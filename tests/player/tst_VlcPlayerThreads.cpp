#include "PlayerTest.h"

#include <QElapsedTimer>
#include <QThread>

namespace {

/// Far more than a busy machine adds, and than a user takes for a frozen window.
constexpr int blockedTooLongMs = 5000;

const QStringList failingPaths{u"/ends.ts"_s, u"/missing.ts"_s};
const QStringList silentPaths{u"/never.ts"_s, u"/head.ts"_s, u"/stalls.ts"_s, u"/stalls.mp4"_s,
                              u"/empty.ts"_s};

} // namespace

/// The end of a player and its streams in every state. libVLC's threads are still at work then.
class tst_VlcPlayerThreads : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;

    void reportsOnTheGuiThread();
    void destroyed_data();
    void destroyed();
    void replacedRepeatedly();

private:
    /// Plays the stream up to that moment; whether it was reached.
    bool playUntil(const QString &moment, const QString &path);
};

void tst_VlcPlayerThreads::init()
{
    PlayerTest::init();
    const HttpReply film = HttpReply::file(streamPath(u"film.mp4"_s));
    server->on(u"/head.ts"_s, stalling(liveTs(), 0));
    server->on(u"/stalls.ts"_s, stalling(liveTs(), 100000));
    server->on(u"/stalls.mp4"_s, stalling(film, 100000));
    server->on(u"/empty.ts"_s, bodyReply({}, "video/mp2t"_ba));
    server->on(u"/ends.ts"_s, endingStream());
}

void tst_VlcPlayerThreads::reportsOnTheGuiThread()
{
    for (const QString &path : failingPaths) {
        QThread *emitter = nullptr;
        connect(
            &probe->player, &VlcPlayer::playbackInterrupted, this,
            [&emitter] { emitter = QThread::currentThread(); }, Qt::DirectConnection);
        play(path, true);
        QTRY_VERIFY_WITH_TIMEOUT(emitter != nullptr, openMs);
        QCOMPARE(emitter, thread());
        probe = std::make_unique<PlayerProbe>();
    }
}

void tst_VlcPlayerThreads::destroyed_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("path");
    const auto rows = [](const QString &moment, const QStringList &paths) {
        for (const QString &path : paths) {
            QTest::newRow(qPrintable(moment + ", "_L1 + path)) << moment << path;
        }
    };
    const QStringList playingPaths{u"/live.ts"_s, u"/files/film.mp4"_s};
    rows(u"at once"_s, failingPaths + silentPaths + playingPaths);
    rows(u"after the request"_s, failingPaths + silentPaths + playingPaths);
    rows(u"while it plays"_s, {u"/live.ts"_s});
    rows(u"before its report is handled"_s, failingPaths);
}

bool tst_VlcPlayerThreads::playUntil(const QString &moment, const QString &path)
{
    if (moment == "before its report is handled"_L1) {
        playUntilReported(path, true);
        return probe->interruptions.isEmpty();
    }
    play(path, true);
    if (moment == "after the request"_L1) {
        return QTest::qWaitFor([&] { return server->requestCount(path) > 0; }, openMs);
    }
    return moment == "at once"_L1 || probe->checksAgain(2);
}

void tst_VlcPlayerThreads::destroyed()
{
    QFETCH(QString, moment);
    QFETCH(QString, path);
    // Otherwise libVLC would read its hundreds of modules again for every player.
    const VlcPlayer keepsModulesLoaded(nullptr, nullptr);
    for (int round = 0; round < 8; ++round) {
        server->clearRequests();
        probe = std::make_unique<PlayerProbe>();
        QVERIFY(playUntil(moment, path));
        QElapsedTimer clock;
        clock.start();
        probe.reset();
        QCOMPARE_LT(clock.elapsed(), blockedTooLongMs);
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(), 0, openMs);
}

void tst_VlcPlayerThreads::replacedRepeatedly()
{
    const QStringList paths =
        QStringList{u"/live.ts"_s, u"/files/film.mp4"_s} + failingPaths + silentPaths;
    for (int round = 0; round < 10; ++round) {
        for (const QString &path : paths) {
            server->clearRequests();
            play(path, true);
            if (round % 2 == 0) {
                QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(path) > 0, openMs);
            }
        }
    }
    QVERIFY(starts(u"/live.ts"_s, true));
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(), 1, openMs);
}

VANTIRO_TEST_MAIN(tst_VlcPlayerThreads)
#include "tst_VlcPlayerThreads.moc"
