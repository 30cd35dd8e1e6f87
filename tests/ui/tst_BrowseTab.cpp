#include "support/TestMain.h"
#include "ui/BrowseTab.h"
#include "ui/Thumbnails.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

/// A tab of either kind with its widgets.
struct Tab
{
    explicit Tab(bool posters, const QString &kindWord = u"Channel"_s)
    {
        root.reset(posters ? buildPosterTabSkeleton(nullptr, &stack, &categoryList, &allSearch,
                                                    &titleLabel, &itemSearch, &sortCombo,
                                                    &posterList, kindWord)
                           : buildTabSkeleton(nullptr, &stack, &categoryList, &allSearch,
                                              &titleLabel, &itemSearch, &table, kindWord));
        view = posters ? static_cast<QWidget *>(posterList) : table;
    }

    QVBoxLayout *pageLayout(int page) const
    {
        return qobject_cast<QVBoxLayout *>(stack->widget(page)->layout());
    }
    QPushButton *backButton() const { return stack->widget(1)->findChild<QPushButton *>(); }
    QLabel *categoryLabel() const
    {
        return qobject_cast<QLabel *>(pageLayout(0)->itemAt(1)->widget());
    }
    void show() const
    {
        root->show();
        QVERIFY(QTest::qWaitForWindowActive(root.get()));
    }

    std::unique_ptr<QWidget> root;
    QStackedWidget *stack = nullptr;
    QListWidget *categoryList = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *titleLabel = nullptr;
    QLineEdit *itemSearch = nullptr;
    QTableWidget *table = nullptr;
    QComboBox *sortCombo = nullptr;
    QListWidget *posterList = nullptr;
    QWidget *view = nullptr;
};

/// Counts the paint events of the widgets that it filters.
class PaintCounter final : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

QStringList texts(const QListWidget &list)
{
    QStringList result;
    for (int row = 0; row < list.count(); ++row) {
        result << list.item(row)->text();
    }
    return result;
}

} // namespace

class tst_BrowseTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void categoryPage_data() { kinds(); }
    void categoryPage();
    void itemsPage_data() { kinds(); }
    void itemsPage();
    void table();
    void posterList();
    void searchRowOfThePosters();
    void storesAPartOfTheParent();
    void backGoesToTheCategories_data() { kinds(); }
    void backGoesToTheCategories();
    void searchShowsTheResultsInPlaceOfTheCategories_data() { kinds(); }
    void searchShowsTheResultsInPlaceOfTheCategories();
    void theViewReturnsToTheItemsPage_data() { kinds(); }
    void theViewReturnsToTheItemsPage();
    void theSearchResultsReturnToTheCategoryPage_data() { kinds(); }
    void theSearchResultsReturnToTheCategoryPage();
    void aLongTitleNeedsNoRoom();
    void fillsCategories();
    void fillsTheTable();
    void aRefillOfEqualLengthIsPainted();
    void fillsThePosterGrid();
    void aPosterLeavesTheCellsAlone_data();
    void aPosterLeavesTheCellsAlone();

private:
    static void kinds();
};

void tst_BrowseTab::kinds()
{
    QTest::addColumn<bool>("posters");
    QTest::addColumn<QString>("kindWord");
    QTest::addColumn<QString>("placeholder");
    QTest::newRow("table of channels") << false << u"Channel"_s << u"Search all channels..."_s;
    QTest::newRow("posters of movies") << true << u"Movie"_s << u"Search all movies..."_s;
    QTest::newRow("posters of shows") << true << u"Show"_s << u"Search all shows..."_s;
}

void tst_BrowseTab::categoryPage()
{
    QFETCH(bool, posters);
    QFETCH(QString, kindWord);
    QFETCH(QString, placeholder);
    const Tab tab(posters, kindWord);

    const auto *rootLayout = qobject_cast<QVBoxLayout *>(tab.root->layout());
    QVERIFY(rootLayout != nullptr);
    QCOMPARE(rootLayout->contentsMargins(), QMargins());
    QCOMPARE(rootLayout->count(), 1);
    QCOMPARE(rootLayout->itemAt(0)->widget(), tab.stack);
    QCOMPARE(tab.stack->count(), 2);
    QCOMPARE(tab.stack->currentIndex(), 0);

    const QVBoxLayout *layout = tab.pageLayout(0);
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), tab.allSearch);
    QCOMPARE(tab.allSearch->placeholderText(), placeholder);
    QCOMPARE(tab.categoryLabel()->text(), u"Select a category:"_s);
    QCOMPARE(layout->itemAt(2)->widget(), tab.categoryList);
    QCOMPARE(layout->stretch(2), 1);
}

