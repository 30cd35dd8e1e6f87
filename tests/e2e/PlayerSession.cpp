#include "e2e/PlayerSession.h"

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString mainTitle = u"Vantiro Player"_s;

QProcessEnvironment playerEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"VANTIRO_NET_DEBUG"_s, u"1"_s);
    return environment;
}

} // namespace

PlayerSession::PlayerSession()
    : app(QStringLiteral(VANTIRO_PLAYER), {}, playerEnvironment())
{}

bool PlayerSession::start()
{
    if (!app.start(mainTitle)) {
        return false;
    }
    window = app.waitForWindow(mainTitle);
    return bool(window);
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

bool PlayerSession::addPlaylist(const QString &name, const QString &url)
{
    const Accessible dialog = app.waitForWindow(u"Add Source"_s);
    return Mouse::choose(dialog.waitFor(Role::ComboBox, 0), u"M3U Playlist"_s) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), name) &&
           Keyboard::fill(dialog.waitFor(Role::Edit, u"Playlist URL/File"_s), url) &&
           Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)) && dialog.waitUntilGone();
}

bool PlayerSession::openChannels() const
{
    return Mouse::click(window.waitFor(Role::ListItem, u"All Categories"_s)) &&
           window.waitFor(Role::Table);
}

bool PlayerSession::openFilms() const
{
    return Mouse::click(window.waitFor(Role::Tab, u"Movies"_s)) &&
           Mouse::click(window.waitFor(Role::ListItem, u"All Categories"_s));
}

bool PlayerSession::playChannel(const QString &name) const
{
    return Mouse::click(window.waitFor(Role::Cell, name));
}

bool PlayerSession::playFilm(const QString &name) const
{
    return Mouse::click(window.waitFor(Role::ListItem, name));
}

void PlayerSession::keepScreenshot(const QString &name) const
{
    Screen::save(Screen::grab(window.rect()), name);
}

QByteArray playlistText(const QList<std::pair<QString, QString>> &channels)
{
    QByteArray text = "#EXTM3U\n"_ba;
    for (const auto &[name, url] : channels) {
        text += "#EXTINF:-1 group-title=\"Test\","_ba + name.toUtf8() + '\n' + url.toUtf8() + '\n';
    }
    return text;
}
