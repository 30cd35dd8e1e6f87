#include "TabFixture.h"

#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

namespace {

/// The widgets of a layout and of those in it, in order.
QWidgetList widgetsIn(const QLayout &layout)
{
    QWidgetList widgets;
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem &item = *layout.itemAt(index);
        widgets << (item.layout() != nullptr ? widgetsIn(*item.layout())
                                             : QWidgetList{item.widget()});
    }
    return widgets;
}

const QStringList found{u"News"_s, u"Newsroom"_s, u"Sky News"_s}; ///< for the query "news"

} // namespace

/// What all four tabs do; tst_PosterTab tests what only tabs with posters do.
class tst_BrowseTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void texts();
    void widgets();
    void categoriesFillTheList();
    void entriesFillTheView();
    void aCategoryOpens();
    void theItemSearchFiltersTheCategory();
    void searchingAllShowsTheResultsInPlaceOfTheCategories();
    void theViewMovesToThePageThatShows();
    void resetReturnsToTheStart_data();
    void resetReturnsToTheStart();
    void clearEmptiesBothLists();
    void anEntryIsActivated();
    void anActivatedEntryOutlivesTheList();
    void aRefillOfEqualLengthIsPainted();

private:
    /// Expects that page, with the view below its other widgets and no categories.
    void expectResultsOn(int page) const
    {
        QCOMPARE(tab->tab.currentPage(), page);
        const QBoxLayout &layout = tab->pageLayout(page);
        QCOMPARE(widgetsIn(layout).last(), &tab->view);
        QCOMPARE(layout.stretch(layout.count() - 1), 1);
        QVERIFY(tab->view.isVisible());
        QVERIFY(!tab->categories.isVisible());
    }

    std::unique_ptr<Tab> tab;
};

void tst_BrowseTab::initTestCase_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](CatalogSection section, const QStringList &texts) {
        QTest::newRow(qPrintable(texts.constFirst())) << section << texts;
    };
    const QString channels = u"Search all channels..."_s;
    row(CatalogSection::Live, {u"Live TV"_s, channels, u"Channels"_s, u"account"_s});
    row(CatalogSection::Movie, {u"Movies"_s, u"Search all movies..."_s, u"Movies"_s, u"account"_s});
    row(CatalogSection::Series,
        {u"TV Shows"_s, u"Search all shows..."_s, u"Shows"_s, u"account"_s});
    row(CatalogSection::Channel, {u"Channels"_s, channels, u"Channels"_s, u"playlist"_s});
}

void tst_BrowseTab::init()
{
    QFETCH_GLOBAL(CatalogSection, section);
    tab = std::make_unique<Tab>(section);
}

void tst_BrowseTab::texts()
{
    QFETCH_GLOBAL(QStringList, texts);
    const QString source = tab->tab.isForAccounts() ? u"account"_s : u"playlist"_s;
    QCOMPARE((QStringList{tab->tab.title(), tab->allSearch.placeholderText(),
                          tab->view.accessibleName(), source}),
             texts);
    QCOMPARE(tab->search.placeholderText(), u"Search..."_s);
    QCOMPARE(tab->title.text(), QString());
}

void tst_BrowseTab::widgets()
{
    QCOMPARE(tab->tab.layout()->contentsMargins(), QMargins());
    QCOMPARE(widgetsIn(*tab->tab.layout()), QWidgetList{&tab->stack});
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Categories);
    const QBoxLayout &categoryPage = tab->pageLayout(0);
    auto &label = *qobject_cast<QLabel *>(categoryPage.itemAt(1)->widget());
    QCOMPARE(label.text(), u"Select a category:"_s);
    QCOMPARE(widgetsIn(categoryPage), (QWidgetList{&tab->allSearch, &label, &tab->categories}));
    QCOMPARE(categoryPage.stretch(2), 1);

    const QBoxLayout &itemsPage = tab->pageLayout(1);
    const auto &titleRow = *qobject_cast<QHBoxLayout *>(itemsPage.itemAt(0)->layout());
    auto &back = *qobject_cast<QPushButton *>(titleRow.itemAt(0)->widget());
    QCOMPARE(back.text(), u"< Back to Categories"_s);
    QWidgetList expected{&back, &tab->title, &tab->search};
    if (tab->spec.heading == nullptr) {
        expected << &tab->part<QComboBox>(u"SortCombo"_s);
    }
    QCOMPARE(widgetsIn(itemsPage), expected << &tab->view);
    QCOMPARE(titleRow.stretch(0), 0);
    QCOMPARE(titleRow.stretch(1), 1);
    QCOMPARE(itemsPage.stretch(2), 1);
    QCOMPARE(tab->view.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(tab->title.font().weight(), QFont::Bold);
    tab->title.setText(QString(5000, u'x'));
    QCOMPARE(tab->title.minimumSizeHint().width(), 0);

    tab->tab.showPage(BrowsePage::Items);
    QTest::mouseClick(&back, Qt::LeftButton);
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Categories);
}

