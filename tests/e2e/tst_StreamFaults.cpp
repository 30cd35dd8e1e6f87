// What the viewer sees when streams fail: a channel comes back by itself, a film asks, and the
// window answers all the while.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <functional>
#include <mutex>
#include <random>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString errorTitle = u"Playback Error"_s;
const QString vlcError = u"Playback stopped: libVLC encountered an error while streaming."_s;

HttpReply status(int code)
{
    HttpReply reply;
    reply.status = code;
    reply.body = "no"_ba;
    return reply;
}

HttpReply content(const QByteArray &type, const QByteArray &body)
{
    HttpReply reply;
    reply.contentType = type;
    reply.body = body;
    return reply;
}

HttpReply htmlPage()
{
    return content("text/html"_ba, "<!DOCTYPE html><html><head><title>Log in</title></head>"
                                   "<body><h1>Your account has expired</h1></body></html>"_ba);
}

HttpReply garbage()
{
    std::mt19937 numbers(7); // NOLINT: the same bytes each time
    QByteArray bytes(200000, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(),
                  [&numbers] { return static_cast<char>(numbers() & 0xffU); });
    return content("application/octet-stream"_ba, bytes);
}

HttpReply neverAnswers()
{
    HttpReply reply;
    reply.neverAnswer = true;
    return reply;
}

HttpReply cutShort(const QString &stream, int percent)
{
    HttpReply reply = HttpReply::file(streamPath(stream));
    reply.cutAfter = reply.body.size() * percent / 100;
    reply.supportRange = false;
    return reply;
}

} // namespace

class TestStreamFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void brokenChannelReconnects_data();
    void brokenChannelReconnects();
    void silentChannelKeepsWaiting_data();
    void silentChannelKeepsWaiting();
    void stalledChannelReconnects();
    void reconnectingKeepsTheCookie();
    void reconnectsAfterGrowingDelays();
    void anotherChannelEndsTheReconnecting();
    void brokenFilmAsks_data();
    void brokenFilmAsks();
    void filmThatBreaksOffAsks();
    void retryPlaysTheFilmAgain();
    void filmThatIsNoFilmEndsSilently_data();
    void filmThatIsNoFilmEndsSilently();

private:
    void addChannel(const QString &name, const HttpReply &reply);
    void addFilm(const QString &name, const HttpReply &reply);
    bool healthyChannelPlays();
    bool playFilm(const QString &name) const;
    qint64 longestAnswer(const std::function<bool()> &done) const;
    QList<Accessible> errorBoxes() const;

    Provider provider;
    std::unique_ptr<PlayerSession> session;
    /// Stream paths by name.
    QHash<QString, QString> paths;
    /// When the channel "Comes back" was asked for, in milliseconds.
    std::mutex mutex;
    QElapsedTimer clock;
    QList<qint64> requestTimes;
    std::atomic<bool> comesBack = false;
};

void TestStreamFaults::addChannel(const QString &name, const HttpReply &reply)
{
    paths.insert(name, provider.addChannel(name, reply));
}

void TestStreamFaults::addFilm(const QString &name, const HttpReply &reply)
{
    paths.insert(name, provider.addFilm(name, u"mp4"_s, reply));
}

