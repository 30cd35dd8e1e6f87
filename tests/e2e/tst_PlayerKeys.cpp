// The keys of the player and the menu on the picture in the real window: what each does, that the
// line over the picture tells of it, and that the picture goes on.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestPlayerKeys : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void theLineShowsOverThePicture_data();
    void theLineShowsOverThePicture();
    void eachKeyIsTold();
    void channelsChangeByKey();
    void searchLinesKeepTheirKeys();
    void alwaysOnTop();
    void smallWindow();
    void movesTheSmallWindow();
    void savesThePicture();
    void theMenu_data();
    void theMenu();

private:
    void fill() override;
    void watch(const QString &tab, const QString &name);
    void watchChannel() { watch(UiTexts::liveTab, u"One"_s); }
    bool enterFullscreen() const;

    /// The line over the picture, which stands in the picture's corner.
    Accessible line() const;
    /// What it says; empty while it does not show.
    QString told() const { return line().name(); }
    /// Waits until the line says so.
    bool tells(const QString &text) const;
    /// The same after pressing a key.
    bool tells(const QString &key, const QString &text) const
    {
        return Keyboard::press(key) && tells(text);
    }
    /// Opens the menu so far above the middle of the picture. Never twice at the same place: Qt
    /// would take two quick clicks for a double click, which closes the menu.
    Accessible openMenu(int above = 0) const;
    double blackShare(const QRect &rect) const;

    // Found once: the line shows for two seconds, and a search of the whole window may take as long
    // on a busy machine.
    Accessible panel;
    Accessible video;
};

void TestPlayerKeys::fill()
{
    for (const QString &name : {u"One"_s, u"Two"_s, u"Three"_s}) {
        provider->addChannel(name, liveClip(streamPath(u"live.ts"_s), 180, 2));
    }
    provider->addFilm(u"Harbour"_s, u"mkv"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"tracks.mkv"_s), "video/x-matroska"_ba);
    });
}

void TestPlayerKeys::watch(const QString &tab, const QString &name)
{
    QVERIFY(session->openAll(tab));
    QVERIFY(session->watch(name));
    panel = session->window.find(Role::Other, u"Player"_s);
    video = panel.find(Role::Other, u"Video"_s);
    QVERIFY(video);
}

bool TestPlayerKeys::enterFullscreen() const
{
    return Keyboard::press(u"f"_s) &&
           QTest::qWaitFor([this] { return session->videoRect() == Screen::area(); }) &&
           session->seesPicture();
}

Accessible TestPlayerKeys::line() const
{
    const QPoint corner = video.rect().topLeft() + QPoint(16, 16);
    for (const Accessible &label : panel.findAll(Role::Label)) {
        if (label.rect().topLeft() == corner) {
            return label;
        }
    }
    return {};
}

bool TestPlayerKeys::tells(const QString &text) const
{
    QStringList seen;
    const auto isTold = [&] {
        const QString now = told();
        if (!now.isEmpty() && !seen.contains(now)) {
            seen.append(now);
        }
        return now == text;
    };
    const bool succeeded = QTest::qWaitFor(isTold, 10000);
    if (!succeeded) {
        qWarning().noquote() << "The line tells"_L1 << seen << "instead of"_L1 << text;
    }
    return succeeded;
}

Accessible TestPlayerKeys::openMenu(int above) const
{
    const QPoint place = session->videoRect().center() - QPoint(0, above);
    Accessible menu = Mouse::rightClick(place) ? session->app.waitForMenu() : Accessible();
    if (menu.rect().topLeft() != place) {
        qWarning() << "The menu opens at" << menu.rect() << "instead of" << place;
        return {};
    }
    return menu;
}

double TestPlayerKeys::blackShare(const QRect &rect) const
{
    return Screen::share(Screen::grab(rect), [](QRgb pixel) {
        return qRed(pixel) < 10 && qGreen(pixel) < 10 && qBlue(pixel) < 10;
    });
}

void TestPlayerKeys::theLineShowsOverThePicture_data()
{
    QTest::addColumn<bool>("fullscreen");
    QTest::newRow("in the window") << false;
    QTest::newRow("in fullscreen") << true;
}

