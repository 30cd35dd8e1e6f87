#include "KeptTab.h"

#include <QComboBox>

namespace {

Progress halfWatched(const LibraryEntry &entry)
{
    Progress row = progressOf(entry);
    row.positionMs = 60'000;
    row.durationMs = 120'000;
    return row;
}

} // namespace

/// What all four tabs show of the library, besides the favorites.
class tst_BrowseTabLibrary : public QObject, private KeptTabs
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addSections(); }
    void init() { reset(); }
    void nothingIsKept();
    void recentlyWatched();
    void hiddenCategories();
    void hidingLeavesTheOpenCategory();
    void marks();
    void watchedByMenu();
    void continueWatching();
    void progressLeavesTheListAlone();
};

void tst_BrowseTabLibrary::nothingIsKept()
{
    QCOMPARE(kept->categories(), plain);
    kept->tab.openCategory(0);
    QCOMPARE(kept->tab.names().size(), 4);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(kept->describedRow(row), QString());
    QVERIFY(!QFile::exists(kept->folder.filePath(u"library.sqlite"_s)));
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

void tst_BrowseTabLibrary::hidingLeavesTheOpenCategory()
{
    const QStringList news{u"News 1"_s, u"News 2"_s};
    kept->openList(u"News"_s);
    kept->tab.view.setCurrentIndex(kept->tab.view.model()->index(1, 0));
    kept->tab.refills.clear();
    for (const Category &category : {Category{u"s"_s, u"Sport"_s}, {u"n"_s, u"News"_s}}) {
        kept->library.hideCategory(source, kept->kind, category);
        QCOMPARE(kept->tab.names(), news);
        QCOMPARE(kept->tab.view.currentIndex().row(), 1);
    }
    QCOMPARE(kept->tab.refills.size(), 0);
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
