#include "WindowFixture.h"
#include "providers/SubscriptionEndpoint.h"
#include "ui/LoadingOverlay.h"

using Manner = XtreamProvider::Manner;

namespace {

const QString key = u"KEY-1"_s;
const QString missingFile = u"/nowhere/<b>list</b>.m3u"_s;
const QString fileText = u"Failed to open file: "_s + missingFile;

} // namespace

/// What the window makes of a load: the tabs, the overlay, the stored record, a box for a failure.
class tst_MainWindowLoading : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void account();
    void playlist();
    void subscription();
    void subscriptionFromTheCache();
    void editingDropsWhatIsUnderWay();
    void failuresAreReportedOneAtATime_data();
    void failuresAreReportedOneAtATime();
    void aServerThatComesBack();
    void aFailureWhileTheWindowIsBuilt();

private:
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowLoading::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->on(u"/list.m3u"_s, heldReply(twoChannels));
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
    endpoint = std::make_unique<SubscriptionEndpoint>();
    endpoint->accept(key, *provider, u"ts"_s);
    endpoint->answer(u"NO"_s, R"({"status":"error","message":"This key has <b>expired</b>."})"_ba);
}

void tst_MainWindowLoading::account()
{
    provider->setMannerOfCatalog(Manner::Held);
    store(sourceFor(*provider, u"A"_s));
    open();
    QTRY_COMPARE(provider->actions().size(), 6);
    // Stamped and stored before any reply.
    QVERIFY(stored(u"A"_s).lastUpdated > 0);
    QCOMPARE(shownCatalog(), emptyCatalog);
    for (const QString &action : XtreamAction::catalog()) {
        QVERIFY(overlayShown());
        provider->release(action);
    }
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(shownCatalog(), catalog);

    // From the cache at once, and no box for a failure.
    window().onSourceSelected(0);
    QVERIFY(!overlayShown());
    QCOMPARE(shownCatalog(), catalog);
    provider->setMannerOfCatalog(Manner::Unavailable);
    window().refreshActiveSource();
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(shownCatalog(), emptyCatalog);
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_MainWindowLoading::playlist()
{
    store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    open();
    QVERIFY(stored(u"A"_s).lastUpdated > 0);
    QVERIFY(overlayShown());
    QTRY_COMPARE(overlay().geometry(), tabs().rect());
    QVERIFY(tabs().height() > 500);
    QCOMPARE(shownChannels(), QStringList());
    server->release(u"/list.m3u"_s);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(shownChannels(), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(rows(u"channelCategoryList"_s), (QStringList{u"News"_s, u"Sport"_s}));
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_MainWindowLoading::subscription()
{
    endpoint->hold();
    provider->setMannerOfCatalog(Manner::Held);
    store(subscriptionSource(u"Zevrino"_s, key));
    open(endpoint->url());
    QTRY_COMPARE(endpoint->keys(), QStringList{key});
    QVERIFY(overlayShown());
    QCOMPARE(stored(u"Zevrino"_s).lastUpdated, 0);
    endpoint->release();
    QTRY_COMPARE(provider->actions().size(), 6);
    QVERIFY(overlayShown());
    releaseCatalog(*provider);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(shownCatalog(), catalog);
    QCOMPARE(tabs().tabText(tabs().currentIndex()), u"Live TV"_s);
    // The stored source carries the account beside its key.
    const SourceConfig source = stored(u"Zevrino"_s);
    QVERIFY(source.lastUpdated > 0);
    QCOMPARE(source.type, SourceType::Zevrino);
    QCOMPARE((QStringList{source.url, source.username, source.password, source.liveExtension,
                          source.subscriptionKey}),
             (QStringList{provider->url(), provider->user(), provider->password(), u"ts"_s, key}));
}

void tst_MainWindowLoading::subscriptionFromTheCache()
{
    provider->http().onPrefix(u"/live/"_s, [](const HttpRequest &) { return heldReply(); });
    cacheCatalog(u"Zevrino"_s, older);
    const SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 3600);
    store(source);
    open(endpoint->url());
    QTRY_COMPARE(shownCatalog(), older);
    QVERIFY(!overlayShown());
    // Nothing of the account is stored, but what is played is played with it.
    QCOMPARE(stored(u"Zevrino"_s).url, QString());
    QCOMPARE(stored(u"Zevrino"_s).lastUpdated, source.lastUpdated);
    window().playLiveRow(0, 0);
    QTRY_COMPARE(provider->http().requestCount(u"/live/user/secret/1.ts"_s), 1);
}

void tst_MainWindowLoading::editingDropsWhatIsUnderWay()
{
    provider->setMannerOfCatalog(Manner::Held);
    XtreamProvider other(u"other"_s, u"other secret"_s);
    serve(other, older);
    store(sourceFor(*provider, u"A"_s));
    open();
    QTRY_COMPARE(provider->http().openConnections(), 6);
    dialogs.nextForm(SourceType::Xtream, {{u"xtreamNameEdit"_s, u"B"_s},
                                          {u"serverEdit"_s, other.url()},
                                          {u"usernameEdit"_s, other.user()},
                                          {u"passwordEdit"_s, other.password()}});
    window().editSource();
    QTRY_COMPARE(cachedCatalog(u"B"_s), older);
    releaseCatalog(*provider);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(shownCatalog(), older);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached); // the source of that name is gone
}

void tst_MainWindowLoading::failuresAreReportedOneAtATime_data()
{
    QTest::addColumn<SourceConfig>("source");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const SourceConfig &source, const QString &title,
                        const QString &text) { QTest::newRow(name) << source << title << text; };
    const QString subscriptionText = u"Failed to load subscription: "_s;
    row("a file", playlistSource(u"A"_s, missingFile, neverLoaded), u"Load Playlist"_s, fileText);
    // The server is created again for each row: its address goes in later.
    row("a download", playlistSource(u"A"_s, u"/missing"_s, neverLoaded), u"Load Playlist"_s,
        u"Failed to download playlist: Error transferring %1/missing - server replied: "
        "Not Found"_s);
    row("a subscription, in the service's own words", subscriptionSource(u"A"_s, u"NO"_s),
        u"Zevrino"_s, subscriptionText + u"This key has <b>expired</b>."_s);
    row("an unknown subscription key", subscriptionSource(u"A"_s, u"?"_s), u"Zevrino"_s,
        subscriptionText + u"Unknown subscription key"_s);
}

