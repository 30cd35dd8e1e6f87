#include "AccountFixture.h"
#include "SubscriptionEndpoint.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QTabWidget>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

const QString key = u"KEY-1"_s;
const AccountCatalog emptyCatalog(accountParts);

/// All fields but the time stamp.
QStringList fields(const SourceConfig &source)
{
    return {QString::number(source.type),
            source.name,
            source.url,
            source.username,
            source.password,
            source.liveExtension,
            source.subscriptionKey};
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

/// Loading a subscription: the key is exchanged first, then it is an account like any other.
class tst_MainWindowSubscription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void tabsOfAnAccount();
    void keyThenSixRequests();
    void aFreshCacheStillNeedsTheKey();
    void streamType_data();
    void streamType();
    void theNewestCredentialsWin();
    void refreshFetchesAlthoughTheCacheIsFresh();
    void coveredFromTheKeyOn();
    void failures_data();
    void failures();
    void oneBoxAtATime();
    void aServiceThatCannotBeReached_data();
    void aServiceThatCannotBeReached();

private:
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowSubscription::init()
{
    endpoint = std::make_unique<SubscriptionEndpoint>();
    provider = std::make_unique<XtreamProvider>(u"resolved"_s, u"resolved-secret"_s);
    serve(*provider, catalog);
    endpoint->accept(key, *provider);
}

void tst_MainWindowSubscription::cleanup()
{
    endpoint.reset();
    provider.reset();
}

void tst_MainWindowSubscription::tabsOfAnAccount()
{
    WindowFixture fixture;
    // From a playlist, so that tabs must both come and go.
    WindowFixture::store(playlistSource(u"List"_s, u"/nowhere"_s));
    CatalogCache::save(u"List"_s, u"channel"_s, {});
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    fixture.open(endpoint->url());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QStringList visible;
    for (int index = 0; index < tabs.count(); ++index) {
        if (tabs.isTabVisible(index)) {
            visible << tabs.tabText(index);
        }
    }
    QCOMPARE(visible, (QStringList{u"Live TV"_s, u"Movies"_s, u"TV Shows"_s}));
    QCOMPARE(tabs.tabText(tabs.currentIndex()), u"Live TV"_s);
    QTRY_VERIFY(!fixture.overlayShown());
}

void tst_MainWindowSubscription::keyThenSixRequests()
{
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    fixture.open(endpoint->url());
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(sorted(provider->actions()), sorted(XtreamAction::catalog()));
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(cachedCatalog(u"Zevrino"_s), catalog);
    QVERIFY(fixture.dialogs.seen().isEmpty());

    // The stored source carries the resolved account beside its key.
    const SourceConfig stored = WindowFixture::stored(u"Zevrino"_s);
    QCOMPARE(fields(stored), (QStringList{u"2"_s, u"Zevrino"_s, provider->url(), u"resolved"_s,
                                          u"resolved-secret"_s, u"m3u8"_s, key}));
    QVERIFY(stored.lastUpdated >= before);
}

void tst_MainWindowSubscription::aFreshCacheStillNeedsTheKey()
{
    WindowFixture fixture;
    provider->http().onPrefix(u"/live/"_s, [](const HttpRequest &) { return heldReply(); });
    endpoint->accept(key, *provider, u"ts"_s);
    cacheCatalog(u"Zevrino"_s, older);
    const SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 3600);
    WindowFixture::store(source);
    MainWindow &window = fixture.open(endpoint->url());
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QTRY_COMPARE(shownCatalog(fixture), older);
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(provider->http().requestCount(), 0);

    // Nothing of it is stored, but what is played is played with it.
    const SourceConfig stored = WindowFixture::stored(u"Zevrino"_s);
    QCOMPARE(fields(stored), fields(source));
    QCOMPARE(stored.lastUpdated, source.lastUpdated);
    window.playLiveRow(0, 0);
    QTRY_COMPARE(provider->http().requestCount(u"/live/resolved/resolved-secret/1.ts"_s), 1);
}

void tst_MainWindowSubscription::streamType_data()
{
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("resolved");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none keeps the default") << u"m3u8"_s << QString() << u"m3u8"_s;
    QTest::newRow("none keeps the source's own") << u"ts"_s << QString() << u"ts"_s;
    QTest::newRow("one replaces it") << u"m3u8"_s << u"ts"_s << u"ts"_s;
    QTest::newRow("any text replaces it") << u"ts"_s << u"mpegts"_s << u"mpegts"_s;
}

void tst_MainWindowSubscription::streamType()
{
    QFETCH(QString, own);
    QFETCH(QString, resolved);
    QFETCH(QString, expected);
    provider->http().onPrefix(u"/live/"_s, [](const HttpRequest &) { return heldReply(); });
    endpoint->accept(key, *provider, resolved);
    WindowFixture fixture;
    SourceConfig source = subscriptionSource(u"Zevrino"_s, key);
    source.liveExtension = own;
    WindowFixture::store(source);
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).liveExtension, expected);
    window.playLiveRow(0, 0);
    QTRY_COMPARE(provider->http().requestCount(u"/live/resolved/resolved-secret/1."_s + expected),
                 1);
}

