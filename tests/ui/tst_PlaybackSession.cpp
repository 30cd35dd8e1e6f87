#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/PlaybackSession.h"
#include "ui/ReconnectDelay.h"

#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;
using State = PlaybackSession::State;

namespace {

constexpr int openMs = 20000;

/// A session on a real player without a picture, what it reports, and a server. Streams never
/// answer unless a test lets them.
class Probe final : public QObject
{
public:
    explicit Probe(VlcPlayer &vlcPlayer)
        : player(vlcPlayer)
    {
        server.onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
        server.onPrefix(u"/sound"_s, [](const HttpRequest &) {
            return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
        });
        const auto note = [this](const QString &text) { return [this, text] { log << text; }; };
        connect(&session, &PlaybackSession::entryChanged, this, note(u"entry"_s));
        connect(&session, &PlaybackSession::starting, this, note(u"starting"_s));
        connect(&session, &PlaybackSession::started, this, note(u"started"_s));
        connect(&session, &PlaybackSession::interrupted, this, note(u"interrupted"_s));
        connect(&session, &PlaybackSession::stopped, this, note(u"stopped"_s));
        connect(&session, &PlaybackSession::reconnectScheduled, this,
                [this](int attempt) { log << u"reconnect %1"_s.arg(attempt); });
        connect(&session, &PlaybackSession::failed, this,
                [this](const QString &message) { log << message; });
    }

    ~Probe() override { player.stop(); }
    Q_DISABLE_COPY_MOVE(Probe)

    /// Plays "/<name>" as an entry of that kind.
    void play(qint32 kind, const QString &name)
    {
        session.play(kind, server.url(u'/' + name), name);
    }

    /// Lets one thing happen, by the name that the rows of states() give it.
    void happen(const QString &event)
    {
        log.clear();
        QVERIFY2(events.contains(event), qPrintable(event));
        events.value(event)();
    }

    HttpServer server;
    VlcPlayer &player;
    PlaybackSession session{&player, nullptr};
    QTimer &timer = *session.findChild<QTimer *>(u"reconnectTimer"_s);
    QStringList log; ///< the signals since the last event

private:
    const QHash<QString, std::function<void()>> events{
        {u"channel"_s, [this] { play(StreamKind::Live, u"channel"_s); }},
        {u"film"_s, [this] { play(StreamKind::Movie, u"film"_s); }},
        {u"recording"_s, [this] { playRecording(); }},
        {u"interruption"_s, [this] { Q_EMIT player.playbackInterrupted(u"%1 broke"_s); }},
        {u"error"_s, [this] { Q_EMIT player.playbackError(u"no"_s); }},
        {u"progress"_s, [this] { Q_EMIT player.playbackProgressing(); }},
        {u"replay"_s, [this] { session.replay(); }},
        {u"cancel"_s, [this] { session.cancelLiveReconnect(); }},
        {u"stop"_s, [this] { session.stop(); }},
        {u"forget"_s, [this] { session.forget(); }},
        {u"timer"_s, [this] { endTimer(); }},
    };

    void playRecording()
    {
        const auto addresses = [this](qint64 /*offsetMs*/) {
            return QStringList{server.url(u"/a"_s), server.url(u"/b"_s)};
        };
        session.playArchive({60'000, 1000, addresses, {}}, u"recording"_s);
    }

    void endTimer()
    {
        QVERIFY(timer.isActive());
        timer.start(0);
        QTRY_VERIFY(!timer.isActive());
    }
};

} // namespace

class tst_PlaybackSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { player = std::make_unique<VlcPlayer>(nullptr, nullptr); }
    void cleanupTestCase() { player.reset(); }
    void states_data();
    void states();
    void aStartIsToldBeforeAndAfter();
    void delaysGrowAndStay();
    void theTimerAlonePlaysTheSameStreamAgain();
    void anotherEntryReplacesTheStream();
    void onlyAChannelHasNoEndOfItsOwn();

private:
    std::unique_ptr<VlcPlayer> player;
};

void tst_PlaybackSession::states_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<QString>("report"); ///< of the last event
    QTest::addColumn<bool>("canReplay");
    const auto row = [](const char *events, State state, const QString &report) {
        QTest::newRow(events) << state << report << (state != State::Idle);
    };
    const auto stopped = [](const char *events, const QString &report) {
        QTest::newRow(events) << State::Idle << report << true;
    };
    const QString entry = u"entry, starting, started"_s;
    const QString again = u"starting, started"_s;
    const QString box = u"interrupted, Playback stopped: %1 broke"_s;
    row("stop", State::Idle, u"stopped"_s);
    row("replay", State::Idle, {});
    row("progress", State::Idle, {});
    row("interruption", State::Idle, box);
    row("error", State::Idle, u"no"_s);