void TestPlayerKeys::theLineShowsOverThePicture()
{
    QFETCH(const bool, fullscreen);
    constexpr int shownMs = 2000;
    watchChannel();
    // Shown so, the picture fills the place of the line's lower half.
    if (fullscreen) {
        QVERIFY(enterFullscreen());
        QVERIFY(tells(u"shift+c"_s, u"Crop: 16:10"_s));
    } else {
        QVERIFY(tells(u"a"_s, u"Aspect ratio: 16:9"_s));
        QVERIFY(tells(u"a"_s, u"Aspect ratio: 4:3"_s));
    }
    QTRY_COMPARE(told(), QString());

    QElapsedTimer shown;
    QRect lowerHalf;
    double letters = 0;
    double black = 0;
    // Until it is still there when it has been measured.
    const auto isMeasured = [&, on = false]() mutable {
        on = !on;
        shown.start();
        if (!tells(u"d"_s, on ? u"Deinterlacing: on"_s : u"Deinterlacing: off"_s))
            return false;
        const QRect place = line().rect();
        lowerHalf = place.adjusted(0, place.height() / 2, 0, 0);
        letters = 1 - blackShare(place);
        black = blackShare(lowerHalf);
        return !place.isEmpty() && line().rect() == place;
    };
    QVERIFY(QTest::qWaitFor(isMeasured, 60000));
    session->keepScreenshot(fullscreen ? u"player-line-fullscreen"_s : u"player-line"_s);
    QTRY_COMPARE_WITH_TIMEOUT(told(), QString(), 20000);
    const qint64 shownFor = shown.elapsed();
    QTRY_VERIFY(blackShare(lowerHalf) < 0.4);
    QVERIFY2(letters > 0.05 && letters < 0.4, qPrintable(QString::number(letters)));
    QVERIFY2(black > 0.6, qPrintable(QString::number(black)));
    // When it has gone, a busy machine tells late.
    QVERIFY2(shownFor >= shownMs * 95 / 100, qPrintable(QString::number(shownFor)));
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
}

void TestPlayerKeys::eachKeyIsTold()
{
    watch(UiTexts::moviesTab, u"Harbour"_s);
    const QStringList keys{u"bracketright"_s,
                           u"Speed: 1.10x"_s,
                           u"bracketleft"_s,
                           u"Speed: 1.00x"_s,
                           u"bracketleft"_s,
                           u"Speed: 0.90x"_s,
                           u"equal"_s,
                           u"Speed: 1.00x"_s,
                           u"k"_s,
                           u"Audio delay: 50 ms"_s,
                           u"j"_s,
                           u"Audio delay: 0 ms"_s,
                           u"h"_s,
                           u"Subtitle delay: 50 ms"_s,
                           u"g"_s,
                           u"Subtitle delay: 0 ms"_s,
                           u"b"_s,
                           u"Audio track: Deutsch - [German]"_s,
                           u"v"_s,
                           u"Subtitles: English - [English]"_s,
                           u"v"_s,
                           u"Subtitles: Français - [French]"_s,
                           u"v"_s,
                           u"Subtitles: off"_s,
                           u"d"_s,
                           u"Deinterlacing: on"_s,
                           u"d"_s,
                           u"Deinterlacing: off"_s,
                           u"a"_s,
                           u"Aspect ratio: 16:9"_s};
    for (qsizetype index = 0; index < keys.size(); index += 2) {
        QVERIFY2(tells(keys.at(index), keys.at(index + 1)), qPrintable(keys.at(index)));
    }
    const QRect area = video.rect();
    const double before = blackShare(area);
    QVERIFY(tells(u"shift+c"_s, u"Crop: 16:10"_s));
    QTRY_VERIFY(blackShare(area) < before - 0.03);
    QVERIFY(tells(u"z"_s, u"Zoom: 25 %"_s));
    QTRY_VERIFY(blackShare(area) > 0.9);
    QVERIFY(session->hasOneWindow());
}

