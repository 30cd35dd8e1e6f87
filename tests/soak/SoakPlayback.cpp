#include "soak/SoakUser.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

// ---- What plays ----

bool SoakUser::watch(const QString &tab, const QString &name)
{
    return openEntries(tab) && search(u"Search..."_s, name) && session.watch(name) &&
           search(u"Search..."_s, {});
}

bool SoakUser::watchChannel()
{
    return watch(channelsTab(), SoakProviders::channel(below(SoakProviders::count)));
}

/// Faster than the streams start.
bool SoakUser::changeChannels()
{
    if (!openEntries(channelsTab()) || !search(u"Search..."_s, u"Channel "_s))
        return false;
    QList<QPoint> rows;
    for (int number = 0; number < SoakProviders::count; ++number)
        rows.append(session.entry(SoakProviders::channel(number)).rect().center());
    for (int change = 0; change < 10; ++change) {
        if (!Mouse::click(rows.at(below(SoakProviders::count))))
            return false;
    }
    return watchChannel();
}

bool SoakUser::watchFilm()
{
    if (source() == SoakProviders::list && !switchSource())
        return false;
    if (!watch(UiTexts::moviesTab, SoakProviders::film(below(SoakProviders::count))))
        return false;
    const Accessible slider = session.window.waitFor(Role::Slider, u"Position"_s);
    if (!QTest::qWaitFor([&slider] { return slider.maximum() > 0; }, effectMs))
        return false;
    const QRect groove = slider.rect();
    for (int seek = 0; seek < 3; ++seek) {
        // Not to its end, where the film would be over.
        const QPoint target(groove.left() + 10 + below(groove.width() * 3 / 4),
                            groove.center().y());
        if (!Mouse::click(target) || !session.seesPicture())
            return false;
    }
    return session.clickButton(u"<< 10s"_s) && session.clickButton(u"10s >>"_s) &&
           session.seesPicture();
}

bool SoakUser::watchEpisodes()
{
    if (source() == SoakProviders::list && !switchSource())
        return false;
    if (!openEntries(UiTexts::showsTab))
        return false;
    const QList<Accessible> shows = session.window.waitFor(Role::List).findAll(Role::ListItem);
    if (shows.isEmpty() || !Mouse::click(shows.at(below(static_cast<int>(shows.size())))))
        return false;
    const Accessible tree = session.window.waitFor(Role::Tree);
    Accessible episode;
    const auto appears = [&] {
        const QList<Accessible> rows = tree.findAll(Role::Cell);
        for (const Accessible &row : rows) {
            if (row.name().startsWith(u'E'))
                episode = row;
            if (episode)
                break;
        }
        return bool(episode);
    };
    return QTest::qWaitFor(appears, effectMs) && Mouse::click(episode) && session.seesPicture() &&
           session.clickButton(u"Next Episode"_s) && session.seesPicture();
}

// ---- Controls ----

bool SoakUser::changeFullscreen()
{
    if (!watchChannel() || !Mouse::click(session.videoRect().center()) ||
        !Keyboard::press(u"f"_s) ||
        !QTest::qWaitFor([&] { return session.videoRect() == Screen::area(); }, effectMs) ||
        !session.seesPicture() || !Mouse::moveTo(Screen::area().center()) ||
        !session.window.waitFor(Role::Slider, u"Volume"_s) || !Keyboard::press(u"Escape"_s))
        return false;
    return QTest::qWaitFor([&] { return session.videoRect() != Screen::area(); }, effectMs) &&
           session.seesPicture();
}

bool SoakUser::useControls()
{
    return watchChannel() && session.clickButton(u"Pause"_s) &&
           session.window.waitFor(Role::Button, u"Play"_s) && session.clickButton(u"Play"_s) &&
           session.window.waitFor(Role::Button, u"Pause"_s) &&
           Mouse::click(session.videoRect().center()) && Keyboard::press(u"Down"_s, 4) &&
           Keyboard::press(u"Up"_s, 4) && Keyboard::press(u"m"_s, 2) && session.seesPicture();
}

bool SoakUser::openMenus()
{
    if (!watchChannel())
        return false;
    for (const QString &button : {u"Audio"_s, u"Subtitles"_s}) {
        const Accessible menu = session.openMenu(button);
        if (!menu || !Keyboard::press(u"Escape"_s) || !menu.waitUntilGone())
            return false;
    }
    if (!session.clickButton(u"Info"_s))
        return false;
    const Accessible dialog = session.app.waitForWindow(UiTexts::infoTitle);
    return dialog && Keyboard::press(u"Escape"_s) && dialog.waitUntilGone();
}

// ---- Faults ----

// The label that tells of an attempt may go sooner than anyone can read it.
bool SoakUser::reconnects(const QString &channel, int times, int requestsBefore) const
{
    return QTest::qWaitFor([&] { return providers.requests(channel) >= requestsBefore + times; },
                           effectMs);
}

bool SoakUser::loseConnection()
{
    if (!rest())
        return false;
    const int requests = providers.requests(SoakProviders::calm);
    providers.dropStreams();
    return reconnects(SoakProviders::calm, 1, requests) &&
           session.showsLabel(UiTexts::playing(SoakProviders::calm)) && session.seesPicture();
}

bool SoakUser::watchBriefChannel()
{
    const int requests = providers.requests(SoakProviders::brief);
    return useSource(SoakProviders::home) && watch(UiTexts::liveTab, SoakProviders::brief) &&
           reconnects(SoakProviders::brief, 2, requests) &&
           session.showsLabel(UiTexts::playing(SoakProviders::brief));
}

bool SoakUser::watchUnavailableChannel()
{
    const int requests = providers.requests(SoakProviders::unavailable);
    return useSource(SoakProviders::home) && openEntries(UiTexts::liveTab) &&
           session.play(SoakProviders::unavailable) &&
           reconnects(SoakProviders::unavailable, 3, requests);
}

bool SoakUser::openBrokenFilm()
{
    if (!useSource(SoakProviders::home) || !openEntries(UiTexts::moviesTab) ||
        !search(u"Search..."_s, SoakProviders::brokenFilm) ||
        !session.play(SoakProviders::brokenFilm))
        return false;
    const Accessible box = session.app.waitForWindow(UiTexts::errorTitle);
    return Mouse::click(box.waitFor(Role::Button, u"Close"_s)) && box.waitUntilGone() &&
           search(u"Search..."_s, {});
}

/// A player that hangs is left behind and ends once its server has let go.
bool SoakUser::leaveHangingChannel()
{
    providers.holdHanging();
    if (!useSource(SoakProviders::home) || !openEntries(UiTexts::liveTab) ||
        !session.play(SoakProviders::hanging) ||
        !QTest::qWaitFor([&] { return providers.hangs(); }, effectMs))
        return false;
    const bool seen = watch(UiTexts::liveTab, SoakProviders::calm);
    providers.letGo();
    return seen && QTest::qWaitFor([&] { return !providers.hangs(); }, effectMs);
}
