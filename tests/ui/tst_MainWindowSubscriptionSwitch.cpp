#include "AccountFixture.h"
#include "SubscriptionEndpoint.h"
#include "support/TestMain.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QString key = u"KEY-1"_s;
const AccountCatalog emptyCatalog(accountParts);

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

/// Leaving a subscription while its key is being exchanged.
class tst_MainWindowSubscriptionSwitch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void anAnswerForASourceThatWasLeft_data();
    void anAnswerForASourceThatWasLeft();
    void fromOneSubscriptionToTheOther();
    void leavingAndComingBack();
    void anEditedKeyIsKept();
    void theSameNameOfAnotherType();
    void theWindowMayCloseDuringTheExchange();

private:
    std::unique_ptr<SubscriptionEndpoint> endpoint;
    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowSubscriptionSwitch::init()
{
    endpoint = std::make_unique<SubscriptionEndpoint>();
    endpoint->hold();
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, madeUpCatalog(u"New"_s));
    endpoint->accept(key, *provider);
}

void tst_MainWindowSubscriptionSwitch::cleanup()
{
    endpoint.reset();
}

void tst_MainWindowSubscriptionSwitch::anAnswerForASourceThatWasLeft_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<QByteArray>("answer");
    const QByteArray refused = R"({"status":"error","message":"No"})"_ba;
    QTest::newRow("for an account") << true << QByteArray();
    QTest::newRow("for a playlist") << false << QByteArray();
    QTest::newRow("for an account, with a refusal") << true << refused;
    QTest::newRow("for a playlist, with a refusal") << false << refused;
}

void tst_MainWindowSubscriptionSwitch::anAnswerForASourceThatWasLeft()
{
    QFETCH(bool, account);
    QFETCH(QByteArray, answer);
    if (!answer.isEmpty()) {
        endpoint->answer(key, answer);
    }
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    const QString here = u"http://127.0.0.1:9"_s;
    WindowFixture::store(account ? accountSource(u"Other"_s, here)
                                 : playlistSource(u"Other"_s, here));
    cacheCatalog(u"Other"_s, older);
    CatalogCache::save(u"Other"_s, u"channel"_s, {});
    fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys().size(), 1);
    QVERIFY(fixture.overlayShown());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    // What was left owes nothing more.
    QVERIFY(!fixture.overlayShown());

    fixture.overlay().beginCatalogFetch(1);
    endpoint->release();
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QVERIFY(fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), account ? older : emptyCatalog);
    QVERIFY(fixture.dialogs.seen().isEmpty());
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).url, QString());
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).lastUpdated, 0);
}

void tst_MainWindowSubscriptionSwitch::fromOneSubscriptionToTheOther()
{
    XtreamProvider otherProvider(u"other"_s, u"other secret"_s);
    serve(otherProvider, older);
    endpoint->accept(u"KEY-2"_s, otherProvider);
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"One"_s, key));
    WindowFixture::store(subscriptionSource(u"Two"_s, u"KEY-2"_s));
    fixture.open(endpoint->url());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(sorted(endpoint->keys()), (QStringList{key, u"KEY-2"_s}));
    endpoint->release();
    QTRY_COMPARE(shownCatalog(fixture), older);
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(otherProvider.actions().size(), 6);
    QCOMPARE(WindowFixture::stored(u"One"_s).url, QString());
    QCOMPARE(WindowFixture::stored(u"Two"_s).url, otherProvider.url());
}

void tst_MainWindowSubscriptionSwitch::leavingAndComingBack()
{
    WindowFixture fixture;
    cacheCatalog(u"Zevrino"_s, older);
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key, 0));
    WindowFixture::store(playlistSource(u"List"_s, u"/nowhere"_s));
    CatalogCache::save(u"List"_s, u"channel"_s, {});
    fixture.open(endpoint->url());
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.setCurrentIndex(1);
    combo.setCurrentIndex(0);
    QTRY_COMPARE(endpoint->keys(), (QStringList{key, key}));
    endpoint->release();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(provider->http().requestCount(), 0);
}

void tst_MainWindowSubscriptionSwitch::anEditedKeyIsKept()
{
    XtreamProvider otherProvider(u"other"_s, u"other secret"_s);
    serve(otherProvider, older);
    endpoint->accept(u"KEY-2"_s, otherProvider);
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys(), QStringList{key});
    // The old key's answer is on its way while the new one is typed; the new one comes first.
    endpoint->answerAtOnce(u"KEY-2"_s);
    fixture.dialogs.next([](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"keyEdit"_s)->setText(u"KEY-2"_s);
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(cachedCatalog(u"Zevrino"_s), older);
    endpoint->release();
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(endpoint->keys(), (QStringList{key, u"KEY-2"_s}));
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(provider->http().requestCount(), 0);
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).subscriptionKey, u"KEY-2"_s);
    QCOMPARE(WindowFixture::stored(u"Zevrino"_s).url, otherProvider.url());
}

void tst_MainWindowSubscriptionSwitch::theSameNameOfAnotherType()
{
    WindowFixture fixture;
    WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
    MainWindow &window = fixture.open(endpoint->url());
    QTRY_COMPARE(endpoint->keys().size(), 1);
    cacheCatalog(u"Zevrino"_s, older);
    window.loadSource(accountSource(u"Zevrino"_s, u"http://127.0.0.1:9"_s), false);
    endpoint->release();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), older);
    QCOMPARE(provider->http().requestCount(), 0);
}

void tst_MainWindowSubscriptionSwitch::theWindowMayCloseDuringTheExchange()
{
    {
        WindowFixture fixture;
        WindowFixture::store(subscriptionSource(u"Zevrino"_s, key));
        fixture.open(endpoint->url());
        QTRY_COMPARE(endpoint->http().openConnections(), 1);
    }
    QTRY_COMPARE(endpoint->http().openConnections(), 0);
    QCOMPARE(provider->http().requestCount(), 0);
}

VANTIRO_TEST_MAIN(tst_MainWindowSubscriptionSwitch)
#include "tst_MainWindowSubscriptionSwitch.moc"
