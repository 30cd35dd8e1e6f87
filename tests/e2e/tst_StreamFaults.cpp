// What the viewer sees when streams fail: a channel comes back by itself, a film asks.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QTest>

#include <atomic>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestStreamFaults : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void aBrokenChannelComesBack_data();
    void aBrokenChannelComesBack();
    void aBrokenFilmAsks_data();
    void aBrokenFilmAsks();
    void aFilmThatIsNoFilmEndsSilently_data();
    void aFilmThatIsNoFilmEndsSilently();

private:
    void fill() override;
    bool asks() const { return bool(session->app.window(UiTexts::errorTitle)); }

    const QString name = u"Broken"_s;
    QString channelPath;
    QString filmPath;
    std::atomic<bool> works = false;
};

namespace {

void addErrors()
{
    QTest::addColumn<HttpReply>("reply");
    for (const int status : {401, 403, 404, 503})
        QTest::addRow("status %d", status) << statusReply(status);
    QTest::newRow("empty") << bodyReply({}, "video/mp2t"_ba);
}

void addNoStreams()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::newRow("page") << bodyReply("<html><body>Log in</body></html>"_ba, "text/html"_ba);
    QTest::newRow("garbage") << garbage();
}

} // namespace

/// Offers a channel and a film that answer with the row's reply until they work.
void TestStreamFaults::fill()
{
    QFETCH(const HttpReply, reply);
    works = false;
    channelPath = provider->addChannel(
        name, [this, reply](const HttpRequest &) { return works ? liveTs() : reply; });
    const HttpReply film = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    filmPath = provider->addFilm(
        name, u"mp4"_s, [this, reply, film](const HttpRequest &) { return works ? film : reply; });
}

void TestStreamFaults::aBrokenChannelComesBack_data()
{
    addErrors();
    addNoStreams();
    QTest::newRow("short") << HttpReply::file(streamPath(u"short.ts"_s));
}

void TestStreamFaults::aBrokenChannelComesBack()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->play(name));
    QVERIFY(session->showsReconnecting(name));
    const int requests = provider->http().requestCount(channelPath);
    QTRY_VERIFY_WITH_TIMEOUT(provider->http().requestCount(channelPath) > requests, 15000);
    QVERIFY(!asks());
    works = true;
    QVERIFY(session->showsLabel(UiTexts::playing(name)));
    QVERIFY(session->seesPicture());
}

void TestStreamFaults::aBrokenFilmAsks_data()
{
    addErrors();
}

void TestStreamFaults::aBrokenFilmAsks()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->play(name));
    Accessible box = session->app.waitForWindow(UiTexts::errorTitle);
    QVERIFY(box.waitFor(Role::Label, UiTexts::streamError));
    QVERIFY(!session->window.find(Role::Label, UiTexts::playing(name)));
    const int requests = provider->http().requestCount(filmPath);
    QVERIFY(Mouse::click(box.find(Role::Button, u"Retry"_s)));
    QVERIFY(box.waitUntilGone());
    QTRY_VERIFY_WITH_TIMEOUT(provider->http().requestCount(filmPath) > requests, 15000);

    box = session->app.waitForWindow(UiTexts::errorTitle);
    works = true;
    QVERIFY(Mouse::click(box.waitFor(Role::Button, u"Retry"_s)));
    QVERIFY(session->showsLabel(UiTexts::playing(name)));
    QVERIFY(session->seesPicture());
    QVERIFY(!asks());
}

void TestStreamFaults::aFilmThatIsNoFilmEndsSilently_data()
{
    addNoStreams();
}

// What has no length has come to its end by itself, as far as anybody knows.
void TestStreamFaults::aFilmThatIsNoFilmEndsSilently()
{
    constexpr int quietMs = 3000;
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->play(name));
    QTRY_VERIFY_WITH_TIMEOUT(provider->http().requestCount(filmPath) > 0, 15000);
    QVERIFY(Screen::waitUntilStill(session->videoRect(), 30000, quietMs));
    QVERIFY(!asks());
    QVERIFY(session->window.find(Role::Label, UiTexts::playing(name)));
}

VANTIRO_TEST_MAIN(TestStreamFaults)
#include "tst_StreamFaults.moc"
