// The whole mission, step by step, as a person would go through it; each step leaves a numbered
// screenshot. The steps build on each other: after a failed one the rest is left out.

#include "e2e/PlayerSession.h"
#include "support/TestMain.h"
#include "support/desktop/Appearance.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

/// The demo provider as a process of its own. Its streams are kept in the build folder.
class DemoProvider final
{
public:
    DemoProvider() = default;
    ~DemoProvider()
    {
        process.kill();
        process.waitForFinished();
    }
    DemoProvider(const DemoProvider &) = delete;
    DemoProvider &operator=(const DemoProvider &) = delete;

    /// Waits until it answers; makes its streams first where they are not there yet, which takes
    /// half a minute on a small machine.
    [[nodiscard]] bool start()
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(VANTIRO_DEMO_PROVIDER),
                      {u"--streams"_s, QStringLiteral(VANTIRO_DEMO_STREAMS)});
        while (!output.contains(u"Ready"_s)) {
            if (!process.waitForReadyRead(180000))
                return false;
            output += QString::fromUtf8(process.readAllStandardOutput());
        }
        return true;
    }

    QString accountUrl() const { return printed(u"Account: +(\\S+)"_s); }
    QString playlistUrl() const { return printed(u"Playlist: +(\\S+)"_s); }

private:
    QString printed(const QString &pattern) const
    {
        return QRegularExpression(pattern).match(output).captured(1);
    }

    QProcess process;
    QString output;
};

/// Whether what shows has the English text, or a translation of it.
bool shows(const QString &shown, const QString &english)
{
    const QStringList texts = Appearance::textsFor(english);
    return std::any_of(texts.begin(), texts.end(),
                       [&shown](const QString &text) { return shown.contains(text); });
}

/// Whether what shows has a text's words, whatever their values are.
bool showsWords(const QString &shown, const QString &english)
{
    const QStringList texts = Appearance::textsFor(english);
    static const QRegularExpression placeholder(u"%\\d"_s);
    return std::any_of(texts.begin(), texts.end(), [&shown](const QString &text) {
        return shown.contains(QString(text).remove(placeholder));
    });
}

bool choose(const Accessible &menu, int item)
{
    return Mouse::click(menu.find(Role::MenuItem, item)) && menu.waitUntilGone();
}

} // namespace

class TestTour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { QVERIFY(session.close()); }

    void addAnAccount();
    void browseChannels();
    void searchAllChannels();
    void playAChannel();
    void keepAFavorite();
    void hideACategory();
    void reconnectAChannel();
    void browsePosters();
    void sortFilms();
    void playAFilm();
    void seekInTheFilm();
    void chooseTracks();
    void loadSubtitles();
    void readStreamInfo();
    void watchInFullscreen();
    void continueTheFilm();
    void openAShow();
    void playEpisodes();
    void readAccountInformation();
    void turnOnTheGuide();
    void openASchedule();
    void playFromTheArchive();
    void openTheGrid();
    void addAPlaylist();

private:
    Accessible table() const { return session.window.waitFor(Role::Table); }
    Accessible slider() const { return session.window.find(Role::Slider, u"Position"_s); }
    int playedSeconds() const;
    bool search(const QString &line, const QString &text) const;
    void keep(const QString &name) const;

    DemoProvider provider;
    PlayerSession session;
    int step = 0;
    bool broken = false;
};

void TestTour::initTestCase()
{
    QVERIFY2(provider.start(), "the demo provider does not start");
    QVERIFY(session.start());
}

void TestTour::init()
{
    if (broken)
        QSKIP("an earlier step failed");
    ++step;
}

void TestTour::cleanup()
{
    if (QTest::currentTestFailed()) {
        broken = true;
        keep(u"failed"_s);
    }
}

/// How far the film is by the time label; -1 while the label shows none.
int TestTour::playedSeconds() const
{
    static const QRegularExpression label(u"\"(\\d\\d):(\\d\\d) / 01:00\""_s);
    const QRegularExpressionMatch match = label.match(session.window.describe());
    return match.hasMatch() ? match.captured(1).toInt() * 60 + match.captured(2).toInt() : -1;
}

bool TestTour::search(const QString &line, const QString &text) const
{
    return Keyboard::fill(session.window.waitFor(Role::Edit, line), text);
}

void TestTour::keep(const QString &name) const
{
    session.keepScreenshot(u"%1-%2"_s.arg(step, 2, 10, QLatin1Char('0')).arg(name));
}