void TestStreamFaults::initTestCase()
{
    clock.start();
    addChannel(u"Healthy"_s, liveTs());
    addChannel(u"Unauthorized"_s, status(401));
    addChannel(u"Forbidden"_s, status(403));
    addChannel(u"Missing"_s, status(404));
    addChannel(u"Unavailable"_s, status(503));
    addChannel(u"Page"_s, htmlPage());
    addChannel(u"Empty"_s, content("video/mp2t"_ba, {}));
    addChannel(u"Garbage"_s, garbage());
    addChannel(u"Short"_s, HttpReply::file(streamPath(u"short.ts"_s)));
    HttpReply withCookie = HttpReply::file(streamPath(u"short.ts"_s));
    withCookie.headers.append({"Set-Cookie"_ba, "session=k7; path=/"_ba});
    addChannel(u"Session"_s, withCookie);
    addChannel(u"Silent"_s, neverAnswers());
    addChannel(u"Hanging Segments"_s, content("application/vnd.apple.mpegurl"_ba,
                                              "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                                              "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:2.0,\n/hanging.ts\n"
                                              "#EXTINF:2.0,\n/hanging.ts\n"_ba));
    provider.server.on(u"/hanging.ts"_s, neverAnswers());
    HttpReply stalls = liveTs();
    stalls.stallAfter = stalls.bytesPerSecond * 6;
    stalls.bytesPerSecond = 0;
    addChannel(u"Stalling"_s, stalls);
    paths.insert(u"Comes back"_s, provider.addChannel(u"Comes back"_s, [this](const HttpRequest &) {
        const std::lock_guard guard(mutex);
        requestTimes.append(clock.elapsed());
        return comesBack ? liveTs() : status(503);
    }));

    addFilm(u"Unauthorized Film"_s, status(401));
    addFilm(u"Forbidden Film"_s, status(403));
    addFilm(u"Missing Film"_s, status(404));
    addFilm(u"Unavailable Film"_s, status(503));
    addFilm(u"Page Film"_s, htmlPage());
    addFilm(u"Garbage Film"_s, garbage());
    addFilm(u"Empty Film"_s, content("video/mp4"_ba, {}));
    addFilm(u"Cut Film"_s, cutShort(u"film-faststart.mp4"_s, 15));
    paths.insert(u"Second Chance"_s,
                 provider.addFilm(u"Second Chance"_s, u"mp4"_s, [this](const HttpRequest &) {
                     return comesBack ? HttpReply::file(streamPath(u"film.mp4"_s)) : status(503);
                 }));
    provider.store();
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
    QVERIFY(session->openFilms());
    QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"Live TV"_s)));
    QVERIFY(session->openChannels());
}

void TestStreamFaults::cleanupTestCase()
{
    QVERIFY(session->close());
    QCOMPARE(session->app.exitCode(), 0);
}

void TestStreamFaults::init()
{
    comesBack = false;
}

void TestStreamFaults::cleanup()
{
    if (QTest::currentTestFailed()) {
        session->keepScreenshot(u"failed-"_s + QString::fromUtf8(QTest::currentTestFunction()));
        qInfo().noquote() << session->app.standardError() << session->app.describe();
    }
}

/// Whether a channel plays after what was before: its picture, where it belongs, its name, and its
/// own connection.
bool TestStreamFaults::healthyChannelPlays()
{
    const QString path = paths[u"Healthy"_s];
    provider.server.clearRequests();
    return session->playChannel(u"Healthy"_s) && session->showsLabel(u"Playing: Healthy"_s) &&
           QTest::qWaitFor([&] { return provider.server.openConnections(path) == 1; }, 15000) &&
           session->seesPicture() && provider.server.requestCount(path) == 1;
}

/// Searches for the film, which brings it into view, and plays it.
bool TestStreamFaults::playFilm(const QString &name) const
{
    return Mouse::click(session->window.waitFor(Role::Tab, u"Movies"_s)) &&
           Keyboard::fill(session->window.waitFor(Role::Edit, u"Search..."_s), name) &&
           session->playFilm(name);
}

/// Asks the window's own thread for something until `done`, at least twenty times: the longest
/// that it took to answer, in milliseconds.
qint64 TestStreamFaults::longestAnswer(const std::function<bool()> &done) const
{
    constexpr int atLeast = 20;
    qint64 longest = 0;
    int asked = 0;
    const bool inTime = QTest::qWaitFor(
        [&] {
            QElapsedTimer answer;
            answer.start();
            const bool answered = session->window.name() == "Vantiro Player"_L1;
            longest = answered ? std::max(longest, answer.elapsed()) : 1000000;
            return ++asked >= atLeast && done();
        },
        60000);
    return inTime ? longest : 1000000;
}

