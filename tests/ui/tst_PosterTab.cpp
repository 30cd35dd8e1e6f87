// What only tabs with posters have: the grid and the sort box.

#include "TabFixture.h"
#include "ui/PosterGrid.h"

#include <QComboBox>

class tst_PosterTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { tab = std::make_unique<Tab>(CatalogSection::Movie); }
    void gridItems();
    void sortBox();
    void theChosenKeySorts();
    void everyChangeRefillsOnce();
    void refillsReuseTheItems();

private:
    std::unique_ptr<Tab> tab;
};

void tst_PosterTab::gridItems()
{
    MediaItem entry = film(u"Film"_s);
    entry.iconUrl = u"http://127.0.0.1/poster.jpg"_s;
    tab->tab.setItems(QList{entry, MediaItem()});
    QCOMPARE(tab->names(), (QStringList{QString(), u"Film"_s}));
    QCOMPARE(tab->view.model()->index(1, 0).data(PosterRole::IconUrl).toString(), entry.iconUrl);
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

void tst_PosterTab::theChosenKeySorts()
{
    auto &box = tab->part<QComboBox>(u"SortCombo"_s);
    tab->openCategory(0);
    box.setCurrentIndex(2);
    QCOMPARE(tab->names(), (QStringList{u"Arena"_s, u"News"_s, u"Sky News"_s, u"Newsroom"_s}));
    box.setCurrentIndex(1);
    QCOMPARE(tab->names(), (QStringList{u"Sky News"_s, u"Arena"_s, u"Newsroom"_s, u"News"_s}));
    // The best match comes first.
    tab->search.setText(u"news"_s);
    QCOMPARE(tab->names(), (QStringList{u"News"_s, u"Newsroom"_s, u"Sky News"_s}));
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

void tst_PosterTab::refillsReuseTheItems()
{
    const auto &grid = static_cast<const QListWidget &>(tab->view);
    const QListWidgetItem *first = grid.item(0);
    const QListWidgetItem *second = grid.item(1);
    tab->part<QComboBox>(u"SortCombo"_s).setCurrentIndex(2);
    QCOMPARE(grid.item(0), first);
    tab->search.setText(u"news"_s);
    QCOMPARE(grid.item(1), second);
    tab->search.clear();
    QCOMPARE(grid.item(0), first);
    QCOMPARE(grid.item(1), second);
}

VANTIRO_TEST_MAIN(tst_PosterTab)
#include "tst_PosterTab.moc"
