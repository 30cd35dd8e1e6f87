#include "RowMenus.h"
#include "TabFixture.h"
#include "library/Library.h"
#include "ui/TabLibrary.h"

#include <QAction>
#include <QComboBox>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {

const QString source = u"Source"_s;

QList<MediaItem> numbered(const QStringList &names)
{
    QList<MediaItem> items;
    for (const QString &name : names) {
        MediaItem item = film(name, name.left(1) == u"N"_s ? u"n"_s : u"s"_s);
        item.id = u"id-"_s + name;
        items.append(item);
    }
    return items;
}

/// A tab with a library; its entries are News 1, News 2, Sport 1 and Sport 2.
struct KeptTab
{
    explicit KeptTab(CatalogSection section)
        : kind(entryKind(section))
        , tab(section)
        , kept(&library, section, nullptr)
    {
        tab.tab.setLibrary(&kept);
        tab.tab.setItems(items);
        kept.setSource(source);
    }

    LibraryEntry entry(int row) const { return libraryEntry(source, kind, items.at(row)); }
    QStringList categories() const
    {
        QStringList texts;
        for (int row = 0; row < tab.categories.count(); ++row)
            texts << tab.categories.item(row)->text();
        return texts;
    }
    void openList(const QString &name)
    {
        const qsizetype row = categories().indexOf(name);
        tab.tab.selectCategory(row < 0 ? nullptr : tab.categories.item(static_cast<int>(row)));
    }
    bool choose(int row, const QString &action)
    {
        return RowMenus::choose(RowMenus::openByMouse(tab.view, row), action);
    }
    QString describedRow(int row) const
    {
        return tab.view.model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    }

    const QList<MediaItem> items = numbered({u"News 1"_s, u"News 2"_s, u"Sport 1"_s, u"Sport 2"_s});
    EntryKind kind;
    QTemporaryDir folder;
    Library library{folder.filePath(u"library.sqlite"_s), nullptr};
    Tab tab;
    TabLibrary kept;
    QSignalSpy undos{&kept, &TabLibrary::undoOffered};
};

Progress halfWatched(const LibraryEntry &entry)
{
    Progress row = progressOf(entry);
    row.positionMs = 60'000;
    row.durationMs = 120'000;
    return row;
}

} // namespace

Q_DECLARE_METATYPE(LibraryChange)

/// What all four tabs show of the library.
class tst_BrowseTabLibrary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void nothingIsKept();
    void favoritesShowWhileThereAreAny();
    void favoritesOfAnotherSource();
    void favoriteByMenu();
    void favoriteInSearchResults();
    void removingFromTheOpenList();
    void favoritesKeepTheirOrder();
    void movingFavorites_data();
    void movingFavorites();
    void favoritesAreSearched();
    void entriesThatAreGoneReturn();
    void recentlyWatched();
    void hiddenCategories();
    void marks();
    void watchedByMenu();
    void continueWatching();
    void progressLeavesTheListAlone();

private:
    bool isTable() const { return kept->tab.spec.heading != nullptr; }

    std::unique_ptr<KeptTab> kept;
    const QStringList plain{u"All Categories"_s, u"News"_s, u"Sport"_s};
    const QStringList withFavorites{u"All Categories"_s, u"Favorites"_s, u"News"_s, u"Sport"_s};
};

void tst_BrowseTabLibrary::initTestCase_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::newRow("Live TV") << CatalogSection::Live;
    QTest::newRow("Movies") << CatalogSection::Movie;
    QTest::newRow("TV Shows") << CatalogSection::Series;
    QTest::newRow("Channels") << CatalogSection::Channel;
}

void tst_BrowseTabLibrary::init()
{
    QFETCH_GLOBAL(CatalogSection, section);
    kept = std::make_unique<KeptTab>(section);
}

void tst_BrowseTabLibrary::nothingIsKept()
{
    QCOMPARE(kept->categories(), plain);
    kept->tab.openCategory(0);
    QCOMPARE(kept->tab.names().size(), 4);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(kept->describedRow(row), QString());
    QVERIFY(!QFile::exists(kept->folder.filePath(u"library.sqlite"_s)));
}

void tst_BrowseTabLibrary::favoritesShowWhileThereAreAny()
{
    kept->library.addFavorite(kept->entry(2));
    QCOMPARE(kept->categories(), withFavorites);
    kept->openList(u"Favorites"_s);
    QCOMPARE(kept->tab.title.text(), u"Favorites"_s);
    QCOMPARE(kept->tab.tab.currentPage(), BrowsePage::Items);
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 1"_s});
    Tab::click(kept->tab.view, 0);
    QCOMPARE(kept->tab.activatedName(), u"Sport 1"_s);
    // A change of source leaves the list.
    kept->tab.tab.reset();
    kept->tab.tab.setItems(kept->items);
    QCOMPARE(kept->tab.names().size(), 4);
    kept->library.removeFavorite(kept->entry(2));
    QCOMPARE(kept->categories(), plain);
}

