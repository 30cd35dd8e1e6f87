#include "AccountFixture.h"
#include "app/NetLog.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"
#include "ui/EpisodePage.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeWidget>
#include <QUrl>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

const AccountCatalog emptyCatalog(accountParts);
const AccountCatalog nothingCached(accountParts, notCached);

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

bool isStamped(const QString &source, qint64 since)
{
    const qint64 stamp = WindowFixture::stored(source).lastUpdated;
    return stamp >= since && stamp <= QDateTime::currentSecsSinceEpoch();
}

} // namespace

/// Loading an account: from the network, from the cache, and playing what was loaded.
class tst_MainWindowAccounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sixRequestsFillTheTabs();
    void requestsAreSentInOrder();
    void stampedAndCoveredBeforeAnyReply();
    void cacheOrNetwork_data();
    void cacheOrNetwork();
    void anIncompleteCacheIsNotShown_data();
    void anIncompleteCacheIsNotShown();
    void refreshingTwiceAtOnce();
    void editedAccountKeepsNothingOfTheOldServer();
    void aSwitchToAPlaylistKeepsLateRepliesOutOfTheTabs();
    void theNextAccountGetsItsOwnCredentials();
    void theWindowMayCloseWhileLoading();
    void playingWhatWasLoaded_data();
    void playingWhatWasLoaded();

private:
    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowAccounts::init()
{
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
}

void tst_MainWindowAccounts::sixRequestsFillTheTabs()
{
    WindowFixture fixture;
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
    QVERIFY(fixture.dialogs.seen().isEmpty());

    QCOMPARE(provider->http().requestCount(), 6);
    QCOMPARE(sorted(provider->actions()), sorted(XtreamAction::catalog()));
    for (const HttpRequest &request : provider->http().requests()) {
        QCOMPARE(request.method, "GET"_ba);
        QCOMPARE(request.path, u"/player_api.php"_s);
        QCOMPARE(request.target, u"/player_api.php?username=user&password=secret&action="_s +
                                     request.queryValue(u"action"_s));
    }
}

void tst_MainWindowAccounts::requestsAreSentInOrder()
{
    QVERIFY2(netDebugEnabled(), "run with VANTIRO_NET_DEBUG=1");
    WindowFixture fixture;
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    TraceCapture capture;
    fixture.open();
    QStringList sent;
    for (const QString &line : capture.take().split(u'\n')) {
        if (line.startsWith("[Xtream] ->"_L1)) {
            const QUrl url(line.section(u' ', 2, 2));
            sent << QUrlQuery(url).queryItemValue(u"action"_s);
        }
    }
    QCOMPARE(sent, XtreamAction::catalog());
    QTRY_VERIFY(!fixture.overlayShown());
}

void tst_MainWindowAccounts::stampedAndCoveredBeforeAnyReply()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    QVERIFY(isStamped(u"A"_s, before));
    QVERIFY(fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);

    for (const QString &action : XtreamAction::catalog()) {
        QVERIFY(fixture.overlayShown());
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
}

void tst_MainWindowAccounts::cacheOrNetwork_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("cached");
    QTest::addColumn<bool>("force");
    QTest::addColumn<bool>("expectFetch");
    QTest::newRow("just loaded") << qint64(0) << true << false << false;
    QTest::newRow("loaded 23 hours ago") << qint64(82800) << true << false << false;
    QTest::newRow("loaded 24 hours ago") << qint64(86400) << true << false << true;
    QTest::newRow("never loaded") << neverLoaded << true << false << true;
    QTest::newRow("loaded in the future") << qint64(-7200) << true << false << false;
    QTest::newRow("no cache") << qint64(0) << false << false << true;
    QTest::newRow("forced") << qint64(0) << true << true << true;
}

void tst_MainWindowAccounts::cacheOrNetwork()
{
    QFETCH(qint64, age);
    QFETCH(bool, cached);
    QFETCH(bool, force);
    QFETCH(bool, expectFetch);
    WindowFixture fixture;
    if (cached) {
        cacheCatalog(u"A"_s, older);
    }
    MainWindow &window = fixture.open();
    const SourceConfig source = sourceFor(*provider, u"A"_s, age);
    WindowFixture::store(source);
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    window.loadSource(source, force);

    QCOMPARE(fixture.overlayShown(), expectFetch);
    if (expectFetch) {
        QTRY_VERIFY(!fixture.overlayShown());
        QCOMPARE(shownCatalog(fixture), catalog);
        QCOMPARE(cachedCatalog(u"A"_s), catalog);
        QCOMPARE(provider->http().requestCount(), 6);
        QVERIFY(isStamped(u"A"_s, before));
    } else {
        QCOMPARE(shownCatalog(fixture), older);
        QCOMPARE(provider->http().requestCount(), 0);
        QCOMPARE(WindowFixture::stored(u"A"_s).lastUpdated, source.lastUpdated);
    }
}

