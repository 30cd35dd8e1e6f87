#include "e2e/PlayerSession.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

bool PlayerSession::start(const QStringList &arguments, const QString &title)
{
    if (!app.start(title, arguments))
        return false;
    window = app.waitForWindow(title);
    return bool(window);
}

Accessible PlayerSession::addDialog() const
{
    return app.waitForWindow(UiTexts::addSourceDialog);
}

bool PlayerSession::chooseType(const QString &type) const
{
    return Mouse::choose(addDialog().waitFor(Role::ComboBox), type);
}

bool PlayerSession::fill(const QString &label, const QString &text) const
{
    return Keyboard::fill(addDialog().waitFor(Role::Edit, label), text);
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

bool PlayerSession::showsReconnecting(const QString &title) const
{
    constexpr int mostAttempts = 9;
    QStringList texts;
    for (int attempt = 1; attempt <= mostAttempts; ++attempt)
        texts << UiTexts::reconnecting(title, attempt);
    const auto shows = [&] {
        const QList<Accessible> labels = window.findAll(Role::Label);
        return std::any_of(labels.cbegin(), labels.cend(),
                           [&](const Accessible &label) { return texts.contains(label.name()); });
    };
    return QTest::qWaitFor(shows, Accessible::defaultTimeoutMs);
}

bool PlayerSession::clickButton(const QString &text) const
{
    return Mouse::click(window.waitFor(Role::Button, text));
}

Accessible PlayerSession::openMenu(const QString &button) const
{
    return clickButton(button) ? app.waitForMenu() : Accessible();
}

bool PlayerSession::hasOneWindow() const
{
    return NativeWindow::ofProcess(app.processId()).size() == 1;
}

void PlayerSession::keepScreenshot(const QString &name) const
{
    Screen::save(Screen::grab(window.rect()), name);
}
