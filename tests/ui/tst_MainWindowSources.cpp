#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 hour = 3600;

/// A fresh playlist source whose one cached channel is called like it.
void storeCachedPlaylist(const QString &name, qint64 ageSeconds = 0, const QString &url = {})
{
    WindowFixture::store(
        playlistSource(name, url.isEmpty() ? u"/nowhere/"_s + name : url, ageSeconds));
    CatalogCache::save(
        name, u"channel"_s,
        {{{u"Group"_s, u"Group"_s}}, {channel(name, u"http://127.0.0.1:9/x"_s, u"Group"_s)}});
}

/// A fresh account source whose cached channel, movie and show are called like it.
void storeCachedAccount(const QString &name)
{
    WindowFixture::store(accountSource(name, u"http://127.0.0.1:9"_s));
    CatalogCache::save(name, u"live"_s, {{{u"1"_s, u"L"_s}}, {entry(0, name, u"1"_s)}});
    CatalogCache::save(name, u"movie"_s, {{{u"1"_s, u"M"_s}}, {entry(1, name, u"1"_s)}});
    CatalogCache::save(name, u"series"_s, {{{u"1"_s, u"S"_s}}, {entry(2, name, u"1"_s)}});
}

QString visibleTabs(const WindowFixture &fixture)
{
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QStringList titles;
    for (int index = 0; index < tabs.count(); ++index) {
        if (tabs.isTabVisible(index)) {
            titles << tabs.tabText(index);
        }
    }
    return titles.join(u',') + u'>' + tabs.tabText(tabs.currentIndex());
}

} // namespace

/// Which source is active, what switching does to the tabs, and when a source is fetched again.
class tst_MainWindowSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstStartOpensAddSourceOverTheWindow();
    void sourceSelectedAtStart_data();
    void sourceSelectedAtStart();
    void oneSourceIsLoadedAlthoughItIsCurrent();
    void selectingASourceLoadsIt();
    void aSourceThatIsGoneIsIgnored();
    void tabsOfEachKind_data();
    void tabsOfEachKind();
    void switchingEmptiesTheTabs();
    void switchingForgetsSearchesOfAllTabs_data();
    void switchingForgetsSearchesOfAllTabs();
    void refreshFetchesAlthoughTheCacheIsFresh();
    void refreshWithoutASourceDoesNothing();
    void autoRefreshLeavesAYoungSource();
    void autoRefreshFetchesAfterADay();
    void autoRefreshWaitsAfterAFailure();
    void autoRefreshWithoutASourceDoesNothing();
};

void tst_MainWindowSources::firstStartOpensAddSourceOverTheWindow()
{
    WindowFixture fixture;
    bool windowShown = false;
    fixture.dialogs.next([&](QDialog &dialog) {
        windowShown = fixture.window().isVisible();
        dialog.reject();
    });
    fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Add Source"_s);
    QVERIFY(windowShown);
    QCOMPARE(fixture.find<QComboBox>(u"sourceCombo"_s).count(), 0);
    QCOMPARE(WindowFixture::storedNames(), QStringList());
}

void tst_MainWindowSources::sourceSelectedAtStart_data()
{
    QTest::addColumn<QString>("lastActive");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the last active one") << u"B"_s << u"B"_s;
    QTest::newRow("the last active one, last in the list") << u"C"_s << u"C"_s;
    QTest::newRow("the first when none was active") << QString() << u"A"_s;
    QTest::newRow("the first when the last active one is gone") << u"Gone"_s << u"A"_s;
    QTest::newRow("the first when the case differs") << u"b"_s << u"A"_s;
    QTest::newRow("the first when it is only a part") << u"C "_s << u"A"_s;
}

void tst_MainWindowSources::sourceSelectedAtStart()
{
    QFETCH(QString, lastActive);
    QFETCH(QString, expected);
    WindowFixture fixture;
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s}) {
        storeCachedPlaylist(name);
    }
    if (!lastActive.isEmpty()) {
        WindowFixture::storeLastActive(lastActive);
    }
    fixture.open();

    const auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    QStringList items;
    for (int index = 0; index < combo.count(); ++index) {
        items << combo.itemText(index) + combo.itemData(index, Qt::UserRole).toString();
    }
    QCOMPARE(items, (QStringList{u"AA"_s, u"BB"_s, u"CC"_s}));
    QCOMPARE(combo.currentText(), expected);
    QCOMPARE(shownChannels(fixture), QStringList{expected});
    QCOMPARE(WindowFixture::storedLastActive(), expected);
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowSources::oneSourceIsLoadedAlthoughItIsCurrent()
{
    WindowFixture fixture;
    HttpServer server;
    server.on(u"/list.m3u"_s, bodyReply(oneChannel(u"One"_s)));
    WindowFixture::store(playlistSource(u"Only"_s, server.url(u"/list.m3u"_s), neverLoaded));
    WindowFixture::storeLastActive(u"Only"_s);
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"One"_s});
    QCOMPARE(server.requestCount(), 1);
}

