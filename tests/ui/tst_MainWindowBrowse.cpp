#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

/// One of the four tabs of an open window, by the prefix of its widgets' names.
struct TabView
{
    TabView(const WindowFixture &window, const QString &tabPrefix)
        : fixture(window)
        , prefix(tabPrefix)
    {
        const QStringList order{u"live"_s, u"movie"_s, u"series"_s, u"channel"_s};
        window.find<QTabWidget>(u"tabs"_s).setCurrentIndex(static_cast<int>(order.indexOf(prefix)));
    }

    bool isTable() const { return prefix == "live"_L1 || prefix == "channel"_L1; }
    template <typename Widget>
    Widget &part(const QString &suffix) const
    {
        return fixture.find<Widget>(prefix + suffix);
    }
    QListWidget &categories() const { return part<QListWidget>(u"CategoryList"_s); }
    QLineEdit &allSearch() const { return part<QLineEdit>(u"AllSearch"_s); }
    QLineEdit &search() const { return part<QLineEdit>(u"Search"_s); }
    QString title() const { return part<QLabel>(u"TitleLabel"_s).text(); }
    int page() const { return part<QStackedWidget>(u"Stack"_s).currentIndex(); }
    QAbstractItemView &view() const
    {
        return part<QAbstractItemView>(isTable() ? u"Table"_s : u"PosterList"_s);
    }
    QStringList names() const
    {
        QStringList result;
        for (int row = 0; row < view().model()->rowCount(); ++row) {
            result << view().model()->index(row, 0).data().toString();
        }
        return result;
    }
    void clickCategory(int row) const
    {
        categories().scrollToItem(categories().item(row));
        const QRect rect = categories().visualItemRect(categories().item(row));
        QTest::mouseClick(categories().viewport(), Qt::LeftButton, {}, rect.center());
    }
    void clickEntry(int row) const
    {
        const QRect rect = view().visualRect(view().model()->index(row, 0));
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, rect.center());
    }

    const WindowFixture &fixture;
    QString prefix;
};

MediaItem full(qint32 kind, const QString &name, const QString &category, double rating,
               qint64 added)
{
    MediaItem item = entry(kind, name, category);
    item.rating = rating;
    item.addedAt = added;
    return item;
}

QString idOf(const QString &name)
{
    return u"id of "_s + name;
}

/// `base` is where the entries' own URLs point.
CatalogCache::Section section(qint32 kind, const QString &base = {})
{
    CatalogCache::Section result{
        {{u"n"_s, u"News"_s}, {u"s"_s, u"Sport"_s}},
        {full(kind, u"Sky News"_s, u"n"_s, 5, 30), full(kind, u"Newsroom"_s, u"n"_s, 0, 10),
         full(kind, u"Arena"_s, u"s"_s, 9, 20), full(kind, u"News"_s, u"s"_s, 7, 0)}};
    for (MediaItem &item : result.items) {
        item.id = idOf(item.name);
        item.streamUrl = base + u'/' + item.name;
    }
    return result;
}

} // namespace

/// The four tabs in the window: categories, searches, sorting, and what a click or a key plays.
class tst_MainWindowBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aClickOpensACategory_data() { tabs(); }
    void aClickOpensACategory();
    void everyTabNamesItsEntries();
    void returnOpensTheCurrentCategory_data() { tabs(); }
    void returnOpensTheCurrentCategory();
    void aTabWithoutCategoriesShowsEverything();
    void theItemSearchFiltersTheCategory_data() { tabs(); }
    void theItemSearchFiltersTheCategory();
    void theSearchOverAllSpansTheCategories_data() { tabs(); }
    void theSearchOverAllSpansTheCategories();
    void theShowsStayAfterASearchAndAShow_data();
    void theShowsStayAfterASearchAndAShow();
    void aKeystrokeRefillsTheGridOnce();
    void sortBox_data();
    void sortBox();
    void aClickPlays_data();
    void aClickPlays();
    void returnPlaysTheCurrentRow_data() { aClickPlays_data(); }
    void returnPlaysTheCurrentRow();
    void rowsBeyondTheListDoNothing();
    void aClickOpensAShow();

private:
    static void tabs();
    void open(WindowFixture &fixture, const QString &tab);

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowBrowse::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