void TestTour::addAnAccount()
{
    QVERIFY(session.fill(u"Name:"_s, u"Account"_s));
    QVERIFY(session.fill(u"Server URL:"_s, provider.accountUrl()));
    QVERIFY(session.fill(u"Username:"_s, u"demo"_s));
    QVERIFY(session.fill(u"Password"_s, u"demo"_s));
    const Accessible dialog = session.addDialog();
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Test Connection"_s)));
    QVERIFY(dialog.waitFor(Role::Label, u"Connection OK"_s));
    keep(u"add-source"_s);
    QVERIFY(session.acceptDialog());
    QVERIFY(session.window.waitFor(Role::ListItem, u"Nature"_s));
}

void TestTour::browseChannels()
{
    QVERIFY(session.openCategory(u"Nature"_s));
    QTRY_COMPARE(table().rowTexts(), (QStringList{u"Mountain View"_s, u"Ocean Planet"_s}));
    keep(u"category"_s);
    QVERIFY(session.clickButton(u"< Back to Categories"_s));
}

void TestTour::searchAllChannels()
{
    QVERIFY(search(u"Search all channels..."_s, u"n"_s));
    // The best match first: a name that begins with the letter.
    QTRY_COMPARE(table().rowTexts(1), QStringList{u"Night News 24"_s});
    keep(u"search"_s);
}

void TestTour::playAChannel()
{
    QVERIFY(session.watch(u"Night News 24"_s));
    keep(u"live"_s);
}

void TestTour::keepAFavorite()
{
    QVERIFY(Keyboard::press(u"ctrl+d"_s));
    QVERIFY(session.showsLabel(u"Added to Favorites"_s));
    QVERIFY(search(u"Search all channels..."_s, {}));
    QVERIFY(session.openCategory(u"Favorites"_s));
    QTRY_COMPARE(table().rowTexts(), QStringList{u"Night News 24"_s});
    keep(u"favorites"_s);
    QVERIFY(session.clickButton(u"< Back to Categories"_s));
}

void TestTour::hideACategory()
{
    QVERIFY(Mouse::rightClick(session.window.waitFor(Role::ListItem, u"Sports"_s)));
    const Accessible menu = session.app.waitForMenu();
    QVERIFY(menu.find(Role::MenuItem, u"Hide Category"_s));
    keep(u"category-menu"_s);
    QVERIFY(choose(menu, 0));
    QTRY_VERIFY(!session.window.find(Role::ListItem, u"Sports"_s));
    QVERIFY(session.clickButton(u"Undo"_s));
    QVERIFY(session.window.waitFor(Role::ListItem, u"Sports"_s));
}

void TestTour::reconnectAChannel()
{
    constexpr int dropOutMs = 60000;
    const QString channel = u"Dropout TV"_s;
    QVERIFY(search(u"Search all channels..."_s, u"dropout"_s));
    QTRY_COMPARE(table().rowTexts(), QStringList{channel});
    QVERIFY(session.watch(channel));
    QVERIFY(session.window.waitFor(Role::Label, UiTexts::reconnecting(channel, 1), dropOutMs));
    keep(u"reconnecting"_s);
    QVERIFY(session.showsLabel(UiTexts::playing(channel)));
    QVERIFY(session.seesPicture());
    keep(u"reconnected"_s);
}

void TestTour::browsePosters()
{
    QVERIFY(session.openAll(UiTexts::moviesTab));
    const Accessible film = session.window.waitFor(Role::ListItem, u"A Quiet Orbit"_s);
    // The placeholder is one grey; a poster is not.
    QTRY_VERIFY_WITH_TIMEOUT(Screen::differs(Screen::grab(film.rect()),
                                             Screen::grab(film.rect()).copy().mirrored(), 0.2),
                             20000);
    keep(u"posters"_s);
}

void TestTour::sortFilms()
{
    QVERIFY(Mouse::choose(session.window.waitFor(Role::ComboBox, u"Name (A-Z)"_s), u"Rating"_s));
    const Accessible grid = session.window.waitFor(Role::List);
    QTRY_COMPARE(grid.rowTexts(2), (QStringList{u"A Quiet Orbit"_s, u"The Clockmaker"_s}));
    keep(u"sorted-by-rating"_s);
}

void TestTour::playAFilm()
{
    QVERIFY(search(u"Search..."_s, u"long"_s));
    QVERIFY(session.watch(u"The Long Tide"_s));
    QTRY_VERIFY(playedSeconds() >= 0);
    keep(u"film"_s);
}