void tst_BrowseTabLibrary::favoritesOfAnotherSource()
{
    LibraryEntry other = kept->entry(0);
    other.source = u"Other"_s;
    kept->library.addFavorite(other);
    QCOMPARE(kept->categories(), plain);
    kept->tab.openCategory(0);
    QCOMPARE(kept->describedRow(0), QString());
    kept->kept.setSource(u"Other"_s);
    QCOMPARE(kept->categories(), withFavorites);
    QCOMPARE(kept->describedRow(0), u"Favorite"_s);
}

void tst_BrowseTabLibrary::favoriteByMenu()
{
    kept->tab.openCategory(1);
    QVERIFY(kept->choose(1, u"Add to Favorites"_s));
    QCOMPARE(kept->library.favorites(source, kept->kind).keys(), QStringList{u"id-News 2"_s});
    QCOMPARE(kept->describedRow(1), u"Favorite"_s);
    kept->tab.view.setCurrentIndex(kept->tab.view.model()->index(1, 0));
    QVERIFY(RowMenus::choose(RowMenus::openByKey(kept->tab.view), u"Remove from Favorites"_s));
    QVERIFY(kept->library.favorites(source, kept->kind).isEmpty());
    QCOMPARE(kept->undos.size(), 1);
    QCOMPARE(kept->undos.constFirst().at(0).toString(), u"Removed from Favorites"_s);
    kept->library.apply(kept->undos.constFirst().at(1).value<LibraryChange>());
    QCOMPARE(kept->describedRow(1), u"Favorite"_s);
    // A place without an entry has nothing to offer.
    QCOMPARE(RowMenus::openByMouse(kept->tab.view, -1), nullptr);
}

void tst_BrowseTabLibrary::favoriteInSearchResults()
{
    kept->tab.allSearch.setText(u"sport"_s);
    kept->tab.view.setCurrentIndex(kept->tab.view.model()->index(0, 0));
    kept->tab.tab.toggleFavorite();
    QCOMPARE(kept->library.favorites(source, kept->kind).keys(), QStringList{u"id-Sport 1"_s});
    kept->tab.tab.toggleFavorite();
    QVERIFY(kept->library.favorites(source, kept->kind).isEmpty());
}

void tst_BrowseTabLibrary::removingFromTheOpenList()
{
    kept->library.addFavorite(kept->entry(0));
    kept->library.addFavorite(kept->entry(1));
    kept->openList(u"Favorites"_s);
    QVERIFY(kept->choose(0, u"Remove from Favorites"_s));
    QCOMPARE(kept->tab.names(), QStringList{u"News 2"_s});
    QVERIFY(kept->choose(0, u"Remove from Favorites"_s));
    QCOMPARE(kept->tab.names(), QStringList());
    kept->library.apply(kept->undos.constLast().at(1).value<LibraryChange>());
    QCOMPARE(kept->tab.names(), QStringList{u"News 2"_s});
}

void tst_BrowseTabLibrary::favoritesKeepTheirOrder()
{
    kept->library.addFavorite(kept->entry(3));
    kept->library.addFavorite(kept->entry(0));
    kept->openList(u"Favorites"_s);
    if (isTable()) {
        QCOMPARE(kept->tab.names(), (QStringList{u"Sport 2"_s, u"News 1"_s}));
        return;
    }
    auto &sort = kept->tab.part<QComboBox>(u"SortCombo"_s);
    QVERIFY(sort.isEnabled());
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"Sport 2"_s}));
}

void tst_BrowseTabLibrary::movingFavorites_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("down") << 0 << u"Move Down"_s
                          << QStringList{u"News 2"_s, u"News 1"_s, u"Sport 1"_s};
    QTest::newRow("up") << 2 << u"Move Up"_s << QStringList{u"News 1"_s, u"Sport 1"_s, u"News 2"_s};
    QTest::newRow("up at the top")
        << 0 << u"Move Up"_s << QStringList{u"News 1"_s, u"News 2"_s, u"Sport 1"_s};
    QTest::newRow("down at the end")
        << 2 << u"Move Down"_s << QStringList{u"News 1"_s, u"News 2"_s, u"Sport 1"_s};
}

