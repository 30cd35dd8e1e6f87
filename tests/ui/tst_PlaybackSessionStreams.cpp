// Channels of providers as they fail: the session brings each back, and opens no stream before the
// last one is closed.

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/PlaybackSession.h"

#include <QRegularExpression>

#include <atomic>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using State = PlaybackSession::State;

namespace {

constexpr int openMs = 20000;
/// A stream that gets no more data counts as stalled after 15 s.
constexpr int faultMs = 40000;

/// A session on a real player without a picture, and a provider.
struct Viewer
{
    Viewer()
    {
        QObject::connect(&player, &VlcPlayer::playbackProgressing, &context,
                         [this] { ++progress; });
        QObject::connect(&session, &PlaybackSession::reconnectScheduled, &context,
                         [this](int attempt) { attempts << attempt; });
        QObject::connect(&session, &PlaybackSession::failed, &context,
                         [this](const QString &message) { failures << message; });
    }

    void watch(const QString &path) { session.play(StreamKind::Live, server.url(path), path); }
    /// Waits until the stream has advanced twice more.
    [[nodiscard]] bool advances() const
    {
        const int wanted = progress + 2;
        return QTest::qWaitFor([this, wanted] { return progress >= wanted; }, openMs);
    }

    HttpServer server;
    VlcPlayer player{nullptr, nullptr};
    PlaybackSession session{&player, nullptr};
    int progress = 0;
    QList<int> attempts;
    QStringList failures;

private:
    QObject context;
};

/// What a provider does with "/channel", and what goes wrong once it plays.
struct Fault
{
    std::function<void(HttpServer &)> serve;
    std::function<void(HttpServer &)> strike;
};

/// The provider still counts the lost connection for the next requests, and allows no other. libVLC
/// makes the first of them by itself.
Fault lingeringConnection()
{
    const auto serve = [](HttpServer &server) { server.on(u"/channel"_s, liveTs()); };
    const auto strike = [](HttpServer &server) {
        const auto refusals = std::make_shared<std::atomic<int>>(3);
        server.on(u"/channel"_s, [refusals](const HttpRequest &) {
            return (*refusals)-- > 0 ? statusReply(503) : liveTs();
        });
        server.dropConnections(u"/channel"_s);
    };
    return {serve, strike};
}

/// The channel leads to an address that is good for one session.
Fault expiredToken()
{
    const auto issued = std::make_shared<std::atomic<int>>(0);
    const auto serve = [issued](HttpServer &server) {
        serveLiveHls(server, u"/token1"_s);
        serveLiveHls(server, u"/token2"_s);
        server.on(u"/channel"_s, [issued](const HttpRequest &) {
            return HttpReply::redirect(u"/token%1/index.m3u8"_s.arg(++*issued));
        });
    };
    const auto strike = [](HttpServer &server) {
        server.on(u"/token1/index.m3u8"_s, statusReply(403));
        server.onPrefix(u"/token1/segment"_s, statusReply(403));
    };
    return {serve, strike};
}

/// libVLC takes the first segment that is missing for the end.
Fault missingSegments()
{
    const auto serve = [](HttpServer &server) {
        serveLiveHls(server, u"/hls"_s);
        server.on(u"/channel"_s, HttpReply::redirect(u"/hls/index.m3u8"_s));
    };
    const auto strike = [](HttpServer &server) {
        // Those of the next seconds, and no later ones.
        const QString last = server.requests().last().path;
        static const QRegularExpression digits(u"\\d+"_s);
        const int number = digits.match(last).captured().toInt();
        for (int next = number + 1; next < number + 4; ++next)
            server.on(u"/hls/segment%1.ts"_s.arg(next), statusReply(404));
    };
    return {serve, strike};
}

} // namespace

class tst_PlaybackSessionStreams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aChannelComesBack_data();
    void aChannelComesBack();
    void oneStreamAtATime();
    void headersOfEveryStream_data();
    void headersOfEveryStream();
    void headersOfARecording();
};

void tst_PlaybackSessionStreams::aChannelComesBack_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<int>("fewestAttempts");
    QTest::newRow("the provider still counts the lost connection") << lingeringConnection() << 2;
    QTest::newRow("the token has expired") << expiredToken() << 1;
    QTest::newRow("segments are missing") << missingSegments() << 1;
}

