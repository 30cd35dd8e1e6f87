// The four tabs in the window: which one a slot is about, and what an entry of each does.

#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/BrowseTab.h"
#include "ui/MainWindow.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

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

class tst_MainWindowBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slotsActOnTheirTab_data();
    void slotsActOnTheirTab();
};

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
    HttpServer server;
    server.onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    WindowFixture fixture;
    WindowFixture::store(tabSlots.at(index).prefix == "channel"_L1
                             ? playlistSource(u"A"_s, u"/nowhere"_s)
                             : accountSource(u"A"_s, server.url()));
    for (const TabSlots &each : tabSlots) {
        CatalogCache::Section section{{{u"s"_s, u"Sport"_s}}, {}};
        for (const QString &name : {u"Arena"_s, u"Derby"_s, u"Match"_s}) {
            section.items << entry(each.kind, name, u"s"_s);
            section.items.last().streamUrl = server.url(u'/' + name);
        }
        CatalogCache::save(u"A"_s, each.prefix, section);
    }
    CatalogCache::saveEpisodes(u"A"_s, u"Derby"_s, {{u"1"_s, u"Derby"_s, 1, 1, u"Start"_s, {}}});
    MainWindow &window = fixture.open();
    const TabSlots &tab = tabSlots.at(index);
    const auto page = [&fixture](const QString &prefix) {
        return fixture.find<BrowseTab>(prefix + "Tab"_L1).currentPage();
    };

    fixture.find<QTabWidget>(u"tabs"_s).setCurrentIndex(index);
    (window.*tab.selectCategory)(fixture.find<QListWidget>(tab.prefix + "CategoryList"_L1).item(1));
    for (const TabSlots &each : tabSlots) {
        QCOMPARE(page(each.prefix), each.prefix == tab.prefix ? 1 : 0);
    }
    QCOMPARE(fixture.find<QLabel>(tab.prefix + "TitleLabel"_L1).text(), u"Sport"_s);

    auto &view = fixture.find<QAbstractItemView>(tab.prefix + tab.viewSuffix);
    view.model()->removeRows(0, 3);
    (window.*tab.filter)();
    QCOMPARE(view.model()->rowCount(), 3);

    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    for (const int row : {-1, 3, 1000}) {
        (window.*tab.activateRow)(row, 0);
    }
    QCOMPARE(page(tab.prefix), 1);
    QCOMPARE(playing.count(), 0);
    // By a click, and by the slot, which ignores the column.
    const auto &text = fixture.find<QLabel>(u"mutedLabel"_s);
    const QRect rect = view.visualRect(view.model()->index(1, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, rect.center());
    if (tab.prefix == "series"_L1) {
        QCOMPARE(text.text(), u"Nothing playing"_s);
        QCOMPARE(page(tab.prefix), 2);
        QCOMPARE(fixture.find<QLabel>(u"episodeTitleLabel"_s).text(), u"Derby"_s);
        QCOMPARE(fixture.find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount(), 1);
        fixture.button(u"< Back to Shows"_s).click();
        QCOMPARE(page(tab.prefix), 1);
        (window.*tab.activateRow)(1, 7);
        QCOMPARE(page(tab.prefix), 2);
    } else {
        QCOMPARE(text.text(), u"Playing: Derby"_s);
        (window.*tab.activateRow)(2, 7);
        QCOMPARE(text.text(), u"Playing: Match"_s);
        QCOMPARE(playing.count(), 2);
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowBrowse)
#include "tst_MainWindowBrowse.moc"
