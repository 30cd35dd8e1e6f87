// Changing the channel many times in a row, on an account that allows one connection at a time:
// the server turns everybody away while an earlier stream of the account is still open.

#include "e2e/PlayerSession.h"
#include "e2e/StoredSources.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
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
    static constexpr int channelCount = 10;
    HttpServer::Handler once(const HttpReply &reply) const;
    void start(const HttpReply &others);
    double colourShare() const;
    bool showsGreyChannel() const;

    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<PlayerSession> session;
    QString firstPath;
    QString greyPath;
};

/// Gives the reply, or 503 while another stream is open.
HttpServer::Handler TestZapping::once(const HttpReply &reply) const
{
    return [this, reply](const HttpRequest &) {
        return provider->http().openConnections() == 0 ? reply : statusReply(503);
    };
}

/// Starts the player on ten channels that answer alike, and "Grey", the one to end with.
void TestZapping::start(const HttpReply &others)
{
    provider = std::make_unique<XtreamProvider>();
    for (int number = channelCount - 1; number >= 0; --number)
        firstPath = provider->addChannel(u"Channel %1"_s.arg(number), once(others));
    greyPath = provider->addChannel(u"Grey"_s, once(liveClip(streamPath(u"grey.ts"_s), 30, 2)));
    provider->addFilm(u"Film"_s, u"mp4"_s,
                      once(HttpReply::file(streamPath(u"film-faststart.mp4"_s))));
    storeAccount(*provider);
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->openAll(UiTexts::liveTab));
}

/// The share of pixels with a colour, which the grey channel has none of.
double TestZapping::colourShare() const
{
    return Screen::share(Screen::grab(session->videoRect()), [](QRgb pixel) {
        return std::abs(qRed(pixel) - qGreen(pixel)) + std::abs(qGreen(pixel) - qBlue(pixel)) > 60;
    });
}

/// The picture of the grey channel moves where it belongs, though it may take a reconnect or two.
bool TestZapping::showsGreyChannel() const
{
    const auto plays = [this] {
        return colourShare() < 0.01 && Screen::waitUntilMoving(session->videoRect(), 3000);
    };
    return QTest::qWaitFor(plays, 20000) && session->showsLabel(UiTexts::playing(u"Grey"_s));
}

// The rule that the other tests rest on.
void TestZapping::secondConnectionIsTurnedAway()
{
    start(liveTs());
    QVERIFY(session->watch(u"Grey"_s));
    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> reply(
        network.get(QNetworkRequest(QUrl(provider->http().url(firstPath)))));
    QSignalSpy finished(reply.get(), &QNetworkReply::finished);
    QVERIFY(finished.wait());
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 503);
    QVERIFY(session->close());
}

void TestZapping::endsWithTheLastChannel_data()
{
    HttpReply slow = liveTs();
    slow.delayMs = 300;
    QTest::addColumn<HttpReply>("others");
    QTest::newRow("past channels that play") << liveTs();
    QTest::newRow("past channels that are slow to answer") << slow;
    QTest::newRow("past channels that never answer") << neverAnswers();
}

void TestZapping::endsWithTheLastChannel()
{
    QFETCH(const HttpReply, others);
    start(others);
    QList<QPoint> rows;
    for (int number = 0; number < channelCount; ++number)
        rows.append(session->entry(u"Channel %1"_s.arg(number)).rect().center());
    const QPoint last = session->entry(u"Grey"_s).rect().center();

    for (int change = 0; change < 49; ++change) {
        QVERIFY(Mouse::click(rows.at(change % rows.size())));
        QVERIFY(session->hasOneWindow());
    }
    QVERIFY(Mouse::click(last));

    QVERIFY(showsGreyChannel());
    QVERIFY(session->hasOneWindow());
    session->keepScreenshot(u"zapping-"_s + QString::fromUtf8(QTest::currentDataTag()));
    QCOMPARE(provider->http().requests().last().path, greyPath);
    QCOMPARE(provider->http().openConnections(), 1);
    QCOMPARE(provider->http().openConnections(greyPath), 1);
    const int requests = provider->http().requestCount();
    QVERIFY(session->seesPicture());
    QCOMPARE(provider->http().requestCount(), requests);
    QVERIFY(!session->app.window(UiTexts::errorTitle));

    QVERIFY(session->close());
    QTRY_COMPARE(provider->http().openConnections(), 0);
}

// libVLC is slow to let go of the surface while a stream opens its picture and sound. The stream
// that finds the surface taken must not open a window of its own.
void TestZapping::changesWhileTheLastStreamStarts()
{
    constexpr int phases = 12;
    constexpr int phaseMs = 80;
    start(liveTs());
    provider->http().on(firstPath, HttpReply::file(streamPath(u"short.ts"_s)));
    provider->http().on(greyPath, liveClip(streamPath(u"grey.ts"_s), 30, 2));
    for (int phase = 0; phase < phases; ++phase) {
        const int requests = provider->http().requestCount(firstPath);
        QVERIFY(session->play(u"Channel 0"_s));
        QTRY_VERIFY(provider->http().requestCount(firstPath) > requests);
        QElapsedTimer sinceRequest;
        sinceRequest.start();
        QTRY_VERIFY(sinceRequest.hasExpired(qint64(phase) * phaseMs));
        QVERIFY(session->play(u"Grey"_s));
        QVERIFY2(showsGreyChannel(), qPrintable(QString::number(phase)));
        QVERIFY(session->hasOneWindow());
    }
    QVERIFY(session->close());
}

void TestZapping::filmAfterChannelAfterFilm()
{
    start(liveTs());
    for (int change = 0; change < 4; ++change) {
        QVERIFY(session->play(u"Grey"_s));
        QVERIFY(showsGreyChannel());
        QVERIFY(session->openTab(UiTexts::moviesTab));
        QVERIFY(session->play(u"Film"_s));
        QTRY_VERIFY_WITH_TIMEOUT(session->seesPicture() && colourShare() > 0.3, 60000);
        QVERIFY(session->showsLabel(UiTexts::playing(u"Film"_s)));
        QVERIFY(session->openTab(UiTexts::liveTab));
    }
    QVERIFY(provider->http().openConnections() <= 1);
    QVERIFY(session->close());
}

VANTIRO_TEST_MAIN(TestZapping)
#include "tst_Zapping.moc"