void TestTour::seekInTheFilm()
{
    QTRY_VERIFY(slider().maximum() > 50000);
    QVERIFY(Mouse::click(slider()));
    QTRY_VERIFY(playedSeconds() >= 25);
    QVERIFY(session.seesPicture());
    QVERIFY(session.clickButton(u"<< 10s"_s));
    QTRY_VERIFY(playedSeconds() < 27);
    keep(u"seek"_s);
}

void TestTour::chooseTracks()
{
    Accessible menu = session.openMenu(u"Audio"_s);
    QCOMPARE(menu.findAll(Role::MenuItem).size(), 2);
    QVERIFY(menu.find(Role::MenuItem, 0).isChecked());
    keep(u"audio-menu"_s);
    QVERIFY(choose(menu, 1));
    menu = session.openMenu(u"Audio"_s);
    QVERIFY(menu.find(Role::MenuItem, 1).isChecked());
    QVERIFY(choose(menu, 1));

    menu = session.openMenu(u"Subtitles"_s);
    QVERIFY(menu.find(Role::MenuItem, UiTexts::disabledTrack));
    QVERIFY(menu.find(Role::MenuItem, UiTexts::loadSubtitles));
    QCOMPARE(menu.findAll(Role::MenuItem).size(), 4);
    keep(u"subtitle-menu"_s);
    QVERIFY(choose(menu, 2));
    keep(u"subtitles"_s);
}

void TestTour::loadSubtitles()
{
    QVERIFY(choose(session.openMenu(u"Subtitles"_s), 3));
    const Accessible dialog = session.app.waitForWindow(u"Load Subtitle File"_s);
    // Its label is Qt's.
    QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit),
                           QStringLiteral(VANTIRO_DEMO_STREAMS "/english.srt")));
    keep(u"subtitle-file"_s);
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(dialog.waitUntilGone());
    // It has become a track like the others, and is chosen.
    const Accessible menu = session.openMenu(u"Subtitles"_s);
    QCOMPARE(menu.findAll(Role::MenuItem).size(), 5);
    QVERIFY(menu.find(Role::MenuItem, 3).isChecked());
    QVERIFY(choose(menu, 3));
}

