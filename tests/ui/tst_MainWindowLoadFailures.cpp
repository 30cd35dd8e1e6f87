#include "WindowFixture.h"
#include "providers/SubscriptionEndpoint.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QComboBox>

using namespace Qt::StringLiterals;

namespace {

const QString missingFile = u"/nowhere/<b>list</b>.m3u"_s;
const QString downloadTitle = u"Load Playlist"_s;
const QString downloadText = u"Failed to download playlist: "_s;
const QString subscriptionTitle = u"Zevrino"_s;
const QString subscriptionText = u"Failed to load subscription: "_s;

} // namespace

/// What the user sees when a source cannot be loaded.
class tst_MainWindowLoadFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void boxAfterTheOverlay_data();
    void boxAfterTheOverlay();
    void theTabStaysEmpty();
    void aServerThatComesBack();
    void whileTheWindowIsBuilt();
    void oneBoxAtATime_data();
    void oneBoxAtATime();

private:
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<SubscriptionEndpoint> endpoint;
};

void tst_MainWindowLoadFailures::init()
{
    server = std::make_unique<HttpServer>();
    server->on(u"/good.m3u"_s, bodyReply(twoChannels));
    endpoint = std::make_unique<SubscriptionEndpoint>();
}

void tst_MainWindowLoadFailures::boxAfterTheOverlay_data()
{
    QTest::addColumn<SourceConfig>("source");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    // The server is created again for each row: its address goes in later.
    QTest::newRow("a file") << playlistSource(u"A"_s, missingFile, neverLoaded) << downloadTitle
                            << u"Failed to open file: "_s + missingFile;
    QTest::newRow("a download") << playlistSource(u"A"_s, u"/missing"_s, neverLoaded)
                                << downloadTitle
                                << downloadText + u"Error transferring %1/missing - server "
                                                  "replied: Not Found"_s;
    QTest::newRow("a subscription, in the service's own words")
        << subscriptionSource(u"A"_s, u"NO"_s) << subscriptionTitle
        << subscriptionText + u"This key has <b>expired</b>."_s;
    QTest::newRow("an unknown subscription key")
        << subscriptionSource(u"A"_s, u"?"_s) << subscriptionTitle
        << subscriptionText + u"Unknown subscription key"_s;
}

void tst_MainWindowLoadFailures::boxAfterTheOverlay()
{
    QFETCH(SourceConfig, source);
    QFETCH(const QString, title);
    QFETCH(QString, text);
    endpoint->answer(u"NO"_s, R"({"status":"error","message":"This key has <b>expired</b>."})"_ba);
    if (source.url == "/missing"_L1) {
        source.url = server->url(source.url);
    }
    WindowFixture fixture;
    WindowFixture::store(source);
    bool overlayInBox = true;
    fixture.dialogs.next([&](QDialog &box) {
        overlayInBox = fixture.overlayShown();
        DialogAnswers::click(box, u"OK"_s);
    });
    WindowFixture::store(playlistSource(u"First"_s, u"/nowhere"_s));
    WindowFixture::storeLastActive(u"First"_s);
    cacheOneChannel(u"First"_s, u"One"_s);
    fixture.open(endpoint->url());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(0);
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    const SeenDialog box = fixture.dialogs.seen().first();
    QCOMPARE(box.title, title);
    QCOMPARE(box.text, text.replace("%1"_L1, server->url()));
    QCOMPARE(box.buttons, QStringList{u"OK"_s});
    QVERIFY(!overlayInBox);
    const bool stamped = WindowFixture::stored(u"A"_s).lastUpdated > 0;
    QCOMPARE(stamped, source.type == SourceType::Playlist);
}

void tst_MainWindowLoadFailures::theTabStaysEmpty()
{
    WindowFixture fixture;
    cacheOneChannel(u"A"_s, u"From the cache"_s);
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/missing"_s)));
    MainWindow &window = fixture.open();
    QCOMPARE(shownChannels(fixture), QStringList{u"From the cache"_s});
    window.refreshActiveSource();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    window.filterChannels();
    QCOMPARE(shownChannels(fixture), QStringList());
    QCOMPARE(cachedChannels(u"A"_s), QStringList{u"From the cache"_s});
}

void tst_MainWindowLoadFailures::aServerThatComesBack()
{
    server->on(u"/silent.m3u"_s, neverAnswers());
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"Silent"_s, server->url(u"/silent.m3u"_s)));
    cacheOneChannel(u"Silent"_s, u"From the cache"_s);
    MainWindow &window = fixture.open();
    fixture.setReplyTimeout(200);
    window.refreshActiveSource();
    QVERIFY(fixture.overlayShown());
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(!fixture.overlayShown());
    server->on(u"/silent.m3u"_s, bodyReply(twoChannels));
    window.refreshActiveSource();
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(fixture.dialogs.seen().size(), 1);
}

void tst_MainWindowLoadFailures::whileTheWindowIsBuilt()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"Missing"_s, missingFile, neverLoaded));
    WindowFixture::store(playlistSource(u"Good"_s, server->url(u"/good.m3u"_s), neverLoaded));
    MainWindow &window = fixture.open();
    // Before the window was on screen.
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"Failed to open file: "_s + missingFile);
    QVERIFY(window.isVisible());
    QVERIFY(!fixture.overlayShown());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
}

void tst_MainWindowLoadFailures::oneBoxAtATime_data()
{
    QTest::addColumn<bool>("isSubscription");
    QTest::newRow("a playlist") << false;
    QTest::newRow("a subscription") << true;
}

void tst_MainWindowLoadFailures::oneBoxAtATime()
{
    QFETCH(const bool, isSubscription);
    WindowFixture fixture;
    WindowFixture::store(isSubscription
                             ? subscriptionSource(u"A"_s, u"?"_s)
                             : playlistSource(u"A"_s, server->url(u"/missing"_s), neverLoaded));
    fixture.dialogs.next([&](QDialog &box) {
        // Half an hour later, and again.
        for (int attempt = 2; attempt <= 3; ++attempt) {
            fixture.window().refreshActiveSource();
            QVERIFY(fixture.overlayShown());
            QTRY_VERIFY(!fixture.overlayShown());
            QCOMPARE(QApplication::activeModalWidget(), &box);
        }
        box.accept();
    });
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(fixture.dialogs.waiting(), 0);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    // Once it is closed, the next failure is reported again.
    window.refreshActiveSource();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 2);
}

VANTIRO_TEST_MAIN(tst_MainWindowLoadFailures)
#include "tst_MainWindowLoadFailures.moc"