void tst_MainWindowSources::selectingASourceLoadsIt()
{
    WindowFixture fixture;
    storeCachedPlaylist(u"A"_s);
    storeCachedPlaylist(u"B"_s);
    MainWindow &window = fixture.open();
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QCOMPARE(shownChannels(fixture), QStringList{u"B"_s});
    QCOMPARE(WindowFixture::storedLastActive(), u"B"_s);

    window.onSourceSelected(-1);
    QCOMPARE(shownChannels(fixture), QStringList{u"B"_s});
    window.onSourceSelected(0);
    QCOMPARE(shownChannels(fixture), QStringList{u"A"_s});
}

void tst_MainWindowSources::aSourceThatIsGoneIsIgnored()
{
    WindowFixture fixture;
    storeCachedPlaylist(u"A"_s);
    MainWindow &window = fixture.open();
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    combo.addItem(u"A"_s, u"a"_s);
    combo.setCurrentIndex(1);
    QCOMPARE(shownChannels(fixture), QStringList{u"A"_s});
    QCOMPARE(WindowFixture::storedLastActive(), u"A"_s);
    window.editSource();
    QVERIFY(fixture.dialogs.seen().isEmpty());
}

void tst_MainWindowSources::tabsOfEachKind_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("expected");
    const QString account = u"Live TV,Movies,TV Shows>Live TV"_s;
    const QString playlist = u"Channels>Channels"_s;
    QTest::newRow("playlist") << SourceType::Playlist << playlist;
    QTest::newRow("account") << SourceType::Xtream << account;
    QTest::newRow("an unknown type is loaded as a playlist") << 7 << playlist;
    QTest::newRow("a negative type is loaded as a playlist") << -1 << playlist;
}

void tst_MainWindowSources::tabsOfEachKind()
{
    QFETCH(qint32, type);
    QFETCH(QString, expected);
    WindowFixture fixture;
    // The other kind first, so that tabs must both come and go.
    const bool account = type == SourceType::Xtream;
    account ? storeCachedPlaylist(u"First"_s) : storeCachedAccount(u"First"_s);
    account ? storeCachedAccount(u"Second"_s) : storeCachedPlaylist(u"Second"_s);
    SourceConfig second = WindowFixture::stored(u"Second"_s);
    second.type = type;
    WindowFixture::store(second);
    fixture.open();
    QVERIFY(visibleTabs(fixture) != expected);
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QCOMPARE(visibleTabs(fixture), expected);
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowSources::switchingEmptiesTheTabs()
{
    WindowFixture fixture;
    storeCachedAccount(u"Account"_s);
    storeCachedPlaylist(u"List"_s);
    MainWindow &window = fixture.open();
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    const auto stack = [&](const QString &name) -> QStackedWidget & {
        return fixture.find<QStackedWidget>(name + "Stack"_L1);
    };
    QCOMPARE(rowTexts(fixture.find<QTableWidget>(u"liveTable"_s)), QStringList{u"Account"_s});
    for (const QString &tab : {u"live"_s, u"movie"_s, u"series"_s}) {
        stack(tab).setCurrentIndex(1);
    }
    stack(u"series"_s).setCurrentIndex(2);
    combo.setCurrentIndex(1);
    stack(u"channel"_s).setCurrentIndex(1);
    for (const QString &tab : {u"live"_s, u"movie"_s, u"series"_s}) {
        QCOMPARE(stack(tab).currentIndex(), 0);
    }
    // The lists of the account are empty now: refiltering finds nothing.
    window.filterLive();
    window.filterMovies();
    window.filterSeries();
    QCOMPARE(fixture.find<QTableWidget>(u"liveTable"_s).rowCount(), 0);
    QCOMPARE(fixture.find<QListWidget>(u"moviePosterList"_s).count(), 0);
    QCOMPARE(fixture.find<QListWidget>(u"seriesPosterList"_s).count(), 0);
    // The categories stay until new ones come.
    QCOMPARE(fixture.find<QListWidget>(u"liveCategoryList"_s).count(), 2);

    combo.setCurrentIndex(0);
    QCOMPARE(stack(u"channel"_s).currentIndex(), 0);
    window.filterChannels();
    QCOMPARE(shownChannels(fixture), QStringList());
}

void tst_MainWindowSources::switchingForgetsSearchesOfAllTabs_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("field");
    for (const QString &tab : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        QTest::addRow("%s: a category", qPrintable(tab)) << tab << QString();
        QTest::addRow("%s: in a category", qPrintable(tab)) << tab << tab + "Search"_L1;
        QTest::addRow("%s: in all categories", qPrintable(tab)) << tab << tab + "AllSearch"_L1;
    }
}

