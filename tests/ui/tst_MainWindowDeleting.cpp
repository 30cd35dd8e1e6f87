#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QTableWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

using Manner = XtreamProvider::Manner;

namespace {

void deleteCurrent(WindowFixture &fixture)
{
    fixture.dialogs.nextClicks(u"Delete Source"_s);
    fixture.dialogs.nextClicks(u"Yes"_s);
    fixture.window().editSource();
}

/// Accepts the form of a playlist with another name and address.
void renameCurrent(WindowFixture &fixture, const QString &name, const QString &url)
{
    fixture.dialogs.next([name, url](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(name);
        dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(url);
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.window().editSource();
}

} // namespace

/// What a deleted or renamed source leaves behind: nothing.
class tst_MainWindowDeleting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void twinGoesAsWell();
    void twinGoesWhenOneIsRenamed();
    void deletingTheLastRowLoadsTheOneAbove();
    void renamingRemovesTheOldRecordFirst();
    void lateRepliesAreNotStoredAgain();
    void deletingTheLastEmptiesTheTabs();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowDeleting::init()
{
    server = std::make_unique<HttpServer>();
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        server->on(u'/' + name, bodyReply(oneChannel(name)));
    }
}

void tst_MainWindowDeleting::twinGoesAsWell()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next([this](QDialog &dialog) {
        dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(0);
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(u"A"_s);
        dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(server->url(u"/b"_s));
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.window().addSource();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(sourceNames(fixture), (QStringList{u"A"_s, u"C"_s, u"A"_s}));

    deleteCurrent(fixture);
    QCOMPARE(sourceNames(fixture), QStringList{u"C"_s});
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"C"_s});
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"c"_s});
    QCOMPARE(server->requestCount(u"/c"_s), 1);
}

void tst_MainWindowDeleting::twinGoesWhenOneIsRenamed()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.addItem(u"A"_s, u"A"_s);
    combo.setCurrentIndex(2);
    renameCurrent(fixture, u"New"_s, server->url(u"/b"_s));
    QCOMPARE(sourceNames(fixture), (QStringList{u"C"_s, u"New"_s}));
    QCOMPARE(combo.currentText(), u"New"_s);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(server->requestCount(u"/c"_s), 0);
}

void tst_MainWindowDeleting::deletingTheLastRowLoadsTheOneAbove()
{
    WindowFixture fixture;
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        WindowFixture::store(playlistSource(name, server->url(u'/' + name), neverLoaded));
    }
    WindowFixture::storeLastActive(u"c"_s);
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"c"_s});
    deleteCurrent(fixture);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(sourceNames(fixture), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(fixture.find<QComboBox>(u"sourceCombo"_s).currentIndex(), 1);
    QCOMPARE(WindowFixture::storedLastActive(), u"b"_s);
    QCOMPARE(server->requestCount(u"/b"_s), 1);
}

void tst_MainWindowDeleting::renamingRemovesTheOldRecordFirst()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    renameCurrent(fixture, u"New"_s, server->url(u"/b"_s));
    QCOMPARE(WindowFixture::storedNames(), (QStringList{u"C"_s, u"New"_s}));
    // Stored first, it would have made the list longer by one for a while.
    const QSettings settings(u"Vantiro"_s, u"Player"_s);
    QVERIFY(settings.contains(u"sources/2/name"_s));
    QVERIFY(!settings.contains(u"sources/3/name"_s));

    // To the name of another one, which is replaced in place.
    renameCurrent(fixture, u"C"_s, server->url(u"/b"_s));
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"C"_s});
    QCOMPARE(WindowFixture::stored(u"C"_s).url, server->url(u"/b"_s));
}

void tst_MainWindowDeleting::lateRepliesAreNotStoredAgain()
{
    XtreamProvider provider;
    serve(provider, madeUpCatalog(u"New"_s));
    provider.setMannerOfCatalog(Manner::Held);
    WindowFixture fixture;
    WindowFixture::store(sourceFor(provider, u"A"_s));
    fixture.open();
    QTRY_COMPARE(provider.http().openConnections(), 6);
    // The only one: nothing takes its place.
    deleteCurrent(fixture);
    QVERIFY(!fixture.overlayShown());
    releaseCatalog(provider);
    QTRY_VERIFY(fixture.repliesUnderWay().isEmpty());
    QCOMPARE(WindowFixture::storedNames(), QStringList());
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    fixture.window().checkAutoRefresh();
    fixture.window().refreshActiveSource();
    QCOMPARE(WindowFixture::storedNames(), QStringList());
}

void tst_MainWindowDeleting::deletingTheLastEmptiesTheTabs()
{
    WindowFixture fixture;
    // Of an account and of a playlist that were loaded before.
    cacheCatalog(u"Account"_s, madeUpCatalog(u"Old"_s));
    WindowFixture::store(accountSource(u"Account"_s, u"http://127.0.0.1:9"_s));
    WindowFixture::store(playlistSource(u"List"_s, server->url(u"/a"_s), neverLoaded));
    MainWindow &window = fixture.open();
    CatalogCache::saveEpisodes(u"Account"_s, u"1"_s, {Episode()});
    window.showEpisodesInline(u"1"_s, u"Show"_s);
    auto &episodes = fixture.find<QTreeWidget>(u"episodeTree"_s);
    QCOMPARE(episodes.topLevelItemCount(), 1);
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    auto &categories = fixture.find<QListWidget>(u"channelCategoryList"_s);
    window.selectChannelCategory(categories.item(0));
    fixture.find<QLineEdit>(u"channelAllSearch"_s).setText(u"a"_s);

    deleteCurrent(fixture);
    deleteCurrent(fixture);
    QCOMPARE(sourceNames(fixture), QStringList());
    QCOMPARE(shownCatalog(fixture), emptyCatalog);
    QCOMPARE(shownChannels(fixture), QStringList());
    QCOMPARE(episodes.topLevelItemCount(), 0);
    for (const QString &tab : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        QCOMPARE(fixture.find<QListWidget>(tab + "CategoryList"_L1).count(), 0);
        QCOMPARE(fixture.find<QLabel>(tab + "TitleLabel"_L1).text(), QString());
        QCOMPARE(fixture.find<QLineEdit>(tab + "AllSearch"_L1).text(), QString());
    }
    // Nothing of it plays any more.
    window.playLiveRow(0, 0);
    window.playMovieRow(0, 0);
    window.playChannelRow(0, 0);
    window.playNextEpisode();
    QVERIFY(fixture.find<QWidget>(u"controlsRow"_s).isHidden());
}

VANTIRO_TEST_MAIN(tst_MainWindowDeleting)
#include "tst_MainWindowDeleting.moc"
