#include "e2e/PlayerSession.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

bool PlayerSession::start()
{
    if (!app.start(UiTexts::mainWindow))
        return false;
    window = app.waitForWindow(UiTexts::mainWindow);
    return bool(window);
}

Accessible PlayerSession::addDialog() const
{
    return app.waitForWindow(UiTexts::addSourceDialog);
}

bool PlayerSession::fillAccount(const QString &url, const QString &user,
                                const QString &password) const
{
    const Accessible dialog = addDialog();
    return Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), u"Account"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Server URL:"_s), url) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Username:"_s), user) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Password"_s), password);
}

bool PlayerSession::fillPlaylist(const QString &name, const QString &url) const
{
    const Accessible dialog = addDialog();
    return Mouse::choose(dialog.waitFor(Role::ComboBox), u"M3U Playlist"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), name) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Playlist URL/File"_s), url);
}

bool PlayerSession::fillSubscription(const QString &key) const
{
    const Accessible dialog = addDialog();
    return Mouse::choose(dialog.waitFor(Role::ComboBox), u"Zevrino"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Subscription Key:"_s), key);
}

bool PlayerSession::testsConnection(const QString &result) const
{
    const Accessible dialog = addDialog();
    return Mouse::click(dialog.waitFor(Role::Button, u"Test Connection"_s)) &&
           dialog.waitFor(Role::Label, result);
}

bool PlayerSession::acceptDialog() const
{
    const Accessible dialog = addDialog();
    return Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)) && dialog.waitUntilGone();
}

bool PlayerSession::openTab(const QString &tab) const
{
    return Mouse::click(window.waitFor(Role::Tab, tab));
}

bool PlayerSession::openCategory(const QString &name) const
{
    return Mouse::click(window.waitFor(Role::ListItem, name));
}

bool PlayerSession::openAll(const QString &tab) const
{
    return openTab(tab) && openCategory(UiTexts::allCategories);
}

bool PlayerSession::seesTab(const QString &tab, const QString &category, const QString &name) const
{
    return openTab(tab) && window.waitFor(Role::ListItem, category) &&
           openCategory(UiTexts::allCategories) && entry(name);
}

Accessible PlayerSession::entry(const QString &name) const
{
    // Channels and episodes stand in a table, films and shows in a grid.
    Accessible found;
    const auto appears = [&] {
        return (found = window.find(Role::Cell, name)) ||
               (found = window.find(Role::ListItem, name));
    };
    if (!QTest::qWaitFor(appears, Accessible::defaultTimeoutMs))
        qWarning().noquote() << "There is no entry"_L1 << name << "in\n"_L1 << window.describe();
    return found;
}

bool PlayerSession::play(const QString &name) const
{
    return Mouse::click(entry(name));
}

bool PlayerSession::watch(const QString &name) const
{
    return play(name) && showsLabel(UiTexts::playing(name)) && seesPicture();
}

QRect PlayerSession::videoRect() const
{
    return window.find(Role::Other, u"Video"_s).rect();
}

bool PlayerSession::seesPicture() const
{
    return Screen::waitUntilMoving(videoRect());
}

bool PlayerSession::showsLabel(const QString &text) const
{
    return bool(window.waitFor(Role::Label, text));
}

bool PlayerSession::clickButton(const QString &text) const
{
    return Mouse::click(window.waitFor(Role::Button, text));
}

Accessible PlayerSession::seekSlider() const
{
    return window.find(Role::Slider, u"Position"_s);
}

int PlayerSession::playedSeconds() const
{
    static const QRegularExpression position(u"^(\\d\\d):(\\d\\d) / 01:00$"_s);
    const QList<Accessible> labels = window.findAll(Role::Label);
    for (const Accessible &label : labels) {
        if (const auto match = position.match(label.name()); match.hasMatch())
            return match.captured(1).toInt() * 60 + match.captured(2).toInt();
    }
    return -1;
}

Accessible PlayerSession::openMenu(const QString &button) const
{
    return clickButton(button) ? app.waitForMenu() : Accessible();
}

QList<Accessible> PlayerSession::windowsTitled(const QString &title) const
{
    QList<Accessible> found = app.windows();
    found.removeIf([&title](const Accessible &candidate) { return candidate.name() != title; });
    return found;
}

bool PlayerSession::hasOneWindow() const
{
    return NativeWindow::ofProcess(app.processId()).size() == 1;
}

void PlayerSession::keepScreenshot(const QString &name) const
{
    Screen::save(Screen::grab(window.rect()), name);
}
