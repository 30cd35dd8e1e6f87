// The widgets of a tab, and how they are filled.

#include "BrowseTabFixture.h"
#include "support/TestMain.h"
#include "ui/Thumbnails.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

class tst_BrowseTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void categoryPage_data();
    void categoryPage();
    void itemsPage_data();
    void itemsPage();
    void table();
    void posterGrid();
    void sortBox();
    void categoriesFillTheList();
    void entriesFillTheTable();
    void aRefillOfEqualLengthIsPainted();
    void entriesFillThePosterGrid();
    void aPosterKeepsTheSizeOfTheCells_data();
    void aPosterKeepsTheSizeOfTheCells();
};

void tst_BrowseTab::categoryPage_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("searchText");
    QTest::addColumn<QString>("viewName");
    QTest::addColumn<bool>("forAccounts");
    const QString channels = u"Search all channels..."_s;
    QTest::newRow("Live TV") << CatalogSection::Live << u"Live TV"_s << channels << u"Channels"_s
                             << true;
    QTest::newRow("Movies") << CatalogSection::Movie << u"Movies"_s << u"Search all movies..."_s
                            << u"Movies"_s << true;
    QTest::newRow("TV Shows") << CatalogSection::Series << u"TV Shows"_s << u"Search all shows..."_s
                              << u"Shows"_s << true;
    QTest::newRow("Channels") << CatalogSection::Channel << u"Channels"_s << channels
                              << u"Channels"_s << false;
}

void tst_BrowseTab::categoryPage()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    QTEST(fixture.tab.title(), "title");
    QTEST(fixture.tab.isForAccounts(), "forAccounts");
    QTEST(fixture.view.accessibleName(), "viewName");
    QCOMPARE(fixture.tab.layout()->contentsMargins(), QMargins());
    QCOMPARE(fixture.tab.layout()->count(), 1);
    QCOMPARE(fixture.tab.currentPage(), BrowsePage::Categories);

    const QBoxLayout &layout = fixture.pageLayout(BrowsePage::Categories);
    QCOMPARE(layout.count(), 3);
    QCOMPARE(layout.itemAt(0)->widget(), &fixture.allSearch);
    QTEST(fixture.allSearch.placeholderText(), "searchText");
    QCOMPARE(fixture.categoryLabel().text(), u"Select a category:"_s);
    QCOMPARE(layout.itemAt(2)->widget(), &fixture.categoryList);
    QCOMPARE(layout.stretch(2), 1);
}

void tst_BrowseTab::itemsPage_data()
{
    QTest::addColumn<CatalogSection>("section");
    QTest::newRow("table") << CatalogSection::Live;
    QTest::newRow("posters") << CatalogSection::Movie;
}

void tst_BrowseTab::itemsPage()
{
    QFETCH(CatalogSection, section);
    BrowseTabFixture fixture(section);
    const QBoxLayout &layout = fixture.pageLayout(BrowsePage::Items);
    QCOMPARE(layout.count(), 3);
    const auto *titleRow = qobject_cast<QHBoxLayout *>(layout.itemAt(0)->layout());
    QVERIFY(titleRow != nullptr);
    QCOMPARE(titleRow->itemAt(0)->widget(), &fixture.backButton());
    QCOMPARE(fixture.backButton().text(), u"< Back to Categories"_s);
    QCOMPARE(titleRow->stretch(0), 0);
    auto &title = fixture.part<QLabel>("TitleLabel");
    QCOMPARE(titleRow->itemAt(1)->widget(), &title);
    QCOMPARE(titleRow->stretch(1), 1);
    QCOMPARE(title.font().weight(), QFont::Bold);
    QCOMPARE(title.text(), QString());
    QCOMPARE(fixture.search.placeholderText(), u"Search..."_s);
    QCOMPARE(layout.itemAt(2)->widget(), &fixture.view);
    QCOMPARE(layout.stretch(2), 1);
    QCOMPARE(fixture.view.editTriggers(), QAbstractItemView::NoEditTriggers);

    title.setText(QString(5000, u'x'));
    QCOMPARE(title.minimumSizeHint().width(), 0);
    fixture.tab.showPage(BrowsePage::Items);
    QTest::mouseClick(&fixture.backButton(), Qt::LeftButton);
    QCOMPARE(fixture.tab.currentPage(), BrowsePage::Categories);
}