void tst_BrowseTab::categoriesFillTheList()
{
    tab->tab.setCategories({{u"7"_s, u"<b>Film</b>"_s}, {u"3"_s, u"Action"_s}});
    QStringList rows;
    for (int row = 0; row < tab->categories.count(); ++row) {
        const QListWidgetItem &item = *tab->categories.item(row);
        QCOMPARE(item.data(Qt::UserRole).typeId(), QMetaType::QString);
        rows << item.text() + u'/' + item.data(Qt::UserRole).toString();
    }
    QCOMPARE(rows, (QStringList{u"All Categories/"_s, u"<b>Film</b>/7"_s, u"Action/3"_s}));
    QCOMPARE(tab->names().size(), 4);

    tab->tab.setCategories({});
    QCOMPARE(tab->categories.count(), 1);
    tab->openCategory(0);
    QCOMPARE(tab->title.text(), u"All Categories"_s);
    QCOMPARE(tab->names().size(), 4);
}

void tst_BrowseTab::entriesFillTheView()
{
    if (tab->spec.heading != nullptr) {
        const auto &table = tab->part<QTableWidget>(u"Table"_s);
        QCOMPARE(table.columnCount(), 1);
        QCOMPARE(table.horizontalHeaderItem(0)->text(), u"Channel"_s);
        QVERIFY(table.horizontalHeader()->stretchLastSection());
        QVERIFY(table.verticalHeader()->isHidden());
        QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
        // The order of the source.
        QCOMPARE(tab->names(), (QStringList{u"Sky News"_s, u"Newsroom"_s, u"Arena"_s, u"News"_s}));
    }
    tab->tab.setItems(QList{film(u"<b>Two</b>"_s)});
    QCOMPARE(tab->names(), QStringList{u"<b>Two</b>"_s});
    tab->tab.setItems({});
    QCOMPARE(tab->names(), QStringList());
}

void tst_BrowseTab::aCategoryOpens()
{
    Tab::click(tab->categories, 2);
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Items);
    QCOMPARE(tab->title.text(), u"Sport"_s);
    QCOMPARE(tab->names(), (QStringList{u"Arena"_s, u"News"_s}));
    QVERIFY(tab->view.isVisible());

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        tab->tab.showPage(BrowsePage::Categories);
        Tab::press(tab->categories, -1, key);
        QCOMPARE(tab->tab.currentPage(), BrowsePage::Categories);
        Tab::press(tab->categories, 0, key);
        QCOMPARE(tab->tab.currentPage(), BrowsePage::Items);
        QCOMPARE(tab->title.text(), u"All Categories"_s);
        QCOMPARE(tab->names().size(), 4);
    }
}

void tst_BrowseTab::theItemSearchFiltersTheCategory()
{
    tab->openCategory(2);
    QTest::keyClicks(&tab->search, u"news"_s);
    QCOMPARE(tab->names(), QStringList{u"News"_s});
    QCOMPARE(tab->title.text(), u"Sport"_s);
    // It stays when another category is chosen.
    tab->openCategory(0);
    QCOMPARE(tab->search.text(), u"news"_s);
    QCOMPARE(tab->names(), found);
}

void tst_BrowseTab::searchingAllShowsTheResultsInPlaceOfTheCategories()
{
    tab->openCategory(2);
    tab->tab.showPage(BrowsePage::Categories);
    QVERIFY(tab->view.isHidden());
    QWidget &label = *tab->pageLayout(0).itemAt(1)->widget();
    for (const QString &query : {u"\"100%1\""_s, u"n"_s, u"news"_s}) {
        tab->allSearch.setText(query);
        QVERIFY(label.isHidden());
        expectResultsOn(BrowsePage::Categories);
        QCOMPARE(tab->title.text(), u"Search: \""_s + query + u'"');
        QCOMPARE(tab->search.text(), query);
    }
    QCOMPARE(tab->names(), found);

    tab->allSearch.clear();
    QVERIFY(label.isVisible());
    QVERIFY(tab->categories.isVisible());
    QVERIFY(tab->view.isHidden());
    QCOMPARE(tab->title.text(), u"All Categories"_s);
    QCOMPARE(tab->search.text(), QString());
    QCOMPARE(tab->names().size(), 4);
}