void tst_MainWindowSources::switchingForgetsSearchesOfAllTabs()
{
    QFETCH(QString, tab);
    QFETCH(QString, field);
    const bool playlist = tab == "channel"_L1;
    WindowFixture fixture;
    for (const QString &name : {u"A"_s, u"B"_s}) {
        playlist ? storeCachedPlaylist(name) : storeCachedAccount(name);
    }
    // The same kind of source with other categories.
    CatalogCache::Section section;
    QVERIFY(CatalogCache::load(u"B"_s, tab, section));
    section.categories = {{u"7"_s, u"Other"_s}};
    section.items[0].categoryId = u"7"_s;
    CatalogCache::save(u"B"_s, tab, section);
    fixture.open();
    auto &categories = fixture.find<QListWidget>(tab + "CategoryList"_L1);
    const auto shown = [&] {
        const bool grid = tab == "movie"_L1 || tab == "series"_L1;
        return grid ? fixture.find<QListWidget>(tab + "PosterList"_L1).count()
                    : fixture.find<QTableWidget>(tab + "Table"_L1).rowCount();
    };
    if (field.isEmpty()) {
        categories.setCurrentRow(1);
        Q_EMIT categories.itemClicked(categories.item(1));
        QCOMPARE(shown(), 1);
    } else {
        fixture.find<QLineEdit>(field).setText(u"nothing like it"_s);
        QCOMPARE(shown(), 0);
    }

    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QCOMPARE(fixture.find<QLineEdit>(tab + "Search"_L1).text(), QString());
    QCOMPARE(fixture.find<QLineEdit>(tab + "AllSearch"_L1).text(), QString());
    QCOMPARE(fixture.find<QStackedWidget>(tab + "Stack"_L1).currentIndex(), 0);
    QVERIFY(!categories.isHidden());
    QCOMPARE(categories.selectedItems().size(), 0);
    const QString title = fixture.find<QLabel>(tab + "TitleLabel"_L1).text();
    QVERIFY2(title.isEmpty() || title == "All Categories"_L1, qPrintable(title));
    // Of all categories: the one chosen before is not asked for any more.
    QCOMPARE(shown(), 1);
}

void tst_MainWindowSources::refreshFetchesAlthoughTheCacheIsFresh()
{
    WindowFixture fixture;
    HttpServer server;
    server.on(u"/list.m3u"_s, bodyReply(oneChannel(u"New"_s)));
    storeCachedPlaylist(u"A"_s, hour, server.url(u"/list.m3u"_s));
    fixture.open();
    QCOMPARE(shownChannels(fixture), QStringList{u"A"_s});
    QCOMPARE(server.requestCount(), 0);
    fixture.button(u"Refresh Playlist"_s).click();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"New"_s});
    QCOMPARE(server.requestCount(), 1);
}

void tst_MainWindowSources::refreshWithoutASourceDoesNothing()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    fixture.button(u"Refresh Playlist"_s).click();
    window.refreshActiveSource();
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(WindowFixture::storedNames(), QStringList());
}

void tst_MainWindowSources::autoRefreshLeavesAYoungSource()
{
    WindowFixture fixture;
    HttpServer server;
    storeCachedPlaylist(u"A"_s, 23 * hour, server.url(u"/list.m3u"_s));
    MainWindow &window = fixture.open();
    const qint64 stamp = WindowFixture::stored(u"A"_s).lastUpdated;
    window.checkAutoRefresh();
    // A fetch would show the overlay and stamp the source before anything else.
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(WindowFixture::stored(u"A"_s).lastUpdated, stamp);
    QCOMPARE(shownChannels(fixture), QStringList{u"A"_s});
}

void tst_MainWindowSources::autoRefreshFetchesAfterADay()
{
    WindowFixture fixture;
    HttpServer server;
    server.on(u"/list.m3u"_s, bodyReply(oneChannel(u"New"_s)));
    storeCachedPlaylist(u"A"_s, 0, server.url(u"/list.m3u"_s));
    MainWindow &window = fixture.open();
    // Young enough for now, a day old two seconds later.
    window.loadSource(playlistSource(u"A"_s, server.url(u"/list.m3u"_s), 24 * hour - 2), false);
    QCOMPARE(shownChannels(fixture), QStringList{u"A"_s});
    QCOMPARE(server.requestCount(), 0);
    fixture.autoRefreshTimer().setInterval(10);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"New"_s});
    QCOMPARE(server.requestCount(), 1);
}

void tst_MainWindowSources::autoRefreshWaitsAfterAFailure()
{
    WindowFixture fixture;
    HttpServer server;
    server.on(u"/list.m3u"_s, statusReply(500));
    WindowFixture::store(playlistSource(u"A"_s, server.url(u"/list.m3u"_s), neverLoaded));
    MainWindow &window = fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    window.checkAutoRefresh();
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(server.requestCount(), 1);
}

void tst_MainWindowSources::autoRefreshWithoutASourceDoesNothing()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    window.checkAutoRefresh();
    QVERIFY(!fixture.overlayShown());
    QCOMPARE(WindowFixture::storedNames(), QStringList());
}

VANTIRO_TEST_MAIN(tst_MainWindowSources)
#include "tst_MainWindowSources.moc"
