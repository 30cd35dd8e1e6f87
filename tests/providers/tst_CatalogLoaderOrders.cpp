#include "providers/LoadRecorder.h"
#include "support/TestMain.h"

#include <QHash>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

/// One reply that is still out.
struct Reply
{
    XtreamProvider *provider;
    AccountCatalog catalog; ///< what the provider has
    QString source;         ///< that asked for it
    int part;
};

QList<Reply> repliesOf(XtreamProvider &provider, const AccountCatalog &catalog,
                       const QString &source)
{
    QList<Reply> replies;
    for (int part = 0; part < accountParts; ++part) {
        replies.append({&provider, catalog, source, part});
    }
    return replies;
}

/// What is reported and what the cache must hold, worked out step by step from the replies in their
/// order.
struct Expectation
{
    QString active = u"A"_s;
    AccountCatalog held = emptyCatalog;  ///< for the current load
    AccountCatalog shown = emptyCatalog; ///< what was reported last
    QHash<QString, AccountCatalog> arrived;
    QHash<QString, AccountCatalog> cached;

    /// A load begins without entries; the categories stay until new ones come.
    void loadBegins(const QString &source)
    {
        active = source;
        for (int part = 0; part < accountParts; ++part) {
            if (!isCategoriesPart(part)) {
                held[part].clear();
            }
        }
    }

    void takes(const Reply &reply)
    {
        AccountCatalog &own = arrived[reply.source];
        own.resize(accountParts);
        own[reply.part] = reply.catalog[reply.part];
        const bool late = reply.source != active;
        if (!late) {
            held[reply.part] = reply.catalog[reply.part];
            shown[reply.part] = held[reply.part];
        }
        // Both halves are cached, under the name of the source that asked; a load that was left has
        // only its own.
        const AccountCatalog &halves = late ? own : held;
        AccountCatalog &section = cached[reply.source];
        if (section.isEmpty()) {
            section = nothingCached;
        }
        section[reply.part] = halves[reply.part];
        section[reply.part ^ 1] = halves[reply.part ^ 1];
    }

    bool isCached() const
    {
        return std::all_of(cached.keyBegin(), cached.keyEnd(), [this](const QString &source) {
            return cachedCatalog(source) == cached.value(source);
        });
    }
};

template <typename List>
List shuffled(List list, quint32 seed)
{
    std::mt19937 random(seed);
    std::shuffle(list.begin(), list.end(), random);
    return list;
}

/// In so many orders each reply comes before and after each other one.
constexpr quint32 orders = 10;

} // namespace

/// The six replies of an account may come in any order, and those of two accounts in any mixture.
class tst_CatalogLoaderOrders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void oneAccount_data();
    void oneAccount();
    void switchedBetweenTwoAccounts_data();
    void switchedBetweenTwoAccounts();

private:
    /// Lets the replies come in one by one and compares after each of them.
    void takeOneByOne(const LoadRecorder &recorder, const QList<Reply> &replies,
                      Expectation &expectation);

    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
};

void tst_CatalogLoaderOrders::init()
{
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
    provider->setMannerOfCatalog(Manner::Held);
}

void tst_CatalogLoaderOrders::takeOneByOne(const LoadRecorder &recorder,
                                           const QList<Reply> &replies, Expectation &expectation)
{
    qsizetype owed = std::count_if(replies.begin(), replies.end(), [&](const Reply &reply) {
        return reply.source == expectation.active;
    });
    for (const Reply &reply : replies) {
        // What was left owes nothing.
        QCOMPARE(recorder.isLoading(), owed > 0);
        QCOMPARE(recorder.shown(), expectation.shown);
        expectation.takes(reply);
        reply.provider->release(XtreamAction::catalog().at(reply.part));
        if (!QTest::qWaitFor([&] { return expectation.isCached(); })) {
            QCOMPARE(cachedCatalog(reply.source), expectation.cached.value(reply.source));
        }
        QCOMPARE(recorder.shown(), expectation.shown);
        owed -= reply.source == expectation.active ? 1 : 0;
    }
    QVERIFY(!recorder.isLoading());
    QVERIFY(recorder.failures.isEmpty());
}

void tst_CatalogLoaderOrders::oneAccount_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("loadedBefore");
    for (quint32 seed = 1; seed <= orders; ++seed) {
        QTest::addRow("first load, order %u", seed) << seed << false;
        QTest::addRow("refresh, order %u", seed) << seed << true;
    }
}

void tst_CatalogLoaderOrders::oneAccount()
{
    QFETCH(const quint32, seed);
    QFETCH(const bool, loadedBefore);
    LoadRecorder recorder;
    Expectation expectation;
    if (loadedBefore) {
        expectation.held = madeUpCatalog(u"Old"_s);
        expectation.shown = expectation.held;
        expectation.cached[u"A"_s] = expectation.held;
        cacheCatalog(u"A"_s, expectation.held);
        recorder.load(sourceFor(*provider, u"A"_s, 0));
    }
    recorder.load(sourceFor(*provider, u"A"_s), true);
    expectation.loadBegins(u"A"_s);
    takeOneByOne(recorder, shuffled(repliesOf(*provider, catalog, u"A"_s), seed), expectation);
    QCOMPARE(recorder.shown(), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
}

void tst_CatalogLoaderOrders::switchedBetweenTwoAccounts_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= orders; ++seed) {
        QTest::addRow("order %u", seed) << seed;
    }
}

void tst_CatalogLoaderOrders::switchedBetweenTwoAccounts()
{
    QFETCH(const quint32, seed);
    XtreamProvider otherProvider(u"other"_s, u"other secret"_s);
    const AccountCatalog otherCatalog = madeUpCatalog(u"Other"_s);
    serve(otherProvider, otherCatalog);
    otherProvider.setMannerOfCatalog(Manner::Held);

    LoadRecorder recorder;
    recorder.load(sourceFor(*provider, u"A"_s));
    Expectation expectation;
    // Some replies of the first account come before the switch, the others after it.
    QList<Reply> first = shuffled(repliesOf(*provider, catalog, u"A"_s), seed);
    const qsizetype early = seed % accountParts;
    for (const Reply &reply : first.first(early)) {
        expectation.takes(reply);
        provider->release(XtreamAction::catalog().at(reply.part));
        QVERIFY(QTest::qWaitFor([&] { return recorder.shown() == expectation.shown; }));
    }
    recorder.load(sourceFor(otherProvider, u"B"_s));
    expectation.loadBegins(u"B"_s);
    const QList<Reply> late = first.sliced(early) + repliesOf(otherProvider, otherCatalog, u"B"_s);
    takeOneByOne(recorder, shuffled(late, seed), expectation);
    QCOMPARE(recorder.shown(), otherCatalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
    QCOMPARE(cachedCatalog(u"B"_s), otherCatalog);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogLoaderOrders)
#include "tst_CatalogLoaderOrders.moc"
