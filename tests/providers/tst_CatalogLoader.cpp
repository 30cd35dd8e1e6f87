#include "app/NetLog.h"
#include "providers/LoadRecorder.h"
#include "providers/XtreamClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QDateTime>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;
using Step = LoadFailure::Step;

/// Loading accounts, and what accounts and playlists share. Runs with VANTIRO_NET_DEBUG=1.
class tst_CatalogLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sixRequestsInOrder();
    void stampedBeforeAnyReply();
    void cacheOrNetwork_data();
    void cacheOrNetwork();
    void anUnusableCacheIsReplaced();
    void aFailureEmptiesItsHalf_data();
    void aFailureEmptiesItsHalf();
    void aServerThatRefuses();
    void halvesInAnyOrder_data();
    void halvesInAnyOrder();
    void switchedBetweenTwoAccounts();
    void twoLoadsAtOnce();
    void forgottenSource();
    void mayBeDestroyedWhileLoading();

private:
    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<HttpServer> server;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_CatalogLoader::init()
{
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
    server = std::make_unique<HttpServer>();
    server->on(u"/list.m3u"_s, bodyReply(twoChannels));
}

void tst_CatalogLoader::sixRequestsInOrder()
{
    QVERIFY2(netDebugEnabled(), "run with VANTIRO_NET_DEBUG=1");
    LoadRecorder recorder;
    QVERIFY(recorder.loader.accountClient() == nullptr);
    TraceCapture capture;
    recorder.load(sourceFor(*provider, u"A"_s));
    QStringList sent;
    for (const QString &line : capture.take().split(u'\n', Qt::SkipEmptyParts)) {
        const QUrl url(line.section(u' ', 2, 2));
        sent << QUrlQuery(url).queryItemValue(u"action"_s);
    }
    QCOMPARE(sent, XtreamAction::catalog());
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
    QVERIFY(recorder.failures.isEmpty());
    QCOMPARE(provider->http().requestCount(), 6);
    QCOMPARE(sorted(provider->actions()), sorted(XtreamAction::catalog()));
    QCOMPARE(recorder.loader.accountClient()->account().server, provider->url());
}

void tst_CatalogLoader::stampedBeforeAnyReply()
{
    LoadRecorder recorder;
    provider->setMannerOfCatalog(Manner::Held);
    SourceConfig source = sourceFor(*provider, u"A"_s);
    source.liveExtension = u"ts"_s;
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    recorder.load(source);
    QCOMPARE(recorder.events, (QStringList{u"stamped"_s, u"steps 6"_s}));
    const SourceConfig stamped = recorder.stamped.first();
    QVERIFY(stamped.lastUpdated >= before);
    QVERIFY(stamped.lastUpdated <= QDateTime::currentSecsSinceEpoch());
    QCOMPARE((QStringList{stamped.name, stamped.url, stamped.liveExtension}),
             (QStringList{source.name, source.url, source.liveExtension}));
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);

    recorder.events.clear();
    provider->release(XtreamAction::vodStreams);
    QTRY_COMPARE(recorder.events, (QStringList{u"items"_s, u"done"_s}));
    provider->release(XtreamAction::liveCategories);
    QTRY_COMPARE(recorder.events.sliced(2), (QStringList{u"categories"_s, u"done"_s}));
    QCOMPARE(recorder.owedSteps, 4);
}

void tst_CatalogLoader::cacheOrNetwork_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("cached");
    QTest::addColumn<bool>("force");
    QTest::addColumn<bool>("expectFetch");
    QTest::newRow("just loaded") << qint64(0) << true << false << false;
    QTest::newRow("loaded 24 hours ago") << qint64(86400) << true << false << true;
    QTest::newRow("never loaded") << neverLoaded << true << false << true;
    QTest::newRow("loaded in the future") << qint64(-7200) << true << false << false;
    QTest::newRow("no cache") << qint64(0) << false << false << true;
    QTest::newRow("forced") << qint64(0) << true << true << true;
}

