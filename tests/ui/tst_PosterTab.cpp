// What only tabs with posters have: the grid and the sort box.

#include "TabFixture.h"

#include <QComboBox>

class tst_PosterTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { tab = std::make_unique<Tab>(CatalogSection::Movie); }
    void gridSettings();
    void gridItems();
    void aPosterKeepsTheSizeOfTheCells_data();
    void aPosterKeepsTheSizeOfTheCells();
    void sortBox();
    void sortKeys_data();
    void sortKeys();
    void everyChangeRefillsOnce();

private:
    std::unique_ptr<Tab> tab;
};

void tst_PosterTab::gridSettings()
{
    const QListWidget &grid = *tab->tab.posterGrid();
    for (const auto &[name, value] : std::initializer_list<std::pair<const char *, int>>{
             {"viewMode", QListView::IconMode},
             {"resizeMode", QListView::Adjust},
             {"movement", QListView::Static},
             {"isWrapping", true},
             {"uniformItemSizes", true},
             {"spacing", 10},
             {"selectionMode", QAbstractItemView::SingleSelection},
             {"frameShape", QFrame::NoFrame},
             {"wordWrap", true},
             {"verticalScrollMode", QAbstractItemView::ScrollPerPixel},
             {"horizontalScrollMode", QAbstractItemView::ScrollPerPixel}}) {
        QVERIFY2(grid.property(name).isValid(), name);
        QVERIFY2(grid.property(name).toInt() == value, name);
    }
    QCOMPARE(grid.iconSize(), QSize(140, 210));
}

void tst_PosterTab::gridItems()
{
    MediaItem entry = film(u"Film"_s);
    entry.iconUrl = u"http://127.0.0.1/poster.jpg"_s;
    tab->tab.setItems({entry, MediaItem()});
    QCOMPARE(tab->names(), (QStringList{QString(), u"Film"_s}));
    const QListWidgetItem &item = *tab->tab.posterGrid()->item(1);
    QCOMPARE(item.data(Qt::TextAlignmentRole).toInt(), 36);
    QCOMPARE(item.data(257).toString(), entry.iconUrl);
    QCOMPARE(item.icon().cacheKey(), tab->placeholder.cacheKey());
    QVERIFY(!item.data(258).toBool());
}

void tst_PosterTab::aPosterKeepsTheSizeOfTheCells_data()
{
    QTest::addColumn<QSize>("poster");
    QTest::newRow("tall") << QSize(100, 4000);
    QTest::newRow("wide") << QSize(4000, 100);
    QTest::newRow("tiny") << QSize(2, 3);
    QTest::newRow("large") << QSize(1400, 2100);
}

void tst_PosterTab::aPosterKeepsTheSizeOfTheCells()
{
    QFETCH(QSize, poster);
    tab->openCategory(0);
    QListWidget &grid = *tab->tab.posterGrid();
    const auto cells = [this, &grid] {
        tab->view.doItemsLayout();
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

void tst_PosterTab::sortBox()
{
    const auto &box = tab->part<QComboBox>(u"SortCombo"_s);
    QStringList entries;
    for (int index = 0; index < box.count(); ++index) {
        entries << box.itemText(index) + u'/' + box.itemData(index).toString();
    }
    QCOMPARE(entries,
             (QStringList{u"Name (A-Z)/name"_s, u"Recently Added/added"_s, u"Rating/rating"_s}));
    QCOMPARE(box.currentIndex(), 0);
    const auto &row = *qobject_cast<QHBoxLayout *>(tab->pageLayout(1).itemAt(1)->layout());
    QCOMPARE(row.stretch(0), 1);
    QCOMPARE(row.stretch(1), 0);
}

void tst_PosterTab::sortKeys_data()
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

void tst_PosterTab::sortKeys()
{
    QFETCH(int, key);
    QFETCH(QString, query);
    tab->openCategory(0);
    tab->search.setText(query);
    auto &box = tab->part<QComboBox>(u"SortCombo"_s);
    // Away first, so that every key is a change.
    box.setCurrentIndex(key == 0 ? 2 : 0);
    box.setCurrentIndex(key);
    QTEST(tab->names(), "expected");
}

void tst_PosterTab::everyChangeRefillsOnce()
{
    const auto refillsOf = [this](const auto &change) {
        tab->refills.clear();
        change();
        return tab->refills.count();
    };
    QCOMPARE(refillsOf([this] { QTest::keyClicks(&tab->allSearch, u"new"_s); }), 3);
    QCOMPARE(refillsOf([this] { QTest::keyClick(&tab->allSearch, Qt::Key_Backspace); }), 1);
    QCOMPARE(refillsOf([this] { tab->allSearch.clear(); }), 1);
    QCOMPARE(refillsOf([this] { tab->openCategory(1); }), 1);
    QCOMPARE(refillsOf([this] { QTest::keyClicks(&tab->search, u"ne"_s); }), 2);
    QCOMPARE(refillsOf([this] { tab->part<QComboBox>(u"SortCombo"_s).setCurrentIndex(2); }), 1);
    QCOMPARE(refillsOf([this] { tab->tab.setItems({}); }), 1);
    QCOMPARE(refillsOf([this] { tab->tab.setCategories({}); }), 0);
    QCOMPARE(refillsOf([this] { tab->tab.selectCategory(nullptr); }), 0);
    QCOMPARE(tab->title.text(), u"News"_s);
}

VANTIRO_TEST_MAIN(tst_PosterTab)
#include "tst_PosterTab.moc"
