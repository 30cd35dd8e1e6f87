// The menus for sound and subtitles, the file of subtitles, and the dialog with what is known of
// the stream. A dark picture without a pattern shows every subtitle.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString subtitled = u"Subtitled"_s;
const QString silent = u"Silent"_s;
const QString soundMenu = u"Audio"_s;
const QString subtitleMenu = u"Subtitles"_s;

/// The names of the menu's items, in order.
QStringList itemsOf(const Accessible &menu)
{
    QStringList names;
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    for (const Accessible &item : items)
        names.append(item.name());
    return names;
}

QStringList checkedItemsOf(const Accessible &menu)
{
    QStringList names;
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    for (const Accessible &item : items) {
        if (item.isChecked())
            names.append(item.name());
    }
    return names;
}

bool closeMenu(const Accessible &menu)
{
    return Keyboard::press(u"Escape"_s) && menu.waitUntilGone();
}

} // namespace

class TestPlayerMenus : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void soundMenuChoosesATrack();
    void subtitleMenuChoosesATrack();
    void subtitleFileShowsOnThePicture();
    void cancelledFileDialogChangesNothing();
    void silentFilmHasNoTracks();
    void infoTellsOfTheStream();
    void infoDialogsAreIndependent();

private:
    void fill() override;
    void watchFilm(const QString &name);
    bool choose(const QString &button, const QString &item) const;
    QString checkedItem(const QString &button) const;
    double brightShare() const;
    bool showsText() const;
    bool showsNoText() const;
};

void TestPlayerMenus::fill()
{
    provider->addFilm(subtitled, u"mkv"_s, HttpReply::file(streamPath(u"subtitled.mkv"_s)));
    provider->addFilm(silent, u"mp4"_s, HttpReply::file(streamPath(u"silent.mp4"_s)));
}

void TestPlayerMenus::watchFilm(const QString &name)
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->play(name));
    QVERIFY(session->showsLabel(UiTexts::playing(name)));
    QTRY_VERIFY(session->seekSlider().value() > 0);
    QTRY_VERIFY(!Screen::isMostlyBlack(session->videoRect()));
}

bool TestPlayerMenus::choose(const QString &button, const QString &item) const
{
    const Accessible menu = session->openMenu(button);
    return Mouse::click(menu.waitFor(Role::MenuItem, item)) && menu.waitUntilGone();
}

/// What is marked in the menu; all marked ones, should there be several.
QString TestPlayerMenus::checkedItem(const QString &button) const
{
    const Accessible menu = session->openMenu(button);
    const QString checked = checkedItemsOf(menu).join(u"; "_s);
    return closeMenu(menu) ? checked : u"?"_s;
}

double TestPlayerMenus::brightShare() const
{
    return Screen::share(Screen::grab(session->videoRect()), [](QRgb pixel) {
        return std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)}) > 180;
    });
}

bool TestPlayerMenus::showsText() const
{
    return QTest::qWaitFor([this] { return brightShare() > 0.0005; }, 15000);
}

/// Each text stands for most of a second, so that a second without one is enough.
bool TestPlayerMenus::showsNoText() const
{
    return Screen::waitUntilStill(session->videoRect(), 15000, 2500) && brightShare() == 0;
}

void TestPlayerMenus::soundMenuChoosesATrack()
{
    watchFilm(subtitled);
    const Accessible menu = session->openMenu(soundMenu);
    QCOMPARE(itemsOf(menu), QStringList({u"English"_s, u"Tom & Jerry"_s}));
    // It stands directly above its button, at its left edge.
    const QRect button = session->window.find(Role::Button, soundMenu).rect();
    QCOMPARE(QPoint(menu.rect().left(), menu.rect().bottom() + 1), button.topLeft());
    Screen::save(Screen::grab(), u"menu-audio"_s);
    QVERIFY(closeMenu(menu));

    QCOMPARE(checkedItem(soundMenu), u"English"_s);
    for (const QString &track : {u"Tom & Jerry"_s, u"English"_s}) {
        QVERIFY(choose(soundMenu, track));
        QTRY_COMPARE(checkedItem(soundMenu), track);
    }
}

void TestPlayerMenus::subtitleMenuChoosesATrack()
{
    watchFilm(subtitled);
    QCOMPARE(checkedItem(subtitleMenu), UiTexts::disabledTrack);
    QVERIFY(showsNoText());

    QVERIFY(choose(subtitleMenu, u"English"_s));
    QVERIFY(showsText());
    QCOMPARE(checkedItem(subtitleMenu), u"English"_s);
    session->keepScreenshot(u"subtitles-english"_s);
    const double oneLine = brightShare();

    QVERIFY(choose(subtitleMenu, u"Arts & Lettres"_s));
    QCOMPARE(checkedItem(subtitleMenu), u"Arts & Lettres"_s);
    // Two lines, with three times as many letters.
    QTRY_VERIFY_WITH_TIMEOUT(brightShare() > oneLine * 2, 15000);
    session->keepScreenshot(u"subtitles-french"_s);

    QVERIFY(choose(subtitleMenu, UiTexts::disabledTrack));
    QVERIFY(showsNoText());
    QCOMPARE(checkedItem(subtitleMenu), UiTexts::disabledTrack);
}

