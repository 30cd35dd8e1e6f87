// Changing the channel many times in a row, on an account that allows one connection at a time:
// the server turns everybody away while an earlier stream of the account is still open.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestZapping : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsWithTheLastChannel_data();
    void endsWithTheLastChannel();
    void changesWhileTheLastStreamStarts_data();
    void changesWhileTheLastStreamStarts();

private:
    static constexpr int channelCount = 10;
    void fill() override;
    HttpServer::Handler once(const HttpReply &reply) const;
    double colourShare() const;
    bool showsGreyChannel() const;

    QString firstPath;
    QString greyPath;
};

/// Offers ten channels that answer alike, and "Grey", the one to end with.
void TestZapping::fill()
{
    QFETCH(const HttpReply, others);
    for (int number = channelCount - 1; number >= 0; --number)
        firstPath = provider->addChannel(u"Channel %1"_s.arg(number), once(others));
    greyPath = provider->addChannel(u"Grey"_s, once(liveClip(streamPath(u"grey.ts"_s), 30, 2)));
}

/// Gives the reply, or 503 while another stream is open.
HttpServer::Handler TestZapping::once(const HttpReply &reply) const
{
    return [this, reply](const HttpRequest &) {
        return provider->http().openConnections() == 0 ? reply : statusReply(503);
    };
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
    return QTest::qWaitFor(plays, 60000) && session->showsLabel(UiTexts::playing(u"Grey"_s));
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
    QVERIFY(session->openAll(UiTexts::liveTab));
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
    HttpServer &server = provider->http();
    QCOMPARE(server.requests().last().path, greyPath);
    QCOMPARE(server.openConnections(), 1);
    const int requests = server.requestCount();
    QVERIFY(session->seesPicture());
    QCOMPARE(server.requestCount(), requests);

    QVERIFY(session->close());
    QTRY_COMPARE(server.openConnections(), 0);
}

void TestZapping::changesWhileTheLastStreamStarts_data()
{
    QTest::addColumn<HttpReply>("others");
    QTest::newRow("without the limit") << liveTs();
}

// libVLC is slow to let go of the surface while a stream opens its picture and sound. The stream
// that finds the surface taken must not open a window of its own.
void TestZapping::changesWhileTheLastStreamStarts()
{
    constexpr int phases = 12;
    constexpr int phaseMs = 80;
    HttpServer &server = provider->http();
    server.on(firstPath, HttpReply::file(streamPath(u"short.ts"_s)));
    server.on(greyPath, liveClip(streamPath(u"grey.ts"_s), 30, 2));
    QVERIFY(session->openAll(UiTexts::liveTab));
    for (int phase = 0; phase < phases; ++phase) {
        const int requests = server.requestCount(firstPath);
        QVERIFY(session->play(u"Channel 0"_s));
        QTRY_VERIFY(server.requestCount(firstPath) > requests);
        QElapsedTimer sinceRequest;
        sinceRequest.start();
        QTRY_VERIFY(sinceRequest.hasExpired(qint64(phase) * phaseMs));
        QVERIFY(session->play(u"Grey"_s));
        QVERIFY2(showsGreyChannel(), qPrintable(QString::number(phase)));
        QVERIFY(session->hasOneWindow());
    }
}

VANTIRO_TEST_MAIN(TestZapping)
#include "tst_Zapping.moc"