void tst_BrowseTab::itemsPage()
{
    QFETCH(bool, posters);
    QFETCH(QString, kindWord);
    const Tab tab(posters, kindWord);

    const QVBoxLayout *layout = tab.pageLayout(1);
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 3);
    const auto *titleRow = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(titleRow != nullptr);
    QCOMPARE(titleRow->count(), 2);
    QCOMPARE(titleRow->itemAt(0)->widget(), tab.backButton());
    QCOMPARE(tab.backButton()->text(), u"< Back to Categories"_s);
    QCOMPARE(titleRow->stretch(0), 0);
    QCOMPARE(titleRow->itemAt(1)->widget(), tab.titleLabel);
    QCOMPARE(titleRow->stretch(1), 1);
    QCOMPARE(tab.titleLabel->font().weight(), 700);
    QCOMPARE(tab.titleLabel->text(), QString());

    QCOMPARE(tab.itemSearch->placeholderText(), u"Search..."_s);
    QCOMPARE(layout->itemAt(2)->widget(), tab.view);
    QCOMPARE(layout->stretch(2), 1);
}

void tst_BrowseTab::table()
{
    const Tab tab(false, u"Channel"_s);
    QCOMPARE(tab.pageLayout(1)->itemAt(1)->widget(), tab.itemSearch);
    QCOMPARE(tab.table->columnCount(), 1);
    QCOMPARE(tab.table->horizontalHeaderItem(0)->text(), u"Channel"_s);
    QVERIFY(tab.table->horizontalHeader()->stretchLastSection());
    QCOMPARE(tab.table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(tab.table->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(tab.table->verticalHeader()->isHidden());
}

void tst_BrowseTab::posterList()
{
    const Tab tab(true, u"Movie"_s);
    const QListWidget &list = *tab.posterList;
    QCOMPARE(list.viewMode(), QListView::IconMode);
    QCOMPARE(list.resizeMode(), QListView::Adjust);
    QCOMPARE(list.movement(), QListView::Static);
    QVERIFY(list.isWrapping());
    QVERIFY(list.uniformItemSizes());
    QCOMPARE(list.iconSize(), QSize(140, 210));
    QCOMPARE(list.spacing(), 10);
    QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list.frameShape(), QFrame::NoFrame);
    QVERIFY(list.wordWrap());
    QCOMPARE(list.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
}

void tst_BrowseTab::searchRowOfThePosters()
{
    const Tab tab(true, u"Movie"_s);
    const auto *row = qobject_cast<QHBoxLayout *>(tab.pageLayout(1)->itemAt(1)->layout());
    QVERIFY(row != nullptr);
    QCOMPARE(row->count(), 2);
    QCOMPARE(row->itemAt(0)->widget(), tab.itemSearch);
    QCOMPARE(row->stretch(0), 1);
    QCOMPARE(row->itemAt(1)->widget(), tab.sortCombo);
    QCOMPARE(row->stretch(1), 0);

    QStringList entries;
    for (int index = 0; index < tab.sortCombo->count(); ++index) {
        entries << tab.sortCombo->itemText(index) + u'/' +
                       tab.sortCombo->itemData(index, Qt::UserRole).toString();
    }
    QCOMPARE(entries,
             (QStringList{u"Name (A-Z)/name"_s, u"Recently Added/added"_s, u"Rating/rating"_s}));
    QCOMPARE(tab.sortCombo->currentIndex(), 0);
}

void tst_BrowseTab::storesAPartOfTheParent()
{
    QWidget parent;
    QStackedWidget *stack = nullptr;
    QListWidget *categories = nullptr;
    QLineEdit *allSearch = nullptr;
    QLabel *title = nullptr;
    QLineEdit *search = nullptr;
    QTableWidget *table = nullptr;
    const QWidget *root = buildTabSkeleton(&parent, &stack, &categories, &allSearch, &title,
                                           &search, &table, u"Channel"_s);
    QCOMPARE(root->parentWidget(), &parent);
    for (const QWidget *widget : std::initializer_list<const QWidget *>{
             stack, categories, allSearch, title, search, table}) {
        QVERIFY(root->isAncestorOf(widget));
    }
}

void tst_BrowseTab::backGoesToTheCategories()
{
    QFETCH(bool, posters);
    const Tab tab(posters);
    tab.stack->setCurrentIndex(1);
    tab.backButton()->click();
    QCOMPARE(tab.stack->currentIndex(), 0);
}

void tst_BrowseTab::searchShowsTheResultsInPlaceOfTheCategories()
{
    QFETCH(bool, posters);
    const Tab tab(posters);
    tab.show();
    QVERIFY(tab.categoryList->isVisible());

    tab.allSearch->setText(u"n"_s);
    QCOMPARE(tab.stack->currentIndex(), 0);
    QVERIFY(tab.categoryLabel()->isHidden());
    QVERIFY(tab.categoryList->isHidden());
    QVERIFY(tab.view->isVisible());
    QCOMPARE(tab.view->parentWidget(), tab.stack->widget(0));
    QVBoxLayout *layout = tab.pageLayout(0);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(3)->widget(), tab.view);
    QCOMPARE(layout->stretch(3), 1);

    // Typing on does not move it again.
    tab.allSearch->setText(u"ne"_s);
    QCOMPARE(layout->count(), 4);
    QVERIFY(tab.view->isVisible());

    tab.allSearch->clear();
    QVERIFY(!tab.categoryLabel()->isHidden());
    QVERIFY(tab.categoryList->isVisible());
    QVERIFY(tab.view->isHidden());
}

void tst_BrowseTab::theViewReturnsToTheItemsPage()
{
    QFETCH(bool, posters);
    const Tab tab(posters);
    tab.show();
    // With the field cleared (the view is hidden), and with the search still in it.
    for (const bool cleared : {true, false}) {
        tab.allSearch->setText(u"n"_s);
        if (cleared) {
            tab.allSearch->clear();
        }
        tab.stack->setCurrentIndex(1);
        QCOMPARE(tab.view->parentWidget(), tab.stack->widget(1));
        const QVBoxLayout *layout = tab.pageLayout(1);
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(2)->widget(), tab.view);
        QCOMPARE(layout->stretch(2), 1);
        QVERIFY(tab.view->isVisible());
        tab.stack->setCurrentIndex(0);
    }
}

