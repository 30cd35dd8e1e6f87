#include "soak/SoakUser.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

SoakUser::SoakUser(PlayerSession &playerSession, SoakProviders &soakProviders, quint32 seed)
    : session(playerSession)
    , providers(soakProviders)
    , numbers(seed)
{}

QList<SoakUser::Action> SoakUser::allActions()
{
    return {{u"switch source"_s, &SoakUser::switchSource},
            {u"refresh"_s, &SoakUser::refreshSource},
            {u"add and delete"_s, &SoakUser::addAndDeletePlaylist},
            {u"search"_s, &SoakUser::searchEverything},
            {u"scroll"_s, &SoakUser::scrollLists},
            {u"channel"_s, &SoakUser::watchChannel},
            {u"change channels"_s, &SoakUser::changeChannels},
            {u"film and seek"_s, &SoakUser::watchFilm},
            {u"episodes"_s, &SoakUser::watchEpisodes},
            {u"fullscreen"_s, &SoakUser::changeFullscreen},
            {u"controls"_s, &SoakUser::useControls},
            {u"menus"_s, &SoakUser::openMenus},
            {u"lost connection"_s, &SoakUser::loseConnection},
            {u"brief channel"_s, &SoakUser::watchBriefChannel},
            {u"unavailable channel"_s, &SoakUser::watchUnavailableChannel},
            {u"broken film"_s, &SoakUser::openBrokenFilm},
            {u"hanging channel"_s, &SoakUser::leaveHangingChannel}};
}

bool SoakUser::act()
{
    if (deck.isEmpty()) {
        deck = allActions();
        std::shuffle(deck.begin(), deck.end(), numbers);
    }
    const Action action = deck.takeLast();
    currentName = action.name;
    if ((this->*action.run)())
        return true;
    qWarning().noquote() << "This did not work:"_L1 << action.name;
    return false;
}

bool SoakUser::rest()
{
    // A machine that is busy with other things may be late for once.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (useSource(SoakProviders::home) && watch(UiTexts::liveTab, SoakProviders::calm))
            return true;
        (void)Keyboard::press(u"Escape"_s); // closes what an action left open
    }
    return false;
}

// ---- Sources ----

QString SoakUser::source() const
{
    return session.window.find(Role::ComboBox).text();
}

bool SoakUser::useSource(const QString &name)
{
    if (source() == name)
        return true;
    return Mouse::choose(session.window.waitFor(Role::ComboBox), name) &&
           session.window.waitFor(Role::Tab, channelsTab()) && openCategories(channelsTab());
}

bool SoakUser::switchSource()
{
    const QStringList names{SoakProviders::home, SoakProviders::away, SoakProviders::list};
    const qsizetype next = (names.indexOf(source()) + 1 + below(2)) % names.size();
    return useSource(names.at(next));
}

bool SoakUser::refreshSource()
{
    return session.clickButton(u"Refresh Playlist"_s) && openCategories(channelsTab());
}

bool SoakUser::addAndDeletePlaylist()
{
    const QString name = u"Guest"_s;
    if (!session.clickButton(u"Add Source..."_s) || !session.chooseType(u"M3U Playlist"_s) ||
        !session.fill(u"Name:"_s, name) ||
        !session.fill(u"Playlist URL/File"_s, providers.playlistUrl()) || !session.acceptDialog() ||
        !QTest::qWaitFor([&] { return source() == name; }, effectMs) ||
        !watch(channelsTab(), SoakProviders::channel(below(SoakProviders::count))))
        return false;

    if (!session.clickButton(u"Edit Source..."_s))
        return false;
    const Accessible dialog = session.app.waitForWindow(u"Edit Source"_s);
    if (!Mouse::click(dialog.waitFor(Role::Button, u"Delete Source"_s)))
        return false;
    const Accessible question = session.app.waitForWindow(u"Delete Source"_s);
    return Mouse::click(question.waitFor(Role::Button, u"Yes"_s)) && dialog.waitUntilGone() &&
           QTest::qWaitFor([&] { return source() != name; }, effectMs);
}

// ---- Lists ----

QString SoakUser::channelsTab() const
{
    const QString name = source();
    const bool account = name == SoakProviders::home || name == SoakProviders::away;
    return account ? UiTexts::liveTab : u"Channels"_s;
}

bool SoakUser::clickIfThere(const QString &button)
{
    const Accessible found = session.window.find(Role::Button, button);
    return !found || Mouse::click(found);
}

bool SoakUser::openCategories(const QString &tab)
{
    return session.openTab(tab) && clickIfThere(u"< Back to Shows"_s) &&
           clickIfThere(u"< Back to Categories"_s) &&
           session.window.waitFor(Role::ListItem, UiTexts::allCategories);
}

bool SoakUser::openEntries(const QString &tab)
{
    return openCategories(tab) && session.openCategory(UiTexts::allCategories) &&
           session.window.waitFor(Role::Button, u"< Back to Categories"_s);
}

bool SoakUser::search(const QString &line, const QString &text)
{
    return Keyboard::fill(session.window.waitFor(Role::Edit, line), text);
}

bool SoakUser::searchEverything()
{
    static const QString letters = u"aeinrst"_s;
    const QString line = u"Search all channels..."_s;
    if (!openCategories(channelsTab()))
        return false;
    for (int round = 0; round < 3; ++round) {
        QString text;
        for (int length = 1 + below(3); length > 0; --length)
            text += letters.at(below(static_cast<int>(letters.size())));
        if (!search(line, text))
            return false;
    }
    return search(line, {}) && session.window.waitFor(Role::ListItem, UiTexts::allCategories);
}

bool SoakUser::seeEverything()
{
    constexpr int posterMs = 300; // a row is in sight for two or three steps
    return useSource(SoakProviders::away) && scroll(posterMs) && useSource(SoakProviders::home) &&
           scroll(posterMs);
}

bool SoakUser::scrollLists()
{
    return scroll(60);
}

bool SoakUser::scroll(int stepMs)
{
    const QStringList tabs = channelsTab() == UiTexts::liveTab
                                 ? QStringList{UiTexts::moviesTab, UiTexts::showsTab}
                                 : QStringList{channelsTab()};
    for (const QString &tab : tabs) {
        if (!openEntries(tab))
            return false;
        const Accessible list = session.window.find(Role::List);
        const Accessible view = list ? list : session.window.waitFor(Role::Table);
        if (!Mouse::moveTo(view.rect().center()))
            return false;
        for (const QString &wheel : {u"5"_s, u"4"_s}) { // down, then up
            if (!xdotool({u"click"_s, u"--repeat"_s, u"30"_s, u"--delay"_s, QString::number(stepMs),
                          wheel}))
                return false;
        }
    }
    return true;
}