void tst_CatalogLoader::cacheOrNetwork()
{
    QFETCH(const qint64, age);
    QFETCH(const bool, cached);
    QFETCH(const bool, force);
    QFETCH(const bool, expectFetch);
    LoadRecorder recorder;
    if (cached) {
        cacheCatalog(u"A"_s, older);
        cacheOneChannel(u"List"_s, u"Old"_s);
    }
    recorder.load(sourceFor(*provider, u"A"_s, age), force);
    QCOMPARE(recorder.isLoading(), expectFetch);
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.shown(), expectFetch ? catalog : older);
    QCOMPARE(cachedCatalog(u"A"_s), expectFetch ? catalog : older);
    QCOMPARE(provider->http().requestCount(), expectFetch ? 6 : 0);

    recorder.load(playlistSource(u"List"_s, server->url(u"/list.m3u"_s), age), force);
    QCOMPARE(recorder.isLoading(), expectFetch);
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.channels(),
             expectFetch ? (QStringList{u"One"_s, u"Two"_s}) : QStringList{u"Old"_s});
    QCOMPARE(recorder.groups(),
             expectFetch ? (QStringList{u"News"_s, u"Sport"_s}) : QStringList{u"Cached"_s});
    QCOMPARE(server->requestCount(), expectFetch ? 1 : 0);
    QCOMPARE(recorder.stamped.size(), expectFetch ? 2 : 0);
}

void tst_CatalogLoader::anUnusableCacheIsReplaced()
{
    LoadRecorder recorder;
    // Without the shows.
    const QByteArray one = R"({"categories":[{"id":"1","name":"Old"}],"items":[]})"_ba;
    writeCacheFile(u"A"_s, "{\"live\":" + one + ",\"movie\":" + one + '}');
    recorder.load(sourceFor(*provider, u"A"_s, 3600));
    QCOMPARE(recorder.shown(), emptyCatalog); // nothing of the cache
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);

    writeCacheFile(u"List"_s, "{\"live\":" + one + '}');
    recorder.load(playlistSource(u"List"_s, server->url(u"/list.m3u"_s)));
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.channels(), (QStringList{u"One"_s, u"Two"_s}));
    QCOMPARE(cachedChannels(u"List"_s), (QStringList{u"One"_s, u"Two"_s}));
}

void tst_CatalogLoader::aFailureEmptiesItsHalf_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<QByteArray>("body");
    for (int part = 0; part < accountParts; ++part) {
        const QByteArray action = XtreamAction::catalog().at(part).toLatin1();
        QTest::addRow("%s: a page", action.constData()) << part << "<html>Log in</html>"_ba;
        QTest::addRow("%s: empty", action.constData()) << part << "[]"_ba;
    }
}

void tst_CatalogLoader::aFailureEmptiesItsHalf()
{
    QFETCH(const int, part);
    QFETCH(const QByteArray, body);
    LoadRecorder recorder;
    cacheCatalog(u"A"_s, older);
    recorder.load(sourceFor(*provider, u"A"_s, 0));
    QCOMPARE(recorder.shown(), older);

    provider->setReply(XtreamAction::catalog().at(part), body);
    recorder.load(sourceFor(*provider, u"A"_s), true);
    QTRY_VERIFY(!recorder.isLoading());
    AccountCatalog expected = catalog;
    expected[part].clear();
    QCOMPARE(recorder.shown(), expected);
    QCOMPARE(cachedCatalog(u"A"_s), expected);
    // A section without entries has not failed.
    QCOMPARE(recorder.failures.size(), body == "[]" ? 0 : 1);
    for (const LoadFailure &failure : recorder.failures) {
        QCOMPARE(failure.step, isCategoriesPart(part) ? Step::Categories : Step::Items);
        QCOMPARE(LoadRecorder::partOf(failure.section), part & ~1);
        QCOMPARE(failure.detail, QString());
    }
}

void tst_CatalogLoader::aServerThatRefuses()
{
    for (const bool listening : {true, false}) {
        LoadRecorder recorder;
        cacheCatalog(u"A"_s, older);
        SourceConfig source = sourceFor(*provider, u"A"_s, 86400);
        source.password = u"wrong"_s;
        if (!listening) {
            provider->http().refuse();
        }
        recorder.load(source);
        QTRY_VERIFY(!recorder.isLoading());
        QCOMPARE(cachedCatalog(u"A"_s), emptyCatalog);
        QCOMPARE(recorder.failures.size(), 6);
        // The attempt counts, although it brought nothing.
        QCOMPARE(recorder.stamped.size(), 1);
    }
}

void tst_CatalogLoader::halvesInAnyOrder_data()
{
    QTest::addColumn<bool>("categoriesFirst");
    QTest::addColumn<bool>("isRefresh");
    QTest::newRow("categories first") << true << false;
    QTest::newRow("entries first") << false << false;
    QTest::newRow("refresh, categories first") << true << true;
    QTest::newRow("refresh, entries first") << false << true;
}

