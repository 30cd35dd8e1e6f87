// The whole mission, step by step, as a person would go through it; each step leaves a numbered
// screenshot. The steps build on each other: after a failed one the rest is left out.

#include "e2e/DemoProvider.h"
#include "e2e/PlayerSession.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestTour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void addAnAccount();
    void browseChannels();
    void searchAllChannels();
    void playAChannel();
    void reconnectAChannel();
    void browsePosters();
    void sortFilms();
    void playAFilm();
    void seekInTheFilm();
    void chooseTracks();
    void readStreamInfo();
    void watchInFullscreen();
    void openAShow();
    void playEpisodes();
    void addAPlaylist();

private:
    [[nodiscard]] bool openTab(const QString &title);
    [[nodiscard]] bool openCategory(const QString &name);
    /// The seconds that the time label shows as played, if it shows.
    std::optional<int> playedSeconds() const;
    void keep(const QString &name);

    DemoProvider provider;
    std::unique_ptr<PlayerSession> session;
    int step = 0;
    bool broken = false;
};

void TestTour::initTestCase()
{
    PrivateProfile::current().clear();
    QVERIFY2(provider.start(), "the demo provider does not start");
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
}

void TestTour::init()
{
    if (broken) {
        QSKIP("an earlier step failed");
    }
    ++step;
}

void TestTour::cleanup()
{
    if (QTest::currentTestFailed()) {
        broken = true;
        keep(u"failed"_s);
    }
}

void TestTour::cleanupTestCase()
{
    if (session) {
        QVERIFY(session->close());
        QCOMPARE(session->app.exitCode(), 0);
        session.reset();
    }
}

void TestTour::addAnAccount()
{
    const Accessible dialog = session->app.waitForWindow(u"Add Source"_s);
    QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), u"Demo account"_s));
    QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit, u"Server URL:"_s), provider.accountUrl()));
    QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit, u"Username:"_s), u"demo"_s));
    QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit, u"Password"_s), u"demo"_s));
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Test Connection"_s)));
    QVERIFY(dialog.waitFor(Role::Label, u"Connection OK"_s));
    keep(u"add-source"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(session->window.waitFor(Role::ListItem, u"Nature"_s));
}

void TestTour::browseChannels()
{
    QVERIFY(openCategory(u"Nature"_s));
    const Accessible table = session->window.waitFor(Role::Table);
    QTRY_COMPARE(table.rowTexts(), (QStringList{u"Mountain View"_s, u"Ocean Planet"_s}));
    keep(u"category"_s);
    QVERIFY(session->clickButton(u"< Back to Categories"_s));
}

void TestTour::searchAllChannels()
{
    QVERIFY(
        Keyboard::fill(session->window.waitFor(Role::Edit, u"Search all channels..."_s), u"n"_s));
    const Accessible table = session->window.waitFor(Role::Table);
    // The best match first: a name that begins with the letter.
    QTRY_COMPARE(table.rowTexts(0, 1), QStringList{u"Night News 24"_s});
    keep(u"search"_s);
}

void TestTour::playAChannel()
{
    QVERIFY(Mouse::click(session->window.waitFor(Role::Table).cell(0)));
    QVERIFY(session->showsLabel(u"Playing: Night News 24"_s));
    QVERIFY(session->seesPicture());
    keep(u"live"_s);
}

void TestTour::reconnectAChannel()
{
    constexpr int dropOutMs = 60000;
    QVERIFY(Keyboard::fill(session->window.waitFor(Role::Edit, u"Search all channels..."_s),
                           u"dropout"_s));
    const Accessible table = session->window.waitFor(Role::Table);
    QTRY_COMPARE(table.rowTexts(), QStringList{u"Dropout TV"_s});
    QVERIFY(Mouse::click(table.cell(0)));
    QVERIFY(session->showsLabel(u"Playing: Dropout TV"_s));
    QVERIFY(session->seesPicture());
    QVERIFY(session->window.waitFor(Role::Label, u"Reconnecting to Dropout TV... (attempt 1)"_s,
                                    dropOutMs));
    keep(u"reconnecting"_s);
    QVERIFY(session->showsLabel(u"Playing: Dropout TV"_s));
    QVERIFY(session->seesPicture());
    keep(u"reconnected"_s);
}