QList<Accessible> TestStreamFaults::errorBoxes() const
{
    QList<Accessible> windows = session->app.windows();
    windows.removeIf([](const Accessible &window) { return window.name() != errorTitle; });
    return windows;
}

/// Far longer than any answer takes, far shorter than what a frozen window would need.
constexpr qint64 frozenMs = 1000;

void TestStreamFaults::brokenChannelReconnects_data()
{
    QTest::addColumn<QString>("channel");
    for (const char *name : {"Unauthorized", "Forbidden", "Missing", "Unavailable", "Page", "Empty",
                             "Garbage", "Short"}) {
        QTest::newRow(name) << QString::fromUtf8(name);
    }
}

void TestStreamFaults::brokenChannelReconnects()
{
    QFETCH(const QString, channel);
    QVERIFY(session->playChannel(channel));
    const QString waiting = u"Reconnecting to %1... (attempt %2)"_s;
    const qint64 longest = longestAnswer(
        [&] { return bool(session->window.find(Role::Label, waiting.arg(channel, u"1"_s))); });
    QVERIFY2(longest < frozenMs, qPrintable(QString::number(longest)));
    session->keepScreenshot(u"reconnecting-"_s + channel);
    // It tries again, without a box.
    const int requests = provider.server.requestCount(paths[channel]);
    QTRY_VERIFY_WITH_TIMEOUT(provider.server.requestCount(paths[channel]) > requests, 15000);
    QVERIFY(errorBoxes().isEmpty());
    QVERIFY(healthyChannelPlays());
}

void TestStreamFaults::silentChannelKeepsWaiting_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("request");
    QTest::newRow("server never answers") << u"Silent"_s << paths[u"Silent"_s];
    QTest::newRow("HLS segments never answer") << u"Hanging Segments"_s << u"/hanging.ts"_s;
}

void TestStreamFaults::silentChannelKeepsWaiting()
{
    QFETCH(const QString, channel);
    QFETCH(const QString, request);
    QVERIFY(session->playChannel(channel));
    QTRY_VERIFY_WITH_TIMEOUT(provider.server.openConnections(request) > 0, 15000);
    QElapsedTimer waiting;
    waiting.start();
    const qint64 longest = longestAnswer([&waiting] { return waiting.hasExpired(3000); });
    QVERIFY2(longest < frozenMs, qPrintable(QString::number(longest)));
    QVERIFY(session->window.find(Role::Label, u"Playing: "_s + channel));
    QVERIFY(errorBoxes().isEmpty());
    QVERIFY(provider.server.openConnections(request) > 0);

    // Another channel is there at once; the program does not wait for the silent one.
    QVERIFY(session->playChannel(u"Healthy"_s));
    const qint64 longestOfChange = longestAnswer(
        [this] { return bool(session->window.find(Role::Label, u"Playing: Healthy"_s)); });
    QVERIFY2(longestOfChange < frozenMs, qPrintable(QString::number(longestOfChange)));
    QVERIFY(session->seesPicture());
    provider.server.dropConnections(request);
}

void TestStreamFaults::stalledChannelReconnects()
{
    QVERIFY(session->playChannel(u"Stalling"_s));
    QVERIFY(session->seesPicture());
    const QString reason = u"[VLC] live reconnect attempt 1 - The stream stopped advancing for 15 "
                           "seconds."_s;
    QVERIFY(session->app.waitForStandardError(reason, 60000));
    QVERIFY(session->showsLabel(u"Reconnecting to Stalling... (attempt 1)"_s));
    QVERIFY(session->showsLabel(u"Playing: Stalling"_s));
    QVERIFY(session->seesPicture());
    QVERIFY(healthyChannelPlays());
}

