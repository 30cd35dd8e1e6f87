#pragma once

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "guide/ServerZones.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "ui/CatchUpPlayer.h"
#include "ui/PlaybackSession.h"

#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals; // for tests only

inline constexpr int openMs = 20000;
inline constexpr qint64 minuteMs = 60'000;

inline const QString summaryPath = u"/player_api.php"_s;
inline const QString pathTs = u"/timeshift/joe/pw/90/2024-07-01:22-15/7.ts"_s;

/// 2024-07-01 20:15 to 21:45 UTC.
inline const GuideProgramme programme{1'719'864'900, 1'719'870'300, u"Film"_s, {}};

/// A transport stream as archives send it: without a length, and from its beginning only.
inline HttpReply recording()
{
    HttpReply reply = HttpReply::file(streamPath(u"live.ts"_s), "video/mp2t"_ba);
    reply.chunked = true;
    reply.supportRange = false;
    return reply;
}

/// A summary that names the zone of the server.
inline HttpReply summary(const QByteArray &zone)
{
    return HttpReply::json("{\"server_info\":{\"timezone\":\"" + zone + "\"}}");
}

/// A catch-up player on a real player without a picture, and a server.
struct CatchUpFixture
{
    explicit CatchUpFixture(VlcPlayer &vlcPlayer)
        : player(vlcPlayer)
    {
        server.on(summaryPath, summary("Europe/Berlin"));
        server.onPrefix(u"/"_s, recording());
        QObject::connect(&session, &PlaybackSession::failed, &context,
                         [this](const QString &message) { failures << message; });
        QObject::connect(&session, &PlaybackSession::positionChanged, &context,
                         [this](qint64 ms, qint64 ofMs) {
                             position = ms;
                             length = ofMs;
                         });
        QObject::connect(&catchUp, &CatchUpPlayer::failed, &context,
                         [this](const QString &message) { refusals << message; });
        QObject::connect(
            &catchUp, &CatchUpPlayer::formWorked, &context,
            [this](const QString & /*source*/, AccountArchiveForm form) { worked << form; });
    }
    ~CatchUpFixture() { player.stop(); }
    Q_DISABLE_COPY_MOVE(CatchUpFixture)

    ArchiveChannel accountChannel() const
    {
        ArchiveChannel channel{u"S"_s, u"News"_s, u"7"_s, {}, {}, u"ts"_s, {}, {}, {}};
        channel.archive.form = CatchUpForm::Account;
        channel.account = XtreamAccount{server.url(), u"joe"_s, u"pw"_s};
        return channel;
    }
    ArchiveChannel playlistChannel(CatchUpForm form, const QString &path,
                                   const QString &source = {}) const
    {
        ArchiveChannel channel{u"S"_s, u"News"_s, {}, server.url(path), {}, {}, {}, {}, {}};
        channel.archive.form = form;
        channel.archive.source = source;
        return channel;
    }
    /// The addresses that the server was asked for, each once, in order, without the account's
    /// summary.
    QStringList asked() const
    {
        QStringList targets;
        for (const HttpRequest &request : server.requests()) {
            if (request.path != summaryPath && !targets.contains(request.target))
                targets << request.target;
        }
        return targets;
    }
    /// What opens has little time from now on.
    void loseThePatienceSoon() const
    {
        session.findChild<QTimer *>(u"openTimer"_s)->setInterval(1500);
    }
    [[nodiscard]] bool plays() const
    {
        return QTest::qWaitFor([this] { return position > 0 && player.isPlaying(); }, openMs);
    }

    HttpServer server;
    VlcPlayer &player;
    PlaybackSession session{&player, nullptr};
    ServerZones zones;
    CatchUpPlayer catchUp{&session, &zones, nullptr};
    QStringList failures;
    QStringList refusals;
    QList<AccountArchiveForm> worked;
    qint64 position = 0;
    qint64 length = 0;

private:
    QObject context;
};
