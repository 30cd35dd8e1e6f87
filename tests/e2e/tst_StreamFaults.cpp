// What the viewer sees when streams fail: a channel comes back by itself, a film asks, and the
// window answers all the while.

#include "e2e/PlayerSession.h"
#include "e2e/StoredSources.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QHash>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <functional>
#include <mutex>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString healthy = u"Healthy"_s;
const QString comesBackName = u"Comes back"_s;

/// What a server may send in place of any stream, by name.
QList<std::pair<QString, HttpReply>> brokenReplies()
{
    return {{u"Unauthorized"_s, statusReply(401)},
            {u"Forbidden"_s, statusReply(403)},
            {u"Missing"_s, statusReply(404)},
            {u"Unavailable"_s, statusReply(503)},
            {u"Empty"_s, bodyReply({}, "video/mp2t"_ba)},
            {u"Page"_s, bodyReply("<!DOCTYPE html><html><head><title>Log in</title></head>"
                                  "<body><h1>Your account has expired</h1></body></html>"_ba,
                                  "text/html"_ba)},
            {u"Garbage"_s, garbage()}};
}

} // namespace

class TestStreamFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { comesBack = false; }
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
    void addChannels();
    void addFilms();
    bool healthyChannelPlays();
    bool playFilm(const QString &name) const;
    bool answersUntil(const std::function<bool()> &done) const;
    bool answersForSeconds(int seconds) const;
    QList<Accessible> errorBoxes() const { return session->windowsTitled(UiTexts::errorTitle); }
    QList<qint64> attemptTimes();

    XtreamProvider provider;
    HttpServer &server = provider.http();
    std::unique_ptr<PlayerSession> session;
    QHash<QString, QString> paths; ///< stream paths by name
    /// When the channel "Comes back" was asked for, in milliseconds.
    std::mutex mutex;
    QElapsedTimer clock;
    QList<qint64> requestTimes;
    std::atomic<bool> comesBack = false;
};

void TestStreamFaults::addChannels()
{
    QList<std::pair<QString, HttpReply>> channels = brokenReplies();
    channels.append({healthy, liveTs()});
    const HttpReply shortChannel = HttpReply::file(streamPath(u"short.ts"_s));
    channels.append({u"Short"_s, shortChannel});
    HttpReply withCookie = shortChannel;
    withCookie.headers.append({"Set-Cookie"_ba, "session=k7; path=/"_ba});
    channels.append({u"Session"_s, withCookie});
    channels.append({u"Silent"_s, neverAnswers()});
    channels.append(
        {u"Hanging Segments"_s, bodyReply("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                                          "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:2.0,\n/hanging.ts\n"
                                          "#EXTINF:2.0,\n/hanging.ts\n"_ba,
                                          "application/vnd.apple.mpegurl"_ba)});
    server.on(u"/hanging.ts"_s, neverAnswers());
    channels.append({u"Stalling"_s, stalling(liveTs(), liveTs().bytesPerSecond * 6)});
    for (const auto &[name, reply] : channels)
        paths.insert(name, provider.addChannel(name, reply));
    paths.insert(comesBackName, provider.addChannel(comesBackName, [this](const HttpRequest &) {
        const std::lock_guard guard(mutex);
        requestTimes.append(clock.elapsed());
        return comesBack ? liveTs() : statusReply(503);
    }));
}

void TestStreamFaults::addFilms()
{
    QList<std::pair<QString, HttpReply>> films = brokenReplies();
    const HttpReply film = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    HttpReply cut = cutShort(film, film.body.size() * 15 / 100);
    cut.supportRange = false;
    films.append({u"Cut"_s, cut});
    for (const auto &[reason, reply] : films) {
        const QString name = reason + u" Film"_s;
        paths.insert(name, provider.addFilm(name, u"mp4"_s, reply));
    }
    provider.addFilm(u"Second Chance"_s, u"mp4"_s, [this, film](const HttpRequest &) {
        return comesBack ? film : statusReply(503);
    });
}

void TestStreamFaults::initTestCase()
{
    clock.start();
    addChannels();
    addFilms();
    storeAccount(provider);
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->openAll(UiTexts::liveTab));
}

void TestStreamFaults::cleanupTestCase()
{
    QVERIFY(session->close());
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
    server.clearRequests();
    return session->play(healthy) && session->showsLabel(UiTexts::playing(healthy)) &&
           QTest::qWaitFor([&] { return server.openConnections(paths[healthy]) == 1; }, 15000) &&
           session->seesPicture() && server.requestCount(paths[healthy]) == 1;
}

/// Searches for the film, which brings it into view, and plays it.
bool TestStreamFaults::playFilm(const QString &name) const
{
    return session->openTab(UiTexts::moviesTab) &&
           Keyboard::fill(session->window.waitFor(Role::Edit, u"Search..."_s), name) &&
           session->play(name);
}