void tst_MainWindowBrowse::tabs()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<bool>("sorted");
    QTest::newRow("Live TV") << u"live"_s << false;
    QTest::newRow("Movies") << u"movie"_s << true;
    QTest::newRow("TV Shows") << u"series"_s << true;
    QTest::newRow("Channels") << u"channel"_s << false;
}

void tst_MainWindowBrowse::open(WindowFixture &fixture, const QString &tab)
{
    const bool playlist = tab == "channel"_L1;
    WindowFixture::store(playlist ? playlistSource(u"A"_s, u"/nowhere"_s)
                                  : accountSource(u"A"_s, server->url()));
    CatalogCache::save(u"A"_s, u"live"_s, section(0));
    CatalogCache::save(u"A"_s, u"movie"_s, section(1));
    CatalogCache::save(u"A"_s, u"series"_s, section(2));
    CatalogCache::save(u"A"_s, u"channel"_s, section(0, server->url()));
    fixture.open();
}

void tst_MainWindowBrowse::aClickOpensACategory()
{
    QFETCH(QString, tab);
    QFETCH(bool, sorted);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    QCOMPARE(view.page(), 0);
    QCOMPARE(view.categories().count(), 3);

    view.clickCategory(2);
    QCOMPARE(view.page(), 1);
    QCOMPARE(view.title(), u"Sport"_s);
    QCOMPARE(view.names(), (QStringList{u"Arena"_s, u"News"_s}));
    QVERIFY(view.view().isVisible());

    view.part<QStackedWidget>(u"Stack"_s).setCurrentIndex(0);
    view.clickCategory(0);
    QCOMPARE(view.title(), u"All Categories"_s);
    QCOMPARE(view.names(),
             sorted ? (QStringList{u"Arena"_s, u"News"_s, u"Newsroom"_s, u"Sky News"_s})
                    : (QStringList{u"Sky News"_s, u"Newsroom"_s, u"Arena"_s, u"News"_s}));
}

void tst_MainWindowBrowse::everyTabNamesItsEntries()
{
    WindowFixture fixture;
    fixture.open();
    const QHash<QString, QString> placeholders{{u"live"_s, u"Search all channels..."_s},
                                               {u"movie"_s, u"Search all movies..."_s},
                                               {u"series"_s, u"Search all shows..."_s},
                                               {u"channel"_s, u"Search all channels..."_s}};
    for (auto tab = placeholders.begin(); tab != placeholders.end(); ++tab) {
        const TabView view(fixture, tab.key());
        QCOMPARE(view.allSearch().placeholderText(), tab.value());
        if (view.isTable()) {
            QCOMPARE(view.view().model()->headerData(0, Qt::Horizontal).toString(), u"Channel"_s);
        }
    }
}

void tst_MainWindowBrowse::returnOpensTheCurrentCategory()
{
    QFETCH(QString, tab);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    view.categories().setFocus();
    view.categories().setCurrentItem(nullptr);
    QTest::keyClick(&view.categories(), Qt::Key_Return);
    QCOMPARE(view.page(), 0);
    QCOMPARE(view.title(), QString());

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        view.part<QStackedWidget>(u"Stack"_s).setCurrentIndex(0);
        view.categories().setFocus();
        view.categories().setCurrentRow(1);
        QTest::keyClick(&view.categories(), key);
        QCOMPARE(view.page(), 1);
        QCOMPARE(view.title(), u"News"_s);
        QCOMPARE(view.names().size(), 2);
    }
}

void tst_MainWindowBrowse::aTabWithoutCategoriesShowsEverything()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {{}, section(0).items});
    fixture.open();
    const TabView view(fixture, u"channel"_s);
    QCOMPARE(view.categories().count(), 1);
    view.clickCategory(0);
    QCOMPARE(view.title(), u"All Categories"_s);
    QCOMPARE(view.names().size(), 4);
}

void tst_MainWindowBrowse::theItemSearchFiltersTheCategory()
{
    QFETCH(QString, tab);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    view.clickCategory(2);
    QTest::keyClicks(&view.search(), u"news"_s);
    QCOMPARE(view.names(), QStringList{u"News"_s});
    QCOMPARE(view.title(), u"Sport"_s);

    // It goes on filtering when another category is chosen.
    view.part<QStackedWidget>(u"Stack"_s).setCurrentIndex(0);
    view.clickCategory(0);
    QCOMPARE(view.search().text(), u"news"_s);
    QCOMPARE(view.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));
}

