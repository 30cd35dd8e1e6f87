#include "KeptTab.h"

#include <QComboBox>
#include <QTableWidget>

/// What all four tabs show of the favorites, and how these change.
class tst_BrowseTabFavorites : public QObject, private KeptTabs
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addSections(); }
    void init() { reset(); }
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

private:
    const QStringList withFavorites{u"All Categories"_s, u"Favorites"_s, u"News"_s, u"Sport"_s};
};

void tst_BrowseTabFavorites::favoritesShowWhileThereAreAny()
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

void tst_BrowseTabFavorites::favoritesOfAnotherSource()
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

void tst_BrowseTabFavorites::favoriteByMenu()
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

void tst_BrowseTabFavorites::favoriteInSearchResults()
{
    kept->tab.allSearch.setText(u"sport"_s);
    kept->tab.view.setCurrentIndex(kept->tab.view.model()->index(0, 0));
    kept->tab.tab.toggleFavorite();
    QCOMPARE(kept->library.favorites(source, kept->kind).keys(), QStringList{u"id-Sport 1"_s});
    kept->tab.tab.toggleFavorite();
    QVERIFY(kept->library.favorites(source, kept->kind).isEmpty());
    // A search without results has no current row.
    kept->tab.allSearch.setText(u"nothing"_s);
    kept->tab.tab.toggleFavorite();
    QVERIFY(kept->library.favorites(source, kept->kind).isEmpty());
}

void tst_BrowseTabFavorites::removingFromTheOpenList()
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

void tst_BrowseTabFavorites::favoritesKeepTheirOrder()
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

void tst_BrowseTabFavorites::movingFavorites_data()
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

void tst_BrowseTabFavorites::movingFavorites()
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

void tst_BrowseTabFavorites::favoritesAreSearched()
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

void tst_BrowseTabFavorites::entriesThatAreGoneReturn()
{
    kept->library.addFavorite(kept->entry(0));
    kept->library.addFavorite(kept->entry(2));
    kept->tab.tab.setItems(kept->items.mid(1));
    kept->openList(u"Favorites"_s);
    QCOMPARE(kept->tab.names(), QStringList{u"Sport 1"_s});
    kept->tab.tab.setItems(kept->items);
    QCOMPARE(kept->tab.names(), (QStringList{u"News 1"_s, u"Sport 1"_s}));
}

VANTIRO_TEST_MAIN(tst_BrowseTabFavorites)
#include "tst_BrowseTabFavorites.moc"
