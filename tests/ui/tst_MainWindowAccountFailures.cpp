#include "AccountFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QDateTime>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;
Q_DECLARE_METATYPE(Manner)

/// What comes of servers that fail or refuse, and of those that answer in unusual ways.
class tst_MainWindowAccountFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aFailureEmptiesItsHalf_data();
    void aFailureEmptiesItsHalf();
    void aServerThatRefuses_data();
    void aServerThatRefuses();
    void aServerThatNeverAnswers();
    void everyWayToSendIt_data();
    void everyWayToSendIt();

private:
    std::unique_ptr<XtreamProvider> provider;
    const AccountCatalog catalog = madeUpCatalog(u"New"_s);
    const AccountCatalog older = madeUpCatalog(u"Old"_s);
};

void tst_MainWindowAccountFailures::init()
{
    provider = std::make_unique<XtreamProvider>();
    serve(*provider, catalog);
}

void tst_MainWindowAccountFailures::aFailureEmptiesItsHalf_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<Manner>("manner");
    const QStringList actions = XtreamAction::catalog();
    for (int part = 0; part < accountParts; ++part) {
        const QByteArray action = actions.at(part).toLatin1();
        QTest::addRow("%s: a page", action.constData()) << part << Manner::HtmlPage;
        QTest::addRow("%s: 503", action.constData()) << part << Manner::Unavailable;
        QTest::addRow("%s: cut", action.constData()) << part << Manner::CutReply;
    }
}

void tst_MainWindowAccountFailures::aFailureEmptiesItsHalf()
{
    QFETCH(int, part);
    QFETCH(Manner, manner);
    WindowFixture fixture;
    cacheCatalog(u"A"_s, older);
    WindowFixture::store(sourceFor(*provider, u"A"_s, 0));
    MainWindow &window = fixture.open();
    QCOMPARE(shownCatalog(fixture), older);

    provider->setManner(XtreamAction::catalog().at(part), manner);
    window.refreshActiveSource();
    QTRY_VERIFY(!fixture.overlayShown());
    AccountCatalog expected = catalog;
    expected[part].clear();
    QCOMPARE(shownCatalog(fixture), expected);
    QCOMPARE(cachedCatalog(u"A"_s), expected);
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowAccountFailures::aServerThatRefuses_data()
{
    QTest::addColumn<Manner>("manner");
    QTest::addColumn<QString>("password");
    QTest::addColumn<bool>("listening");
    QTest::newRow("connections") << Manner::Plain << u"secret"_s << false;
    QTest::newRow("this account") << Manner::Plain << u"wrong"_s << true;
    QTest::newRow("everything, 503") << Manner::Unavailable << u"secret"_s << true;
    QTest::newRow("everything, with a page") << Manner::HtmlPage << u"secret"_s << true;
}

void tst_MainWindowAccountFailures::aServerThatRefuses()
{
    QFETCH(Manner, manner);
    QFETCH(QString, password);
    QFETCH(bool, listening);
    WindowFixture fixture;
    cacheCatalog(u"A"_s, older);
    SourceConfig source = sourceFor(*provider, u"A"_s, 86400);
    source.password = password;
    WindowFixture::store(source);
    provider->setMannerOfCatalog(manner);
    if (!listening) {
        provider->http().refuse();
    }
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    fixture.open();
    // A refusal can be quicker than the window.
    QTRY_VERIFY(!fixture.overlayShown());
    QTRY_COMPARE(cachedCatalog(u"A"_s), AccountCatalog(accountParts));
    QCOMPARE(shownCatalog(fixture), AccountCatalog(accountParts));
    QVERIFY(fixture.dialogs.seen().isEmpty());
    // The attempt counts, although it brought nothing.
    QVERIFY(WindowFixture::stored(u"A"_s).lastUpdated >= before);
}

void tst_MainWindowAccountFailures::aServerThatNeverAnswers()
{
    HttpReply silent;
    silent.neverAnswer = true;
    provider->http().on(u"/player_api.php"_s, silent);
    XtreamProvider other;
    serve(other, catalog);
    WindowFixture fixture;
    cacheCatalog(u"A"_s, older);
    WindowFixture::store(sourceFor(*provider, u"A"_s, 0));
    WindowFixture::store(sourceFor(other, u"B"_s));
    MainWindow &window = fixture.open();
    fixture.setReplyTimeout(300);
    // Twice: nothing is left of the first attempt.
    for (int attempt = 1; attempt <= 2; ++attempt) {
        window.refreshActiveSource();
        QVERIFY(fixture.overlayShown());
        QTRY_VERIFY(!fixture.overlayShown());
        QCOMPARE(shownCatalog(fixture), AccountCatalog(accountParts));
    }
    QVERIFY(fixture.dialogs.seen().isEmpty());
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(shownCatalog(fixture), catalog);
}

void tst_MainWindowAccountFailures::everyWayToSendIt_data()
{
    QTest::addColumn<Manner>("manner");
    QTest::newRow("compressed") << Manner::Gzip;
    QTest::newRow("in chunks") << Manner::Chunked;
    QTest::newRow("after a redirect") << Manner::Redirect;
}

void tst_MainWindowAccountFailures::everyWayToSendIt()
{
    QFETCH(Manner, manner);
    WindowFixture fixture;
    provider->setMannerOfCatalog(manner);
    WindowFixture::store(sourceFor(*provider, u"A"_s));
    fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    QCOMPARE(shownCatalog(fixture), catalog);
    QCOMPARE(provider->actions().size(), 6);
}

VANTIRO_TEST_MAIN(tst_MainWindowAccountFailures)
#include "tst_MainWindowAccountFailures.moc"