void TestPlayerMenus::subtitleFileShowsOnThePicture()
{
    watchFilm(subtitled);
    QVERIFY(showsNoText());
    QVERIFY(choose(subtitleMenu, UiTexts::loadSubtitles));
    const Accessible dialog = session->app.waitForWindow(u"Load Subtitle File"_s);
    session->keepScreenshot(u"subtitle-file-dialog"_s);
    QVERIFY(
        Keyboard::fill(dialog.waitFor(Role::Edit, u"File name:"_s), streamPath(u"large.srt"_s)));
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(showsText());
    session->keepScreenshot(u"subtitle-file"_s);

    // It has become a track like the others, and is chosen.
    const Accessible menu = session->openMenu(subtitleMenu);
    const QStringList checked = checkedItemsOf(menu);
    QCOMPARE(checked.size(), 1);
    QVERIFY(checked.constFirst() != UiTexts::disabledTrack);
    QVERIFY(checked.constFirst() != "English"_L1);
    Screen::save(Screen::grab(), u"menu-subtitles"_s);
    QVERIFY(Mouse::click(menu.find(Role::MenuItem, UiTexts::disabledTrack)));
    QVERIFY(showsNoText());
}

void TestPlayerMenus::cancelledFileDialogChangesNothing()
{
    watchFilm(subtitled);
    QVERIFY(choose(subtitleMenu, UiTexts::loadSubtitles));
    const Accessible dialog = session->app.waitForWindow(u"Load Subtitle File"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Cancel"_s)));
    QVERIFY(dialog.waitUntilGone());
    QCOMPARE(checkedItem(subtitleMenu), UiTexts::disabledTrack);
    QVERIFY(showsNoText());
    QVERIFY(session->showsLabel(UiTexts::playing(subtitled)));
}

void TestPlayerMenus::silentFilmHasNoTracks()
{
    watchFilm(silent);
    const Accessible sound = session->openMenu(soundMenu);
    QCOMPARE(itemsOf(sound), QStringList{u"No audio tracks"_s});
    QVERIFY(!sound.find(Role::MenuItem).isEnabled());
    QVERIFY(closeMenu(sound));

    const Accessible subtitles = session->openMenu(subtitleMenu);
    QCOMPARE(checkedItemsOf(subtitles), QStringList{UiTexts::disabledTrack});
    QVERIFY(subtitles.find(Role::MenuItem, UiTexts::loadSubtitles).isEnabled());
    QVERIFY(!subtitles.find(Role::MenuItem, u"English"_s));
    QVERIFY(closeMenu(subtitles));
}

void TestPlayerMenus::infoTellsOfTheStream()
{
    watchFilm(subtitled);
    QVERIFY(session->clickButton(u"Info"_s));
    const Accessible dialog = session->app.waitForWindow(UiTexts::infoTitle);
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
    QVERIFY(session->app.nativeWindow(UiTexts::infoTitle).moveTo({0, 0}));
    QVERIFY(choose(soundMenu, u"Tom & Jerry"_s));
    QCOMPARE(text.text(), before);
    QTRY_VERIFY(Mouse::click(dialog.find(Role::Button, u"Refresh"_s)) &&
                text.text().contains(u"  [ ] English\n  [*] Tom & Jerry\n"_s));
}

void TestPlayerMenus::infoDialogsAreIndependent()
{
    watchFilm(silent);
    const auto dialogs = [this] { return session->windowsTitled(UiTexts::infoTitle); };
    QVERIFY(session->clickButton(u"Info"_s));
    QTRY_COMPARE(dialogs().size(), 1);
    QVERIFY(session->app.nativeWindow(UiTexts::infoTitle).moveTo({0, 0}));
    QVERIFY(session->clickButton(u"Info"_s));
    QTRY_COMPARE(dialogs().size(), 2);
    // The younger one has the keyboard and goes alone.
    QVERIFY(Keyboard::press(u"Escape"_s));
    QTRY_COMPARE(dialogs().size(), 1);
    QVERIFY(dialogs().at(0).find(Role::Edit).text().contains(u"Resolution: 320x180"_s));
}

VANTIRO_TEST_MAIN(TestPlayerMenus)
#include "tst_PlayerMenus.moc"
