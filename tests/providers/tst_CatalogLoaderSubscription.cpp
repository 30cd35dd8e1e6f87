#include "providers/LoadRecorder.h"
#include "providers/SubscriptionEndpoint.h"
#include "providers/XtreamClient.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

const QString key = u"KEY-1"_s;

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

} // namespace

Q_DECLARE_METATYPE(HttpReply)

/// Loading a subscription: the key is exchanged first, then it is an account like any other.
class tst_CatalogLoaderSubscription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void keyThenSixRequests();
    void aFreshCacheStillNeedsTheKey();
    void theNewestCredentialsWin();
    void failures_data();
    void failures();
    void leftForAnotherSource_data();
    void leftForAnotherSource();
    void leavingAndComingBack();
    void mayBeDestroyedDuringTheExchange();

private:
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_CatalogLoaderSubscription::init()
{
    endpoint = std::make_unique<SubscriptionEndpoint>();
    provider = std::make_unique<XtreamProvider>(u"resolved"_s, u"resolved-secret"_s);
    serve(*provider, catalog);
    endpoint->accept(key, *provider);
}

void tst_CatalogLoaderSubscription::keyThenSixRequests()
{
    LoadRecorder recorder(endpoint->url());
    endpoint->hold();
    SourceConfig source = subscriptionSource(u"Zevrino"_s, key, 86400);
    source.liveExtension = u"ts"_s;
    recorder.load(source);
    QCOMPARE(recorder.events, QStringList{u"steps 1"_s});
    QTRY_COMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(provider->actions(), QStringList());
    endpoint->release();
    QTRY_VERIFY(recorder.events.size() > 1 && !recorder.isLoading());
    QCOMPARE(recorder.events.first(5),
             (QStringList{u"steps 1"_s, u"resolved"_s, u"done"_s, u"stamped"_s, u"steps 6"_s}));
    QCOMPARE(sorted(provider->actions()), sorted(XtreamAction::catalog()));
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"Zevrino"_s), catalog);
    // The record carries the account beside the key, and its own stream type: none was handed out.
    const QStringList record{
        u"2"_s, u"Zevrino"_s, provider->url(), u"resolved"_s, u"resolved-secret"_s, u"ts"_s, key};
    QCOMPARE(fields(recorder.resolved.first()), record);
    QCOMPARE(fields(recorder.stamped.first()), record);
}

void tst_CatalogLoaderSubscription::aFreshCacheStillNeedsTheKey()
{
    LoadRecorder recorder(endpoint->url());
    cacheCatalog(u"Zevrino"_s, older);
    recorder.load(subscriptionSource(u"Zevrino"_s, key, 3600));
    QCOMPARE(recorder.shown(), emptyCatalog);
    QTRY_COMPARE(recorder.shown(), older);
    QVERIFY(!recorder.isLoading());
    QCOMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(provider->http().requestCount(), 0);
    QVERIFY(recorder.stamped.isEmpty());
    QCOMPARE(recorder.loader.accountClient()->account().password, u"resolved-secret"_s);

    recorder.load(subscriptionSource(u"Zevrino"_s, key, 0), true);
    QTRY_COMPARE(recorder.shown(), catalog);
    QCOMPARE(endpoint->keys().size(), 2);
}

void tst_CatalogLoaderSubscription::theNewestCredentialsWin()
{
    LoadRecorder recorder(endpoint->url());
    recorder.load(subscriptionSource(u"Zevrino"_s, key));
    QTRY_COMPARE(recorder.shown(), catalog);
    XtreamProvider moved(u"moved"_s, u"moved secret"_s);
    serve(moved, older);
    endpoint->accept(key, moved, u"mpegts"_s);
    provider->http().clearRequests();
    recorder.load(recorder.stamped.first(), true);
    QTRY_COMPARE(recorder.shown(), older);
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(fields(recorder.stamped.last()),
             (QStringList{u"2"_s, u"Zevrino"_s, moved.url(), u"moved"_s, u"moved secret"_s,
                          u"mpegts"_s, key}));
}