void tst_MainWindowSubscription::theNewestCredentialsWin()
{
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(shownCatalog(fixture), catalog);
    QTRY_VERIFY(!fixture.overlayShown());

    XtreamProvider moved(u"moved"_s, u"moved secret"_s);
    serve(moved, older);
    endpoint->accept(key, moved, u"ts"_s);
    provider->http().clearRequests();
    window.refreshActiveSource();
    QTRY_COMPARE(shownCatalog(fixture), older);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(endpoint->keys(), (QStringList{key, key}));
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(moved.actions().size(), 6);
    QCOMPARE(fields(WindowFixture::stored(u"Zevrino"_s)),
             (QStringList{u"2"_s, u"Zevrino"_s, moved.url(), u"moved"_s, u"moved secret"_s, u"ts"_s,
                          key}));
}

void tst_MainWindowSubscription::refreshFetchesAlthoughTheCacheIsFresh()
{
    WindowFixture fixture;
    cacheCatalog(u"Zevrino"_s, older);
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key, 0));
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(shownCatalog(fixture), older);
    window.refreshActiveSource();
    QTRY_COMPARE(shownCatalog(fixture), catalog);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(endpoint->keys().size(), 2);
    QCOMPARE(provider->actions().size(), 6);
}

void tst_MainWindowSubscription::coveredFromTheKeyOn()
{
    WindowFixture fixture;
    endpoint->hold();
    provider->setMannerOfCatalog(Manner::Held);
    const SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 86400);
    WindowFixture::store(source);
    fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys().size(), 1);
    QVERIFY(fixture.overlayShown());
    QCOMPARE(provider->actions(), QStringList());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, source.lastUpdated);

    endpoint->release();
    QTRY_COMPARE(provider->actions().size(), 6);
    QVERIFY(fixture.overlayShown());
    QVERIFY(WindowFixture::stored(u"Zevrino"_s).lastUpdated > source.lastUpdated);
    for (const QString &action : XtreamAction::catalog()) {
        QVERIFY(fixture.overlayShown());
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
}

void tst_MainWindowSubscription::failures_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("reason");
    QTest::newRow("the service's own words")
        << R"({"status":"error","message":"This key has <b>expired</b>."})"_ba
        << u"This key has <b>expired</b>."_s;
    QTest::newRow("a refusal without words")
        << R"({"status":"error"})"_ba << u"Subscription could not be resolved"_s;
    QTest::newRow("a page") << "<html></html>"_ba << u"Invalid response from server"_s;
    QTest::newRow("no password")
        << R"({"status":"success","data":{"server_url":"http://h","username":"u"}})"_ba
        << u"Server response was missing credentials"_s;
}

void tst_MainWindowSubscription::failures()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, reason);
    WindowFixture fixture;
    endpoint->answer(key, answer);
    // Fresh in the cache, which a refused key does not open.
    cacheCatalog(u"Zevrino"_s, older);
    const SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 3600);
    WindowFixture::store(source);
    bool coveredBehindTheBox = true;
    fixture.dialogs.next([&](QDialog &dialog) {
        coveredBehindTheBox = fixture.overlayShown();
        dialog.reject();
    });
    fixture.open(endpoint->url());
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QTRY_COMPARE(fixture.dialogs.waiting(), 0);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Zevrino"_s);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"Failed to load subscription: "_s + reason);
    QVERIFY(!coveredBehindTheBox);

    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(fields(WindowFixture::stored(u"Zevrino"_s)), fields(source));
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, source.lastUpdated);
    QCOMPARE(cachedCatalog(u"Zevrino"_s), older);
}

void tst_MainWindowSubscription::oneBoxAtATime()
{
    endpoint->http().on(SubscriptionEndpoint::path(), statusReply(503));
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    fixture.dialogs.next([&](QDialog &box) {
        // Half an hour later, and again.
        for (int attempt = 2; attempt <= 3; ++attempt) {
            fixture.window().checkAutoRefresh();
            QVERIFY(fixture.overlayShown());
            QTRY_VERIFY(!fixture.overlayShown());
            QCOMPARE(QApplication::activeModalWidget(), &box);
        }
        box.accept();
    });
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(endpoint->http().requestCount(), 3);
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    // Once it is closed, the next failure is told again.
    window.checkAutoRefresh();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 2);
}

void tst_MainWindowSubscription::aServiceThatCannotBeReached_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("down") << u"down"_s;
    QTest::newRow("503") << u"503"_s;
}

void tst_MainWindowSubscription::aServiceThatCannotBeReached()
{
    QFETCH(QString, how);
    if (how == "down"_L1) {
        endpoint->http().refuse();
    } else {
        endpoint->http().on(SubscriptionEndpoint::path(), statusReply(503));
    }
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    fixture.open(endpoint->url());
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Zevrino"_s);
    const QString text = fixture.dialogs.seen().at(0).text;
    const QString beginning = u"Failed to load subscription: Could not reach server: "_s;
    QVERIFY2(text.startsWith(beginning) && text.size() > beginning.size(), qUtf8Printable(text));
    QVERIFY(!text.contains(key));
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, 0);
}

VANTIRO_TEST_MAIN(tst_MainWindowSubscription)
#include "tst_MainWindowSubscription.moc"
