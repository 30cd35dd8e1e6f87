// The menu "More" in the real window: a backup and its restoring, and the account.

#include "e2e/AccountTest.h"
#include "model/SourceManager.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestMore : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void deletedThingsComeBack();
    void onlyWhatTheBackupHolds();
    void aFileThatIsNoBackup();
    void accountOnDemand();

private:
    void fill() override;
    Accessible openMore() const { return session->openMenu(u"More"_s); }
    /// Opens the menu by the mouse and chooses a line of it.
    bool choose(const QString &line) const;
    bool chooseFile(const QString &title, const QString &path) const;
    bool backUp() const;
    bool openRestore() const;
    /// Clicks a button or box of the dialog with that title.
    bool click(const QString &title, Role role, const QString &name) const;
    bool deleteSource() const;
    Accessible favorites() const { return session->window.waitFor(Role::ListItem, u"Favorites"_s); }

    const QString backup = PrivateProfile::current().root() + u"/mine.json"_s;
};

void TestMore::fill()
{
    QFile::remove(backup);
    provider->setNames(XtreamAction::liveCategories, {u"News"_s});
    provider->setNames(XtreamAction::liveStreams, {u"One"_s, u"Two"_s});
    SourceConfig other;
    other.name = u"Other"_s;
    other.url = provider->http().url(u"/list.m3u"_s);
    provider->http().on(u"/list.m3u"_s, HttpReply::json("#EXTM3U\n#EXTINF:-1,Three\nhttp://x/3\n"));
    SourceManager(nullptr).saveSource(other);
    SourceManager(nullptr).setLastActiveSourceName(u"Home"_s);
}

bool TestMore::choose(const QString &line) const
{
    const Accessible menu = openMore();
    return Mouse::click(menu.find(Role::MenuItem, line)) && menu.waitUntilGone();
}

bool TestMore::chooseFile(const QString &title, const QString &path) const
{
    Accessible dialog;
    // A dialog of the same title may come before it and after it.
    const auto asks = [&] {
        dialog = session->app.window(title);
        return bool(dialog.find(Role::Edit, u"File name:"_s));
    };
    return QTest::qWaitFor(asks, Accessible::defaultTimeoutMs) &&
           Keyboard::fill(dialog.find(Role::Edit, u"File name:"_s), path) &&
           Keyboard::press(u"Return"_s) && dialog.waitUntilGone();
}

bool TestMore::click(const QString &title, Role role, const QString &name) const
{
    return Mouse::click(session->app.waitForWindow(title).waitFor(role, name));
}

bool TestMore::backUp() const
{
    return choose(u"Back Up..."_s) &&
           click(u"Back Up"_s, Role::Other, u"Include passwords and keys"_s) &&
           click(u"Back Up"_s, Role::Button, u"Save"_s) && chooseFile(u"Back Up"_s, backup) &&
           QTest::qWaitFor([this] { return QFile::exists(backup); });
}

bool TestMore::openRestore() const
{
    return choose(u"Restore..."_s) && chooseFile(u"Restore"_s, backup);
}

bool TestMore::deleteSource() const
{
    return session->clickButton(u"Edit Source..."_s) &&
           click(u"Edit Source"_s, Role::Button, u"Delete Source"_s) &&
           click(u"Delete Source"_s, Role::Button, u"Yes"_s);
}

void TestMore::deletedThingsComeBack()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(Mouse::rightClick(session->entry(u"Two"_s)));
    QVERIFY(
        Mouse::click(session->app.waitForMenu().waitFor(Role::MenuItem, u"Add to Favorites"_s)));
    QVERIFY(backUp());

    QVERIFY(deleteSource());
    QVERIFY(session->window.waitFor(Role::ComboBox, u"Other"_s));
    QVERIFY(session->window.waitFor(Role::Tab, u"Channels"_s));
    QVERIFY(openRestore());
    const Accessible dialog = session->app.waitForWindow(u"Restore"_s);
    QVERIFY(dialog.waitFor(Role::Label, u"1 added, 0 changed, 0 removed"_s));
    session->keepScreenshot(u"restore"_s);
    QTRY_COMPARE(NativeWindow::active().title(), u"Restore"_s);
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(dialog.waitUntilGone());
    // The active source stays; the other one is there again, with what was kept of it.
    const Accessible sources = session->window.waitFor(Role::ComboBox, u"Other"_s);
    QVERIFY(Mouse::choose(sources, u"Home"_s));
    QVERIFY(favorites());
    QVERIFY(session->close());
    QVERIFY(session->start());
    QVERIFY(session->window.waitFor(Role::ComboBox, u"Home"_s));
    QVERIFY(Mouse::click(favorites()));
    QTRY_COMPARE(session->window.waitFor(Role::Table).rowTexts(), QStringList{u"Two"_s});
}