void tst_MainWindowLoading::failuresAreReportedOneAtATime()
{
    QFETCH(SourceConfig, source);
    QFETCH(QString, text);
    if (source.url == "/missing"_L1) {
        source.url = server->url(source.url);
    }
    store(source);
    store(playlistSource(u"First"_s, u"/nowhere"_s));
    storeLastActive(u"First"_s);
    cacheOneChannel(u"First"_s, u"One"_s);
    open(endpoint->url());
    bool overlayInBox = true;
    dialogs.next([&](QDialog &box) {
        overlayInBox = overlayShown();
        // Half an hour later, and again.
        for (int attempt = 2; attempt <= 3; ++attempt) {
            window().refreshActiveSource();
            QTRY_VERIFY(!overlayShown());
            QCOMPARE(QApplication::activeModalWidget(), &box);
        }
        box.accept();
    });
    combo().setCurrentIndex(0);
    QTRY_COMPARE(dialogs.waiting(), 0);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(dialogs.seen().size(), 1);
    const SeenDialog box = dialogs.seen().first();
    QTEST(box.title, "title");
    QCOMPARE(box.text, text.replace("%1"_L1, server->url()));
    QCOMPARE(box.buttons, QStringList{u"OK"_s});
    QVERIFY(!overlayInBox);

    // A playlist, stamped, is left alone for a day.
    const bool isPlaylist = source.type == SourceType::Playlist;
    QCOMPARE(stored(u"A"_s).lastUpdated > 0, isPlaylist);
    window().checkAutoRefresh();
    QCOMPARE(overlayShown(), !isPlaylist);
    QCOMPARE(dialogs.seen().size(), 1);
    // Once the box is closed, the next failure is reported again.
    window().refreshActiveSource();
    QTRY_COMPARE(dialogs.seen().size(), 2);
}

void tst_MainWindowLoading::aServerThatComesBack()
{
    cacheOneChannel(u"A"_s, u"From the cache"_s);
    store(playlistSource(u"A"_s, server->url(u"/later.m3u"_s)));
    open();
    QCOMPARE(shownChannels(), QStringList{u"From the cache"_s});
    window().refreshActiveSource();
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    // The tab stays empty, the cache does not.
    window().filterChannels();
    QCOMPARE(shownChannels(), QStringList());
    QCOMPARE(cachedChannels(u"A"_s), QStringList{u"From the cache"_s});

    server->on(u"/later.m3u"_s, bodyReply(twoChannels));
    window().refreshActiveSource();
    QTRY_COMPARE(shownChannels(), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(dialogs.seen().size(), 1);
}

void tst_MainWindowLoading::aFailureWhileTheWindowIsBuilt()
{
    cacheOneChannel(u"Good"_s, u"One"_s);
    store(playlistSource(u"Missing"_s, missingFile, neverLoaded));
    store(playlistSource(u"Good"_s, u"/nowhere"_s));
    open();
    // Before the window was on screen.
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().at(0).text, fileText);
    QVERIFY(window().isVisible());
    QVERIFY(!overlayShown());
    combo().setCurrentIndex(1);
    QCOMPARE(shownChannels(), QStringList{u"One"_s});
}

VANTIRO_TEST_MAIN(tst_MainWindowLoading)
#include "tst_MainWindowLoading.moc"