void tst_CatalogLoaderSubscription::failures_data()
{
    QTest::addColumn<HttpReply>("reply");
    QTest::addColumn<QString>("reason");
    QTest::newRow("the service's own words")
        << HttpReply::json(R"({"status":"error","message":"It has <b>expired</b>."})"_ba)
        << u"It has <b>expired</b>."_s;
    QTest::newRow("503") << statusReply(503) << u"Could not reach server: "_s;
}

void tst_CatalogLoaderSubscription::failures()
{
    QFETCH(const HttpReply, reply);
    QFETCH(const QString, reason);
    LoadRecorder recorder(endpoint->url());
    endpoint->http().on(SubscriptionEndpoint::path(), reply);
    // Fresh in the cache, which a refused key does not open.
    cacheCatalog(u"Zevrino"_s, older);
    recorder.load(subscriptionSource(u"Zevrino"_s, key, 3600));
    QTRY_COMPARE(recorder.events, (QStringList{u"steps 1"_s, u"done"_s, u"failed"_s}));
    QCOMPARE(recorder.failures.first().step, LoadFailure::Step::KeyExchange);
    QVERIFY(recorder.failures.first().detail.startsWith(reason));
    QVERIFY(!recorder.failures.first().detail.contains(key));
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(cachedCatalog(u"Zevrino"_s), older);
}

void tst_CatalogLoaderSubscription::leftForAnotherSource_data()
{
    QTest::addColumn<QString>("answeredKey");
    QTest::addColumn<SourceConfig>("next");
    const QString here = u"http://127.0.0.1:9"_s;
    QTest::newRow("an account") << key << accountSource(u"Other"_s, here);
    QTest::newRow("a playlist") << key << playlistSource(u"Other"_s, here);
    QTest::newRow("an account, with a refusal") << u"refused"_s << accountSource(u"Other"_s, here);
    QTest::newRow("an account of the same name") << key << accountSource(u"Zevrino"_s, here);
}

void tst_CatalogLoaderSubscription::leftForAnotherSource()
{
    QFETCH(const QString, answeredKey);
    QFETCH(const SourceConfig, next);
    LoadRecorder recorder(endpoint->url());
    cacheCatalog(next.name, older);
    cacheOneChannel(next.name, u"Cached"_s);
    endpoint->hold();
    recorder.load(subscriptionSource(u"Zevrino"_s, answeredKey));
    QTRY_COMPARE(endpoint->keys().size(), 1);
    recorder.load(next);
    const QStringList events = recorder.events;
    QVERIFY(!recorder.isLoading());
    endpoint->release();
    QTRY_COMPARE(recorder.requestsUnderWay(), 0);
    QCOMPARE(recorder.events, events);
    QCOMPARE(provider->http().requestCount(), 0);
}

void tst_CatalogLoaderSubscription::leavingAndComingBack()
{
    LoadRecorder recorder(endpoint->url());
    cacheCatalog(u"Zevrino"_s, older);
    cacheOneChannel(u"List"_s, u"Cached"_s);
    endpoint->hold();
    recorder.load(subscriptionSource(u"Zevrino"_s, key, 0));
    recorder.load(playlistSource(u"List"_s, u"/nowhere"_s));
    recorder.load(subscriptionSource(u"Zevrino"_s, key, 0));
    QTRY_COMPARE(endpoint->keys(), (QStringList{key, key}));
    endpoint->release();
    QTRY_VERIFY(!recorder.isLoading());
    QCOMPARE(recorder.resolved.size(), 1);
    QCOMPARE(recorder.shown(), older);
}

void tst_CatalogLoaderSubscription::mayBeDestroyedDuringTheExchange()
{
    endpoint->hold();
    {
        LoadRecorder recorder(endpoint->url());
        recorder.load(subscriptionSource(u"Zevrino"_s, key));
        QTRY_COMPARE(endpoint->http().openConnections(), 1);
    }
    QTRY_COMPARE(endpoint->http().openConnections(), 0);
    QCOMPARE(provider->http().requestCount(), 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogLoaderSubscription)
#include "tst_CatalogLoaderSubscription.moc"
