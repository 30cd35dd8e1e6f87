#include "RowMenus.h"
#include "support/TestMain.h"
#include "ui/CategoryList.h"

#include <QScrollBar>
#include <QSignalSpy>

#include <memory>

using namespace Qt::StringLiterals;

class tst_CategoryList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsStandUnderAllCategories();
    void nothingShowsBeforeTheCategories();
    void hiddenCategoriesLeave();
    void hiddenCategoriesShowOnRequest();
    void noHiddenCategoryEndsTheRequest();
    void menus_data();
    void menus();
    void menuKey();
    void theCurrentRowStays();
    void theScrolledPlaceStays();

private:
    QStringList texts() const
    {
        QStringList result;
        for (int row = 0; row < list->count(); ++row)
            result << list->item(row)->text();
        return result;
    }

    std::unique_ptr<CategoryList> list;
    const QStringList allRows{u"All Categories"_s, u"News"_s, u"Sport"_s, u"Kids"_s};
};

void tst_CategoryList::init()
{
    list = std::make_unique<CategoryList>();
    list->setCategories({{u"n"_s, u"News"_s}, {u"s"_s, u"Sport"_s}, {u"k"_s, u"Kids"_s}});
    list->resize(200, 300);
    list->show();
    QVERIFY(QTest::qWaitForWindowActive(list.get()));
}

void tst_CategoryList::listsStandUnderAllCategories()
{
    QCOMPARE(texts(), allRows);
    const QList collections{Collection::Favorites, Collection::ContinueWatching,
                            Collection::RecentlyWatched};
    list->setCollections(collections);
    QCOMPARE(texts(), (QStringList{u"All Categories"_s, u"Favorites"_s, u"Continue Watching"_s,
                                   u"Recently Watched"_s, u"News"_s, u"Sport"_s, u"Kids"_s}));
    QCOMPARE(CategoryList::collectionOf(*list->item(0)), Collection::None);
    for (int row = 0; row < collections.size(); ++row) {
        const QListWidgetItem &item = *list->item(row + 1);
        QCOMPARE(CategoryList::collectionOf(item), collections.at(row));
        QCOMPARE(item.data(Qt::UserRole), QVariant(QString()));
    }
    QCOMPARE(CategoryList::collectionOf(*list->item(4)), Collection::None);
    list->setCollections({});
    QCOMPARE(texts(), allRows);
}

void tst_CategoryList::nothingShowsBeforeTheCategories()
{
    list->clearCategories();
    list->setCollections({Collection::Favorites});
    list->setHidden({u"n"_s});
    QCOMPARE(texts(), QStringList());
    list->setCategories({{u"n"_s, u"News"_s}});
    QCOMPARE(texts(), (QStringList{u"All Categories"_s, u"Favorites"_s}));
}

void tst_CategoryList::hiddenCategoriesLeave()
{
    list->setHidden({u"s"_s, u"unknown"_s});
    QCOMPARE(texts(), (QStringList{u"All Categories"_s, u"News"_s, u"Kids"_s}));
    list->setHidden({});
    QCOMPARE(texts(), allRows);
}

void tst_CategoryList::hiddenCategoriesShowOnRequest()
{
    list->setHidden({u"s"_s});
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(*list, -1), u"Show Hidden Categories"_s));
    QCOMPARE(texts(), allRows);
    const QColor grey = list->palette().color(QPalette::Disabled, QPalette::Text);
    QCOMPARE(list->item(2)->foreground().color(), grey);
    QCOMPARE(list->item(2)->data(Qt::AccessibleDescriptionRole).toString(), u"Hidden"_s);
    QVERIFY(list->item(1)->foreground().color() != grey);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(*list, -1), u"Show Hidden Categories"_s));
    QCOMPARE(texts(), (QStringList{u"All Categories"_s, u"News"_s, u"Kids"_s}));
}

void tst_CategoryList::noHiddenCategoryEndsTheRequest()
{
    list->setHidden({u"s"_s});
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(*list, -1), u"Show Hidden Categories"_s));
    list->setHidden({u"s"_s, u"n"_s});
    QCOMPARE(texts(), allRows);
    list->setHidden({});
    list->setHidden({u"s"_s});
    QCOMPARE(texts(), (QStringList{u"All Categories"_s, u"News"_s, u"Kids"_s}));
}

void tst_CategoryList::menus_data()
{
    QTest::addColumn<QSet<QString>>("hidden");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("texts");
    const QString show = u"Show Hidden Categories"_s;
    QTest::newRow("all categories") << QSet<QString>() << 0 << QStringList();
    QTest::newRow("favorites") << QSet<QString>() << 1 << QStringList();
    QTest::newRow("a category") << QSet<QString>() << 2 << QStringList{u"Hide Category"_s};
    QTest::newRow("below the rows") << QSet<QString>() << -1 << QStringList();
    QTest::newRow("one is hidden: all") << QSet{u"s"_s} << 0 << QStringList{show};
    QTest::newRow("one is hidden: another")
        << QSet{u"s"_s} << 2 << QStringList{u"Hide Category"_s, show};
    QTest::newRow("one is hidden: below") << QSet{u"s"_s} << -1 << QStringList{show};
}

void tst_CategoryList::menus()
{
    QFETCH(QSet<QString>, hidden);
    QFETCH(int, row);
    QFETCH(QStringList, texts);
    list->setCollections({Collection::Favorites});
    list->setHidden(hidden);
    QCOMPARE(RowMenus::texts(RowMenus::openByMouse(*list, row)), texts);
}

void tst_CategoryList::menuKey()
{
    QSignalSpy hides(list.get(), &CategoryList::hideRequested);
    QSignalSpy unhides(list.get(), &CategoryList::unhideRequested);
    list->setCurrentRow(2);
    QVERIFY(RowMenus::choose(RowMenus::openByKey(*list), u"Hide Category"_s));
    QCOMPARE(hides.size(), 1);
    QCOMPARE(hides.constFirst().constFirst().value<Category>(), (Category{u"s"_s, u"Sport"_s}));
    list->setHidden({u"s"_s});
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(*list, -1), u"Show Hidden Categories"_s));
    list->setCurrentRow(2);
    QVERIFY(RowMenus::choose(RowMenus::openByKey(*list), u"Unhide Category"_s));
    QCOMPARE(unhides.size(), 1);
    QCOMPARE(unhides.constFirst().constFirst().toString(), u"s"_s);
}

void tst_CategoryList::theCurrentRowStays()
{
    list->setCurrentRow(2);
    list->setCollections({Collection::Favorites});
    QCOMPARE(list->currentItem()->text(), u"Sport"_s);
    QVERIFY(list->currentItem()->isSelected());
    list->clearSelection();
    list->setCollections({});
    QCOMPARE(list->currentItem()->text(), u"Sport"_s);
    QVERIFY(list->selectedItems().isEmpty());
}

void tst_CategoryList::theScrolledPlaceStays()
{
    QList<Category> many;
    for (int number = 0; number < 200; ++number)
        many.append({QString::number(number), u"Category"_s});
    list->setCategories(many);
    list->scrollToBottom();
    const int place = list->verticalScrollBar()->value();
    QVERIFY(place > 0);
    list->setCollections({Collection::Favorites});
    QCOMPARE(list->verticalScrollBar()->value(), place);
}

VANTIRO_TEST_MAIN(tst_CategoryList)
#include "tst_CategoryList.moc"