void tst_MainWindowBrowse::theSearchOverAllSpansTheCategories()
{
    QFETCH(QString, tab);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    view.clickCategory(2);
    view.part<QStackedWidget>(u"Stack"_s).setCurrentIndex(0);
    QTest::keyClicks(&view.allSearch(), u"news"_s);
    QCOMPARE(view.page(), 0);
    QCOMPARE(view.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));
    QVERIFY(view.view().isVisible());
    QVERIFY(!view.categories().isVisible());
    QCOMPARE(view.title(), u"Search: \"news\""_s);
    QCOMPARE(view.search().text(), u"news"_s);

    view.allSearch().clear();
    QVERIFY(!view.view().isVisible());
    QVERIFY(view.categories().isVisible());
    QCOMPARE(view.search().text(), QString());
    QCOMPARE(view.title(), u"All Categories"_s);
    QCOMPARE(view.names().size(), 4);
}

void tst_MainWindowBrowse::theShowsStayAfterASearchAndAShow_data()
{
    QTest::addColumn<QString>("then");
    QTest::newRow("the search is cleared") << u"clear"_s;
    QTest::newRow("the source is refreshed") << u"refresh"_s;
    QTest::newRow("the source is chosen anew") << u"switch"_s;
}

void tst_MainWindowBrowse::theShowsStayAfterASearchAndAShow()
{
    QFETCH(QString, then);
    WindowFixture fixture;
    open(fixture, u"series"_s);
    const TabView view(fixture, u"series"_s);
    QTest::keyClicks(&view.allSearch(), u"news"_s);
    view.clickEntry(0);
    QCOMPARE(view.page(), 2);
    fixture.button(u"< Back to Shows"_s).click();
    QVERIFY(view.view().isVisible());
    // The first of the four buttons that reads so belongs to another tab.
    for (QPushButton *back : view.part<QStackedWidget>(u"Stack"_s).findChildren<QPushButton *>()) {
        if (back->text() == "< Back to Categories"_L1) {
            QTest::mouseClick(back, Qt::LeftButton);
        }
    }
    QCOMPARE(view.page(), 0);
    QVERIFY(view.view().isVisible());
    QCOMPARE(view.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));

    if (then == "clear"_L1) {
        view.allSearch().clear();
    } else {
        fixture.window().loadSource(WindowFixture::stored(u"A"_s), then == "refresh"_L1);
    }
    const TabView again(fixture, u"series"_s);
    QVERIFY(again.categories().isVisible());
    QVERIFY(!again.view().isVisible());
    again.clickCategory(0);
    QCOMPARE(again.page(), 1);
    QVERIFY(again.view().isVisible());
    QCOMPARE(again.names().size(), then == "refresh"_L1 ? 0 : 4);
}

void tst_MainWindowBrowse::aKeystrokeRefillsTheGridOnce()
{
    WindowFixture fixture;
    open(fixture, u"movie"_s);
    const TabView view(fixture, u"movie"_s);
    const QSignalSpy refilled(view.view().model(), &QAbstractItemModel::modelReset);
    QTest::keyClicks(&view.allSearch(), u"new"_s);
    QCOMPARE(refilled.count(), 3);
    QTest::keyClick(&view.allSearch(), Qt::Key_Backspace);
    QCOMPARE(refilled.count(), 4);
    view.allSearch().clear();
    QCOMPARE(refilled.count(), 5);
    view.clickCategory(1);
    QCOMPARE(refilled.count(), 6);
    QTest::keyClicks(&view.search(), u"ne"_s);
    QCOMPARE(refilled.count(), 8);
    view.part<QComboBox>(u"SortCombo"_s).setCurrentIndex(2);
    QCOMPARE(refilled.count(), 9);
}

