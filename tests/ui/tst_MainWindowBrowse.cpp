// The four tabs in the window: which one a slot is about, and what an entry of each does.

#include "PosterFixture.h"
#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "ui/BrowseTab.h"

#include <QSignalSpy>
#include <QTreeWidget>

namespace {

/// A tab's object-name prefix, the suffix of its view, its cache section's kind, and its slots.
struct TabSlots
{
    QString prefix;
    QString viewSuffix;
    qint32 kind;
    void (MainWindow::*selectCategory)(QListWidgetItem *);
    void (MainWindow::*filter)();
    void (MainWindow::*activateRow)(int, int);
};

const QList<TabSlots> tabSlots{
    {u"live"_s, u"Table"_s, StreamKind::Live, &MainWindow::selectLiveCategory,
     &MainWindow::filterLive, &MainWindow::playLiveRow},
    {u"movie"_s, u"PosterList"_s, StreamKind::Movie, &MainWindow::selectMovieCategory,
     &MainWindow::filterMovies, &MainWindow::playMovieRow},
    {u"series"_s, u"PosterList"_s, StreamKind::Series, &MainWindow::selectSeriesCategory,
     &MainWindow::filterSeries, &MainWindow::openSeriesRow},
    {u"channel"_s, u"Table"_s, StreamKind::Live, &MainWindow::selectChannelCategory,
     &MainWindow::filterChannels, &MainWindow::playChannelRow}};

} // namespace

class tst_MainWindowBrowse : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void slotsActOnTheirTab_data();
    void slotsActOnTheirTab();
    void theTabsShareTheirPosters();

private:
    void openWith(const TabSlots &tab);
    int page(const QString &prefix) const
    {
        return find<BrowseTab>(prefix + "Tab"_L1).currentPage();
    }

    HttpServer server;
};

void tst_MainWindowBrowse::openWith(const TabSlots &tab)
{
    reset();
    server.onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    store(tab.prefix == "channel"_L1 ? playlistSource(u"A"_s, u"/nowhere"_s)
                                     : accountSource(u"A"_s, server.url()));
    for (const TabSlots &each : tabSlots) {
        CatalogCache::Section section{{{u"s"_s, u"Sport"_s}}, {}};
        for (const QString &name : {u"Arena"_s, u"Derby"_s, u"Match"_s}) {
            section.items << entry(each.kind, name, u"s"_s);
            section.items.last().streamUrl = server.url(u'/' + name);
        }
        CatalogCache::save(u"A"_s, each.prefix, section);
    }
    CatalogCache::saveEpisodes(u"A"_s, u"Derby"_s, {Episode()});
    open();
}

void tst_MainWindowBrowse::slotsActOnTheirTab_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < tabSlots.size(); ++index) {
        QTest::newRow(qUtf8Printable(tabSlots.at(index).prefix)) << index;
    }
}

void tst_MainWindowBrowse::slotsActOnTheirTab()
{
    QFETCH(int, index);
    const TabSlots &tab = tabSlots.at(index);
    openWith(tab);
    tabs().setCurrentIndex(index);
    (window().*tab.selectCategory)(find<QListWidget>(tab.prefix + "CategoryList"_L1).item(1));
    for (const TabSlots &each : tabSlots) {
        QCOMPARE(page(each.prefix), each.prefix == tab.prefix ? 1 : 0);
    }
    QCOMPARE(find<QLabel>(tab.prefix + "TitleLabel"_L1).text(), u"Sport"_s);

    auto &view = find<QAbstractItemView>(tab.prefix + tab.viewSuffix);
    view.model()->removeRows(0, 3);
    (window().*tab.filter)();
    QCOMPARE(view.model()->rowCount(), 3);

    // By a click, and by the slot, which ignores the column.
    const QSignalSpy playing(&player(), &VlcPlayer::playing);
    const QRect rect = view.visualRect(view.model()->index(1, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, rect.center());
    if (tab.prefix == "series"_L1) {
        QCOMPARE(playing.count(), 0);
        QCOMPARE(page(tab.prefix), 2);
        QCOMPARE(find<QLabel>(u"episodeTitleLabel"_s).text(), u"Derby"_s);
        QCOMPARE(find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount(), 1);
        button(u"< Back to Shows"_s).click();
        QCOMPARE(page(tab.prefix), 1);
        (window().*tab.activateRow)(1, 7);
        QCOMPARE(page(tab.prefix), 2);
    } else {
        QCOMPARE(nowPlaying(), u"Playing: Derby"_s);
        (window().*tab.activateRow)(2, 7);
        QCOMPARE(nowPlaying(), u"Playing: Match"_s);
        QCOMPARE(playing.count(), 2);
    }
}

void tst_MainWindowBrowse::theTabsShareTheirPosters()
{
    reset();
    PosterServer posters;
    const QString first = PosterServer::pathOf(0);
    posters.on(first, held(imageReply(pngOf(blue))));
    store(accountSource(u"A"_s, u"http://127.0.0.1:9"_s));
    CatalogCache::save(u"A"_s, u"live"_s, {});
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, filmsWith(posters.posters(1000))});
    CatalogCache::save(u"A"_s, u"series"_s, {{}, filmsWith(posters.posters(1))});
    open();
    tabs().setCurrentIndex(1);
    find<BrowseTab>(u"movieTab"_s).showPage(BrowsePage::Items);
    auto &films = find<QListWidget>(u"moviePosterList"_s);
    auto &shows = find<QListWidget>(u"seriesPosterList"_s);
    QTRY_COMPARE(posters.requestCount(first), 2);
    posters.release(first);
    QTRY_COMPARE(colorOf(shows.item(0)->icon()), blue);
    QTRY_COMPARE(colorOf(films.item(0)->icon()), blue);
    QCOMPARE(shows.item(0)->icon().cacheKey(), films.item(0)->icon().cacheKey());

    // Of a thousand films only those near the view are requested.
    QTRY_COMPARE(colorOf(films.item(1)->icon()), red);
    QVERIFY(posters.requestCount() < 100);
    films.scrollToBottom();
    QTRY_COMPARE(colorOf(films.item(999)->icon()), red);
}

VANTIRO_TEST_MAIN(tst_MainWindowBrowse)
#include "tst_MainWindowBrowse.moc"
