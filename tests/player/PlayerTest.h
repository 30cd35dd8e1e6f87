#pragma once

#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/MediaPlayer.h"
#include "support/HttpReplies.h"

#include <QTest>

#include <atomic>
#include <memory>

/// A test class whose functions each get a provider and a player without a picture. The provider
/// serves every stream of Streams.h below /files/, a channel at /live.ts, and never answers for
/// /never.ts.
class PlayerTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    virtual void initTestCase() { keepVlcFromOpeningWindows(); }

    virtual void init()
    {
        server = std::make_unique<HttpServer>();
        server->serveDirectory(QStringLiteral("/files/"), streamPath({}));
        server->on(QStringLiteral("/live.ts"), liveTs());
        server->on(QStringLiteral("/never.ts"), neverAnswers());
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

    /// Plays the stream and blocks until libVLC's thread has reported its error or end. No event is
    /// handled meanwhile, so that the report is still in the event queue.
    void playUntilReported(const QString &path, bool live)
    {
        std::atomic<bool> reported = false;
        const auto report = [&reported] {
            reported = true;
            reported.notify_one();
        };
        const auto *source = probe->player.findChild<MediaPlayer *>();
        connect(source, &MediaPlayer::failed, this, report, Qt::DirectConnection);
        connect(source, &MediaPlayer::ended, this, report, Qt::DirectConnection);
        play(path, live);
        reported.wait(false);
        disconnect(source, nullptr, this, nullptr);
    }

    /// A transport stream that ends after half a second.
    static HttpReply endingStream()
    {
        HttpReply reply = HttpReply::file(streamPath(QStringLiteral("short.ts")));
        reply.body.truncate(reply.body.size() / 10);
        return reply;
    }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlayerProbe> probe;
};
