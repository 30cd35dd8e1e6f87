// A user enters an account, tests it, watches a channel and a film, and finds it all again the next
// day without waiting.

#include "e2e/PlayerSession.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestAccount : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fromTheDialogToTheFilm();
};

void TestAccount::fromTheDialogToTheFilm()
{
    XtreamProvider provider(u"tv.user"_s, u"S3cret&word+x=1"_s);
    const QStringList liveCategories{u"News channels"_s, u"Sport channels"_s};
    const QStringList channels{u"Night News"_s, u"Football"_s};
    provider.setNames(XtreamAction::liveCategories, liveCategories);
    provider.setNames(XtreamAction::liveStreams, channels);
    provider.setNames(XtreamAction::vodCategories, {u"Drama"_s});
    provider.setNames(XtreamAction::vodStreams, {u"A Long Film"_s});
    provider.setNames(XtreamAction::seriesCategories, {u"Crime"_s});
    provider.setNames(XtreamAction::series, {u"A Show"_s});
    PlayerSession session;
    const auto seesAllTabs = [&] {
        return session.seesTab(UiTexts::showsTab, {u"Crime"_s}, {u"A Show"_s}) &&
               session.seesTab(UiTexts::moviesTab, {u"Drama"_s}, {u"A Long Film"_s}) &&
               session.seesTab(UiTexts::liveTab, liveCategories, channels);
    };

    QVERIFY(session.start());
    QVERIFY(session.fillAccount(provider.url(), provider.user(), u"wrong"_s));
    QVERIFY(session.testsConnection(
        u"Failed: Authentication failed - check server URL, username, and password"_s));
    QVERIFY(session.fillAccount(provider.url(), provider.user(), provider.password()));
    QVERIFY(session.testsConnection(u"Connection OK"_s));
    QCOMPARE(provider.actions(), (QStringList{XtreamAction::login, XtreamAction::login}));
    session.keepScreenshot(u"account-tested"_s);
    QVERIFY(session.acceptDialog());
    QVERIFY(seesAllTabs());
    const qsizetype loginsAndCatalog = 2 + 6;
    QCOMPARE(provider.actions().size(), loginsAndCatalog);

    QVERIFY(session.watch(u"Night News"_s));
    QVERIFY(!session.seekSlider());
    session.keepScreenshot(u"account-channel"_s);
    const QString account = provider.user() + u'/' + provider.password();
    QCOMPARE(provider.http().requestCount(u"/live/"_s + account + u"/1.ts"_s), 1);
    QVERIFY(session.openTab(UiTexts::moviesTab));
    QVERIFY(session.watch(u"A Long Film"_s));
    QTRY_VERIFY(session.seekSlider());
    session.keepScreenshot(u"account-film"_s);
    QVERIFY(provider.http().requestCount(u"/movie/"_s + account + u"/1.mp4"_s) > 0);
    QVERIFY(session.close());

    QVERIFY(session.start());
    QVERIFY(seesAllTabs());
    QVERIFY(session.watch(u"Football"_s));
    QVERIFY(session.close());
    QCOMPARE(provider.actions().size(), loginsAndCatalog);

    QVERIFY(session.traces().contains("[Xtream] ->"_L1));
    QVERIFY(!session.hasTraced(provider.password()));
}

VANTIRO_TEST_MAIN(TestAccount)
#include "tst_Account.moc"
