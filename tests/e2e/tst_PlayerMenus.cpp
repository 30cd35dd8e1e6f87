// The menus for sound and subtitles, the file of subtitles, and the dialog with what is known of
// the stream. A dark picture without a pattern shows every subtitle.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestPlayerMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void soundMenuChoosesATrack();
    void subtitleMenuChoosesATrack();
    void subtitleFileShowsOnThePicture();
    void cancelledFileDialogChangesNothing();
    void silentFilmHasNoTracks();
    void infoTellsOfTheStream();
    void infoDialogsAreIndependent();

private:
    void watchFilm(const QString &name);
    Accessible openMenu(const QString &button) const;
    bool choose(const QString &button, const QString &item) const;
    QString checkedItem(const QString &button) const;
    int brightPixels() const;
    bool showsText() const;
    bool showsNoText() const;

    std::unique_ptr<Provider> provider;
    std::unique_ptr<PlayerSession> session;
};

void TestPlayerMenus::init()
{
    PrivateProfile::current().clear();
    provider = std::make_unique<Provider>();
    provider->addFilm(u"Subtitled"_s, u"mkv"_s, HttpReply::file(streamPath(u"subtitled.mkv"_s)));
    provider->addFilm(u"Silent"_s, u"mp4"_s, HttpReply::file(streamPath(u"silent.mp4"_s)));
    provider->store();
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
    QVERIFY(session->openFilms());
}

void TestPlayerMenus::cleanup()
{
    if (!QTest::currentTestFailed()) {
        QVERIFY(session->close());
        QCOMPARE(session->app.exitCode(), 0);
    }
    session.reset();
}

void TestPlayerMenus::watchFilm(const QString &name)
{
    QVERIFY(session->playFilm(name));
    QVERIFY(session->showsLabel(u"Playing: "_s + name));
    QTRY_VERIFY(session->window.find(Role::Slider, u"Position"_s).value() > 0);
    QTRY_VERIFY(!Screen::isMostlyBlack(session->videoRect()));
}

/// Checks that the menu stands directly above its button, at its left edge.
Accessible TestPlayerMenus::openMenu(const QString &button) const
{
    const Accessible opener = session->window.waitFor(Role::Button, button);
    if (!Mouse::click(opener))
        return {};
    Accessible menu = session->app.waitForMenu();
    const QPoint corner(menu.rect().left(), menu.rect().bottom() + 1);
    return corner == opener.rect().topLeft() ? menu : Accessible();
}

bool TestPlayerMenus::choose(const QString &button, const QString &item) const
{
    const Accessible menu = openMenu(button);
    return menu && Mouse::click(menu.waitFor(Role::MenuItem, item)) && menu.waitUntilGone();
}

/// What is marked in the menu; all marked ones, should there be several.
QString TestPlayerMenus::checkedItem(const QString &button) const
{
    const Accessible menu = openMenu(button);
    QStringList checked;
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    for (const Accessible &item : items) {
        if (item.isChecked())
            checked.append(item.name());
    }
    return Keyboard::press(u"Escape"_s) && menu.waitUntilGone() ? checked.join(u"; "_s) : u"?"_s;
}

int TestPlayerMenus::brightPixels() const
{
    const QImage image = Screen::grab(session->videoRect());
    int bright = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            bright += std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)}) > 180 ? 1 : 0;
        }
    }
    return bright;
}

bool TestPlayerMenus::showsText() const
{
    return QTest::qWaitFor([this] { return brightPixels() > 200; }, 15000);
}

/// Each text stands for most of a second, so that a second without one is enough.
bool TestPlayerMenus::showsNoText() const
{
    return Screen::waitUntilStill(session->videoRect(), 15000, 2500) && brightPixels() == 0;
}