void tst_BrowseTab::theSearchResultsReturnToTheCategoryPage()
{
    QFETCH(bool, posters);
    const Tab tab(posters);
    tab.show();
    tab.allSearch->setText(u"n"_s);
    tab.stack->setCurrentIndex(1);
    QCOMPARE(tab.view->parentWidget(), tab.stack->widget(1));
    tab.stack->setCurrentIndex(0);
    QCOMPARE(tab.view->parentWidget(), tab.stack->widget(0));
    QVERIFY(tab.view->isVisible());
    QVERIFY(tab.categoryList->isHidden());

    // The field is cleared in that state, and again while another page shows.
    for (const int page : {0, 1}) {
        tab.allSearch->setText(u"n"_s);
        tab.stack->setCurrentIndex(page);
        tab.allSearch->clear();
        tab.stack->setCurrentIndex(0);
        QVERIFY(tab.categoryList->isVisible());
        QVERIFY(!tab.view->isVisible());
        tab.stack->setCurrentIndex(1);
        QVERIFY(tab.view->isVisible());
        QCOMPARE(tab.view->parentWidget(), tab.stack->widget(1));
        tab.stack->setCurrentIndex(0);
    }
}

void tst_BrowseTab::aLongTitleNeedsNoRoom()
{
    const Tab tab(true);
    tab.titleLabel->setText(QString(5000, u'x'));
    QCOMPARE(tab.titleLabel->minimumSizeHint().width(), 0);
}

void tst_BrowseTab::fillsCategories()
{
    QListWidget list;
    fillCategoryList(&list, {{u"7"_s, u"News"_s}, {u"3"_s, u"Sport"_s}});
    QCOMPARE(texts(list), (QStringList{u"All Categories"_s, u"News"_s, u"Sport"_s}));
    QStringList ids;
    for (int row = 0; row < list.count(); ++row) {
        ids << list.item(row)->data(Qt::UserRole).toString();
    }
    QCOMPARE(ids, (QStringList{QString(), u"7"_s, u"3"_s}));
    QCOMPARE(list.item(0)->data(Qt::UserRole).typeId(), QMetaType::QString);

    fillCategoryList(&list, {});
    QCOMPARE(texts(list), QStringList{u"All Categories"_s});
}

