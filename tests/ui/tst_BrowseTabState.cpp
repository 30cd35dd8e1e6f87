// What a tab shows: categories, searches, orders, and which entry a click or a key chooses.

#include "BrowseTabFixture.h"
#include "support/TestMain.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

using namespace Qt::StringLiterals;

class tst_BrowseTabState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCategoryOpens_data() { kinds(); }
    void aCategoryOpens();
    void aTabWithoutCategoriesShowsEverything();
    void theItemSearchFiltersTheCategory_data() { kinds(); }
    void theItemSearchFiltersTheCategory();
    void sortKeys_data();
    void sortKeys();
    void searchingAllShowsTheResultsInPlaceOfTheCategories_data() { kinds(); }
    void searchingAllShowsTheResultsInPlaceOfTheCategories();
    void theViewMovesToThePageThatShows_data() { kinds(); }
    void theViewMovesToThePageThatShows();
    void everyChangeRefillsOnce();
    void resetReturnsToTheStart_data();
    void resetReturnsToTheStart();
    void clearEmptiesBothLists();
    void anEntryIsActivated_data() { kinds(); }
    void anEntryIsActivated();
    void rowsBeyondTheListAreNotActivated();
    void anActivatedEntryOutlivesTheList();
    void theViewReturnsFromAnAddedPage_data();
    void theViewReturnsFromAnAddedPage();

private:
    static void kinds();
};

void tst_BrowseTabState::kinds()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::newRow("table") << CatalogSection::Live;
    QTest::newRow("posters") << CatalogSection::Movie;
}

void tst_BrowseTabState::aCategoryOpens()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    BrowseTabFixture::click(fixture.categoryList, 2);
    QCOMPARE(fixture.tab.currentPage(), BrowsePage::Items);
    QCOMPARE(fixture.title(), u"Sport"_s);
    QCOMPARE(fixture.names(), (QStringList{u"Arena"_s, u"News"_s}));
    QVERIFY(fixture.view.isVisible());

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        fixture.tab.showPage(BrowsePage::Categories);
        BrowseTabFixture::press(fixture.categoryList, -1, key);
        QCOMPARE(fixture.tab.currentPage(), BrowsePage::Categories);
        BrowseTabFixture::press(fixture.categoryList, 0, key);
        QCOMPARE(fixture.tab.currentPage(), BrowsePage::Items);
        QCOMPARE(fixture.title(), u"All Categories"_s);
        QCOMPARE(fixture.names().size(), 4);
    }
}

void tst_BrowseTabState::aTabWithoutCategoriesShowsEverything()
{
    BrowseTabFixture fixture(CatalogSection::Channel);
    fixture.tab.setCategories({});
    QCOMPARE(fixture.categoryList.count(), 1);
    fixture.openCategory(0);
    QCOMPARE(fixture.title(), u"All Categories"_s);
    QCOMPARE(fixture.names().size(), 4);
}

void tst_BrowseTabState::theItemSearchFiltersTheCategory()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    fixture.openCategory(2);
    QTest::keyClicks(&fixture.search, u"news"_s);
    QCOMPARE(fixture.names(), QStringList{u"News"_s});
    QCOMPARE(fixture.title(), u"Sport"_s);
    // It stays when another category is chosen.
    fixture.openCategory(0);
    QCOMPARE(fixture.search.text(), u"news"_s);
    QCOMPARE(fixture.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));
}

void tst_BrowseTabState::sortKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, int key, const QString &query,
                        const QStringList &expected) {
        QTest::newRow(name) << key << query << expected;
    };
    row("by name", 0, {}, {u"Arena"_s, u"News"_s, u"Newsroom"_s, u"Sky News"_s});
    row("by date", 1, {}, {u"Sky News"_s, u"Arena"_s, u"Newsroom"_s, u"News"_s});
    row("by rating", 2, {}, {u"Arena"_s, u"News"_s, u"Sky News"_s, u"Newsroom"_s});
    row("by date, best match first", 1, u"news"_s, {u"News"_s, u"Newsroom"_s, u"Sky News"_s});
}

void tst_BrowseTabState::sortKeys()
{
    QFETCH(int, key);
    QFETCH(QString, query);
    BrowseTabFixture fixture(CatalogSection::Series);
    fixture.openCategory(0);
    fixture.search.setText(query);
    auto &box = fixture.part<QComboBox>("SortCombo");
    // Away first, so that every key is a change.
    box.setCurrentIndex(key == 0 ? 2 : 0);
    box.setCurrentIndex(key);
    QTEST(fixture.names(), "expected");
}