void TestMore::onlyWhatTheBackupHolds()
{
    QVERIFY(Mouse::choose(session->window.waitFor(Role::ComboBox, u"Home"_s), u"Other"_s));
    QVERIFY(session->window.waitFor(Role::Tab, u"Channels"_s));
    QVERIFY(deleteSource());
    QVERIFY(session->window.waitFor(Role::ComboBox, u"Home"_s));
    QVERIFY(backUp());
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(Mouse::rightClick(session->entry(u"One"_s)));
    QVERIFY(
        Mouse::click(session->app.waitForMenu().waitFor(Role::MenuItem, u"Add to Favorites"_s)));
    QVERIFY(session->clickButton(u"< Back to Categories"_s));
    const Accessible row = favorites();
    QVERIFY(row);

    QVERIFY(openRestore());
    const Accessible dialog = session->app.waitForWindow(u"Restore"_s);
    QVERIFY(
        Mouse::click(dialog.waitFor(Role::Other, u"Replace: only what the backup holds stays"_s)));
    QVERIFY(dialog.waitFor(Role::Label, u"0 added, 0 changed, 1 removed"_s));
    session->keepScreenshot(u"replace"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Restore"_s)));
    QVERIFY(row.waitUntilGone());
}

void TestMore::aFileThatIsNoBackup()
{
    writeFile(backup, "#EXTM3U\n"_ba);
    QVERIFY(openRestore());
    const Accessible box = session->app.waitForWindow(u"Restore"_s);
    QVERIFY(box.waitFor(Role::Label,
                        u"This file is not a backup of Vantiro Player, or it is damaged."_s));
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(box.waitUntilGone());
    QVERIFY(session->window.find(Role::ComboBox, u"Home"_s));
}

void TestMore::accountOnDemand()
{
    provider->setReply(XtreamAction::login,
                       R"({"user_info":{"auth":"1","status":"Active","exp_date":null,
                           "is_trial":"0","active_cons":"1","max_connections":2,
                           "allowed_output_formats":{"0":"m3u8","1":"ts"}},
                           "server_info":{"timezone":"Europe/Berlin"}})"_ba);
    QVERIFY(session->window.waitFor(Role::ListItem, u"News"_s));
    QTRY_COMPARE(provider->actions().size(), 6);
    // By the keyboard: from the tab back to the button, and from line to line.
    QVERIFY(Mouse::click(session->window.waitFor(Role::Edit, u"Search all channels..."_s)));
    const Accessible more = session->window.waitFor(Role::Button, u"More"_s);
    QVERIFY(Keyboard::press(u"shift+Tab"_s, 2));
    QTRY_VERIFY(more.isFocused());
    QVERIFY(Keyboard::press(u"space"_s));
    const Accessible menu = session->app.waitForMenu();
    QVERIFY(menu.rect().top() >= more.rect().bottom() - 2);
    session->keepScreenshot(u"more"_s);
    // The last line but one; there is no history to clear.
    QVERIFY(Keyboard::press(u"Up"_s, 2));
    QCOMPARE(provider->actions().size(), 6);
    QVERIFY(Keyboard::press(u"Return"_s));
    const Accessible dialog = session->app.waitForWindow(u"Account Information"_s);
    for (const QString &value : {u"Home"_s, u"Active"_s, u"Never"_s, u"No"_s, u"1"_s, u"2"_s,
                                 u"m3u8, ts"_s, u"Europe/Berlin"_s})
        QVERIFY2(dialog.waitFor(Role::Label, value), qPrintable(value));
    session->keepScreenshot(u"account"_s);
    QCOMPARE(provider->requestCount(XtreamAction::login), 1);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(dialog.waitUntilGone());
}

VANTIRO_TEST_MAIN(TestMore)
#include "tst_More.moc"