void tst_CatalogLoader::halvesInAnyOrder()
{
    QFETCH(const bool, categoriesFirst);
    QFETCH(const bool, isRefresh);
    LoadRecorder recorder;
    if (isRefresh) {
        cacheCatalog(u"A"_s, older);
        recorder.load(sourceFor(*provider, u"A"_s, 0));
    }
    provider->setMannerOfCatalog(Manner::Held);
    recorder.load(sourceFor(*provider, u"A"_s), true);

    // Old categories are cached until the new ones come, but no old entries.
    const AccountCatalog before = recorder.shown();
    AccountCatalog shown = before;
    AccountCatalog cached = before;
    for (int part = 0; part < accountParts; ++part) {
        if (isCategoriesPart(part) == categoriesFirst) {
            shown[part] = catalog[part];
            cached[part] = catalog[part];
            provider->release(XtreamAction::catalog().at(part));
        } else if (categoriesFirst) {
            cached[part].clear();
        }
    }
    QTRY_COMPARE(cachedCatalog(u"A"_s), cached);
    QCOMPARE(recorder.shown(), shown);
    QCOMPARE(recorder.owedSteps, 3);
    releaseCatalog(*provider);
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
}

void tst_CatalogLoader::switchedBetweenTwoAccounts()
{
    XtreamProvider other(u"other"_s, u"other secret"_s);
    serve(other, older);
    other.setMannerOfCatalog(Manner::Held);
    provider->setMannerOfCatalog(Manner::Held);
    LoadRecorder recorder;
    recorder.load(sourceFor(*provider, u"A"_s));
    // Some replies of the first account come before the switch, the others after it.
    AccountCatalog shown = emptyCatalog;
    for (const int part : {0, 3}) {
        shown[part] = catalog[part];
        provider->release(XtreamAction::catalog().at(part));
    }
    QTRY_COMPARE(recorder.shown(), shown);
    recorder.load(sourceFor(other, u"B"_s));
    releaseCatalog(*provider);
    QTRY_COMPARE(cachedCatalog(u"A"_s), catalog);
    QCOMPARE(recorder.shown(), shown);
    QCOMPARE(cachedCatalog(u"B"_s), nothingCached);
    QCOMPARE(recorder.owedSteps, 6);
    releaseCatalog(other);
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.shown(), older);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
    QCOMPARE(cachedCatalog(u"B"_s), older);
    QVERIFY(recorder.failures.isEmpty());
}

void tst_CatalogLoader::twoLoadsAtOnce()
{
    LoadRecorder recorder;
    provider->setMannerOfCatalog(Manner::Held);
    recorder.load(sourceFor(*provider, u"A"_s), true);
    recorder.events.clear();
    recorder.load(sourceFor(*provider, u"A"_s), true);
    // The steps of the first one are released before the second one begins.
    QCOMPARE(recorder.events,
             (QStringList(6, u"done"_s) + QStringList{u"stamped"_s, u"steps 6"_s}));
    releaseCatalog(*provider);
    QTRY_COMPARE(recorder.requestsUnderWay(), 0);
    QCOMPARE(recorder.owedSteps, 0);
    QCOMPARE(provider->actions().size(), 12);
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
}

void tst_CatalogLoader::forgottenSource()
{
    LoadRecorder recorder;
    provider->setMannerOfCatalog(Manner::Held);
    server->on(u"/held.m3u"_s, heldReply(twoChannels));
    recorder.load(sourceFor(*provider, u"A"_s));
    recorder.load(playlistSource(u"List"_s, server->url(u"/held.m3u"_s), neverLoaded));
    recorder.loader.forget(u"A"_s);
    recorder.loader.forget(u"List"_s);
    recorder.loader.reset();
    QVERIFY(!recorder.isLoading());
    releaseCatalog(*provider);
    server->release(u"/held.m3u"_s);
    QTRY_COMPARE(recorder.requestsUnderWay(), 0);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);
    QCOMPARE(cachedChannels(u"List"_s), notCached);
    QCOMPARE(recorder.shown(), emptyCatalog);
    QCOMPARE(recorder.channels(), QStringList());
    QCOMPARE(recorder.owedSteps, 0);
}

void tst_CatalogLoader::mayBeDestroyedWhileLoading()
{
    provider->setMannerOfCatalog(Manner::Held);
    server->on(u"/held.m3u"_s, heldReply(twoChannels));
    {
        LoadRecorder recorder;
        recorder.load(playlistSource(u"List"_s, server->url(u"/held.m3u"_s), neverLoaded));
        recorder.load(sourceFor(*provider, u"A"_s));
        QTRY_COMPARE(provider->http().openConnections(), 6);
        QTRY_COMPARE(server->openConnections(), 1);
    }
    QTRY_COMPARE(provider->http().openConnections() + server->openConnections(), 0);
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogLoader)
#include "tst_CatalogLoader.moc"