    row("channel", State::Playing, entry);
    row("film", State::Playing, entry);
    row("channel, progress", State::Playing, {});
    row("channel, error", State::Playing, u"no"_s);
    row("channel, replay", State::Playing, again);
    row("channel, forget", State::Idle, u"stopped"_s);
    stopped("channel, stop", u"stopped"_s);
    stopped("channel, stop, interruption", box);
    row("channel, stop, replay", State::Playing, again);
    row("channel, stop, forget, replay", State::Idle, {});

    const State waiting = State::WaitingToReconnect;
    row("channel, interruption", waiting, u"reconnect 1"_s);
    row("channel, interruption, interruption", waiting, u"reconnect 2"_s);
    row("channel, interruption, error", waiting, u"no"_s);
    row("channel, interruption, progress", State::Playing, {});
    row("channel, interruption, cancel", State::Playing, {});
    row("channel, interruption, channel", State::Playing, entry);
    row("channel, interruption, film", State::Playing, entry);
    stopped("channel, interruption, stop", u"stopped"_s);

    row("channel, interruption, timer", State::Reconnecting, again);
    row("channel, interruption, replay", State::Reconnecting, again);
    row("channel, interruption, timer, interruption", waiting, u"reconnect 2"_s);
    row("channel, interruption, timer, progress", State::Playing, {});
    row("channel, interruption, timer, progress, interruption", waiting, u"reconnect 1"_s);
    row("channel, interruption, timer, cancel, interruption", waiting, u"reconnect 1"_s);
    row("channel, interruption, timer, channel, interruption", waiting, u"reconnect 1"_s);
    row("channel, interruption, timer, stop, replay", State::Playing, again);
    row("channel, interruption, timer, forget, replay", State::Idle, {});

    row("film, interruption", State::Interrupted, box);
    row("film, interruption, interruption", State::Interrupted, box);
    row("film, interruption, progress", State::Interrupted, {});
    row("film, interruption, replay", State::Playing, again);
    row("film, interruption, channel", State::Playing, entry);
    stopped("film, interruption, stop", u"stopped"_s);
    row("film, interruption, stop, replay", State::Playing, again);
    row("film, interruption, forget, replay", State::Idle, {});

    row("recording, interruption", State::Playing, again); // from the next address
    row("recording, interruption, interruption", State::Interrupted, box);
    row("recording, error", State::Playing, again);
    row("recording, error, error", State::Playing, u"no"_s);
    stopped("recording, stop, interruption", box);
    row("recording, interruption, stop, replay", State::Playing, again);
}

void tst_PlaybackSession::states()
{
    QFETCH(State, state);
    QFETCH(QString, report);
    QFETCH(bool, canReplay);
    Probe probe(*player);
    for (const QString &event : QString::fromLatin1(QTest::currentDataTag()).split(u", "_s)) {
        probe.happen(event);
    }
    QCOMPARE(probe.session.state(), state);
    QCOMPARE(probe.log.join(u", "_s), report);
    QCOMPARE(probe.timer.isActive(), state == State::WaitingToReconnect);
    QCOMPARE(probe.session.hasMedia(), state != State::Idle && state != State::Interrupted);
    QCOMPARE(probe.session.canReplay(), canReplay);
}

