#include "support/TestMain.h"
#include "ui/BrowseTab.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// What the search over all categories and the reset work on, and what a refilter saw.
struct State
{
    explicit State(const QString &selectedCategory = {})
        : categoryId(selectedCategory)
    {
        fillCategoryList(&categoryList, {{u"7"_s, u"News"_s}});
        QObject::connect(&itemSearch, &QLineEdit::textChanged, &itemSearch,
                         [this] { refilter(u"search"_s); });
        wireCategorySearch(&allSearch, &categoryId, &titleLabel, &itemSearch, nullptr,
                           [this] { refilter(u"all"_s); });
    }

    void refilter(const QString &from)
    {
        refilters << from + u'|' + categoryId + u'|' + titleLabel.text() + u'|' + itemSearch.text();
    }

    void reset()
    {
        resetTabFilterState(categoryId, &categoryList, &titleLabel, &allSearch, &itemSearch);
    }

    QString categoryId;
    QListWidget categoryList;
    QLabel titleLabel;
    QLineEdit allSearch;
    QLineEdit itemSearch;
    /// One text per refilter: who asked, and the state that it found.
    QStringList refilters;
};

} // namespace

/// The search over all categories, the reset of a tab, and the activation keys.
class tst_BrowseTabState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void searchingAllSetsTheStateThenRefiltersOnce();
    void everyKeystrokeRefiltersOnce();
    void clearingShowsAllCategoriesAgain();
    void quotesAndPlaceMarksInTheSearchStay();
    void resetClearsEverything();
    void resetWithoutSearchesRefiltersNothing();
    void resetWithAnItemSearchRefiltersOnce();
    void resetWithASearchOverAllRunsItsHandlers();
    void keysRunTheAction_data();
    void keysRunTheAction();
    void keysActOnTheChildrenToo();
    void keysElsewhereDoNothing();
    void theActionDiesWithItsContext();
};

void tst_BrowseTabState::searchingAllSetsTheStateThenRefiltersOnce()
{
    State state(u"7"_s);
    state.allSearch.setText(u"news"_s);
    QCOMPARE(state.refilters, QStringList{u"all||Search: \"news\"|news"_s});
}

void tst_BrowseTabState::everyKeystrokeRefiltersOnce()
{
    State state;
    QTest::keyClicks(&state.allSearch, u"sky"_s);
    QCOMPARE(state.refilters.size(), 3);
    QTest::keyClick(&state.allSearch, Qt::Key_Backspace);
    QCOMPARE(state.refilters.size(), 4);
    QCOMPARE(state.refilters.last(), u"all||Search: \"sk\"|sk"_s);
}

void tst_BrowseTabState::clearingShowsAllCategoriesAgain()
{
    State state;
    state.allSearch.setText(u"news"_s);
    state.refilters.clear();
    state.allSearch.clear();
    QCOMPARE(state.refilters, QStringList{u"all||All Categories|"_s});
}

void tst_BrowseTabState::quotesAndPlaceMarksInTheSearchStay()
{
    State state;
    state.allSearch.setText(u"\"100%1\""_s);
    QCOMPARE(state.titleLabel.text(), u"Search: \"\"100%1\"\""_s);
}

void tst_BrowseTabState::resetClearsEverything()
{
    State state(u"7"_s);
    state.categoryList.setCurrentRow(1);
    state.titleLabel.setText(u"News"_s);
    state.itemSearch.setText(u"sky"_s);
    state.reset();
    QCOMPARE(state.categoryId, QString());
    QVERIFY(state.categoryList.selectedItems().isEmpty());
    QCOMPARE(state.titleLabel.text(), QString());
    QCOMPARE(state.allSearch.text(), QString());
    QCOMPARE(state.itemSearch.text(), QString());
    QCOMPARE(state.categoryList.count(), 2);
}

void tst_BrowseTabState::resetWithoutSearchesRefiltersNothing()
{
    State state(u"7"_s);
    state.titleLabel.setText(u"News"_s);
    state.reset();
    QCOMPARE(state.refilters, QStringList());
}

void tst_BrowseTabState::resetWithAnItemSearchRefiltersOnce()
{
    State state(u"7"_s);
    state.itemSearch.setText(u"sky"_s);
    state.titleLabel.setText(u"News"_s);
    state.refilters.clear();
    state.reset();
    // Category and title are gone by then.
    QCOMPARE(state.refilters, QStringList{u"search|||"_s});
}

void tst_BrowseTabState::resetWithASearchOverAllRunsItsHandlers()
{
    State state(u"7"_s);
    state.allSearch.setText(u"sky"_s);
    state.refilters.clear();
    state.reset();
    QCOMPARE(state.refilters, QStringList{u"all||All Categories|"_s});
    QCOMPARE(state.titleLabel.text(), u"All Categories"_s);
}

void tst_BrowseTabState::keysRunTheAction_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("expected");
    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter << 1;
    QTest::newRow("another key") << Qt::Key_A << 0;
}

void tst_BrowseTabState::keysRunTheAction()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, expected);
    QListWidget list;
    list.addItem(u"One"_s);
    int runs = 0;
    addActivateKeyShortcuts(&list, this, [&runs] { ++runs; });
    list.show();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setFocus();
    QTest::keyClick(&list, key);
    QCOMPARE(runs, expected);
}

void tst_BrowseTabState::keysActOnTheChildrenToo()
{
    QWidget page;
    auto *layout = new QVBoxLayout(&page);
    auto *field = new QLineEdit;
    layout->addWidget(field);
    int runs = 0;
    addActivateKeyShortcuts(&page, this, [&runs] { ++runs; });
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(runs, 1);
}

void tst_BrowseTabState::keysElsewhereDoNothing()
{
    QWidget page;
    auto *layout = new QVBoxLayout(&page);
    auto *list = new QListWidget;
    auto *other = new QLineEdit;
    layout->addWidget(list);
    layout->addWidget(other);
    int runs = 0;
    addActivateKeyShortcuts(list, this, [&runs] { ++runs; });
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    other->setFocus();
    QTest::keyClick(other, Qt::Key_Return);
    QCOMPARE(runs, 0);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(runs, 1);
}

void tst_BrowseTabState::theActionDiesWithItsContext()
{
    QListWidget list;
    int runs = 0;
    {
        QObject context;
        addActivateKeyShortcuts(&list, &context, [&runs] { ++runs; });
    }
    list.show();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(runs, 0);
}

VANTIRO_TEST_MAIN(tst_BrowseTabState)
#include "tst_BrowseTabState.moc"