/// Asks the window's own thread for something until `done`, at least twenty times. False when an
/// answer took far longer than any does in a window that is not frozen.
bool TestStreamFaults::answersUntil(const std::function<bool()> &done) const
{
    constexpr qint64 frozenMs = 1000;
    qint64 longest = 0;
    int left = 20;
    const bool inTime = QTest::qWaitFor(
        [&] {
            QElapsedTimer answer;
            answer.start();
            const bool answered = session->window.name() == UiTexts::mainWindow;
            longest = std::max(longest, answered ? answer.elapsed() : frozenMs);
            return --left <= 0 && done();
        },
        60000);
    if (longest >= frozenMs)
        qWarning() << "The window took" << longest << "ms to answer";
    return inTime && longest < frozenMs;
}

bool TestStreamFaults::answersForSeconds(int seconds) const
{
    const QDeadlineTimer end(seconds * 1000);
    return answersUntil([&end] { return end.hasExpired(); });
}

void TestStreamFaults::brokenChannelReconnects_data()
{
    QTest::addColumn<QString>("channel");
    for (const auto &[name, reply] : brokenReplies())
        QTest::newRow(qPrintable(name)) << name;
    QTest::newRow("short") << u"Short"_s;
}

void TestStreamFaults::brokenChannelReconnects()
{
    QFETCH(const QString, channel);
    QVERIFY(session->openTab(UiTexts::liveTab));
    QVERIFY(session->play(channel));
    QVERIFY(answersUntil([&] {
        return bool(session->window.find(Role::Label, UiTexts::reconnecting(channel, 1)));
    }));
    // It tries again, without a box.
    const int requests = server.requestCount(paths[channel]);
    QTRY_VERIFY_WITH_TIMEOUT(server.requestCount(paths[channel]) > requests, 15000);
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
    QVERIFY(session->play(channel));
    QTRY_VERIFY_WITH_TIMEOUT(server.openConnections(request) > 0, 15000);
    QVERIFY(answersForSeconds(3));
    QVERIFY(session->window.find(Role::Label, UiTexts::playing(channel)));
    QVERIFY(errorBoxes().isEmpty());
    QVERIFY(server.openConnections(request) > 0);

    // Another channel is there at once; the program does not wait for the silent one.
    QVERIFY(session->play(healthy));
    QVERIFY(answersUntil(
        [this] { return bool(session->window.find(Role::Label, UiTexts::playing(healthy))); }));
    QVERIFY(session->seesPicture());
    server.dropConnections(request);
}

void TestStreamFaults::stalledChannelReconnects()
{
    const QString name = u"Stalling"_s;
    QVERIFY(session->watch(name));
    const QString reason = u"[VLC] live reconnect attempt 1 - The stream stopped advancing for 15 "
                           "seconds."_s;
    QVERIFY(session->app.waitForStandardError(reason, 60000));
    QVERIFY(session->showsLabel(UiTexts::reconnecting(name, 1)));
    QVERIFY(session->showsLabel(UiTexts::playing(name)));
    QVERIFY(session->seesPicture());
}

// A provider may know its viewer by a cookie, and refuse the second request without it.
void TestStreamFaults::reconnectingKeepsTheCookie()
{
    const QString path = paths[u"Session"_s];
    QVERIFY(session->play(u"Session"_s));
    QTRY_VERIFY_WITH_TIMEOUT(server.requestCount(path) >= 2, 40000);
    QList<HttpRequest> requests = server.requests();
    requests.removeIf([&path](const HttpRequest &request) { return request.path != path; });
    QCOMPARE(requests.at(0).header("Cookie"_ba), QByteArray());
    QCOMPARE(requests.at(1).header("Cookie"_ba), "session=k7"_ba);
    QVERIFY(healthyChannelPlays());
}

/// When each attempt at "Comes back" began.
QList<qint64> TestStreamFaults::attemptTimes()
{
    const std::lock_guard guard(mutex);
    QList<qint64> begun;
    for (const qint64 time : std::as_const(requestTimes)) {
        // libVLC may ask more than once in one attempt.
        if (begun.isEmpty() || time - begun.last() > 800)
            begun.append(time);
    }
    return begun;
}