void tst_PlaybackSession::aStartIsToldBeforeAndAfter()
{
    // One without a stream, whose stop it would wait for.
    VlcPlayer fresh(nullptr, nullptr);
    Probe probe(fresh);
    connect(&probe.player, &VlcPlayer::playing, &probe, [&probe] {
        QCOMPARE(probe.session.kind(), StreamKind::Movie);
        QCOMPARE(probe.session.title(), u"film"_s);
        probe.log << u"playing"_s;
    });
    probe.play(StreamKind::Movie, u"film"_s);
    QCOMPARE(probe.log, (QStringList{u"entry"_s, u"starting"_s, u"playing"_s, u"started"_s}));
}

void tst_PlaybackSession::delaysGrowAndStay()
{
    Probe probe(*player);
    QVERIFY(probe.timer.isSingleShot());
    probe.happen(u"channel"_s);
    for (const int delay : {1000, 2000, 4000, 8000, 15000, 15000, 15000}) {
        probe.happen(u"interruption"_s);
        QCOMPARE(probe.timer.interval(), delay);
        probe.happen(u"timer"_s);
    }
    // Also past every number of attempts at which a shift would overflow.
    for (const int attempt : {31, 32, 33, 64, 65, 1000, std::numeric_limits<int>::max()}) {
        QCOMPARE(reconnectDelayMs(attempt), 15000);
    }
    probe.happen(u"progress"_s);
    probe.happen(u"interruption"_s);
    QCOMPARE(probe.timer.interval(), 1000);
}

void tst_PlaybackSession::theTimerAlonePlaysTheSameStreamAgain()
{
    Probe probe(*player);
    probe.play(StreamKind::Live, u"news"_s);
    QTRY_COMPARE(probe.server.requestCount(u"/news"_s), 1);
    const QSignalSpy playing(&probe.player, &VlcPlayer::playing);
    probe.happen(u"interruption"_s);
    QCOMPARE(playing.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(probe.server.requestCount(u"/news"_s), 2, openMs);
    QCOMPARE(probe.session.state(), State::Reconnecting);
}

void tst_PlaybackSession::anotherEntryReplacesTheStream()
{
    Probe probe(*player);
    probe.play(StreamKind::Live, u"one"_s);
    QTRY_COMPARE(probe.server.openConnections(u"/one"_s), 1);
    probe.play(StreamKind::Live, u"two"_s);
    QTRY_COMPARE(probe.server.openConnections(u"/two"_s), 1);
    QTRY_COMPARE(probe.server.openConnections(u"/one"_s), 0);
    probe.session.stop();
    QTRY_COMPARE(probe.server.openConnections(u"/two"_s), 0);
}

void tst_PlaybackSession::onlyAChannelHasNoEndOfItsOwn()
{
    for (const qint32 kind : {StreamKind::Live, StreamKind::Movie}) {
        Probe probe(*player);
        const QSignalSpy interrupted(&probe.player, &VlcPlayer::playbackInterrupted);
        const QSignalSpy finished(&probe.player, &VlcPlayer::finished);
        probe.play(kind, u"sound"_s);
        QTRY_VERIFY_WITH_TIMEOUT(probe.player.isPlaying() && probe.player.lengthMs() > 9000,
                                 openMs);
        probe.player.seek(9500);
        // libVLC ends before it tells so.
        QTRY_VERIFY_WITH_TIMEOUT(interrupted.count() + finished.count() > 0, openMs);
        const bool isLive = kind == StreamKind::Live;
        QCOMPARE(interrupted.count() > 0, isLive);
        QCOMPARE(probe.log.contains(u"reconnect 1"_s), isLive);
        QCOMPARE(probe.session.state() == State::Playing, !isLive);
    }
}

VANTIRO_TEST_MAIN(tst_PlaybackSession)
#include "tst_PlaybackSession.moc"