// A provider may know its viewer by a cookie, and refuse the second request without it.
void TestStreamFaults::reconnectingKeepsTheCookie()
{
    const QString path = paths[u"Session"_s];
    QVERIFY(session->playChannel(u"Session"_s));
    QTRY_VERIFY_WITH_TIMEOUT(provider.server.requestCount(path) >= 2, 40000);
    QList<HttpRequest> requests = provider.server.requests();
    requests.removeIf([&path](const HttpRequest &request) { return request.path != path; });
    QCOMPARE(requests.at(0).header("Cookie"_ba), QByteArray());
    QCOMPARE(requests.at(1).header("Cookie"_ba), "session=k7"_ba);
    QVERIFY(healthyChannelPlays());
}

void TestStreamFaults::reconnectsAfterGrowingDelays()
{
    const QString path = paths[u"Comes back"_s];
    const auto label = [](int attempt) {
        return u"Reconnecting to Comes back... (attempt %1)"_s.arg(attempt);
    };
    const qsizetype tracedBefore = session->app.standardError().size();
    QVERIFY(session->playChannel(u"Comes back"_s));
    for (int attempt = 1; attempt <= 4; ++attempt) {
        QTRY_VERIFY_WITH_TIMEOUT(session->window.find(Role::Label, label(attempt)), 20000);
    }
    comesBack = true;
    QVERIFY(session->showsLabel(u"Playing: Comes back"_s));
    QVERIFY(session->seesPicture());

    QList<qint64> begun;
    {
        const std::lock_guard guard(mutex);
        for (const qint64 time : std::as_const(requestTimes)) {
            // libVLC may ask more than once in one attempt.
            if (begun.isEmpty() || time - begun.last() > 800)
                begun.append(time);
        }
    }
    QCOMPARE(begun.size(), 5);
    const QList<qint64> delays{1000, 2000, 4000, 8000};
    for (qsizetype attempt = 0; attempt < delays.size(); ++attempt) {
        // A coarse timer may leave out a twentieth.
        const qint64 waited = begun[attempt + 1] - begun[attempt];
        QVERIFY2(waited >= delays[attempt] * 95 / 100, qPrintable(QString::number(waited)));
    }
    const QString traced = session->app.standardError().mid(tracedBefore);
    qsizetype from = 0;
    for (int attempt = 1; attempt <= 4; ++attempt) {
        const QString line = u"[VLC] live reconnect attempt %1 - "_s.arg(attempt);
        QCOMPARE(traced.count(line), 1);
        QVERIFY(traced.indexOf(line) >= from);
        from = traced.indexOf(line);
    }
    QCOMPARE(traced.count(u"[VLC] play ->"_s), 5);

    // Progress has cleared the count: the next failure is the first again. The server does not
    // find out before the progress has been seen twice.
    QVERIFY(session->seesPicture());
    QTRY_VERIFY(provider.server.openConnections(path) == 1);
    const qsizetype tracedUntilDrop = session->app.standardError().size();
    provider.server.dropConnections(path);
    QVERIFY(session->app.waitForStandardError(u"[VLC] live reconnect attempt"_s));
    QTRY_VERIFY(session->app.standardError()
                    .mid(tracedUntilDrop)
                    .contains(u"[VLC] live reconnect attempt 1 - "_s));
    QVERIFY(session->showsLabel(u"Playing: Comes back"_s));
    QVERIFY(session->seesPicture());
}

void TestStreamFaults::anotherChannelEndsTheReconnecting()
{
    QVERIFY(session->playChannel(u"Missing"_s));
    QVERIFY(session->showsLabel(u"Reconnecting to Missing... (attempt 2)"_s));
    QVERIFY(healthyChannelPlays());
    // The pending attempt, two seconds away, never comes.
    QElapsedTimer waiting;
    waiting.start();
    QTRY_VERIFY(waiting.hasExpired(3000));
    QCOMPARE(provider.server.requestCount(paths[u"Missing"_s]), 0);
    QVERIFY(session->window.find(Role::Label, u"Playing: Healthy"_s));
}