void TestTour::readStreamInfo()
{
    QVERIFY(session.clickButton(u"Info"_s));
    const Accessible dialog = session.app.waitForWindow(UiTexts::infoTitle);
    const Accessible text = dialog.waitFor(Role::Edit);
    QVERIFY(shows(text.text(), u"Video codec: h264"_s));
    QVERIFY(shows(text.text(), u"Resolution: 480x270"_s));
    keep(u"stream-info"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(dialog.waitUntilGone());
}

void TestTour::watchInFullscreen()
{
    QVERIFY(session.clickButton(u"Fullscreen"_s));
    QTRY_VERIFY(session.nativeWindow().isFullScreen());
    QVERIFY(Screen::waitUntilMoving(Screen::area()));
    keep(u"fullscreen"_s);
    QVERIFY(Mouse::moveTo(Screen::area().center()));
    QVERIFY(Mouse::moveTo(Screen::area().center() + QPoint(20, 20)));
    QVERIFY(session.window.waitFor(Role::Button, u"Fullscreen"_s));
    keep(u"fullscreen-controls"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_VERIFY(!session.nativeWindow().isFullScreen());
    QVERIFY(session.seesPicture());
}

void TestTour::continueTheFilm()
{
    // Past its first half minute it is kept where the film is left.
    QVERIFY(Mouse::click(slider().rect().center() + QPoint(slider().rect().width() / 5, 0)));
    QTRY_VERIFY(playedSeconds() >= 40);
    QVERIFY(search(u"Search..."_s, {}));
    QVERIFY(session.watch(u"Seven Bridges"_s));
    QVERIFY(session.watch(u"The Long Tide"_s));
    const auto offer = [this] {
        const QList<Accessible> buttons = session.window.findAll(Role::Button);
        const auto found =
            std::find_if(buttons.begin(), buttons.end(), [](const Accessible &button) {
                return button.name().contains(u"00:4"_s);
            });
        return found != buttons.end() ? *found : Accessible();
    };
    QTRY_VERIFY(offer());
    keep(u"continue"_s);
    QVERIFY(Mouse::click(offer()));
    QTRY_VERIFY(playedSeconds() >= 40);
    QVERIFY(session.seesPicture());
    QVERIFY(session.clickButton(u"< Back to Categories"_s));
    QVERIFY(session.openCategory(u"Continue Watching"_s));
    QTRY_COMPARE(session.window.waitFor(Role::List).rowTexts(), QStringList{u"The Long Tide"_s});
    keep(u"continue-watching"_s);
}

void TestTour::openAShow()
{
    QVERIFY(session.openTab(UiTexts::showsTab));
    QVERIFY(session.openCategory(u"Series"_s));
    QVERIFY(session.play(u"Lighthouse"_s));
    QVERIFY(session.window.waitFor(Role::Cell, u"Season 3"_s));
    QVERIFY(session.window.waitFor(Role::Cell, u"E03 - Fog Signal"_s));
    keep(u"show"_s);
}

void TestTour::playEpisodes()
{
    QVERIFY(session.play(u"E03 - Fog Signal"_s));
    QVERIFY(session.showsLabel(UiTexts::playing(u"Lighthouse - S01E03 - Fog Signal"_s)));
    QVERIFY(session.seesPicture());
    keep(u"episode"_s);
    QVERIFY(session.clickButton(u"Next Episode"_s));
    QVERIFY(session.showsLabel(UiTexts::playing(u"Lighthouse - S02E01 - Spring Tide"_s)));
    QVERIFY(session.seesPicture());
    keep(u"next-episode"_s);
}

void TestTour::readAccountInformation()
{
    const Accessible menu = session.openMenu(u"More"_s);
    keep(u"more"_s);
    QVERIFY(Mouse::click(menu.find(Role::MenuItem, u"Account Information..."_s)));
    const Accessible dialog = session.app.waitForWindow(u"Account Information"_s);
    QVERIFY(dialog.waitFor(Role::Label, u"Active"_s));
    keep(u"account-information"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(dialog.waitUntilGone());
}

void TestTour::turnOnTheGuide()
{
    const Accessible menu = session.openMenu(u"More"_s);
    QVERIFY(Mouse::click(menu.find(Role::MenuItem, u"Programme Guide..."_s)));
    const Accessible dialog = session.app.waitForWindow(u"Programme Guide"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Other, u"Show a programme guide for this source"_s)));
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Update Now"_s)));
    QTRY_VERIFY(shows(dialog.describe(), u"Channels with a guide: 6 of 6"_s));
    keep(u"programme-guide"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(session.openTab(UiTexts::liveTab));
    QVERIFY(search(u"Search all channels..."_s, {}));
    QVERIFY(session.openCategory(UiTexts::allCategories));
    QVERIFY(session.watch(u"Harbour One"_s));
    QTRY_VERIFY(showsWords(session.window.describe(), u"%1 until %2"_s));
    keep(u"what-runs"_s);
}

void TestTour::openASchedule()
{
    QVERIFY(Keyboard::press(u"s"_s));
    const Accessible schedule = session.app.waitForWindow(u"Schedule of Harbour One"_s);
    QVERIFY(schedule.waitFor(Role::Button, u"Watch from Start"_s));
    keep(u"schedule"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(schedule.waitUntilGone());
}

void TestTour::playFromTheArchive()
{
    QVERIFY(Mouse::rightClick(session.entry(u"Harbour One"_s)));
    QVERIFY(Mouse::click(session.app.waitForMenu().waitFor(Role::MenuItem, u"Watch from Start"_s)));
    QTRY_VERIFY(slider());
    QVERIFY(session.seesPicture());
    keep(u"archive"_s);
}

void TestTour::openTheGrid()
{
    QVERIFY(Mouse::click(session.window.waitFor(Role::Other, u"Guide"_s)));
    QVERIFY(session.window.waitFor(Role::Edit, u"Search programmes..."_s));
    keep(u"guide"_s);
    QVERIFY(search(u"Search programmes..."_s, u"the"_s));
    QTRY_VERIFY(session.window.waitFor(Role::Table, u"Programmes found"_s).rowCount() > 0);
    keep(u"guide-search"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(Mouse::click(session.window.waitFor(Role::Other, u"Guide"_s)));
}

void TestTour::addAPlaylist()
{
    QVERIFY(session.clickButton(u"Add Source..."_s));
    QVERIFY(session.chooseType(u"M3U Playlist"_s));
    QVERIFY(session.fill(u"Name:"_s, u"Demo playlist"_s));
    QVERIFY(session.fill(u"Playlist URL/File"_s, provider.playlistUrl()));
    QVERIFY(session.acceptDialog());
    QVERIFY(session.openCategory(u"Sports"_s));
    QTRY_COMPARE(table().rowTexts(), (QStringList{u"City Sports"_s, u"Dropout TV"_s}));
    QVERIFY(session.watch(u"City Sports"_s));
    keep(u"playlist"_s);
}

VANTIRO_TEST_MAIN(TestTour)
#include "tst_Tour.moc"
