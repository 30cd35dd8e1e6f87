#include "GuideFixture.h"
#include "RowMenus.h"
#include "TabFixture.h"
#include "library/Library.h"
#include "ui/GuideGrid.h"
#include "ui/GuideView.h"
#include "ui/TabLibrary.h"

#include <QContextMenuEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

/// The guide in place of the table, in both tabs that have one.
class tst_BrowseTabGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void withoutAGuideNothingIsMade();
    void offeredWhileOpen();
    void openedFromTheCategories();
    void categoryAndSearchFilterIt();
    void searchingAllShowsIt();
    void theChoiceIsKept();
    void activating();
    void programmesFound();
    void menuAndFavorite();
    void withoutALibrary();

private:
    QPushButton &button(const QString &suffix) const { return tab->part<QPushButton>(suffix); }
    GuideView &view() const { return *tab->tab.findChild<GuideView *>(); }
    /// Opens the guide of all categories.
    void openGuide()
    {
        tab->tab.setGuide(&fixture->guide);
        tab->openCategory(0);
        button(u"GuideButton"_s).click();
        QTRY_VERIFY(fixture->isShownBy(tab->tab));
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Library> library;
    std::unique_ptr<TabLibrary> kept;
    std::unique_ptr<GuideFixture> fixture;
    std::unique_ptr<Tab> tab;
};

void tst_BrowseTabGuide::initTestCase_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::newRow("Live TV") << CatalogSection::Live;
    QTest::newRow("Channels") << CatalogSection::Channel;
}

void tst_BrowseTabGuide::init()
{
    QFETCH_GLOBAL(CatalogSection, section);
    tab.reset();
    kept.reset();
    library.reset();
    folder = std::make_unique<QTemporaryDir>();
    library = std::make_unique<Library>(folder->filePath(u"library.sqlite"_s), nullptr);
    kept = std::make_unique<TabLibrary>(library.get(), section, nullptr);
    fixture = std::make_unique<GuideFixture>();
    tab = std::make_unique<Tab>(section);
    tab->tab.setLibrary(kept.get());
    kept->setSource(u"Source"_s);
    tab->tab.setCategories({{u"One"_s, u"First"_s}, {u"Two"_s, u"Second"_s}});
    tab->tab.setItems(fixture->items);
}

void tst_BrowseTabGuide::withoutAGuideNothingIsMade()
{
    const qsizetype widgets = tab->tab.findChildren<QWidget *>().size();
    tab->categories.setFocus(); // where no cursor blinks
    const QPixmap before = tab->tab.grab();
    tab->tab.setGuide(nullptr);
    QCOMPARE(tab->tab.findChildren<QWidget *>().size(), widgets);
    // A guide that is taken back leaves the tab as it was.
    tab->tab.setGuide(&fixture->guide);
    tab->tab.setGuide(nullptr);
    QTRY_VERIFY(tab->tab.grab().toImage() == before.toImage());
}

void tst_BrowseTabGuide::offeredWhileOpen()
{
    openGuide();
    QVERIFY(button(u"GuideButton"_s).isVisible());
    QVERIFY(view().isVisible());
    QVERIFY(!tab->view.isVisible());
    fixture->guide.close();
    QVERIFY(!button(u"GuideButton"_s).isVisible());
    QVERIFY(tab->view.isVisible());
    QVERIFY(!view().isVisible());
    fixture->guide.open(fixture->stored.path(), 0);
    QVERIFY(view().isVisible());
}

void tst_BrowseTabGuide::openedFromTheCategories()
{
    tab->tab.setGuide(&fixture->guide);
    button(u"AllGuideButton"_s).click();
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Items);
    QCOMPARE(tab->title.text(), u"All Categories"_s);
    QVERIFY(view().isVisible());
    QVERIFY(button(u"GuideButton"_s).isChecked());
    // It shows no entries, so that there is nothing to switch.
    tab->tab.showPage(BrowsePage::Categories);
    QVERIFY(!button(u"AllGuideButton"_s).isChecked());
    QVERIFY(tab->categories.isVisible());
    QVERIFY(!view().isVisible());
}

void tst_BrowseTabGuide::categoryAndSearchFilterIt()
{
    openGuide();
    QCOMPARE(view().grid().currentId(), QString(fixture->items.at(0).id));
    tab->openCategory(2);
    QCOMPARE(view().grid().currentId(), QString(fixture->items.at(1).id));
    tab->search.setText(u"one"_s);
    QCOMPARE(view().grid().currentRow(), -1);
    tab->openCategory(0);
    QCOMPARE(view().grid().currentId(), QString(fixture->items.at(0).id));
}