void tst_BrowseTab::fillsTheTable()
{
    const Tab tab(false);
    MediaItem first;
    first.name = u"One"_s;
    MediaItem second;
    second.name = u"<b>Two</b>"_s;
    fillTable(tab.table, {first, second, first});
    QCOMPARE(tab.table->rowCount(), 3);
    QCOMPARE(tab.table->item(0, 0)->data(Qt::DisplayRole).toString(), u"One"_s);
    QCOMPARE(tab.table->item(1, 0)->text(), u"<b>Two</b>"_s);

    fillTable(tab.table, {second});
    QCOMPARE(tab.table->rowCount(), 1);
    QCOMPARE(tab.table->item(0, 0)->text(), u"<b>Two</b>"_s);
    fillTable(tab.table, {});
    QCOMPARE(tab.table->rowCount(), 0);
}

void tst_BrowseTab::aRefillOfEqualLengthIsPainted()
{
    const Tab tab(false);
    tab.stack->setCurrentIndex(1);
    tab.show();
    MediaItem channel;
    channel.name = u"One"_s;
    fillTable(tab.table, {channel});
    QWidget *viewport = tab.table->viewport();
    PaintCounter paints;
    viewport->installEventFilter(&paints);
    // Until the window that has just been shown is painted to its end.
    QTRY_VERIFY((paints.count = 0, QCoreApplication::processEvents(), paints.count == 0));
    channel.name = u"Two"_s;
    fillTable(tab.table, {channel});
    QTRY_VERIFY(paints.count > 0);
}

void tst_BrowseTab::fillsThePosterGrid()
{
    const Tab tab(true);
    QPixmap grey(140, 210);
    grey.fill(Qt::gray);
    const QIcon placeholder(grey);
    MediaItem film;
    film.name = u"Film"_s;
    film.iconUrl = u"http://127.0.0.1/poster.jpg"_s;
    fillPosterGrid(tab.posterList, {film, MediaItem()}, placeholder);
    QCOMPARE(tab.posterList->count(), 2);
    const QListWidgetItem *item = tab.posterList->item(0);
    QCOMPARE(item->text(), u"Film"_s);
    QCOMPARE(item->data(Qt::TextAlignmentRole).toInt(), 36);
    QCOMPARE(item->data(257).toString(), u"http://127.0.0.1/poster.jpg"_s);
    QCOMPARE(item->icon().cacheKey(), placeholder.cacheKey());
    QVERIFY(!item->data(258).toBool());

    fillPosterGrid(tab.posterList, {film}, placeholder);
    QCOMPARE(texts(*tab.posterList), QStringList{u"Film"_s});
}

void tst_BrowseTab::aPosterLeavesTheCellsAlone_data()
{
    QTest::addColumn<QSize>("poster");
    QTest::newRow("tall") << QSize(100, 4000);
    QTest::newRow("wide") << QSize(4000, 100);
    QTest::newRow("tiny") << QSize(2, 3);
    QTest::newRow("large") << QSize(1400, 2100);
}

void tst_BrowseTab::aPosterLeavesTheCellsAlone()
{
    QFETCH(QSize, poster);
    const Tab tab(true);
    tab.show();
    tab.stack->setCurrentIndex(1);
    MediaItem film;
    film.name = u"Film"_s;
    fillPosterGrid(tab.posterList, {film, film, film}, QIcon(makePlaceholderPoster()));
    const auto cells = [&tab] {
        QAbstractItemView &view = *tab.posterList;
        view.doItemsLayout();
        QList<QRect> rects;
        for (int row = 0; row < tab.posterList->count(); ++row) {
            rects << tab.posterList->visualItemRect(tab.posterList->item(row));
        }
        return rects;
    };
    const QList<QRect> before = cells();
    // The place of a whole poster and of one line of text below it.
    const int lineHeight = tab.posterList->fontMetrics().height();
    QVERIFY(before.at(0).height() >= posterSize.height() + lineHeight);
    QVERIFY(before.at(0).height() < posterSize.height() + 2 * lineHeight);
    QVERIFY(before.at(0).width() >= posterSize.width());

    QPixmap picture(poster);
    picture.fill(Qt::red);
    tab.posterList->item(2)->setIcon(QIcon(picture));
    QCOMPARE(cells(), before);
}

VANTIRO_TEST_MAIN(tst_BrowseTab)
#include "tst_BrowseTab.moc"
