#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/MediaPlayer.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QTimer>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals; // for tests only

/// How long libVLC may take to open, change or seek a stream on a busy machine.
constexpr int openMs = 20000;

/// What a stream that starts adds to PlayerProbe::log.
inline const QStringList started{u"playing"_s, u"not paused"_s};
inline const QString errorReason = u"libVLC encountered an error while streaming."_s;
inline const QString liveEndReason = u"The live stream stopped sending data."_s;

/// A player and what it has reported so far, recorded on the GUI thread.
class PlayerProbe
{
public:
    explicit PlayerProbe(QWidget *surface = nullptr)
        : player(surface, nullptr)
    {
        const auto note = [this](const QString &text) { return [this, text] { log << text; }; };
        QObject::connect(&player, &VlcPlayer::playing, &context, note(u"playing"_s));
        QObject::connect(&player, &VlcPlayer::stopped, &context, note(u"stopped"_s));
        QObject::connect(&player, &VlcPlayer::pausedChanged, &context,
                         [this](bool paused) { log << (paused ? u"paused"_s : u"not paused"_s); });
        QObject::connect(&player, &VlcPlayer::playbackError, &context,
                         [this](const QString &message) { errors << message; });
        QObject::connect(&player, &VlcPlayer::playbackInterrupted, &context,
                         [this](const QString &reason) { interruptions << reason; });
        QObject::connect(&player, &VlcPlayer::playbackProgressing, &context,
                         [this] { ++progress; });
        QObject::connect(&player, &VlcPlayer::positionChanged, &context,
                         [this](qint64 current, qint64 total) {
                             ++positions;
                             currentMs = current;
                             totalMs = total;
                         });
        QObject::connect(progressTimer(), &QTimer::timeout, &context, [this] { ++ticks; });
    }

    QTimer *progressTimer() const { return player.findChild<QTimer *>(u"progressTimer"_s); }

    /// Waits until the media time has advanced at `times` more checks.
    [[nodiscard]] bool advances(int times = 1) const { return waitFor(progress, times); }
    /// Waits for that many more checks of the stream, playing or not. Until then libVLC's threads
    /// have delivered what they had to report.
    [[nodiscard]] bool checksAgain(int times = 3) const { return waitFor(ticks, times); }
    /// Whether the player reports no position at the next checks of the stream.
    [[nodiscard]] bool staysSilent() const
    {
        const int before = positions;
        return checksAgain() && positions == before;
    }

    VlcPlayer player;
    QStringList log;           ///< playing, stopped, paused, not paused
    QStringList errors;        ///< messages of playbackError
    QStringList interruptions; ///< reasons of playbackInterrupted
    int ticks = 0;             ///< checks of the stream, playing or not
    int positions = 0;         ///< positionChanged
    int progress = 0;          ///< playbackProgressing
    qint64 currentMs = -1;     ///< of the last positionChanged
    qint64 totalMs = -1;

private:
    static bool waitFor(const int &counter, int more)
    {
        const int wanted = counter + more;
        return QTest::qWaitFor([&counter, wanted] { return counter >= wanted; }, 3 * openMs);
    }

    QObject context;
};

/// A test class whose functions each get a provider and a player without a picture. The provider
/// serves every stream of Streams.h below /files/, a channel at /live.ts, and never answers for
/// /never.ts.
class PlayerTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    /// Leaves libVLC no way to open a window of its own, so that it plays without a picture.
    /// Without it libVLC draws on the tester's X screen or, as coloured letters, into the terminal.
    virtual void initTestCase()
    {
        qunsetenv("DISPLAY");
        qunsetenv("WAYLAND_DISPLAY");
        qputenv("CACA_DRIVER", "null");
    }

    virtual void init()
    {
        server = std::make_unique<HttpServer>();
        server->serveDirectory(u"/files/"_s, streamPath({}));
        server->on(u"/live.ts"_s, liveTs());
        server->on(u"/never.ts"_s, neverAnswers());
        probe = std::make_unique<PlayerProbe>();
    }

    virtual void cleanup()
    {
        probe.reset();
        server.reset();
    }

protected:
    QString url(const QString &path) const { return server->url(path); }
    void play(const QString &path, bool live = false) const { probe->player.play(url(path), live); }
    /// Plays the stream and waits until its time advances.
    [[nodiscard]] bool starts(const QString &path, bool live = false) const
    {
        play(path, live);
        return probe->advances();
    }

    /// Plays the stream and blocks until libVLC's thread has reported its error or end. No event is
    /// handled meanwhile, so that the report is still in the event queue. The stream must not have
    /// to wait for an earlier one, as events are what starts it then.
    void playUntilReported(const QString &path, bool live)
    {
        std::atomic<bool> reported = false;
        const auto report = [&reported] {
            reported = true;
            reported.notify_one();
        };
        const auto *source = probe->player.findChild<MediaPlayer *>();
        probe->player.stop();
        QTRY_VERIFY_WITH_TIMEOUT(!source->isStopping(), openMs);
        connect(source, &MediaPlayer::failed, this, report, Qt::DirectConnection);
        connect(source, &MediaPlayer::ended, this, report, Qt::DirectConnection);
        play(path, live);
        reported.wait(false);
        disconnect(source, nullptr, this, nullptr);
    }

    /// A transport stream that ends after half a second.
    static HttpReply endingStream()
    {
        HttpReply reply = HttpReply::file(streamPath(u"short.ts"_s));
        reply.body.truncate(reply.body.size() / 10);
        return reply;
    }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlayerProbe> probe;
};
