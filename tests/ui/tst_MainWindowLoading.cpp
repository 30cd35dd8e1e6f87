#include "WindowFixture.h"
#include "providers/SubscriptionEndpoint.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

const QString key = u"KEY-1"_s;

} // namespace

/// What the window makes of a load: the tabs, the overlay, the stored record, what then plays.
class tst_MainWindowLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void account();
    void playlist();
    void localPlaylist();
    void lateChannelsBehindAnAccount();
    void subscription();
    void subscriptionFromTheCache();
    void leavingASubscription();
    void editingDropsWhatIsUnderWay();
    void leavingAnAccountForAPlaylist();
    void mayCloseWhileLoading();
    void playingWhatWasLoaded_data();
    void playingWhatWasLoaded();

private:
    std::unique_ptr<HttpServer> server;
    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowLoading::init()
{
    server = std::make_unique<HttpServer>();
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
    endpoint = std::make_unique<SubscriptionEndpoint>();
    endpoint->accept(key, *provider);
}

void tst_MainWindowLoading::account()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    MainWindow &window = fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    // Stamped and stored before any reply.
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    for (const QString &action : XtreamAction::catalog()) {
        QVERIFY(fixture.overlayShown());
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);

    // From the cache at once, and no box for a failure.
    window.onSourceSelected(0);
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
    provider->setMannerOfCatalog(Manner::Unavailable);
    window.refreshActiveSource();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowLoading::playlist()
{
    WindowFixture fixture;
    server->on(u"/list.m3u"_s, heldReply(twoChannels));
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated > 0);
    QVERIFY(fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), QStringList());
    server->release(u"/list.m3u"_s);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(rowTexts(fixture.find<QListWidget>(u"channelCategoryList"_s)),
             (QStringList{u"News"_s, u"Sport"_s}));
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowLoading::localPlaylist()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.m3u"_s);
    writeFile(path, twoChannels);
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, path, neverLoaded));
    fixture.open();
    QCOMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowLoading::lateChannelsBehindAnAccount()
{
    WindowFixture fixture;
    server->on(u"/late.m3u"_s, heldReply(twoChannels));
    WindowFixture::store(playlistSource(u"Late"_s, server->url(u"/late.m3u"_s), neverLoaded));
    WindowFixture::store(sourceFor(*provider, u"A"_s, 0));
    cacheCatalog(u"A"_s, older);
    fixture.open();
    QTRY_COMPARE(server->openConnections(), 1);
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    // The steps of the load that was left are released; the late reply takes none of the others.
    QVERIFY(!fixture.overlayShown());
    fixture.overlay().beginCatalogFetch(1);
    server->release(u"/late.m3u"_s);
    QTRY_COMPARE(shownChannels(fixture), (QStringList{u"One"_s, u"Two"_s}));
    QVERIFY(fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), older);
}

void tst_MainWindowLoading::subscription()
{
    WindowFixture fixture;
    endpoint->hold();
    endpoint->accept(key, *provider, u"ts"_s);
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys(), QStringList{key});
    QVERIFY(fixture.overlayShown());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, 0);
    endpoint->release();
    QTRY_COMPARE(provider->actions().size(), 6);
    QVERIFY(fixture.overlayShown());
    releaseCatalog(*provider);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QCOMPARE(tabs.tabText(tabs.currentIndex()), u"Live TV"_s);
    // The stored source carries the account beside its key.
    const SourceConfig stored = WindowFixture::stored(u"Zevrino"_s);
    QVERIFY(stored.lastUpdated > 0);
    QCOMPARE(stored.type, SourceType::Zevrino);
    QCOMPARE((QStringList{stored.url, stored.username, stored.password, stored.liveExtension,
                          stored.subscriptionKey}),
             (QStringList{provider->url(), provider->user(), provider->password(), u"ts"_s, key}));
}

void tst_MainWindowLoading::subscriptionFromTheCache()
{
    WindowFixture fixture;
    provider->http().onPrefix(u"/live/"_s, [](const HttpRequest &) { return heldReply(); });
    endpoint->accept(key, *provider, u"ts"_s);
    cacheCatalog(u"Zevrino"_s, older);
    const SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 3600);
    WindowFixture::store(source);
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(shownCatalog(fixture), older);
    QVERIFY(!fixture.overlayShown());
    // Nothing of the account is stored, but what is played is played with it.
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).url, QString());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, source.lastUpdated);
    window.playLiveRow(0, 0);
    QTRY_COMPARE(provider->http().requestCount(u"/live/user/secret/1.ts"_s), 1);
}

void tst_MainWindowLoading::leavingASubscription()
{
    WindowFixture fixture;
    endpoint->hold();
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    WindowFixture::store(accountSource(u"Other"_s, u"http://127.0.0.1:9"_s));
    cacheCatalog(u"Other"_s, older);
    fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys().size(), 1);
    QVERIFY(fixture.overlayShown());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QVERIFY(!fixture.overlayShown());
    endpoint->release();
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).url, QString());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, 0);
}