void tst_BrowseTabGuide::searchingAllShowsIt()
{
    tab->tab.setGuide(&fixture->guide);
    tab->allSearch.setText(u"three"_s);
    QVERIFY(tab->view.isVisible());
    button(u"AllGuideButton"_s).click();
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Categories);
    QVERIFY(view().isVisible());
    QVERIFY(!tab->view.isVisible());
    QCOMPARE(view().grid().currentId(), QString(fixture->items.at(2).id));
    button(u"AllGuideButton"_s).click();
    QVERIFY(!view().isVisible());
    QVERIFY(tab->view.isVisible());
}

void tst_BrowseTabGuide::theChoiceIsKept()
{
    openGuide();
    tab->tab.reset();
    tab->tab.setGuide(nullptr);
    tab->openCategory(0);
    QVERIFY(tab->view.isVisible());
    tab->tab.setGuide(&fixture->guide);
    QVERIFY(view().isVisible());
    button(u"GuideButton"_s).click();
    QVERIFY(tab->view.isVisible());
    QVERIFY(!view().isVisible());
}

void tst_BrowseTabGuide::activating()
{
    QSignalSpy programmes(&tab->tab, &BrowseTab::programmeActivated);
    openGuide();
    tab->search.setFocus();
    QVERIFY(!tab->tab.viewHasFocus());
    view().grid().setFocus();
    QVERIFY(tab->tab.viewHasFocus());
    QTest::keyClick(&view().grid(), Qt::Key_Return);
    QCOMPARE(tab->activations.count(), 1);
    QCOMPARE(tab->activatedName(), u"One"_s);
    QTest::keyClick(&view().grid(), Qt::Key_Right);
    QTest::keyClick(&view().grid(), Qt::Key_Return);
    QCOMPARE(tab->activations.count(), 1);
    QCOMPARE(programmes.count(), 1);
    QCOMPARE(programmes.first().at(1).value<GuideProgramme>().title, u"Later"_s);
}

void tst_BrowseTabGuide::programmesFound()
{
    QSignalSpy schedules(&tab->tab, &BrowseTab::scheduleRequested);
    openGuide();
    // In all channels, whatever the category.
    tab->openCategory(1);
    auto &field = *tab->tab.findChild<QLineEdit *>(u"guideSearch"_s);
    const auto &list = *tab->tab.findChild<QTableWidget *>(u"guideSearchList"_s);
    field.setText(u"film"_s);
    QTRY_COMPARE(list.rowCount(), 1);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(tab->activations.count(), 1);
    QCOMPARE(tab->activatedName(), u"Two"_s);
    field.setText(u"news"_s);
    QTRY_COMPARE(list.item(0, 1)->text(), u"News"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(schedules.count(), 1);
    QCOMPARE(schedules.first().at(0).value<MediaItem>().name.toString(), u"Two"_s);
    QCOMPARE(schedules.first().at(1).value<GuideProgramme>().start, fixture->at(1));
    // It is in none of the rows that show, so that it plays in the list of all.
    int row = -1;
    const ShownEntries all = tab->tab.entriesAround(fixture->items.at(1), row);
    QCOMPARE(all.count(), 3);
    QCOMPARE(row, 1);
    QCOMPARE(tab->tab.entriesAround(film(u"Gone"_s), row).count(), 0);
    QCOMPARE(row, -1);
    // A channel that the source no longer has.
    tab->tab.setItems(fixture->items.mid(2));
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(schedules.count(), 1);
    field.setText(u"film"_s);
    QTRY_COMPARE(list.item(0, 1)->text(), u"Film"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(tab->activations.count(), 1);
}

void tst_BrowseTabGuide::menuAndFavorite()
{
    openGuide();
    GuideGrid &grid = view().grid();
    grid.setCurrentRow(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, QPoint());
    QCoreApplication::sendEvent(&grid, &event);
    auto *menu = grid.findChild<QMenu *>(u"rowMenu"_s);
    QVERIFY(RowMenus::choose(menu, u"Add to Favorites"_s));
    QVERIFY(kept->isFavorite(fixture->items.at(1)));
    tab->tab.toggleFavorite();
    QVERIFY(!kept->isFavorite(fixture->items.at(1)));
}

void tst_BrowseTabGuide::withoutALibrary()
{
    QFETCH_GLOBAL(CatalogSection, section);
    tab = std::make_unique<Tab>(section);
    tab->tab.setItems(fixture->items);
    openGuide();
    QVERIFY(view().isVisible());
    QVERIFY(!view().grab().isNull()); // its rows have no marks to look for
}

VANTIRO_TEST_MAIN(tst_BrowseTabGuide)
#include "tst_BrowseTabGuide.moc"