void TestTour::browsePosters()
{
    QVERIFY(openTab(u"Movies"_s));
    QVERIFY(openCategory(u"All Categories"_s));
    const Accessible film = session->window.waitFor(Role::ListItem, u"A Quiet Orbit"_s);
    QVERIFY(film);
    // The placeholder is one grey; a poster is not.
    QTRY_VERIFY_WITH_TIMEOUT(Screen::differs(Screen::grab(film.rect()),
                                             Screen::grab(film.rect()).copy().mirrored(), 0.2),
                             20000);
    keep(u"posters"_s);
}

void TestTour::sortFilms()
{
    QVERIFY(Mouse::choose(session->window.waitFor(Role::ComboBox, u"Name (A-Z)"_s), u"Rating"_s));
    const Accessible grid = session->window.waitFor(Role::List);
    QTRY_COMPARE(grid.rowTexts(0, 2), (QStringList{u"A Quiet Orbit"_s, u"The Clockmaker"_s}));
    keep(u"sorted-by-rating"_s);
}

void TestTour::playAFilm()
{
    QVERIFY(Keyboard::fill(session->window.waitFor(Role::Edit, u"Search..."_s), u"long"_s));
    QVERIFY(Mouse::click(session->window.waitFor(Role::ListItem, u"The Long Tide"_s)));
    QVERIFY(session->showsLabel(u"Playing: The Long Tide"_s));
    QVERIFY(session->seesPicture());
    QTRY_VERIFY(playedSeconds().has_value());
    keep(u"film"_s);
}

void TestTour::seekInTheFilm()
{
    const QRect slider = session->window.waitFor(Role::Slider, u"Position"_s).rect();
    QTRY_VERIFY(session->window.find(Role::Slider, u"Position"_s).maximum() > 50000);
    QVERIFY(Mouse::click(slider.center()));
    QTRY_VERIFY(playedSeconds().value_or(0) >= 25);
    QVERIFY(session->seesPicture());
    QVERIFY(session->clickButton(u"<< 10s"_s));
    QTRY_VERIFY(playedSeconds().value_or(60) < 27);
    keep(u"seek"_s);
}

void TestTour::chooseTracks()
{
    QVERIFY(session->clickButton(u"Audio"_s));
    Accessible menu = session->app.waitForMenu();
    QList<Accessible> choices = menu.findAll(Role::MenuItem);
    QCOMPARE(choices.size(), 2);
    QVERIFY(choices.at(0).isChecked());
    keep(u"audio-menu"_s);
    QVERIFY(Mouse::click(choices.at(1)));
    QVERIFY(menu.waitUntilGone());

    QVERIFY(session->clickButton(u"Subtitles"_s));
    menu = session->app.waitForMenu();
    QVERIFY(menu.find(Role::MenuItem, u"Disable"_s));
    QVERIFY(menu.find(Role::MenuItem, u"Load Subtitle File..."_s));
    choices = menu.findAll(Role::MenuItem);
    QCOMPARE(choices.size(), 4);
    keep(u"subtitle-menu"_s);
    QVERIFY(Mouse::click(choices.at(2)));
    QVERIFY(menu.waitUntilGone());

    QVERIFY(session->clickButton(u"Audio"_s));
    menu = session->app.waitForMenu();
    QVERIFY(menu.findAll(Role::MenuItem).at(1).isChecked());
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(menu.waitUntilGone());
    keep(u"subtitles"_s);
}