void tst_BrowseTab::table()
{
    for (const CatalogSection section : {CatalogSection::Live, CatalogSection::Channel}) {
        BrowseTabFixture fixture(section);
        QVERIFY(fixture.tab.posterGrid() == nullptr);
        QCOMPARE(fixture.pageLayout(BrowsePage::Items).itemAt(1)->widget(), &fixture.search);
        const auto &table = fixture.part<QTableWidget>("Table");
        QCOMPARE(table.columnCount(), 1);
        QCOMPARE(table.horizontalHeaderItem(0)->text(), u"Channel"_s);
        QVERIFY(table.horizontalHeader()->stretchLastSection());
        QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
        QVERIFY(table.verticalHeader()->isHidden());
    }
}

void tst_BrowseTab::posterGrid()
{
    for (const CatalogSection section : {CatalogSection::Movie, CatalogSection::Series}) {
        BrowseTabFixture fixture(section);
        const QListWidget &grid = *fixture.tab.posterGrid();
        QCOMPARE(&grid, &fixture.view);
        QCOMPARE(grid.viewMode(), QListView::IconMode);
        QCOMPARE(grid.resizeMode(), QListView::Adjust);
        QCOMPARE(grid.movement(), QListView::Static);
        QVERIFY(grid.isWrapping());
        QVERIFY(grid.uniformItemSizes());
        QCOMPARE(grid.iconSize(), QSize(140, 210));
        QCOMPARE(grid.spacing(), 10);
        QCOMPARE(grid.selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(grid.frameShape(), QFrame::NoFrame);
        QVERIFY(grid.wordWrap());
        QCOMPARE(grid.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(grid.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    }
}

void tst_BrowseTab::sortBox()
{
    BrowseTabFixture fixture;
    const QBoxLayout &layout = fixture.pageLayout(BrowsePage::Items);
    const auto *row = qobject_cast<QHBoxLayout *>(layout.itemAt(1)->layout());
    QVERIFY(row != nullptr);
    QCOMPARE(row->itemAt(0)->widget(), &fixture.search);
    QCOMPARE(row->stretch(0), 1);
    const auto &box = fixture.part<QComboBox>("SortCombo");
    QCOMPARE(row->itemAt(1)->widget(), &box);
    QCOMPARE(row->stretch(1), 0);
    QStringList entries;
    for (int index = 0; index < box.count(); ++index) {
        entries << box.itemText(index) + u'/' + box.itemData(index).toString();
    }
    QCOMPARE(entries,
             (QStringList{u"Name (A-Z)/name"_s, u"Recently Added/added"_s, u"Rating/rating"_s}));
    QCOMPARE(box.currentIndex(), 0);
}

void tst_BrowseTab::categoriesFillTheList()
{
    BrowseTabFixture fixture;
    const QList<Category> categories{{u"7"_s, u"<b>Film</b>"_s}, {u"3"_s, u"Action"_s}};
    fixture.tab.setCategories(categories);
    QCOMPARE(fixture.tab.categories(), categories);
    QStringList rows;
    for (int row = 0; row < fixture.categoryList.count(); ++row) {
        const QListWidgetItem &item = *fixture.categoryList.item(row);
        QCOMPARE(item.data(Qt::UserRole).typeId(), QMetaType::QString);
        rows << item.text() + u'/' + item.data(Qt::UserRole).toString();
    }
    QCOMPARE(rows, (QStringList{u"All Categories/"_s, u"<b>Film</b>/7"_s, u"Action/3"_s}));
    QCOMPARE(fixture.names().size(), 4);
}

void tst_BrowseTab::entriesFillTheTable()
{
    BrowseTabFixture fixture(CatalogSection::Live);
    QCOMPARE(fixture.names(), (QStringList{u"Sky News"_s, u"Newsroom"_s, u"Arena"_s, u"News"_s}));
    const QList<MediaItem> items{film(u"<b>Two</b>"_s)};
    fixture.tab.setItems(items);
    QCOMPARE(fixture.tab.items(), items);
    QCOMPARE(fixture.names(), QStringList{u"<b>Two</b>"_s});
    fixture.tab.setItems({});
    QCOMPARE(fixture.names(), QStringList());
}

void tst_BrowseTab::aRefillOfEqualLengthIsPainted()
{
    /// Counts the paint events of what it filters.
    struct PaintCounter final : QObject
    {
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
        int count = 0;
    };
    BrowseTabFixture fixture(CatalogSection::Live);
    fixture.openCategory(0);
    PaintCounter paints;
    fixture.view.viewport()->installEventFilter(&paints);
    // Until the page that has just been shown is painted completely.
    QTRY_VERIFY((paints.count = 0, QCoreApplication::processEvents(), paints.count == 0));
    fixture.tab.setItems({film(u"A"_s), film(u"B"_s), film(u"C"_s), film(u"D"_s)});
    QTRY_VERIFY(paints.count > 0);
}

void tst_BrowseTab::entriesFillThePosterGrid()
{
    BrowseTabFixture fixture;
    MediaItem entry = film(u"Film"_s);
    entry.iconUrl = u"http://127.0.0.1/poster.jpg"_s;
    fixture.tab.setItems({entry, MediaItem()});
    QCOMPARE(fixture.refills.count(), 1);
    QCOMPARE(fixture.names(), (QStringList{QString(), u"Film"_s}));
    const QListWidgetItem &item = *fixture.tab.posterGrid()->item(1);
    QCOMPARE(item.data(Qt::TextAlignmentRole).toInt(), 36);
    QCOMPARE(item.data(257).toString(), entry.iconUrl);
    QCOMPARE(item.icon().cacheKey(), placeholder().cacheKey());
    QVERIFY(!item.data(258).toBool());
}

void tst_BrowseTab::aPosterKeepsTheSizeOfTheCells_data()
{
    QTest::addColumn<QSize>("poster");
    QTest::newRow("tall") << QSize(100, 4000);
    QTest::newRow("wide") << QSize(4000, 100);
    QTest::newRow("tiny") << QSize(2, 3);
    QTest::newRow("large") << QSize(1400, 2100);
}

void tst_BrowseTab::aPosterKeepsTheSizeOfTheCells()
{
    QFETCH(QSize, poster);
    BrowseTabFixture fixture;
    fixture.openCategory(0);
    QListWidget &grid = *fixture.tab.posterGrid();
    const auto cells = [&fixture, &grid] {
        fixture.view.doItemsLayout();
        QList<QRect> rects;
        for (int row = 0; row < grid.count(); ++row) {
            rects << grid.visualItemRect(grid.item(row));
        }
        return rects;
    };
    const QList<QRect> before = cells();
    // The space of a whole poster and of one line of text below it.
    const int lineHeight = grid.fontMetrics().height();
    QVERIFY(before.at(0).height() >= posterSize.height() + lineHeight);
    QVERIFY(before.at(0).height() < posterSize.height() + 2 * lineHeight);
    QVERIFY(before.at(0).width() >= posterSize.width());

    QPixmap picture(poster);
    picture.fill(Qt::red);
    grid.item(2)->setIcon(QIcon(picture));
    QCOMPARE(cells(), before);
}

VANTIRO_TEST_MAIN(tst_BrowseTab)
#include "tst_BrowseTab.moc"
