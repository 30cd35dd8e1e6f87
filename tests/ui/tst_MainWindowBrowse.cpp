// The four tabs in the window: which one a slot is about, and what an entry of each does.

#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

const QStringList prefixes{u"live"_s, u"movie"_s, u"series"_s, u"channel"_s};

CatalogCache::Section section(qint32 kind, const QString &base = {})
{
    CatalogCache::Section result{{{u"n"_s, u"News"_s}, {u"s"_s, u"Sport"_s}}, {}};
    for (const QString &name : {u"Arena"_s, u"Derby"_s, u"Match"_s}) {
        result.items << entry(kind, name, u"s"_s);
        result.items.last().streamUrl = base + u'/' + name;
    }
    return result;
}

} // namespace

class tst_MainWindowBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void categorySlots_data() { tabs(); }
    void categorySlots();
    void filterSlots_data() { tabs(); }
    void filterSlots();
    void rowSlots_data() { tabs(); }
    void rowSlots();
    void aClickActivates_data() { tabs(); }
    void aClickActivates();
    void aShowOpens();

private:
    static void tabs();
    QAbstractItemView &view(const QString &tab) const;
    int page(const QString &tab) const;
    QString playingText() const { return fixture->find<QLabel>(u"mutedLabel"_s).text(); }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<WindowFixture> fixture;
};

void tst_MainWindowBrowse::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    fixture = std::make_unique<WindowFixture>();
    WindowFixture::store(accountSource(u"A"_s, server->url()));
    WindowFixture::store(playlistSource(u"P"_s, u"/nowhere"_s));
    WindowFixture::storeLastActive(u"A"_s);
    for (qint32 kind = 0; kind < 3; ++kind) {
        CatalogCache::save(u"A"_s, prefixes.at(kind), section(kind));
    }
    CatalogCache::save(u"P"_s, u"channel"_s, section(StreamKind::Live, server->url()));
    CatalogCache::saveEpisodes(u"A"_s, u"Derby"_s, {{u"1"_s, u"Derby"_s, 1, 1, u"Start"_s, {}}});
    fixture->open();
    if (QLatin1StringView(QTest::currentDataTag()) == "channel"_L1) {
        fixture->window().loadSource(WindowFixture::stored(u"P"_s), false);
    }
}

void tst_MainWindowBrowse::tabs()
{
    QTest::addColumn<QString>("tab");
    for (const QString &prefix : prefixes) {
        QTest::newRow(qUtf8Printable(prefix)) << prefix;
    }
}

QAbstractItemView &tst_MainWindowBrowse::view(const QString &tab) const
{
    const bool table = tab == "live"_L1 || tab == "channel"_L1;
    return fixture->find<QAbstractItemView>(tab + (table ? "Table"_L1 : "PosterList"_L1));
}

int tst_MainWindowBrowse::page(const QString &tab) const
{
    return fixture->find<QStackedWidget>(tab + "Stack"_L1).currentIndex();
}

void tst_MainWindowBrowse::categorySlots()
{
    QFETCH(QString, tab);
    const QHash<QString, void (MainWindow::*)(QListWidgetItem *)> slotOf{
        {u"live"_s, &MainWindow::selectLiveCategory},
        {u"movie"_s, &MainWindow::selectMovieCategory},
        {u"series"_s, &MainWindow::selectSeriesCategory},
        {u"channel"_s, &MainWindow::selectChannelCategory}};
    auto &categories = fixture->find<QListWidget>(tab + "CategoryList"_L1);
    (fixture->window().*slotOf.value(tab))(categories.item(2));
    for (const QString &prefix : prefixes) {
        QCOMPARE(page(prefix), prefix == tab ? 1 : 0);
    }
    QCOMPARE(fixture->find<QLabel>(tab + "TitleLabel"_L1).text(), u"Sport"_s);
}

void tst_MainWindowBrowse::filterSlots()
{
    QFETCH(QString, tab);
    const QHash<QString, void (MainWindow::*)()> slotOf{
        {u"live"_s, &MainWindow::filterLive},
        {u"movie"_s, &MainWindow::filterMovies},
        {u"series"_s, &MainWindow::filterSeries},
        {u"channel"_s, &MainWindow::filterChannels}};
    QAbstractItemModel &rows = *view(tab).model();
    rows.removeRows(0, rows.rowCount());
    (fixture->window().*slotOf.value(tab))();
    QCOMPARE(rows.rowCount(), 3);
}

void tst_MainWindowBrowse::rowSlots()
{
    QFETCH(QString, tab);
    const QHash<QString, void (MainWindow::*)(int, int)> slotOf{
        {u"live"_s, &MainWindow::playLiveRow},
        {u"movie"_s, &MainWindow::playMovieRow},
        {u"series"_s, &MainWindow::openSeriesRow},
        {u"channel"_s, &MainWindow::playChannelRow}};
    const QSignalSpy playing(&fixture->player(), &VlcPlayer::playing);
    for (const int row : {-1, 3, 1000}) {
        (fixture->window().*slotOf.value(tab))(row, 0);
    }
    QCOMPARE(playing.count(), 0);
    QCOMPARE(page(u"series"_s), 0);
    // The column is ignored.
    (fixture->window().*slotOf.value(tab))(1, 7);
    const bool shows = tab == "series"_L1;
    QCOMPARE(page(u"series"_s), shows ? 2 : 0);
    QCOMPARE(playingText(), shows ? u"Nothing playing"_s : u"Playing: Derby"_s);
}

void tst_MainWindowBrowse::aClickActivates()
{
    QFETCH(QString, tab);
    fixture->find<QTabWidget>(u"tabs"_s).setCurrentIndex(static_cast<int>(prefixes.indexOf(tab)));
    fixture->find<QStackedWidget>(tab + "Stack"_L1).setCurrentIndex(1);
    QAbstractItemView &rows = view(tab);
    const QRect rect = rows.visualRect(rows.model()->index(1, 0));
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rect.center());
    const bool shows = tab == "series"_L1;
    QCOMPARE(page(u"series"_s), shows ? 2 : 0);
    QCOMPARE(playingText(), shows ? u"Nothing playing"_s : u"Playing: Derby"_s);
}

void tst_MainWindowBrowse::aShowOpens()
{
    fixture->window().openSeriesRow(1, 0);
    QCOMPARE(fixture->find<QLabel>(u"episodeTitleLabel"_s).text(), u"Derby"_s);
    QCOMPARE(fixture->find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount(), 1);
    QCOMPARE(server->requestCount(), 0);
    fixture->button(u"< Back to Shows"_s).click();
    QCOMPARE(page(u"series"_s), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowBrowse)
#include "tst_MainWindowBrowse.moc"