void TestTour::readStreamInfo()
{
    QVERIFY(session->clickButton(u"Info"_s));
    const Accessible dialog = session->app.waitForWindow(u"Stream Info"_s);
    const Accessible text = dialog.waitFor(Role::Edit);
    QVERIFY(text.text().contains(u"Video codec: h264"_s));
    QVERIFY(text.text().contains(u"Resolution: 480x270"_s));
    keep(u"stream-info"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(dialog.waitUntilGone());
}

void TestTour::watchInFullscreen()
{
    QVERIFY(session->clickButton(u"Fullscreen"_s));
    QTRY_VERIFY(session->app.nativeWindow(u"Vantiro Player"_s).isFullScreen());
    QVERIFY(Screen::waitUntilMoving(Screen::area()));
    keep(u"fullscreen"_s);
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(Mouse::moveTo(Screen::area().center() + QPoint(20, 20)));
    QVERIFY(session->window.waitFor(Role::Button, u"Fullscreen"_s));
    keep(u"fullscreen-controls"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_VERIFY(!session->app.nativeWindow(u"Vantiro Player"_s).isFullScreen());
    QVERIFY(session->seesPicture());
}

void TestTour::openAShow()
{
    QVERIFY(openTab(u"TV Shows"_s));
    QVERIFY(openCategory(u"Series"_s));
    QVERIFY(Mouse::click(session->window.waitFor(Role::ListItem, u"Lighthouse"_s)));
    QVERIFY(session->window.waitFor(Role::Cell, u"Season 3"_s));
    QVERIFY(session->window.waitFor(Role::Cell, u"E03 - Fog Signal"_s));
    keep(u"show"_s);
}

void TestTour::playEpisodes()
{
    QVERIFY(Mouse::click(session->window.waitFor(Role::Cell, u"E03 - Fog Signal"_s)));
    QVERIFY(session->showsLabel(u"Playing: Lighthouse - S01E03 - Fog Signal"_s));
    QVERIFY(session->seesPicture());
    keep(u"episode"_s);
    QVERIFY(session->clickButton(u"Next Episode"_s));
    QVERIFY(session->showsLabel(u"Playing: Lighthouse - S02E01 - Spring Tide"_s));
    QVERIFY(session->seesPicture());
    keep(u"next-episode"_s);
}

void TestTour::addAPlaylist()
{
    QVERIFY(session->clickButton(u"Add Source..."_s));
    QVERIFY(session->addPlaylist(u"Demo playlist"_s, provider.playlistUrl()));
    QVERIFY(openCategory(u"Sports"_s));
    const Accessible table = session->window.waitFor(Role::Table);
    QTRY_COMPARE(table.rowTexts(), (QStringList{u"City Sports"_s, u"Dropout TV"_s}));
    QVERIFY(Mouse::click(table.cell(0)));
    QVERIFY(session->showsLabel(u"Playing: City Sports"_s));
    QVERIFY(session->seesPicture());
    keep(u"playlist"_s);
}

bool TestTour::openTab(const QString &title)
{
    return Mouse::click(session->window.waitFor(Role::Tab, title));
}

bool TestTour::openCategory(const QString &name)
{
    return Mouse::click(session->window.waitFor(Role::ListItem, name));
}

std::optional<int> TestTour::playedSeconds() const
{
    static const QRegularExpression time(u"^(\\d\\d):(\\d\\d) / 01:00$"_s);
    const QList<Accessible> labels = session->window.findAll(Role::Label);
    for (const Accessible &label : labels) {
        const auto match = time.match(label.text());
        if (match.hasMatch()) {
            return match.captured(1).toInt() * 60 + match.captured(2).toInt();
        }
    }
    return std::nullopt;
}

void TestTour::keep(const QString &name)
{
    Screen::save(Screen::grab(session->window.rect()),
                 u"%1-%2"_s.arg(step, 2, 10, QLatin1Char('0')).arg(name));
}

VANTIRO_TEST_MAIN(TestTour)
#include "tst_Tour.moc"