void TestPlayerMenus::soundMenuChoosesATrack()
{
    watchFilm(u"Subtitled"_s);
    const Accessible menu = openMenu(u"Audio"_s);
    QVERIFY(menu);
    QStringList names;
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    for (const Accessible &item : items)
        names.append(item.name());
    QCOMPARE(names, QStringList({u"English"_s, u"Tom & Jerry"_s}));
    Screen::save(Screen::grab(), u"menu-audio"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(menu.waitUntilGone());

    QCOMPARE(checkedItem(u"Audio"_s), u"English"_s);
    QVERIFY(choose(u"Audio"_s, u"Tom & Jerry"_s));
    QTRY_COMPARE(checkedItem(u"Audio"_s), u"Tom & Jerry"_s);
    QVERIFY(choose(u"Audio"_s, u"English"_s));
    QTRY_COMPARE(checkedItem(u"Audio"_s), u"English"_s);
}

void TestPlayerMenus::subtitleMenuChoosesATrack()
{
    watchFilm(u"Subtitled"_s);
    QCOMPARE(checkedItem(u"Subtitles"_s), u"Disable"_s);
    QVERIFY(showsNoText());

    QVERIFY(choose(u"Subtitles"_s, u"English"_s));
    QVERIFY(showsText());
    QCOMPARE(checkedItem(u"Subtitles"_s), u"English"_s);
    session->keepScreenshot(u"subtitles-english"_s);
    const int oneLine = brightPixels();

    QVERIFY(choose(u"Subtitles"_s, u"Arts & Lettres"_s));
    QCOMPARE(checkedItem(u"Subtitles"_s), u"Arts & Lettres"_s);
    // Two lines, with three times as many letters.
    QTRY_VERIFY_WITH_TIMEOUT(brightPixels() > oneLine * 2, 15000);
    session->keepScreenshot(u"subtitles-french"_s);

    QVERIFY(choose(u"Subtitles"_s, u"Disable"_s));
    QVERIFY(showsNoText());
    QCOMPARE(checkedItem(u"Subtitles"_s), u"Disable"_s);
}

void TestPlayerMenus::subtitleFileShowsOnThePicture()
{
    watchFilm(u"Subtitled"_s);
    QVERIFY(showsNoText());
    QVERIFY(choose(u"Subtitles"_s, u"Load Subtitle File..."_s));
    const Accessible dialog = session->app.waitForWindow(u"Load Subtitle File"_s);
    QVERIFY(dialog);
    session->keepScreenshot(u"subtitle-file-dialog"_s);
    QVERIFY(
        Keyboard::fill(dialog.waitFor(Role::Edit, u"File name:"_s), streamPath(u"large.srt"_s)));
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(showsText());
    session->keepScreenshot(u"subtitle-file"_s);

    // It has become a track like the others, and is chosen.
    const Accessible menu = openMenu(u"Subtitles"_s);
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    QCOMPARE(std::count_if(items.begin(), items.end(),
                           [](const Accessible &item) { return item.isChecked(); }),
             1);
    QVERIFY(!menu.find(Role::MenuItem, u"Disable"_s).isChecked());
    QVERIFY(!menu.find(Role::MenuItem, u"English"_s).isChecked());
    Screen::save(Screen::grab(), u"menu-subtitles"_s);
    QVERIFY(Mouse::click(menu.find(Role::MenuItem, u"Disable"_s)));
    QVERIFY(showsNoText());
}

void TestPlayerMenus::cancelledFileDialogChangesNothing()
{
    watchFilm(u"Subtitled"_s);
    QVERIFY(choose(u"Subtitles"_s, u"Load Subtitle File..."_s));
    const Accessible dialog = session->app.waitForWindow(u"Load Subtitle File"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Cancel"_s)));
    QVERIFY(dialog.waitUntilGone());
    QCOMPARE(checkedItem(u"Subtitles"_s), u"Disable"_s);
    QVERIFY(showsNoText());
    QVERIFY(session->showsLabel(u"Playing: Subtitled"_s));
}

void TestPlayerMenus::silentFilmHasNoTracks()
{
    watchFilm(u"Silent"_s);
    const Accessible sound = openMenu(u"Audio"_s);
    QVERIFY(sound);
    QCOMPARE(sound.findAll(Role::MenuItem).size(), 1);
    QVERIFY(!sound.find(Role::MenuItem, u"No audio tracks"_s).isEnabled());
    Screen::save(Screen::grab(), u"menu-no-audio"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(sound.waitUntilGone());

    const Accessible subtitles = openMenu(u"Subtitles"_s);
    QVERIFY(subtitles);
    QVERIFY(subtitles.find(Role::MenuItem, u"Disable"_s).isChecked());
    QVERIFY(subtitles.find(Role::MenuItem, u"Load Subtitle File..."_s).isEnabled());
    QVERIFY(!subtitles.find(Role::MenuItem, u"English"_s));
    QVERIFY(Keyboard::press(u"Escape"_s));
}

void TestPlayerMenus::infoTellsOfTheStream()
{
    watchFilm(u"Subtitled"_s);
    QVERIFY(session->clickButton(u"Info"_s));
    const Accessible dialog = session->app.waitForWindow(u"Stream Info"_s);
    QVERIFY(dialog);
    QVERIFY(dialog.rect().width() >= 440);
    QVERIFY(dialog.rect().height() >= 340);
    const Accessible text = dialog.waitFor(Role::Edit);
    const QString before = text.text();
    session->keepScreenshot(u"stream-info"_s);
    for (const QString &part :
         {u"Video codec: h264\nResolution: 320x180\nFrame rate: 10.00 fps\n\n"_s,
          u"Sample rate: 48000 Hz\nChannels: 2\n\n"_s,
          u"Audio tracks:\n  [ ] Disable\n  [*] English\n  [ ] Tom & Jerry\n\n"_s,
          u"Subtitle tracks:\n  [*] Disable\n  [ ] English\n  [ ] Arts & Lettres\n\n"_s,
          u"Input bitrate: "_s, u"Displayed frames: "_s}) {
        QVERIFY2(before.contains(part), qPrintable(before));
    }

    // The window behind it can be used meanwhile; the text changes when asked.
    QVERIFY(session->app.nativeWindow(u"Stream Info"_s).moveTo({0, 0}));
    QVERIFY(choose(u"Audio"_s, u"Tom & Jerry"_s));
    QCOMPARE(text.text(), before);
    QTRY_VERIFY(Mouse::click(dialog.find(Role::Button, u"Refresh"_s)) &&
                text.text().contains(u"  [ ] English\n  [*] Tom & Jerry\n"_s));
}

void TestPlayerMenus::infoDialogsAreIndependent()
{
    watchFilm(u"Silent"_s);
    const auto dialogs = [this] {
        QList<Accessible> windows = session->app.windows();
        windows.removeIf(
            [](const Accessible &window) { return window.name() != "Stream Info"_L1; });
        return windows;
    };
    QVERIFY(session->clickButton(u"Info"_s));
    QTRY_COMPARE(dialogs().size(), 1);
    QVERIFY(session->app.nativeWindow(u"Stream Info"_s).moveTo({0, 0}));
    QVERIFY(session->clickButton(u"Info"_s));
    QTRY_COMPARE(dialogs().size(), 2);
    Screen::save(Screen::grab(), u"stream-info-twice"_s);
    // The younger one has the keyboard and goes alone.
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_COMPARE(dialogs().size(), 1);
    QVERIFY(dialogs().at(0).find(Role::Edit).text().contains(u"Resolution: 320x180"_s));
}

VANTIRO_TEST_MAIN(TestPlayerMenus)
#include "tst_PlayerMenus.moc"
