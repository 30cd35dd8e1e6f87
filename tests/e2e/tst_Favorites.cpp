// What the user keeps, in the real window: by mouse, by key, and after a restart.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFavorites : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void orderSurvivesARestart();
    void drops();
    void whatPlaysAndUndo();
    void hiddenCategoryByKey();

private:
    void fill() override;
    Accessible table() const { return session->window.waitFor(Role::Table); }
    /// Chooses an action of the menu that is open.
    bool chooseFromMenu(const QString &action) const;
    bool addToFavorites(const QString &channel) const;
    bool removeFromFavorites(const QString &channel) const;
    QPoint topOf(const QString &row) const
    {
        return session->entry(row).rect().topLeft() + QPoint(41, 2);
    }
    QPoint bottomOf(const QString &row) const
    {
        return session->entry(row).rect().bottomLeft() + QPoint(41, -2);
    }
    /// Drags a row by the mouse, and drops it at a place of the screen.
    bool drag(const QString &row, const QPoint &place) const;
    /// Opens the favorites, or another list of the category page.
    bool openList(const QString &name) const;
};

void TestFavorites::fill()
{
    for (const QString &name : {u"One"_s, u"Two"_s, u"Three"_s, u"Four"_s})
        provider->addChannel(name, [](const HttpRequest &) { return liveTs(); });
    provider->setNames(XtreamAction::liveCategories, {u"News"_s});
}

bool TestFavorites::chooseFromMenu(const QString &action) const
{
    const Accessible menu = session->app.waitForMenu();
    return menu && Mouse::click(menu.waitFor(Role::MenuItem, action)) && menu.waitUntilGone();
}

bool TestFavorites::addToFavorites(const QString &channel) const
{
    return Mouse::rightClick(session->entry(channel)) && chooseFromMenu(u"Add to Favorites"_s);
}

bool TestFavorites::removeFromFavorites(const QString &channel) const
{
    return Mouse::rightClick(session->entry(channel)) && chooseFromMenu(u"Remove from Favorites"_s);
}

bool TestFavorites::openList(const QString &name) const
{
    return session->clickButton(u"< Back to Categories"_s) && session->openCategory(name);
}

bool TestFavorites::drag(const QString &row, const QPoint &place) const
{
    const QPoint start = session->entry(row).rect().center();
    // A drag begins with a move, and marks the place with another.
    return Mouse::press(start) && Mouse::moveTo(start + (place - start) / 2) &&
           Mouse::moveTo(place - QPoint(1, 1)) && Mouse::moveTo(place) && Mouse::release();
}

void TestFavorites::orderSurvivesARestart()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    for (const QString &channel : {u"Two"_s, u"Three"_s, u"Four"_s})
        QVERIFY(addToFavorites(channel));
    QVERIFY(openList(u"Favorites"_s));
    QTRY_COMPARE(table().rowTexts(), (QStringList{u"Two"_s, u"Three"_s, u"Four"_s}));
    const QRect first = session->entry(u"Two"_s).rect();
    const QRect last = session->entry(u"Four"_s).rect();
    // The row under the pointer and the mark of its new place show before it is dropped.
    const QRect edge(first.left(), first.top() - 4, first.width(), 8);
    const QImage before = Screen::grab(edge);
    QVERIFY(Mouse::press(last.center()));
    QVERIFY(Mouse::moveTo(last.center() - QPoint(0, 20)));
    QVERIFY(Mouse::moveTo(first.topLeft() + QPoint(40, 3)));
    QVERIFY(Mouse::moveTo(first.topLeft() + QPoint(41, 2)));
    QTRY_VERIFY(Screen::differs(before, Screen::grab(edge), 0.05));
    QVERIFY(Mouse::release());
    QTRY_COMPARE(table().rowTexts(), (QStringList{u"Four"_s, u"Two"_s, u"Three"_s}));
    // Behind a row as well, and not only in front of it.
    QVERIFY(drag(u"Four"_s, bottomOf(u"Two"_s)));
    const QStringList moved{u"Two"_s, u"Four"_s, u"Three"_s};
    QTRY_COMPARE(table().rowTexts(), moved);
    session->keepScreenshot(u"favorites"_s);
    // A drag does not play.
    QVERIFY(!session->window.find(Role::Button, u"Pause"_s));
    QVERIFY(session->close());
    QVERIFY(session->start());
    QVERIFY(session->openCategory(u"Favorites"_s));
    QTRY_COMPARE(table().rowTexts(), moved);
    QVERIFY(session->watch(u"Two"_s));
}

void TestFavorites::drops()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    for (const QString &channel : {u"One"_s, u"Two"_s, u"Three"_s})
        QVERIFY(addToFavorites(channel));
    QVERIFY(openList(u"Favorites"_s));
    const QStringList added{u"One"_s, u"Two"_s, u"Three"_s};
    QTRY_COMPARE(table().rowTexts(), added);
    // Right before and right behind itself a row stays where it is.
    for (const QPoint &edge : {bottomOf(u"One"_s), topOf(u"Three"_s)})
        QVERIFY(drag(u"Two"_s, edge));
    QCOMPARE(table().rowTexts(), added);
    // Below all rows, to the end.
    QVERIFY(drag(u"One"_s, bottomOf(u"Three"_s) + QPoint(0, 100)));
    QTRY_COMPARE(table().rowTexts(), (QStringList{u"Two"_s, u"Three"_s, u"One"_s}));
}

void TestFavorites::whatPlaysAndUndo()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(u"Three"_s));
    QVERIFY(Keyboard::press(u"ctrl+d"_s));
    QVERIFY(session->showsLabel(u"Added to Favorites"_s));
    QVERIFY(openList(u"Favorites"_s));
    QTRY_COMPARE(table().rowTexts(), QStringList{u"Three"_s});
    QVERIFY(removeFromFavorites(u"Three"_s));
    QTRY_COMPARE(table().rowTexts(), QStringList());
    // Taken at once: the offer goes after six seconds, and a busy machine is slow to look.
    QVERIFY(session->clickButton(u"Undo"_s));
    QTRY_COMPARE(table().rowTexts(), QStringList{u"Three"_s});
    QVERIFY(removeFromFavorites(u"Three"_s));
    QVERIFY(session->showsLabel(u"Removed from Favorites"_s));
    session->keepScreenshot(u"undo"_s);
}

void TestFavorites::hiddenCategoryByKey()
{
    const Accessible list = session->window.waitFor(Role::List);
    QTRY_COMPARE(list.rowTexts(), (QStringList{u"All Categories"_s, u"News"_s}));
    QVERIFY(Mouse::click(session->window.waitFor(Role::Edit, u"Search all channels..."_s)));
    QVERIFY(Keyboard::press(u"Tab"_s));
    QVERIFY(Keyboard::press(u"Down"_s, 2));
    QVERIFY(Keyboard::press(u"Menu"_s));
    const Accessible menu = session->app.waitForMenu();
    QVERIFY(menu.waitFor(Role::MenuItem, u"Hide Category"_s));
    session->keepScreenshot(u"hide-category"_s);
    QVERIFY(Keyboard::press(u"Down"_s));
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(menu.waitUntilGone());
    QTRY_COMPARE(list.rowTexts(), QStringList{u"All Categories"_s});
    QVERIFY(session->close());
    QVERIFY(session->start());
    const Accessible again = session->window.waitFor(Role::List);
    QTRY_COMPARE(again.rowTexts(), QStringList{u"All Categories"_s});
}

VANTIRO_TEST_MAIN(TestFavorites)
#include "tst_Favorites.moc"