void TestStreamFaults::brokenFilmAsks_data()
{
    QTest::addColumn<QString>("film");
    for (const char *name :
         {"Unauthorized Film", "Forbidden Film", "Missing Film", "Unavailable Film", "Empty Film"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestStreamFaults::brokenFilmAsks()
{
    QFETCH(const QString, film);
    QVERIFY(playFilm(film));
    const qint64 longest = longestAnswer([this] { return !errorBoxes().isEmpty(); });
    QVERIFY2(longest < frozenMs, qPrintable(QString::number(longest)));
    const Accessible box = session->app.waitForWindow(errorTitle);
    QVERIFY(box.waitFor(Role::Label, vlcError));
    QVERIFY(box.find(Role::Button, u"Retry"_s));
    QVERIFY(!session->window.find(Role::Label, u"Playing: "_s + film));
    QVERIFY(!session->window.find(Role::Button, u"Info"_s));
    QCOMPARE(errorBoxes().size(), 1);
    session->keepScreenshot(u"error-"_s + film);

    const int requests = provider.server.requestCount(paths[film]);
    QVERIFY(Mouse::click(box.find(Role::Button, u"Retry"_s)));
    QTRY_VERIFY(provider.server.requestCount(paths[film]) > requests);
    QTRY_COMPARE(errorBoxes().size(), 1);
    QVERIFY(Mouse::click(errorBoxes().at(0).waitFor(Role::Button, u"Close"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
    QVERIFY(!session->window.find(Role::Button, u"Info"_s));
}

void TestStreamFaults::filmThatIsNoFilmEndsSilently_data()
{
    QTest::addColumn<QString>("film");
    QTest::newRow("page") << u"Page Film"_s;
    QTest::newRow("garbage") << u"Garbage Film"_s;
}

void TestStreamFaults::filmThatBreaksOffAsks()
{
    QVERIFY(playFilm(u"Cut Film"_s));
    QVERIFY(session->seesPicture());
    const Accessible box = session->app.waitForWindow(errorTitle, 40000);
    QVERIFY(box);
    const QString text = box.find(Role::Label).text();
    QVERIFY2(text.startsWith(u"Playback stopped: "_s), qPrintable(text));
    session->keepScreenshot(u"error-cut-film"_s);
    QVERIFY(Mouse::click(box.waitFor(Role::Button, u"Close"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
}

void TestStreamFaults::retryPlaysTheFilmAgain()
{
    QVERIFY(playFilm(u"Second Chance"_s));
    const Accessible box = session->app.waitForWindow(errorTitle);
    QVERIFY(box);
    comesBack = true;
    QVERIFY(Mouse::click(box.waitFor(Role::Button, u"Retry"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
    QVERIFY(session->showsLabel(u"Playing: Second Chance"_s));
    QVERIFY(session->seesPicture());
    QVERIFY(session->window.waitFor(Role::Slider, u"Position"_s));
    QVERIFY(errorBoxes().isEmpty());
}

// What has no length has come to its end by itself, as far as anybody knows.
void TestStreamFaults::filmThatIsNoFilmEndsSilently()
{
    QFETCH(const QString, film);
    QVERIFY(playFilm(film));
    QTRY_VERIFY(provider.server.requestCount(paths[film]) > 0);
    QElapsedTimer waiting;
    waiting.start();
    const qint64 longest = longestAnswer([&waiting] { return waiting.hasExpired(3000); });
    QVERIFY2(longest < frozenMs, qPrintable(QString::number(longest)));
    QVERIFY(errorBoxes().isEmpty());
    QVERIFY(session->window.find(Role::Label, u"Playing: "_s + film));
}

VANTIRO_TEST_MAIN(TestStreamFaults)
#include "tst_StreamFaults.moc"
