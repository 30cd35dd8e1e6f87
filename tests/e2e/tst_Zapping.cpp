// Changing the channel many times in a row, on an account that allows one connection at a time:
// the server turns everybody away while an earlier stream of the account is still open.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestZapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }
    void cleanup() { session.reset(); }
    void secondConnectionIsTurnedAway();
    void endsWithTheLastChannel_data();
    void endsWithTheLastChannel();
    void changesWhileTheLastStreamStarts();
    void filmAfterChannelAfterFilm();

private:
    static constexpr int channelCount = 11;
    HttpReply once(const HttpReply &reply);
    void serve(const HttpReply &others);
    double colourShare() const;
    bool showsGreyChannel() const;
    bool hasOneWindow() const;

    std::unique_ptr<Provider> provider;
    std::unique_ptr<PlayerSession> session;
    QList<QString> paths;
};

/// The reply, or 503 while another stream is open.
HttpReply TestZapping::once(const HttpReply &reply)
{
    if (provider->server.openConnections() == 0)
        return reply;
    HttpReply busy;
    busy.status = 503;
    return busy;
}

/// Channels 0 to 9 answer alike; the last one, "Grey", is the one to end with.
void TestZapping::serve(const HttpReply &others)
{
    paths.clear();
    provider = std::make_unique<Provider>();
    for (int number = 0; number < channelCount - 1; ++number) {
        paths.append(provider->addChannel(u"Channel %1"_s.arg(number),
                                          [this, others](const auto &) { return once(others); }));
    }
    paths.append(provider->addChannel(
        u"Grey"_s, [this](const HttpRequest &) { return once(liveStream(u"grey.ts"_s, 30)); }));
    provider->addFilm(u"Film"_s, u"mp4"_s, [this](const HttpRequest &) {
        return once(HttpReply::file(streamPath(u"film-faststart.mp4"_s)));
    });
    provider->store();
    session = std::make_unique<PlayerSession>();
}

/// The share of pixels with a colour, which the grey channel has none of.
double TestZapping::colourShare() const
{
    const QImage image = Screen::grab(session->videoRect());
    int coloured = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const int spread =
                std::abs(qRed(pixel) - qGreen(pixel)) + std::abs(qGreen(pixel) - qBlue(pixel));
            coloured += spread > 60 ? 1 : 0;
        }
    }
    return static_cast<double>(coloured) / (static_cast<double>(image.width()) * image.height());
}

/// The picture of the grey channel moves where it belongs, though it may take a reconnect or two.
bool TestZapping::showsGreyChannel() const
{
    const auto plays = [this] {
        return colourShare() < 0.01 && Screen::waitUntilMoving(session->videoRect(), 3000);
    };
    return QTest::qWaitFor(plays, 20000) && session->showsLabel(u"Playing: Grey"_s);
}

/// libVLC has not opened a window of its own.
bool TestZapping::hasOneWindow() const
{
    return NativeWindow::ofProcess(session->app.processId()).size() == 1;
}

// The rule that the other tests rest on.
void TestZapping::secondConnectionIsTurnedAway()
{
    serve(liveTs());
    QVERIFY(session->start());
    QVERIFY(session->openChannels());
    QVERIFY(session->playChannel(u"Grey"_s));
    QVERIFY(session->seesPicture());
    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> reply(
        network.get(QNetworkRequest(QUrl(provider->server.url(paths.first())))));
    QSignalSpy finished(reply.get(), &QNetworkReply::finished);
    QVERIFY(finished.wait());
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 503);
    QVERIFY(session->close());
}

void TestZapping::endsWithTheLastChannel_data()
{
    HttpReply silent;
    silent.neverAnswer = true;
    HttpReply slow = liveTs();
    slow.delayMs = 300;
    QTest::addColumn<HttpReply>("others");
    QTest::newRow("past channels that play") << liveTs();
    QTest::newRow("past channels that are slow to answer") << slow;
    QTest::newRow("past channels that never answer") << silent;
}

void TestZapping::endsWithTheLastChannel()
{
    QFETCH(const HttpReply, others);
    serve(others);
    QVERIFY(session->start());
    QVERIFY(session->openChannels());
    QList<QPoint> rows;
    for (int number = 0; number < channelCount - 1; ++number) {
        rows.append(
            session->window.waitFor(Role::Cell, u"Channel %1"_s.arg(number)).rect().center());
    }
    const QPoint last = session->window.waitFor(Role::Cell, u"Grey"_s).rect().center();

    for (int change = 0; change < 49; ++change) {
        QVERIFY(Mouse::click(rows.at(change % rows.size())));
        QVERIFY(hasOneWindow());
    }
    QVERIFY(Mouse::click(last));

    QVERIFY(showsGreyChannel());
    QVERIFY(hasOneWindow());
    session->keepScreenshot(u"zapping-"_s + QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(provider->server.requests().last().path, paths.last());
    QCOMPARE(provider->server.openConnections(), 1);
    QCOMPARE(provider->server.openConnections(paths.last()), 1);
    const int requests = provider->server.requestCount();
    QVERIFY(session->seesPicture());
    QCOMPARE(provider->server.requestCount(), requests);
    QVERIFY(!session->app.window(u"Playback Error"_s));

    QVERIFY(session->close());
    QCOMPARE(session->app.exitCode(), 0);
    QTRY_COMPARE(provider->server.openConnections(), 0);
}

// libVLC is slow to let go of the surface while a stream opens its picture and sound. The stream
// that finds the surface taken must not open a window of its own.
void TestZapping::changesWhileTheLastStreamStarts()
{
    constexpr int phases = 12;
    constexpr int phaseMs = 80;
    serve(HttpReply::file(streamPath(u"short.ts"_s)));
    provider->server.on(paths.first(), HttpReply::file(streamPath(u"short.ts"_s)));
    provider->server.on(paths.last(), liveStream(u"grey.ts"_s, 30));
    QVERIFY(session->start());
    QVERIFY(session->openChannels());
    for (int phase = 0; phase < phases; ++phase) {
        const int requests = provider->server.requestCount(paths.first());
        QVERIFY(session->playChannel(u"Channel 0"_s));
        QTRY_VERIFY(provider->server.requestCount(paths.first()) > requests);
        QElapsedTimer sinceRequest;
        sinceRequest.start();
        QTRY_VERIFY(sinceRequest.hasExpired(qint64(phase) * phaseMs));
        QVERIFY(session->playChannel(u"Grey"_s));
        QVERIFY2(showsGreyChannel(), qPrintable(QString::number(phase)));
        QVERIFY(hasOneWindow());
    }
    QVERIFY(session->close());
}

void TestZapping::filmAfterChannelAfterFilm()
{
    serve(liveTs());
    QVERIFY(session->start());
    QVERIFY(session->openFilms());
    QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"Live TV"_s)));
    QVERIFY(session->openChannels());
    for (int change = 0; change < 4; ++change) {
        QVERIFY(session->playChannel(u"Grey"_s));
        QVERIFY(showsGreyChannel());
        QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"Movies"_s)));
        QVERIFY(session->playFilm(u"Film"_s));
        QTRY_VERIFY_WITH_TIMEOUT(session->seesPicture() && colourShare() > 0.3, 60000);
        QVERIFY(session->showsLabel(u"Playing: Film"_s));
        QVERIFY(Mouse::click(session->window.waitFor(Role::Tab, u"Live TV"_s)));
    }
    QVERIFY(provider->server.openConnections() <= 1);
    QVERIFY(session->close());
}

VANTIRO_TEST_MAIN(TestZapping)
#include "tst_Zapping.moc"