void tst_BrowseTabState::searchingAllShowsTheResultsInPlaceOfTheCategories()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    fixture.openCategory(2);
    fixture.tab.showPage(BrowsePage::Categories);
    QVERIFY(fixture.view.isHidden());
    const QBoxLayout &layout = fixture.pageLayout(BrowsePage::Categories);
    for (const QString &query : {u"\"100%1\""_s, u"n"_s, u"news"_s}) {
        fixture.allSearch.setText(query);
        QCOMPARE(fixture.tab.currentPage(), BrowsePage::Categories);
        QVERIFY(fixture.categoryLabel().isHidden());
        QVERIFY(fixture.categoryList.isHidden());
        QVERIFY(fixture.view.isVisible());
        QCOMPARE(layout.count(), 4);
        QCOMPARE(layout.itemAt(3)->widget(), &fixture.view);
        QCOMPARE(layout.stretch(3), 1);
        QCOMPARE(fixture.title(), u"Search: \""_s + query + u'"');
        QCOMPARE(fixture.search.text(), query);
    }
    QCOMPARE(fixture.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));

    fixture.allSearch.clear();
    QVERIFY(fixture.categoryLabel().isVisible());
    QVERIFY(fixture.categoryList.isVisible());
    QVERIFY(fixture.view.isHidden());
    QCOMPARE(fixture.title(), u"All Categories"_s);
    QCOMPARE(fixture.search.text(), QString());
    QCOMPARE(fixture.names().size(), 4);
}

void tst_BrowseTabState::theViewMovesToThePageThatShows()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    const auto expectResultsOn = [&fixture](int page) {
        fixture.tab.showPage(page);
        const QBoxLayout &layout = fixture.pageLayout(page);
        QCOMPARE(layout.itemAt(layout.count() - 1)->widget(), &fixture.view);
        QCOMPARE(layout.stretch(layout.count() - 1), 1);
        QVERIFY(fixture.view.isVisible());
        QVERIFY(!fixture.categoryList.isVisible());
    };
    // The field is cleared while either page shows.
    for (const int clearedOn : {BrowsePage::Categories, BrowsePage::Items}) {
        fixture.allSearch.setText(u"n"_s);
        expectResultsOn(BrowsePage::Items);
        expectResultsOn(BrowsePage::Categories);
        fixture.tab.showPage(clearedOn);
        fixture.allSearch.clear();
        fixture.tab.showPage(BrowsePage::Categories);
        QVERIFY(fixture.categoryList.isVisible());
        QVERIFY(!fixture.view.isVisible());
        expectResultsOn(BrowsePage::Items);
        fixture.tab.showPage(BrowsePage::Categories);
    }
}

void tst_BrowseTabState::everyChangeRefillsOnce()
{
    BrowseTabFixture fixture;
    QTest::keyClicks(&fixture.allSearch, u"new"_s);
    QCOMPARE(fixture.refills.count(), 3);
    QTest::keyClick(&fixture.allSearch, Qt::Key_Backspace);
    QCOMPARE(fixture.refills.count(), 4);
    fixture.allSearch.clear();
    QCOMPARE(fixture.refills.count(), 5);
    fixture.openCategory(1);
    QCOMPARE(fixture.refills.count(), 6);
    QTest::keyClicks(&fixture.search, u"ne"_s);
    QCOMPARE(fixture.refills.count(), 8);
    fixture.part<QComboBox>("SortCombo").setCurrentIndex(2);
    QCOMPARE(fixture.refills.count(), 9);
    fixture.tab.selectCategory(nullptr);
    fixture.tab.setCategories({});
    QCOMPARE(fixture.refills.count(), 9);
    QCOMPARE(fixture.title(), u"News"_s);
}

void tst_BrowseTabState::resetReturnsToTheStart_data()
{
    QTest::addColumn<QString>("allSearch");
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("refills");
    QTest::addColumn<QString>("title");
    QTest::newRow("no search") << QString() << QString() << 0 << QString();
    QTest::newRow("an item search") << QString() << u"sky"_s << 1 << QString();
    // It puts its text into both fields.
    QTest::newRow("a search over all") << u"sky"_s << u"sky"_s << 1 << u"All Categories"_s;
}