void tst_PlaybackSessionStreams::aChannelComesBack()
{
    QFETCH(const Fault, fault);
    QFETCH(const int, fewestAttempts);
    Viewer viewer;
    fault.serve(viewer.server);
    viewer.watch(u"/channel"_s);
    QVERIFY(viewer.advances());
    fault.strike(viewer.server);
    QTRY_VERIFY_WITH_TIMEOUT(!viewer.attempts.isEmpty(), faultMs);
    QTRY_COMPARE_WITH_TIMEOUT(viewer.session.state(), State::Playing, openMs);
    QVERIFY(viewer.advances());
    QVERIFY(viewer.attempts.size() >= fewestAttempts);
    // Each asks the provider anew.
    QVERIFY(viewer.server.requestCount(u"/channel"_s) > viewer.attempts.size());
    QCOMPARE(viewer.failures, QStringList());
}

void tst_PlaybackSessionStreams::oneStreamAtATime()
{
    Viewer viewer;
    std::atomic<int> refused = 0;
    viewer.server.onPrefix(u"/channel"_s, [&](const HttpRequest &) {
        const bool free = viewer.server.openConnections() == 0;
        refused += free ? 0 : 1;
        return free ? liveTs() : statusReply(503);
    });
    for (int change = 1; change <= 6; ++change) {
        viewer.watch(u"/channel%1"_s.arg(change));
        // Every other one before it has started.
        if (change % 2 == 0)
            QVERIFY(viewer.advances());
    }
    QCOMPARE(refused.load(), 0);
    QCOMPARE(viewer.attempts, QList<int>());
    QCOMPARE(viewer.server.openConnections(), 1);
}

void tst_PlaybackSessionStreams::headersOfEveryStream_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("userAgent");
    QTest::addColumn<QByteArray>("referrer");
    QTest::newRow("the entry's") << u""_s << "Entry/1"_ba
                                 << "http://r/"_ba;
    QTest::newRow("behind the URL")
        << u"|user-agent=Suffix%2F1&REFERER=http://s/"_s << "Suffix/1"_ba
        << "http://s/"_ba;
    QTest::newRow("one of them behind the URL") << u"|User-Agent=Suffix/1"_s << "Suffix/1"_ba
                                                << "http://r/"_ba;
    QTest::newRow("what must not be sent")
        << u"|User-Agent=A%0D%0AX: 1&sout=#std{access=file,dst=x}"_s << "Entry/1"_ba
        << "http://r/"_ba;
}

void tst_PlaybackSessionStreams::headersOfEveryStream()
{
    QFETCH(const QString, suffix);
    QFETCH(const QByteArray, userAgent);
    QFETCH(const QByteArray, referrer);
    Viewer viewer;
    const auto served = std::make_shared<std::atomic<int>>(0);
    viewer.server.on(u"/channel"_s, [served](const HttpRequest &) {
        return (*served)++ == 0 ? cutShort(liveTs(), 1'000'000) : liveTs();
    });
    viewer.session.play(StreamKind::Live, viewer.server.url(u"/channel"_s) + suffix, u"One"_s,
                        {u"Entry/1"_s, u"http://r/"_s});
    QTRY_COMPARE_WITH_TIMEOUT(viewer.attempts.size(), 1, faultMs);
    QVERIFY(viewer.advances()); // reconnected
    viewer.session.replay();
    QVERIFY(viewer.advances());
    const QList<HttpRequest> requests = viewer.server.requests();
    QVERIFY(requests.size() >= 3);
    for (const HttpRequest &request : requests) {
        QCOMPARE(request.target, u"/channel"_s);
        QCOMPARE(request.header("User-Agent"), userAgent);
        QCOMPARE(request.header("Referer"), referrer);
    }
}

void tst_PlaybackSessionStreams::headersOfARecording()
{
    Viewer viewer;
    viewer.server.on(u"/archive"_s, liveTs());
    const auto addresses = [&viewer](qint64) {
        return QStringList{viewer.server.url(u"/refused|User-Agent=First/1"_s),
                           viewer.server.url(u"/archive"_s)};
    };
    viewer.session.playArchive({60'000, 1000, addresses, {u"Entry/1"_s, {}}}, u"One"_s);
    QVERIFY(viewer.advances());
    QCOMPARE(viewer.server.requests().first().target, u"/refused"_s);
    QCOMPARE(viewer.server.requests().first().header("User-Agent"), "First/1"_ba);
    QCOMPARE(viewer.server.requests().last().target, u"/archive"_s);
    QCOMPARE(viewer.server.requests().last().header("User-Agent"), "Entry/1"_ba);
}

VANTIRO_TEST_GUILESS_MAIN(tst_PlaybackSessionStreams)
#include "tst_PlaybackSessionStreams.moc"