void tst_MainWindowAccounts::anIncompleteCacheIsNotShown_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray one = R"({"categories":[{"id":"1","name":"Old"}],"items":[]})"_ba;
    QTest::newRow("no shows") << "{\"live\":" + one + ",\"movie\":" + one + '}';
    QTest::newRow("no movies") << "{\"live\":" + one + ",\"series\":" + one + '}';
    QTest::newRow("no channels") << "{\"movie\":" + one + ",\"series\":" + one + '}';
    QTest::newRow("only a playlist") << "{\"channel\":" + one + '}';
    QTest::newRow("cut short") << "{\"live\":" + one + ",\"movie\":" + one + ",\"series\":{";
    QTest::newRow("empty") << ""_ba;
}

void tst_MainWindowAccounts::anIncompleteCacheIsNotShown()
{
    QFETCH(QByteArray, content);
    WindowFixture fixture;
    const QString folder = PrivateProfile::current().appDataDir() + "/catalog_cache"_L1;
    QDir().mkpath(folder);
    QFile file(folder + "/A.json"_L1);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    provider->setMannerOfCatalog(Manner::Held);
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    WindowFixture::store(sourceFor(*provider, u"A"_s, 3600));
    fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QVERIFY(isStamped(u"A"_s, before));

    for (const QString &action : XtreamAction::catalog()) {
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
}

void tst_MainWindowAccounts::refreshingTwiceAtOnce()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    MainWindow &window = fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    window.refreshActiveSource();
    for (const QString &action : XtreamAction::catalog()) {
        QVERIFY(fixture.overlayShown());
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(provider->actions().size(), 12);
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
}

void tst_MainWindowAccounts::editedAccountKeepsNothingOfTheOldServer()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    XtreamProvider other(u"other"_s, u"other secret"_s);
    serve(other, older);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    fixture.open();
    QTRY_COMPARE(provider->http().openConnections(), 6);
    fixture.dialogs.next([&other](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"serverEdit"_s)->setText(other.url());
        dialog.findChild<QLineEdit *>(u"usernameEdit"_s)->setText(other.user());
        dialog.findChild<QLineEdit *>(u"passwordEdit"_s)->setText(other.password());
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(cachedCatalog(u"A"_s), older);
    QVERIFY(!fixture.overlayShown());
    for (const QString &action : XtreamAction::catalog()) {
        provider->release(action);
    }
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(cachedCatalog(u"A"_s), older);
}

void tst_MainWindowAccounts::aSwitchToAPlaylistKeepsLateRepliesOutOfTheTabs()
{
    WindowFixture fixture;
    provider->setMannerOfCatalog(Manner::Held);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    WindowFixture::store(playlistSource(u"List"_s, u"/nowhere"_s));
    CatalogCache::save(u"List"_s, u"channel"_s, {});
    fixture.open();
    QTRY_COMPARE(provider->actions().size(), 6);
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.setCurrentIndex(1);
    // What was left owes nothing more.
    QVERIFY(!fixture.overlayShown());
    for (const QString &action : XtreamAction::catalog()) {
        provider->release(action);
    }
    QTRY_COMPARE(cachedCatalog(u"A"_s), catalog);
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QCOMPARE(tabs.tabText(tabs.currentIndex()), u"Channels"_s);
    QVERIFY(!tabs.isTabVisible(0) && !tabs.isTabVisible(1) && !tabs.isTabVisible(2));
    QCOMPARE(cachedCatalog(u"List"_s), nothingCached);

    combo.setCurrentIndex(0);
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(provider->actions().size(), 6);
}

void tst_MainWindowAccounts::theNextAccountGetsItsOwnCredentials()
{
    WindowFixture fixture;
    XtreamProvider other(u"someone else"_s, u"p&?=#"_s);
    serve(other, older);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    SourceConfig second = sourceFor(other, u"B"_s);
    second.url += u'/';
    WindowFixture::store(second);
    fixture.open();
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(sorted(provider->actions()), sorted(XtreamAction::catalog()));
    QCOMPARE(sorted(other.actions()), sorted(XtreamAction::catalog()));
    fixture.window().refreshActiveSource();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(cachedCatalog(u"B"_s), older);
}

void tst_MainWindowAccounts::theWindowMayCloseWhileLoading()
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

void tst_MainWindowAccounts::playingWhatWasLoaded_data()
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

void tst_MainWindowAccounts::playingWhatWasLoaded()
{
    QFETCH(QString, liveExtension);
    QFETCH(QByteArray, container);
    QFETCH(QStringList, expectedPaths);
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
        fixture.find<EpisodePage>(u"episodePage"_s)
            .playEpisodeTreeItem(tree.topLevelItem(0)->child(0));
        QTRY_COMPARE(provider->http().requestCount(expectedPaths.at(2)), times);
        window.onSourceSelected(0);
        QVERIFY(!fixture.overlayShown());
    }
    QCOMPARE(provider->requestCount(XtreamAction::seriesInfo), 1);
    QCOMPARE(provider->actions().size(), 7);
}

VANTIRO_TEST_MAIN(tst_MainWindowAccounts)
#include "tst_MainWindowAccounts.moc"