void tst_BrowseTabState::resetReturnsToTheStart()
{
    QFETCH(QString, allSearch);
    QFETCH(QString, search);
    QFETCH(int, refills);
    BrowseTabFixture fixture;
    fixture.categoryList.setCurrentRow(1);
    fixture.openCategory(1);
    fixture.allSearch.setText(allSearch);
    fixture.search.setText(search);
    const QStringList shown = fixture.names();
    fixture.refills.clear();

    fixture.tab.reset();
    QCOMPARE(fixture.tab.currentPage(), BrowsePage::Categories);
    QVERIFY(fixture.tab.items().isEmpty());
    QVERIFY(fixture.categoryList.selectedItems().isEmpty());
    QCOMPARE(fixture.categoryList.count(), 3);
    QCOMPARE(fixture.allSearch.text(), QString());
    QCOMPARE(fixture.search.text(), QString());
    QTEST(fixture.title(), "title");
    QCOMPARE(fixture.refills.count(), refills);
    QCOMPARE(fixture.names(), refills == 0 ? shown : QStringList());
    // No category is chosen any more.
    fixture.tab.setItems({film(u"Other"_s, u"x"_s)});
    QCOMPARE(fixture.names(), QStringList{u"Other"_s});
}

void tst_BrowseTabState::clearEmptiesBothLists()
{
    BrowseTabFixture fixture;
    fixture.allSearch.setText(u"sky"_s);
    fixture.tab.clear();
    QVERIFY(fixture.tab.categories().isEmpty());
    QCOMPARE(fixture.categoryList.count(), 0);
    QVERIFY(fixture.tab.items().isEmpty());
    QCOMPARE(fixture.names(), QStringList());
    QCOMPARE(fixture.title(), QString());
}

void tst_BrowseTabState::anEntryIsActivated()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    fixture.openCategory(2);
    BrowseTabFixture::click(fixture.view, 1);
    QCOMPARE(fixture.activations.count(), 1);
    QCOMPARE(fixture.activatedName(), u"News"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        fixture.activations.clear();
        BrowseTabFixture::press(fixture.view, 0, key);
        QCOMPARE(fixture.activations.count(), 1);
        QCOMPARE(fixture.activatedName(), u"Arena"_s);
    }
}

void tst_BrowseTabState::rowsBeyondTheListAreNotActivated()
{
    BrowseTabFixture fixture;
    for (const int row : {-1, 4, 1000}) {
        fixture.tab.activateRow(row);
    }
    QCOMPARE(fixture.activations.count(), 0);
    fixture.tab.activateRow(3);
    QCOMPARE(fixture.activatedName(), u"Sky News"_s);
}

void tst_BrowseTabState::anActivatedEntryOutlivesTheList()
{
    BrowseTabFixture fixture;
    QString name;
    connect(&fixture.tab, &BrowseTab::activated, this, [&fixture, &name](const MediaItem &item) {
        fixture.tab.clear();
        name = item.name;
    });
    fixture.tab.activateRow(0);
    QCOMPARE(name, u"Arena"_s);
}

void tst_BrowseTabState::theViewReturnsFromAnAddedPage_data()
{
    QTest::addColumn<bool>("reset");
    QTest::newRow("the search is cleared") << false;
    QTest::newRow("the tab is reset") << true;
}

void tst_BrowseTabState::theViewReturnsFromAnAddedPage()
{
    QFETCH(bool, reset);
    BrowseTabFixture fixture(CatalogSection::Series);
    auto *added = new QWidget;
    fixture.tab.addPage(added);
    fixture.allSearch.setText(u"news"_s);
    fixture.tab.showPage(BrowsePage::Episodes);
    QVERIFY(added->isVisible());
    fixture.tab.showPage(BrowsePage::Items);
    QVERIFY(fixture.view.isVisible());
    fixture.tab.showPage(BrowsePage::Categories);
    QVERIFY(fixture.view.isVisible());
    QCOMPARE(fixture.names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));

    if (reset) {
        fixture.tab.showPage(BrowsePage::Episodes);
        fixture.tab.reset();
    } else {
        fixture.allSearch.clear();
    }
    QVERIFY(fixture.categoryList.isVisible());
    QVERIFY(!fixture.view.isVisible());
    fixture.openCategory(0);
    QVERIFY(fixture.view.isVisible());
    QCOMPARE(fixture.names().size(), reset ? 0 : 4);
}

VANTIRO_TEST_MAIN(tst_BrowseTabState)
#include "tst_BrowseTabState.moc"