void tst_MainWindowLoading::editingDropsWhatIsUnderWay()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    XtreamProvider other(u"other"_s, u"other secret"_s);
    serve(other, older);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    fixture.open();
    QTRY_COMPARE(provider->http().openConnections(), 6);
    fixture.dialogs.next([&other](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"xtreamNameEdit"_s)->setText(u"B"_s);
        dialog.findChild<QLineEdit *>(u"serverEdit"_s)->setText(other.url());
        dialog.findChild<QLineEdit *>(u"usernameEdit"_s)->setText(other.user());
        dialog.findChild<QLineEdit *>(u"passwordEdit"_s)->setText(other.password());
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(cachedCatalog(u"B"_s), older);
    releaseCatalog(*provider);
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached); // the source of that name is gone
}

void tst_MainWindowLoading::leavingAnAccountForAPlaylist()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    WindowFixture::store(playlistSource(u"List"_s, u"/nowhere"_s));
    cacheOneChannel(u"List"_s, u"One"_s);
    fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.setCurrentIndex(1);
    QVERIFY(!fixture.overlayShown());
    releaseCatalog(*provider);
    QTRY_COMPARE(cachedCatalog(u"A"_s), catalog);
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    combo.setCurrentIndex(0);
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(provider->actions().size(), 6);
}

void tst_MainWindowLoading::mayCloseWhileLoading()
{
    provider->setMannerOfCatalog(Manner::Held);
    {
        WindowFixture fixture;
        WindowFixture::store(sourceFor(*provider, u"A"_s));
        fixture.open();
        QTRY_COMPARE(provider->http().openConnections(), 6);
    }
    QTRY_COMPARE(provider->http().openConnections(), 0);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);
}

void tst_MainWindowLoading::playingWhatWasLoaded_data()
{
    QTest::addColumn<QString>("liveExtension");
    QTest::addColumn<QByteArray>("container");
    QTest::addColumn<QStringList>("expectedPaths");
    QTest::newRow("with formats") << u"ts"_s << R"("mkv")"_ba
                                  << QStringList{u"/live/user/secret/11.ts"_s,
                                                 u"/movie/user/secret/22.mkv"_s,
                                                 u"/series/user/secret/33.mkv"_s};
    QTest::newRow("without formats")
        << QString() << "null"_ba
        << QStringList{u"/live/user/secret/11.m3u8"_s, u"/movie/user/secret/22.mp4"_s,
                       u"/series/user/secret/33.mp4"_s};
}

void tst_MainWindowLoading::playingWhatWasLoaded()
{
    QFETCH(const QString, liveExtension);
    QFETCH(const QByteArray, container);
    QFETCH(const QStringList, expectedPaths);
    provider->setReply(XtreamAction::liveStreams, R"([{"stream_id":11,"name":"One"}])"_ba);
    provider->setReply(XtreamAction::vodStreams,
                       R"([{"stream_id":"22","name":"Two","container_extension":)"_ba + container +
                           "}]"_ba);
    provider->setReply(XtreamAction::series, R"([{"series_id":7,"name":"Three"}])"_ba);
    provider->setReply(XtreamAction::seriesInfo,
                       R"({"episodes":{"1":[{"id":"33","container_extension":)"_ba + container +
                           "}]}}"_ba);
    for (const QString &kind : {u"/live/"_s, u"/movie/"_s, u"/series/"_s}) {
        provider->http().onPrefix(kind, [](const HttpRequest &) { return heldReply(); });
    }
    WindowFixture fixture;
    SourceConfig source = sourceFor(*provider, u"A"_s);
    source.liveExtension = liveExtension;
    WindowFixture::store(source);
    MainWindow &window = fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());

    // Once as they came from the network, once as they came from the cache.
    for (const int times : {1, 2}) {
        window.playLiveRow(0, 0);
        QTRY_COMPARE(provider->http().requestCount(expectedPaths.at(0)), times);
        window.playMovieRow(0, 0);
        QTRY_COMPARE(provider->http().requestCount(expectedPaths.at(1)), times);
        window.openSeriesRow(0, 0);
        auto &tree = fixture.find<QTreeWidget>(u"episodeTree"_s);
        QTRY_COMPARE(tree.topLevelItemCount(), 1);
        Q_EMIT tree.itemClicked(tree.topLevelItem(0)->child(0), 0);
        QTRY_COMPARE(provider->http().requestCount(expectedPaths.at(2)), times);
        window.onSourceSelected(0);
        QVERIFY(!fixture.overlayShown());
    }
    QCOMPARE(provider->requestCount(XtreamAction::seriesInfo), 1);
    QCOMPARE(provider->actions().size(), 7);
}

VANTIRO_TEST_MAIN(tst_MainWindowLoading)
#include "tst_MainWindowLoading.moc"