void TestStreamFaults::reconnectsAfterGrowingDelays()
{
    const QString path = paths[comesBackName];
    const qsizetype tracedBefore = session->app.standardError().size();
    QVERIFY(session->play(comesBackName));
    for (int attempt = 1; attempt <= 4; ++attempt) {
        const QString label = UiTexts::reconnecting(comesBackName, attempt);
        QTRY_VERIFY_WITH_TIMEOUT(session->window.find(Role::Label, label), 20000);
    }
    comesBack = true;
    QVERIFY(session->showsLabel(UiTexts::playing(comesBackName)));
    QVERIFY(session->seesPicture());

    const QList<qint64> begun = attemptTimes();
    const QList<qint64> delays{1000, 2000, 4000, 8000};
    QCOMPARE(begun.size(), delays.size() + 1);
    for (qsizetype attempt = 0; attempt < delays.size(); ++attempt) {
        // A coarse timer may leave out a twentieth.
        const qint64 waited = begun[attempt + 1] - begun[attempt];
        QVERIFY2(waited >= delays[attempt] * 95 / 100, qPrintable(QString::number(waited)));
    }
    const QString traced = session->app.standardError().mid(tracedBefore);
    QCOMPARE(traced.count(u"[VLC] play ->"_s), 5);
    QCOMPARE(traced.count(u"[VLC] live reconnect attempt 4 - "_s), 1);

    // Progress has cleared the count: the next failure is the first again. The server does not
    // find out before the progress has been seen twice.
    QVERIFY(session->seesPicture());
    QTRY_COMPARE(server.openConnections(path), 1);
    const qsizetype tracedUntilDrop = session->app.standardError().size();
    server.dropConnections(path);
    QTRY_VERIFY(session->app.standardError()
                    .mid(tracedUntilDrop)
                    .contains(u"[VLC] live reconnect attempt 1 - "_s));
    QVERIFY(session->showsLabel(UiTexts::playing(comesBackName)));
    QVERIFY(session->seesPicture());
}

void TestStreamFaults::anotherChannelEndsTheReconnecting()
{
    QVERIFY(session->play(u"Missing"_s));
    QVERIFY(session->showsLabel(UiTexts::reconnecting(u"Missing"_s, 2)));
    QVERIFY(healthyChannelPlays());
    // The pending attempt, two seconds away, never comes.
    QVERIFY(answersForSeconds(3));
    QCOMPARE(server.requestCount(paths[u"Missing"_s]), 0);
    QVERIFY(session->window.find(Role::Label, UiTexts::playing(healthy)));
}

void TestStreamFaults::brokenFilmAsks_data()
{
    QTest::addColumn<QString>("film");
    for (const char *name : {"Unauthorized", "Forbidden", "Missing", "Unavailable", "Empty"})
        QTest::newRow(name) << QString::fromUtf8(name) + u" Film"_s;
}

void TestStreamFaults::brokenFilmAsks()
{
    QFETCH(const QString, film);
    QVERIFY(playFilm(film));
    QVERIFY(answersUntil([this] { return !errorBoxes().isEmpty(); }));
    const Accessible box = errorBoxes().constFirst();
    QVERIFY(box.waitFor(Role::Label, UiTexts::streamError));
    QVERIFY(!session->window.find(Role::Label, UiTexts::playing(film)));
    QVERIFY(!session->window.find(Role::Button, u"Info"_s));
    QCOMPARE(errorBoxes().size(), 1);

    const int requests = server.requestCount(paths[film]);
    QVERIFY(Mouse::click(box.find(Role::Button, u"Retry"_s)));
    QTRY_VERIFY(server.requestCount(paths[film]) > requests);
    QTRY_COMPARE(errorBoxes().size(), 1);
    QVERIFY(Mouse::click(errorBoxes().at(0).waitFor(Role::Button, u"Close"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
    QVERIFY(!session->window.find(Role::Button, u"Info"_s));
}

void TestStreamFaults::filmThatBreaksOffAsks()
{
    QVERIFY(playFilm(u"Cut Film"_s));
    QVERIFY(session->seesPicture());
    const Accessible box = session->app.waitForWindow(UiTexts::errorTitle, 40000);
    const QString text = box.find(Role::Label).text();
    QVERIFY2(text.startsWith(u"Playback stopped: "_s), qPrintable(text));
    QVERIFY(Mouse::click(box.waitFor(Role::Button, u"Close"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
}

void TestStreamFaults::retryPlaysTheFilmAgain()
{
    QVERIFY(playFilm(u"Second Chance"_s));
    const Accessible box = session->app.waitForWindow(UiTexts::errorTitle);
    comesBack = true;
    QVERIFY(Mouse::click(box.waitFor(Role::Button, u"Retry"_s)));
    QTRY_VERIFY(errorBoxes().isEmpty());
    QVERIFY(session->showsLabel(UiTexts::playing(u"Second Chance"_s)));
    QVERIFY(session->seesPicture());
    QTRY_VERIFY(session->seekSlider());
    QVERIFY(errorBoxes().isEmpty());
}

void TestStreamFaults::filmThatIsNoFilmEndsSilently_data()
{
    QTest::addColumn<QString>("film");
    QTest::newRow("page") << u"Page Film"_s;
    QTest::newRow("garbage") << u"Garbage Film"_s;
}

// What has no length has come to its end by itself, as far as anybody knows.
void TestStreamFaults::filmThatIsNoFilmEndsSilently()
{
    QFETCH(const QString, film);
    QVERIFY(playFilm(film));
    QTRY_VERIFY(server.requestCount(paths[film]) > 0);
    QVERIFY(answersForSeconds(3));
    QVERIFY(errorBoxes().isEmpty());
    QVERIFY(session->window.find(Role::Label, UiTexts::playing(film)));
}

VANTIRO_TEST_MAIN(TestStreamFaults)
#include "tst_StreamFaults.moc"