void tst_BrowseTab::theViewMovesToThePageThatShows()
{
    tab->tab.addPage(new QWidget);
    // The field is cleared while each of the pages shows, the added one among them.
    for (const int page : {BrowsePage::Categories, BrowsePage::Items, BrowsePage::Episodes}) {
        tab->allSearch.setText(u"news"_s);
        tab->tab.showPage(BrowsePage::Episodes);
        QVERIFY(!tab->view.isVisible());
        for (const int other : {BrowsePage::Items, BrowsePage::Categories}) {
            tab->tab.showPage(other);
            expectResultsOn(other);
        }
        tab->tab.showPage(page);
        tab->allSearch.clear();
        tab->tab.showPage(BrowsePage::Categories);
        QVERIFY(tab->categories.isVisible());
        QVERIFY(!tab->view.isVisible());
        tab->tab.showPage(BrowsePage::Items);
        expectResultsOn(BrowsePage::Items);
    }
}

void tst_BrowseTab::resetReturnsToTheStart_data()
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

void tst_BrowseTab::resetReturnsToTheStart()
{
    QFETCH(QString, allSearch);
    QFETCH(QString, search);
    QFETCH(int, refills);
    tab->categories.setCurrentRow(1);
    tab->openCategory(1);
    tab->allSearch.setText(allSearch);
    tab->search.setText(search);
    const QStringList shown = tab->names();
    tab->refills.clear();

    tab->tab.reset();
    QCOMPARE(tab->tab.currentPage(), BrowsePage::Categories);
    QVERIFY(tab->categories.selectedItems().isEmpty());
    QCOMPARE(tab->categories.count(), 3);
    QVERIFY(tab->categories.isVisible());
    QCOMPARE(tab->allSearch.text() + tab->search.text(), QString());
    QTEST(tab->title.text(), "title");
    QCOMPARE(tab->names(), refills == 0 ? shown : QStringList());
    QCOMPARE(tab->refills.count(), refills);
    // The entries are gone, and no category is chosen any more.
    tab->tab.refilter();
    QCOMPARE(tab->names(), QStringList());
    tab->tab.setItems(QList{film(u"Other"_s, u"x"_s)});
    QCOMPARE(tab->names(), QStringList{u"Other"_s});
}

void tst_BrowseTab::clearEmptiesBothLists()
{
    tab->allSearch.setText(u"sky"_s);
    tab->tab.clear();
    QCOMPARE(tab->categories.count(), 0);
    QCOMPARE(tab->names(), QStringList());
    QCOMPARE(tab->title.text(), QString());
}

void tst_BrowseTab::anEntryIsActivated()
{
    tab->openCategory(2);
    for (const int row : {-1, 2, 1000}) {
        tab->tab.activateRow(row);
    }
    QCOMPARE(tab->activations.count(), 0);
    Tab::click(tab->view, 1);
    QCOMPARE(tab->activations.count(), 1);
    QCOMPARE(tab->activatedName(), u"News"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        tab->activations.clear();
        Tab::press(tab->view, 0, key);
        QCOMPARE(tab->activations.count(), 1);
        QCOMPARE(tab->activatedName(), u"Arena"_s);
    }
}

void tst_BrowseTab::anActivatedEntryOutlivesTheList()
{
    QString name;
    connect(&tab->tab, &BrowseTab::activated, this, [this, &name](const MediaItem &item) {
        tab->tab.clear();
        name = item.name;
    });
    tab->openCategory(2);
    tab->tab.activateRow(0);
    QCOMPARE(name, u"Arena"_s);
}

void tst_BrowseTab::aRefillOfEqualLengthIsPainted()
{
    /// Counts the paint events of what it filters.
    struct PaintCounter final : QObject
    {
        bool eventFilter(QObject * /*watched*/, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int count = 0;
    };
    tab->openCategory(0);
    PaintCounter paints;
    tab->view.viewport()->installEventFilter(&paints);
    // Until the page that has just been shown is painted completely.
    QTRY_VERIFY((paints.count = 0, QCoreApplication::processEvents(), paints.count == 0));
    tab->tab.setItems(QList{film(u"A"_s), film(u"B"_s), film(u"C"_s), film(u"D"_s)});
    QTRY_VERIFY(paints.count > 0);
}

VANTIRO_TEST_MAIN(tst_BrowseTab)
#include "tst_BrowseTab.moc"
