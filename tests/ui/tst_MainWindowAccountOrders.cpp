#include "AccountFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

const AccountCatalog emptyCatalog(accountParts);
const AccountCatalog nothingCached(accountParts, notCached);

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

/// What window and cache must hold, worked out step by step from the replies in their order.
struct Expectation
{
    QString active = u"A"_s;
    AccountCatalog held = emptyCatalog;  ///< by the window
    AccountCatalog shown = emptyCatalog; ///< by the lists
    QHash<QString, AccountCatalog> arrived;
    QHash<QString, AccountCatalog> cached;

    /// A load empties the entries that the window holds; categories and lists stay as they are.
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

QJsonObject cacheFile(const QString &source)
{
    QFile file(PrivateProfile::current().appDataDir() + "/catalog_cache/"_L1 + source + ".json"_L1);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QJsonDocument::fromJson(file.readAll()).object();
}

void addSeeds(int count)
{
    QTest::addColumn<quint32>("seed");
    for (int seed = 1; seed <= count; ++seed) {
        QTest::addRow("order %d", seed) << static_cast<quint32>(seed);
    }
}

} // namespace

/// The six replies of an account may come in any order, and those of two accounts in any mixture.
class tst_MainWindowAccountOrders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstLoad_data() { addSeeds(64); }
    void firstLoad();
    void refresh_data() { addSeeds(32); }
    void refresh();
    void allAtOnceAndSomeFail_data() { addSeeds(64); }
    void allAtOnceAndSomeFail();
    void switchedBetweenTwoAccounts_data() { addSeeds(48); }
    void switchedBetweenTwoAccounts();

private:
    /// Lets the replies come in one by one and compares after each of them.
    void takeOneByOne(const WindowFixture &fixture, const QList<Reply> &replies,
                      Expectation &expectation);

    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    QJsonObject fileOfFirstOrder;
};

void tst_MainWindowAccountOrders::init()
{
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
    provider->setMannerOfCatalog(Manner::Held);
}

void tst_MainWindowAccountOrders::takeOneByOne(const WindowFixture &fixture,
                                               const QList<Reply> &replies,
                                               Expectation &expectation)
{
    qsizetype owed = std::count_if(replies.begin(), replies.end(), [&](const Reply &reply) {
        return reply.source == expectation.active;
    });
    for (const Reply &reply : replies) {
        // What was left owes nothing.
        QCOMPARE(fixture.overlayShown(), owed > 0);
        QCOMPARE(shownCatalog(fixture), expectation.shown);
        expectation.takes(reply);
        reply.provider->release(XtreamAction::catalog().at(reply.part));
        if (!QTest::qWaitFor([&] { return expectation.isCached(); })) {
            QCOMPARE(cachedCatalog(reply.source), expectation.cached.value(reply.source));
        }
        QCOMPARE(shownCatalog(fixture), expectation.shown);
        owed -= reply.source == expectation.active ? 1 : 0;
    }
    QVERIFY(!fixture.overlayShown());
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowAccountOrders::firstLoad()
{
    QFETCH(quint32, seed);
    WindowFixture fixture;
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    fixture.open();
    Expectation expectation;
    takeOneByOne(fixture, shuffled(repliesOf(*provider, catalog, u"A"_s), seed), expectation);
    if (QTest::currentTestFailed()) {
        return;
    }
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(cachedCatalog(u"A"_s), catalog);
    const QJsonObject file = cacheFile(u"A"_s);
    QVERIFY(!file.isEmpty());
    if (fileOfFirstOrder.isEmpty()) {
        fileOfFirstOrder = file;
    }
    QCOMPARE(file, fileOfFirstOrder);
}

void tst_MainWindowAccountOrders::refresh()
{
    QFETCH(quint32, seed);
    WindowFixture fixture;
    Expectation expectation;
    expectation.held = madeUpCatalog(u"Old"_s);
    expectation.shown = expectation.held;
    expectation.cached[u"A"_s] = expectation.held;
    cacheCatalog(u"A"_s, expectation.held);
    WindowFixture::store(sourceFor(*provider, u"A"_s, 0));
    MainWindow &window = fixture.open();

    window.refreshActiveSource();
    expectation.loadBegins(u"A"_s);
    takeOneByOne(fixture, shuffled(repliesOf(*provider, catalog, u"A"_s), seed), expectation);
    if (!QTest::currentTestFailed()) {
        QCOMPARE(cachedCatalog(u"A"_s), catalog);
    }
}

void tst_MainWindowAccountOrders::allAtOnceAndSomeFail()
{
    QFETCH(quint32, seed);
    WindowFixture fixture;
    cacheCatalog(u"A"_s, madeUpCatalog(u"Old"_s));
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    AccountCatalog expected = catalog;
    for (int part = 0; part < accountParts; ++part) {
        if (((seed >> part) & 1U) != 0) { // over all rows every subset of the six
            provider->setReply(XtreamAction::catalog().at(part), "<html>Log in</html>"_ba);
            expected[part].clear();
        }
    }
    fixture.open();
    for (const QString &action : shuffled(XtreamAction::catalog(), seed)) {
        provider->release(action);
    }
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), expected);
    QCOMPARE(cachedCatalog(u"A"_s), expected);
    QCOMPARE(provider->actions().size(), 6);
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowAccountOrders::switchedBetweenTwoAccounts()
{
    QFETCH(quint32, seed);
    XtreamProvider otherProvider(u"other"_s, u"other secret"_s);
    const AccountCatalog otherCatalog = madeUpCatalog(u"Other"_s);
    serve(otherProvider, otherCatalog);
    otherProvider.setMannerOfCatalog(Manner::Held);

    WindowFixture fixture;
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    WindowFixture::store(sourceFor(otherProvider, u"B"_s));
    fixture.open();
    Expectation expectation;
    // Some replies of the first account come before the switch, the others after it.
    QList<Reply> first = shuffled(repliesOf(*provider, catalog, u"A"_s), seed);
    const qsizetype early = seed % accountParts;
    for (const Reply &reply : first.first(early)) {
        expectation.takes(reply);
        provider->release(XtreamAction::catalog().at(reply.part));
        QVERIFY(waitUntilShown(fixture, expectation.shown));
    }
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    expectation.loadBegins(u"B"_s);
    const QList<Reply> late = first.sliced(early) + repliesOf(otherProvider, otherCatalog, u"B"_s);
    takeOneByOne(fixture, shuffled(late, seed), expectation);
    if (!QTest::currentTestFailed()) {
        QCOMPARE(shownCatalog(fixture), otherCatalog);
        QCOMPARE(cachedCatalog(u"A"_s), catalog);
        QCOMPARE(cachedCatalog(u"B"_s), otherCatalog);
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowAccountOrders)
#include "tst_MainWindowAccountOrders.moc"
