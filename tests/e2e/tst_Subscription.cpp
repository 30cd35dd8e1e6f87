// A user enters a subscription key, watches a channel and a film, and after a restart the tabs are
// there again. The service is a TLS server whose certificate the player checks.

#include "SubscriptionEndpoint.h"
#include "e2e/AccountSession.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestSubscription : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fromTheKeyToTheFilm();
    void anAuthorityThatNobodyTrusts();

private:
    /// The environment of a program that asks the endpoint.
    QProcessEnvironment environment() const;

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
}

QProcessEnvironment TestSubscription::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VANTIRO_TEST_SUBSCRIPTION_URL"_s, endpoint->url());
    return environment;
}

void TestSubscription::fromTheKeyToTheFilm()
{
    QProcessEnvironment trusting = environment();
    trusting.insert(u"SSL_CERT_FILE"_s, endpoint->authorityFile());
    AccountSession session(QStringLiteral(VANTIRO_PLAYER_LOOPBACK), trusting);
    const auto seesAllTabs = [&session] {
        return session.seesTab(u"Live TV"_s, {u"News channels"_s}, {u"Night News"_s}) &&
               session.seesTab(u"Movies"_s, {u"Drama"_s}, {u"A Long Film"_s}) &&
               session.seesTab(u"TV Shows"_s, {u"Crime"_s}, {u"A Show"_s});
    };

    QVERIFY(session.start());
    QVERIFY(session.fillSubscription(key));
    QVERIFY(session.acceptDialog());
    QVERIFY(seesAllTabs());
    QCOMPARE(endpoint->keys(), QStringList{key});
    QCOMPARE(provider->actions().size(), 6);
    QVERIFY(session.watches(u"Live TV"_s, u"Night News"_s));
    QVERIFY(!session.hasSeekRow());
    const QString account = provider->user() + u'/' + provider->password();
    QCOMPARE(provider->http().requestCount(u"/live/"_s + account + u"/1.ts"_s), 1);
    session.keepScreenshot(u"subscription-channel"_s);
    QVERIFY(session.watches(u"Movies"_s, u"A Long Film"_s));
    QTRY_VERIFY(session.hasSeekRow());
    QVERIFY(session.close());

    QVERIFY(session.start());
    QVERIFY(seesAllTabs());
    QVERIFY(session.watches(u"Live TV"_s, u"Night News"_s));
    QVERIFY(session.close());
    // The key is exchanged anew, the catalogs come from the cache.
    QCOMPARE(endpoint->keys(), (QStringList{key, key}));
    QCOMPARE(provider->actions().size(), 6);

    const QString traces = session.traces();
    for (const QString &line : {u"[Zevrino] ->"_s, u"[Zevrino] <-"_s, u"[Xtream] ->"_s}) {
        QVERIFY2(traces.contains(line), qUtf8Printable(line));
    }
    for (const QString &spelling : spellingsOf(key) + spellingsOf(provider->password())) {
        QVERIFY2(!traces.contains(spelling), qUtf8Printable(spelling));
    }
}

void TestSubscription::anAuthorityThatNobodyTrusts()
{
    AccountSession session(QStringLiteral(VANTIRO_PLAYER_LOOPBACK), environment());
    QVERIFY(session.start());
    QVERIFY(session.fillSubscription(key));
    QVERIFY(session.acceptDialog());
    QVERIFY(session.seesFailure(u"Zevrino"_s, u"Failed to load subscription: "_s));
    QVERIFY(session.close());
    // The key was not given to a stranger.
    QCOMPARE(endpoint->keys(), QStringList());
    QCOMPARE(provider->http().requestCount(), 0);
}

VANTIRO_TEST_MAIN(TestSubscription)
#include "tst_Subscription.moc"