void TestPlayerKeys::channelsChangeByKey()
{
    watchChannel();
    QVERIFY(tells(u"Prior"_s, u"2  Two"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Two"_s)));
    QVERIFY(tells(u"n"_s, u"3  Three"_s));
    QVERIFY(tells(u"n"_s, u"1  One"_s));
    QVERIFY(tells(u"Next"_s, u"3  Three"_s));
    QVERIFY(tells(u"p"_s, u"2  Two"_s));
    QVERIFY(tells(u"BackSpace"_s, u"3  Three"_s));
    QVERIFY(tells(u"BackSpace"_s, u"2  Two"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Two"_s)));
    QVERIFY(tells(u"bracketright"_s, u"A live channel has no other speed"_s));

    // What is typed shows for one and a half seconds, which a busy machine may miss.
    QElapsedTimer typed;
    const auto takesLeadingZero = [&] {
        typed.start();
        return xdotool({u"key"_s, u"0"_s, u"1"_s}) && tells(u"Channel 01"_s) && tells(u"1  One"_s);
    };
    QVERIFY(QTest::qWaitFor(takesLeadingZero, 60000));
    QVERIFY2(typed.elapsed() >= 1500 * 95 / 100, qPrintable(QString::number(typed.elapsed())));
    QVERIFY(session->showsLabel(UiTexts::playing(u"One"_s)));
    const auto refusesUnknown = [&] {
        return tells(u"9"_s, u"Channel 9"_s) && tells(u"No channel 9"_s);
    };
    QVERIFY(QTest::qWaitFor(refusesUnknown, 60000));
    QVERIFY(session->showsLabel(UiTexts::playing(u"One"_s)));
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
}

void TestPlayerKeys::searchLinesKeepTheirKeys()
{
    const QString typed = u"npabvz01[]=STCP"_s;
    watchChannel();
    const Accessible search = session->window.waitFor(Role::Edit, u"Search..."_s);
    QVERIFY(Keyboard::fill(search, typed));
    QVERIFY(Keyboard::press(u"BackSpace"_s));
    QTRY_COMPARE(search.text(), typed.chopped(1));
    QCOMPARE(told(), QString());
    QVERIFY(session->showsLabel(UiTexts::playing(u"One"_s)));

    // The list shows none of its channels, and is the one that plays on.
    QVERIFY(Mouse::click(session->videoRect().center()));
    QTRY_VERIFY(!search.isFocused());
    QVERIFY(tells(u"n"_s, u"2  Two"_s));
    QCOMPARE(search.text(), typed.chopped(1));
}

void TestPlayerKeys::alwaysOnTop()
{
    const NativeWindow window = session->nativeWindow(); // by its title, which playing changes
    watchChannel();
    QVERIFY(tells(u"shift+t"_s, u"Always on top: on"_s));
    QTRY_VERIFY(window.isAlwaysOnTop());
    QVERIFY2(window.isVisible(), "the window is the same");
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
    QVERIFY(tells(u"shift+t"_s, u"Always on top: off"_s));
    QTRY_VERIFY(!window.isAlwaysOnTop());
    QVERIFY(session->seesPicture());
}

void TestPlayerKeys::smallWindow()
{
    const NativeWindow window = session->nativeWindow(); // by its title, which playing changes
    watchChannel();
    const QRect before = window.geometry();
    for (const QString &back : {u"shift+p"_s, u"Escape"_s, u"f"_s}) {
        QVERIFY(tells(u"shift+p"_s, u"Shift+P or Escape leaves the small window"_s));
        session->keepScreenshot(u"player-small-window"_s);
        QTRY_COMPARE(window.geometry().size(), QSize(480, 270));
        QTRY_COMPARE(session->videoRect(), window.geometry());
        QVERIFY(session->seesPicture());
        QVERIFY(Keyboard::press(back));
        if (back == "f"_L1) {
            QTRY_VERIFY(window.isFullScreen());
            QTRY_COMPARE(session->videoRect(), Screen::area());
            QVERIFY(tells(u"shift+p"_s, u"Leave fullscreen first"_s));
            QVERIFY(Keyboard::press(u"Escape"_s));
        }
        QTRY_COMPARE(window.geometry(), before);
        QVERIFY(session->window.waitFor(Role::Button, u"Pause"_s));
    }
    QVERIFY2(window.isVisible(), "the window is the same");
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
}

void TestPlayerKeys::movesTheSmallWindow()
{
    const NativeWindow window = session->nativeWindow();
    watchChannel();
    QVERIFY(tells(u"shift+p"_s, u"Shift+P or Escape leaves the small window"_s));
    QTRY_COMPARE(window.geometry().size(), QSize(480, 270));
    const QRect before = window.geometry();
    QPoint pointer = before.center();
    QVERIFY(Mouse::press(pointer));
    // The window manager follows the pointer from the moment it has it.
    const auto moves = [&] {
        pointer -= QPoint(20, 15);
        return Mouse::moveTo(pointer) && window.geometry().topLeft() != before.topLeft();
    };
    QVERIFY(QTest::qWaitFor(moves, 20'000));
    QVERIFY(Mouse::release());
    QCOMPARE(window.geometry().size(), before.size());
    session->keepScreenshot(u"player-small-window-moved"_s);
    // The first one may reach the window manager, which still moves the window.
    const auto leaves = [&] {
        return Keyboard::press(u"Escape"_s) && window.geometry().size() != before.size();
    };
    QVERIFY(QTest::qWaitFor(leaves, 20'000));
}

void TestPlayerKeys::savesThePicture()
{
    const QDir pictures(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    const auto saved = [&pictures] { return pictures.entryList({u"One *.png"_s}); };
    watchChannel();
    QVERIFY(Keyboard::press(u"shift+s"_s));
    QTRY_COMPARE(saved().size(), 1);
    QVERIFY(tells(u"Picture saved: "_s + saved().constFirst()));
    QCOMPARE(QImage(pictures.filePath(saved().constFirst())).size(), QSize(320, 180));
    QVERIFY(session->seesPicture());
}

void TestPlayerKeys::theMenu_data()
{
    theLineShowsOverThePicture_data();
}

void TestPlayerKeys::theMenu()
{
    QFETCH(const bool, fullscreen);
    watchChannel();
    QVERIFY(!fullscreen || enterFullscreen());
    QVERIFY(tells(u"d"_s, u"Deinterlacing: on"_s));

    Accessible menu = openMenu();
    QVERIFY(menu);
    QVERIFY(menu.find(Role::MenuItem, u"Deinterlace\tD"_s).isChecked());
    const Accessible onTop = menu.find(Role::MenuItem, u"Always on Top\tShift+T"_s);
    QVERIFY(onTop && !onTop.isChecked());
    QTRY_VERIFY(!Screen::isMostlyBlack(menu.rect()));
    session->keepScreenshot(fullscreen ? u"player-menu-fullscreen"_s : u"player-menu"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(menu.waitUntilGone());
    QCOMPARE(session->nativeWindow().isFullScreen(), fullscreen);

    QVERIFY(Mouse::click(openMenu(40).find(Role::MenuItem, u"Next\tPgUp"_s)));
    QVERIFY(tells(u"2  Two"_s));
    QVERIFY(session->seesPicture());

    for (const bool chosen : {false, true}) {
        menu = openMenu(chosen ? 80 : 120);
        QVERIFY(Mouse::click(menu.find(Role::MenuItem, u"Aspect Ratio"_s)));
        QTRY_VERIFY(session->app.windows().constFirst() != menu);
        const Accessible choices = session->app.windows().constFirst();
        const Accessible choice = choices.waitFor(Role::MenuItem, u"4:3"_s);
        QCOMPARE(choice.isChecked(), chosen);
        QVERIFY(Mouse::click(choice));
        QVERIFY(tells(u"Aspect ratio: 4:3"_s));
    }
    QVERIFY(session->seesPicture());
    QVERIFY(session->hasOneWindow());
}

VANTIRO_TEST_MAIN(TestPlayerKeys)
#include "tst_PlayerKeys.moc"