void tst_BrowseTabLibrary::movingFavorites()
{
    QFETCH(int, from);
    QFETCH(QString, action);
    QFETCH(QStringList, order);
    for (int row = 0; row < 3; ++row)
        kept->library.addFavorite(kept->entry(row));
    kept->openList(u"Favorites"_s);
    kept->tab.view.setCurrentIndex(kept->tab.view.model()->index(from, 0));
    const QString moved = kept->tab.names().at(from);
    if (!isTable()) {
        QVERIFY(!RowMenus::texts(RowMenus::openByMouse(kept->tab.view, from)).contains(action));
        return;
    }
    QVERIFY(kept->choose(from, action));
    QCOMPARE(kept->tab.names(), order);
    QCOMPARE(kept->tab.view.currentIndex().data().toString(), moved);
    // By the key as well, back again.
    if (kept->tab.names().indexOf(moved) != from) {
        kept->tab.view.setFocus();
        QTest::keyClick(&kept->tab.view, action == u"Move Up"_s ? Qt::Key_Down : Qt::Key_Up,
                        Qt::AltModifier);
        QCOMPARE(kept->tab.names().indexOf(moved), from);
    }
    // Without a current row the key moves nothing.
    const QStringList before = kept->tab.names();
    kept->tab.view.setFocus();
    kept->tab.view.setCurrentIndex({});
    QTest::keyClick(&kept->tab.view, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(kept->tab.names(), before);
    // Elsewhere rows do not move.
    kept->tab.openCategory(0);
    const auto &table = kept->tab.part<QTableWidget>(u"Table"_s);
    QVERIFY(!table.dragEnabled());
    QVERIFY(!RowMenus::texts(RowMenus::openByMouse(kept->tab.view, 1)).contains(action));
}

void tst_BrowseTabLibrary::favoritesAreSearched()
{
    for (int row = 3; row >= 0; --row)
        kept->library.addFavorite(kept->entry(row));
    kept->openList(u"Favorites"_s);
    if (isTable())
        QVERIFY(kept->tab.part<QTableWidget>(u"Table"_s).dragEnabled());
    kept->tab.search.setText(u"sport"_s);
    QCOMPARE(kept->tab.names(), isTable() ? (QStringList{u"Sport 2"_s, u"Sport 1"_s})
                                          : (QStringList{u"Sport 1"_s, u"Sport 2"_s}));
    if (isTable()) // Moving is for the whole list.
        QVERIFY(!kept->tab.part<QTableWidget>(u"Table"_s).dragEnabled());
    // A search over all categories is over all entries.
    kept->tab.tab.showPage(BrowsePage::Categories);
    kept->library.removeFavorite(kept->entry(0));
    kept->tab.allSearch.setText(u"news"_s);
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"News 2"_s}));
}

void tst_BrowseTabLibrary::entriesThatAreGoneReturn()
{
    kept->library.addFavorite(kept->entry(0));
    kept->library.addFavorite(kept->entry(2));
    kept->tab.tab.setItems(kept->items.mid(1));
    kept->openList(u"Favorites"_s);
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 1"_s});
    kept->tab.tab.setItems(kept->items);
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"Sport 1"_s}));
}

void tst_BrowseTabLibrary::recentlyWatched()
{
    kept->library.noteWatched(kept->entry(0));
    kept->library.noteWatched(kept->entry(3));
    QCOMPARE(kept->categories(),
             (QStringList{u"All Categories"_s, u"Recently Watched"_s, u"News"_s, u"Sport"_s}));
    kept->openList(u"Recently Watched"_s);
    QCOMPARE(kept->tab.names(), (QStringList{u"Sport 2"_s, u"News 1"_s}));
    if (!isTable())
        QVERIFY(!kept->tab.part<QComboBox>(u"SortCombo"_s).isEnabled());
    kept->library.noteWatched(kept->entry(0));
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"Sport 2"_s}));
    QVERIFY(kept->choose(0, u"Remove from List"_s));
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 2"_s});
    QCOMPARE(kept->undos.constLast().at(0).toString(), u"Removed from Recently Watched"_s);
    kept->library.apply(kept->undos.constLast().at(1).value<LibraryChange>());
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"Sport 2"_s}));
    kept->tab.openCategory(0);
    QVERIFY(
        !RowMenus::texts(RowMenus::openByMouse(kept->tab.view, 0)).contains(u"Remove from List"_s));
    if (!isTable())
        QVERIFY(kept->tab.part<QComboBox>(u"SortCombo"_s).isEnabled());
}

void tst_BrowseTabLibrary::hiddenCategories()
{
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(kept->tab.categories, 1), u"Hide Category"_s));
    QCOMPARE(kept->categories(), (QStringList{u"All Categories"_s, u"Sport"_s}));
    QCOMPARE(kept->undos.constLast().at(0).toString(), u"Category Hidden"_s);
    kept->tab.openCategory(0);
    QCOMPARE(kept->tab.names(), (QStringList{u"Sport 1"_s, u"Sport 2"_s}));
    kept->tab.search.setText(u"1"_s);
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 1"_s});
    kept->tab.tab.showPage(BrowsePage::Categories);
    kept->tab.allSearch.setText(u"news"_s);
    QCOMPARE(kept->tab.names(), QStringList());
    kept->tab.allSearch.clear();

    // The category itself can still be opened, and brought back.
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(kept->tab.categories, -1),
                             u"Show Hidden Categories"_s));
    kept->openList(u"News"_s);
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"News 2"_s}));
    kept->tab.openCategory(0);
    kept->tab.tab.showPage(BrowsePage::Categories);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(kept->tab.categories, 1), u"Unhide Category"_s));
    QCOMPARE(kept->categories(), plain);
    QCOMPARE(kept->tab.names().size(), 4);
}

