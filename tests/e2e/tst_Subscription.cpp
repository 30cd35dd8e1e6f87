// A user enters a subscription key, watches a channel, and after a restart the tabs are
// there again. The service is a TLS server whose certificate the player checks.

#include "e2e/PlayerSession.h"
#include "providers/SubscriptionEndpoint.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class TestSubscription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fromTheKeyToTheChannel();
    void anAuthorityThatNobodyTrusts();

private:
    const QString key = u"Key/42+\"&=?"_s;
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    std::unique_ptr<XtreamProvider> provider;
};

void TestSubscription::init()
{
    PrivateProfile::current().clear();
    endpoint = std::make_unique<SubscriptionEndpoint>(SubscriptionEndpoint::Transport::Tls);
    provider = std::make_unique<XtreamProvider>(u"tv.user"_s, u"S3cret&word+x=1"_s);
    provider->setNames(XtreamAction::liveCategories, {u"News channels"_s});
    provider->setNames(XtreamAction::liveStreams, {u"Night News"_s});
    provider->setNames(XtreamAction::vodCategories, {u"Drama"_s});
    provider->setNames(XtreamAction::vodStreams, {u"A Long Film"_s});
    provider->setNames(XtreamAction::seriesCategories, {u"Crime"_s});
    provider->setNames(XtreamAction::series, {u"A Show"_s});
    endpoint->accept(key, *provider, u"ts"_s);
    qputenv("VANTIRO_TEST_SUBSCRIPTION_URL", endpoint->url().toUtf8());
}

void TestSubscription::fromTheKeyToTheChannel()
{
    qputenv("SSL_CERT_FILE", QFile::encodeName(endpoint->authorityFile()));
    PlayerSession session(QStringLiteral(VANTIRO_PLAYER_LOOPBACK));
    const auto sees = [&session](const QString &tab, const QString &category, const QString &name) {
        return session.openTab(tab) && session.window.waitFor(desktop::Role::ListItem, category) &&
               session.openCategory(UiTexts::allCategories) && session.entry(name);
    };
    const auto seesAllTabs = [&sees] {
        return sees(UiTexts::showsTab, u"Crime"_s, u"A Show"_s) &&
               sees(UiTexts::moviesTab, u"Drama"_s, u"A Long Film"_s) &&
               sees(UiTexts::liveTab, u"News channels"_s, u"Night News"_s);
    };

    QVERIFY(session.start());
    QVERIFY(session.chooseType(u"Zevrino"_s));
    QVERIFY(session.fill(u"Subscription Key:"_s, key));
    QVERIFY(session.acceptDialog());
    QVERIFY(seesAllTabs());
    QCOMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(provider->actions().size(), 6);
    QVERIFY(session.watch(u"Night News"_s));
    const QString account = provider->user() + u'/' + provider->password();
    QCOMPARE(provider->http().requestCount(u"/live/"_s + account + u"/1.ts"_s), 1);
    QVERIFY(session.close());

    QVERIFY(session.start());
    QVERIFY(seesAllTabs());
    QVERIFY(session.watch(u"Night News"_s));
    QVERIFY(session.close());
    // The key is exchanged again, the catalogs come from the cache.
    QCOMPARE(endpoint->keys(), (QStringList{key, key}));
    QCOMPARE(provider->actions().size(), 6);

    const QByteArray traces = session.app.standardError().toUtf8();
    for (const QByteArray &line : {"[Zevrino] ->"_ba, "[Zevrino] <-"_ba, "[Xtream] ->"_ba})
        QVERIFY2(traces.contains(line), line.constData());
    for (const QByteArray &secret : {key.toUtf8(), provider->password().toUtf8()}) {
        QVERIFY(!traces.contains(secret));
        QVERIFY(!traces.contains(secret.toBase64()));
        QVERIFY(!traces.toLower().contains(secret.toPercentEncoding().toLower()));
    }
}

void TestSubscription::anAuthorityThatNobodyTrusts()
{
    qunsetenv("SSL_CERT_FILE");
    PlayerSession session(QStringLiteral(VANTIRO_PLAYER_LOOPBACK));
    QVERIFY(session.start());
    QVERIFY(session.chooseType(u"Zevrino"_s));
    QVERIFY(session.fill(u"Subscription Key:"_s, key));
    QVERIFY(session.acceptDialog());
    const desktop::Accessible box = session.app.waitForWindow(u"Zevrino"_s);
    QTRY_VERIFY(box.describe().contains("Failed to load subscription: "_L1));
    QVERIFY(session.close());
    // The key was not given to a stranger.
    QCOMPARE(endpoint->keys(), QStringList());
    QCOMPARE(provider->http().requestCount(), 0);
}

VANTIRO_TEST_MAIN(TestSubscription)
#include "tst_Subscription.moc"