void tst_MainWindowBrowse::sortBox_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected");
    for (const QString &tab : {u"movie"_s, u"series"_s}) {
        const auto row = [&tab](const char *name, int key, const QString &query,
                                const QStringList &expected) {
            QTest::addRow("%s, %s", qUtf8Printable(tab), name) << tab << key << query << expected;
        };
        row("by name", 0, {}, {u"Arena"_s, u"News"_s, u"Newsroom"_s, u"Sky News"_s});
        row("by date", 1, {}, {u"Sky News"_s, u"Arena"_s, u"Newsroom"_s, u"News"_s});
        row("by rating", 2, {}, {u"Arena"_s, u"News"_s, u"Sky News"_s, u"Newsroom"_s});
        row("by date, the best match first", 1, u"news"_s,
            {u"News"_s, u"Newsroom"_s, u"Sky News"_s});
    }
}

void tst_MainWindowBrowse::sortBox()
{
    QFETCH(QString, tab);
    QFETCH(int, key);
    QFETCH(QString, query);
    QFETCH(QStringList, expected);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    view.clickCategory(0);
    view.search().setText(query);
    auto &box = view.part<QComboBox>(u"SortCombo"_s);
    // Away first, so that every key is a change.
    box.setCurrentIndex(key == 0 ? 2 : 0);
    box.setCurrentIndex(key);
    QCOMPARE(view.names(), expected);
}

void tst_MainWindowBrowse::aClickPlays_data()
{
    QTest::addColumn<QString>("tab");
    QTest::newRow("Live TV") << u"live"_s;
    QTest::newRow("Movies") << u"movie"_s;
    QTest::newRow("Channels") << u"channel"_s;
}

void tst_MainWindowBrowse::aClickPlays()
{
    QFETCH(QString, tab);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    view.clickCategory(0);
    QCOMPARE(playing.count(), 0);
    view.clickEntry(1);
    QCOMPARE(playing.count(), 1);
    QCOMPARE(fixture.find<QLabel>(u"mutedLabel"_s).text(), u"Playing: "_s + view.names().at(1));
}

void tst_MainWindowBrowse::returnPlaysTheCurrentRow()
{
    QFETCH(QString, tab);
    WindowFixture fixture;
    open(fixture, tab);
    const TabView view(fixture, tab);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    view.clickCategory(0);
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        view.view().setFocus();
        view.view().setCurrentIndex(view.view().model()->index(2, 0));
        QTest::keyClick(&view.view(), key);
        QCOMPARE(playing.count(), ++expected);
        QCOMPARE(fixture.find<QLabel>(u"mutedLabel"_s).text(), u"Playing: "_s + view.names().at(2));
    }
}

void tst_MainWindowBrowse::rowsBeyondTheListDoNothing()
{
    WindowFixture fixture;
    open(fixture, u"live"_s);
    MainWindow &window = fixture.window();
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    for (const int row : {-1, 4, 1000}) {
        window.playLiveRow(row, 0);
        window.playMovieRow(row, 0);
        window.playChannelRow(row, 0);
        window.openSeriesRow(row, 0);
    }
    QCOMPARE(playing.count(), 0);
    QCOMPARE(fixture.find<QStackedWidget>(u"seriesStack"_s).currentIndex(), 0);
    // The column is not asked for.
    window.playLiveRow(0, 7);
    QCOMPARE(playing.count(), 1);
}

void tst_MainWindowBrowse::aClickOpensAShow()
{
    WindowFixture fixture;
    open(fixture, u"series"_s);
    CatalogCache::saveEpisodes(u"A"_s, idOf(u"Newsroom"_s),
                               {{u"1"_s, u"Newsroom"_s, 1, 1, u"Start"_s, {}}});
    const TabView view(fixture, u"series"_s);
    view.clickCategory(1);
    view.clickEntry(0);
    QCOMPARE(view.page(), 2);
    QCOMPARE(fixture.find<QLabel>(u"episodeTitleLabel"_s).text(), u"Newsroom"_s);
    QCOMPARE(fixture.find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount(), 1);
    QCOMPARE(server->requestCount(), 0);
    fixture.button(u"< Back to Shows"_s).click();
    QCOMPARE(view.page(), 1);

    view.view().setFocus();
    view.view().setCurrentIndex(view.view().model()->index(0, 0));
    QTest::keyClick(&view.view(), Qt::Key_Return);
    QCOMPARE(view.page(), 2);
}

VANTIRO_TEST_MAIN(tst_MainWindowBrowse)
#include "tst_MainWindowBrowse.moc"