void tst_BrowseTabLibrary::marks()
{
    const QColor star(0xf5c518);
    const auto showsStar = [&] {
        const QImage image = kept->tab.view.grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == star)
                    return true;
            }
        }
        return false;
    };
    kept->tab.openCategory(0);
    QVERIFY(!showsStar());
    kept->library.addFavorite(kept->entry(0));
    QVERIFY(showsStar());
    if (kept->kind != EntryKind::Movie)
        return;
    kept->library.notePosition(halfWatched(kept->entry(0)));
    QCOMPARE(kept->describedRow(0), u"Favorite, 50 % watched"_s);
    kept->library.setWatched({progressOf(kept->entry(0))}, true);
    QCOMPARE(kept->describedRow(0), u"Favorite, Watched"_s);
}

void tst_BrowseTabLibrary::watchedByMenu()
{
    const QString watched = u"Mark as Watched"_s;
    const QString unwatched = u"Mark as Unwatched"_s;
    kept->tab.openCategory(0);
    const auto offered = [&] {
        QMenu *menu = RowMenus::openByMouse(kept->tab.view, 0);
        QStringList texts = RowMenus::texts(menu);
        if (menu != nullptr)
            menu->close();
        texts.removeAll(u"Add to Favorites"_s);
        return texts;
    };
    if (isTable()) {
        QCOMPARE(offered(), QStringList());
        return;
    }
    QCOMPARE(offered(), QStringList{watched});
    if (kept->kind == EntryKind::Show) {
        QSignalSpy requests(&kept->kept, &TabLibrary::showMarkRequested);
        QVERIFY(kept->choose(0, watched));
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests.constFirst().at(0).value<MediaItem>().id, kept->items.at(0).id);
        QCOMPARE(requests.constFirst().at(1).toBool(), true);
        return;
    }
    QVERIFY(kept->choose(0, watched));
    QCOMPARE(kept->describedRow(0), u"Watched"_s);
    QCOMPARE(offered(), QStringList{unwatched});
    QVERIFY(kept->choose(0, unwatched));
    QCOMPARE(kept->describedRow(0), QString());
    QCOMPARE(kept->undos.constLast().at(0).toString(), u"Marked as Unwatched"_s);
    kept->library.notePosition(halfWatched(kept->entry(0)));
    QCOMPARE(offered(), (QStringList{watched, unwatched}));
}

void tst_BrowseTabLibrary::continueWatching()
{
    if (kept->kind == EntryKind::Movie) {
        kept->library.notePosition(halfWatched(kept->entry(2)));
    } else if (kept->kind == EntryKind::Show) {
        LibraryEntry episode = kept->entry(2);
        episode.kind = EntryKind::Episode;
        episode.id = u"episode"_s;
        Progress row = halfWatched(episode);
        row.showId = kept->items.at(2).id;
        kept->library.notePosition(row);
    } else {
        kept->library.notePosition(halfWatched(kept->entry(2)));
        QCOMPARE(kept->categories(), plain);
        return;
    }
    QCOMPARE(kept->categories(),
             (QStringList{u"All Categories"_s, u"Continue Watching"_s, u"News"_s, u"Sport"_s}));
    kept->openList(u"Continue Watching"_s);
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 1"_s});
    QSignalSpy continued(&kept->tab.tab, &BrowseTab::continued);
    Tab::click(kept->tab.view, 0);
    QCOMPARE(continued.size(), 1);
    QVERIFY(kept->tab.activations.isEmpty());
}

/// While a film plays its place is noted again and again.
void tst_BrowseTabLibrary::progressLeavesTheListAlone()
{
    if (kept->kind != EntryKind::Movie)
        return;
    kept->library.addFavorite(kept->entry(0));
    kept->openList(u"Favorites"_s);
    kept->tab.refills.clear();
    kept->library.notePosition(halfWatched(kept->entry(0)));
    QCOMPARE(kept->tab.refills.size(), 0);
    kept->openList(u"Continue Watching"_s);
    kept->tab.refills.clear();
    Progress later = halfWatched(kept->entry(0));
    later.positionMs += 10'000;
    kept->library.notePosition(later);
    QCOMPARE(kept->tab.refills.size(), 0);
}

VANTIRO_TEST_MAIN(tst_BrowseTabLibrary)
#include "tst_BrowseTabLibrary.moc"
