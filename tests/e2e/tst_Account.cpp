// A user enters an account, tests it, watches a channel and a film, and finds it all again the next
// day without waiting.

#include "e2e/AccountSession.h"
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
    const QStringList films{u"A Long Film"_s};
    const QStringList shows{u"A Show"_s};
    provider.setNames(XtreamAction::liveCategories, liveCategories);
    provider.setNames(XtreamAction::liveStreams, channels);
    provider.setNames(XtreamAction::vodCategories, {u"Drama"_s});
    provider.setNames(XtreamAction::vodStreams, films);
    provider.setNames(XtreamAction::seriesCategories, {u"Crime"_s});
    provider.setNames(XtreamAction::series, shows);

    AccountSession session(QStringLiteral(VANTIRO_PLAYER));
    QVERIFY(session.start());
    QVERIFY(session.fillAccount(provider, u"wrong"_s));
    QVERIFY(session.testsConnection(
        u"Failed: Authentication failed - check server URL, username, and password"_s));
    QVERIFY(session.fillAccount(provider, provider.password()));
    QVERIFY(session.testsConnection(u"Connection OK"_s));
    QCOMPARE(provider.actions(), (QStringList{XtreamAction::login, XtreamAction::login}));
    session.keepScreenshot(u"account-tested"_s);
    QVERIFY(session.acceptDialog());

    QVERIFY(session.seesTab(u"Live TV"_s, liveCategories, channels));
    QVERIFY(session.seesTab(u"Movies"_s, {u"Drama"_s}, films));
    QVERIFY(session.seesTab(u"TV Shows"_s, {u"Crime"_s}, shows));
    const qsizetype loginsAndCatalog = 2 + 6;
    QCOMPARE(provider.actions().size(), loginsAndCatalog);

    QVERIFY(session.watches(u"Live TV"_s, u"Night News"_s));
    QVERIFY(!session.hasSeekRow());
    session.keepScreenshot(u"account-channel"_s);
    const QString account = provider.user() + u'/' + provider.password();
    QCOMPARE(provider.http().requestCount(u"/live/"_s + account + u"/1.ts"_s), 1);
    QVERIFY(session.watches(u"Movies"_s, u"A Long Film"_s));
    QTRY_VERIFY(session.hasSeekRow());
    session.keepScreenshot(u"account-film"_s);
    QVERIFY(provider.http().requestCount(u"/movie/"_s + account + u"/1.mp4"_s) > 0);
    QVERIFY(session.close());

    QVERIFY(session.start());
    QVERIFY(session.seesTab(u"Live TV"_s, liveCategories, channels));
    QVERIFY(session.seesTab(u"Movies"_s, {u"Drama"_s}, films));
    QVERIFY(session.seesTab(u"TV Shows"_s, {u"Crime"_s}, shows));
    QVERIFY(session.watches(u"Live TV"_s, u"Football"_s));
    QVERIFY(session.close());
    QCOMPARE(provider.actions().size(), loginsAndCatalog);

    QVERIFY(session.traces().contains("[Xtream] ->"_L1));
    for (const QString &spelling : spellingsOf(provider.password())) {
        QVERIFY2(!session.traces().contains(spelling), qUtf8Printable(spelling));
    }
}

VANTIRO_TEST_MAIN(TestAccount)
#include "tst_Account.moc"
