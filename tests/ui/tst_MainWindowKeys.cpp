#include "SoundWindow.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSignalSpy>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// Presses a key where the focus is, as the keyboard does.
void pressKey(WindowFixture &fixture, Qt::Key key)
{
    QTest::keyClick(fixture.window().windowHandle(), key);
}

/// Holds a key: one press and three repeats of it.
void holdKey(Qt::Key key)
{
    for (const bool repeat : {false, true, true, true}) {
        QTest::simulateEvent(QApplication::focusWidget(), true, key, Qt::NoModifier, {}, repeat);
    }
    QTest::simulateEvent(QApplication::focusWidget(), false, key, Qt::NoModifier, {}, false);
}

} // namespace

/// The keys of the player panel, with sound but no picture.
class tst_MainWindowKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mutingWithNothingRememberedGivesFullVolume();
    void upAndDownChangeTheVolume();
    void mutingTwiceRestores();
    void anotherWindowRemembersTheSameVolume();
    void keysAreForOthersElsewhere();
    void keysActOnThePanelsChildren_data();
    void keysActOnThePanelsChildren();
    void leftAndRightSeekInAMovie();
    void leftAndRightDoNothingOnALiveChannel();
    void spaceAndTheButtonPause();
    void aHeldKeySwitchesOnce();
    void aHeldKeyTurnsTheVolumeOn();
    void aHeldKeySeeksOn();
};

// Before every other test that mutes: the remembered volume is one for the whole process.
void tst_MainWindowKeys::mutingWithNothingRememberedGivesFullVolume()
{
    SoundWindow fixture;
    auto &slider = fixture.find<QSlider>(u"volumeSlider"_s);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    panel.setFocus();
    slider.setValue(0);
    QTest::keyClick(&panel, Qt::Key_M);
    QCOMPARE(slider.value(), 100);
}

void tst_MainWindowKeys::upAndDownChangeTheVolume()
{
    SoundWindow fixture;
    auto &slider = fixture.find<QSlider>(u"volumeSlider"_s);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    panel.setFocus();
    slider.setValue(92);
    for (const int expected : {97, 100, 100}) {
        QTest::keyClick(&panel, Qt::Key_Up);
        QCOMPARE(slider.value(), expected);
    }
    slider.setValue(8);
    for (const int expected : {3, 0, 0}) {
        QTest::keyClick(&panel, Qt::Key_Down);
        QCOMPARE(slider.value(), expected);
    }
}

void tst_MainWindowKeys::mutingTwiceRestores()
{
    SoundWindow fixture;
    auto &slider = fixture.find<QSlider>(u"volumeSlider"_s);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    panel.setFocus();
    slider.setValue(35);
    QTest::keyClick(&panel, Qt::Key_M);
    QCOMPARE(slider.value(), 0);
    QTest::keyClick(&panel, Qt::Key_M);
    QCOMPARE(slider.value(), 35);
}

void tst_MainWindowKeys::anotherWindowRemembersTheSameVolume()
{
    const auto setAndPressM = [](int volume) {
        SoundWindow fixture;
        auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
        panel.setFocus();
        fixture.find<QSlider>(u"volumeSlider"_s).setValue(volume);
        QTest::keyClick(&panel, Qt::Key_M);
        return fixture.find<QSlider>(u"volumeSlider"_s).value();
    };
    QCOMPARE(setAndPressM(60), 0);
    QCOMPARE(setAndPressM(0), 60);
}

void tst_MainWindowKeys::keysAreForOthersElsewhere()
{
    SoundWindow fixture;
    fixture.play(1);
    auto &volume = fixture.find<QSlider>(u"volumeSlider"_s);
    volume.setValue(50);
    const QSignalSpy paused(&fixture.player(), &VlcPlayer::pausedChanged);
    QList<QWidget *> others{fixture.find<QTabWidget>(u"tabs"_s).tabBar()};
    for (const QString &name : {u"liveCategoryList"_s, u"liveTable"_s, u"moviePosterList"_s,
                                u"episodeTree"_s, u"liveAllSearch"_s, u"sourceCombo"_s}) {
        others << &fixture.find<QWidget>(name);
    }
    const qint64 before = fixture.player().timeMs();
    for (QWidget *other : std::as_const(others)) {
        // Bring up the pages that it is on.
        for (QWidget *page = other; page != nullptr; page = page->parentWidget()) {
            if (auto *stack = qobject_cast<QStackedWidget *>(page->parentWidget())) {
                stack->setCurrentWidget(page);
            }
        }
        other->setFocus();
        QVERIFY2(other->hasFocus(), qPrintable(other->objectName()));
        // Space last: it opens the box of sources.
        for (const Qt::Key key : {Qt::Key_F, Qt::Key_M, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down,
                                  Qt::Key_Right, Qt::Key_Space}) {
            pressKey(fixture, key);
        }
        QVERIFY2(!fixture.window().isFullScreen(), qPrintable(other->objectName()));
        QCOMPARE(volume.value(), 50);
        QCOMPARE(paused.count(), 0);
    }
    QVERIFY(fixture.playsOnFrom(before));
}

void tst_MainWindowKeys::keysActOnThePanelsChildren_data()
{
    QTest::addColumn<QString>("focused");
    for (const QString &name :
         {u"accentButton"_s, u"audioButton"_s, u"seekSlider"_s, u"volumeSlider"_s}) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_MainWindowKeys::keysActOnThePanelsChildren()
{
    QFETCH(QString, focused);
    SoundWindow fixture;
    fixture.play(1);
    auto &volume = fixture.find<QSlider>(u"volumeSlider"_s);
    volume.setValue(50);
    auto &widget = fixture.find<QWidget>(focused);
    widget.setFocus();
    QVERIFY(widget.hasFocus());
    pressKey(fixture, Qt::Key_Up);
    QCOMPARE(volume.value(), 55);
    pressKey(fixture, Qt::Key_Down);
    QCOMPARE(volume.value(), 50);
    pressKey(fixture, Qt::Key_M);
    QCOMPARE(volume.value(), 0);
    pressKey(fixture, Qt::Key_M);
    QCOMPARE(volume.value(), 50);
    pressKey(fixture, Qt::Key_Right);
    QTRY_VERIFY(fixture.player().timeMs() > 8000);
    // A button would be pressed by it, and a menu open.
    const QSignalSpy paused(&fixture.player(), &VlcPlayer::pausedChanged);
    pressKey(fixture, Qt::Key_Space);
    QCOMPARE(paused.count(), 1);
    pressKey(fixture, Qt::Key_F);
    QVERIFY(fixture.window().isFullScreen());
}

void tst_MainWindowKeys::leftAndRightSeekInAMovie()
{
    for (const qint32 kind : {1, 3}) {
        SoundWindow fixture;
        fixture.play(kind);
        auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
        fixture.player().seek(5000);
        QTRY_VERIFY(fixture.player().timeMs() > 4000);
        QTest::keyClick(&panel, Qt::Key_Left);
        QTRY_VERIFY(fixture.player().timeMs() < 3000);
        QTest::keyClick(&panel, Qt::Key_Right);
        QTRY_VERIFY(fixture.player().timeMs() > 8000);
    }
}

void tst_MainWindowKeys::leftAndRightDoNothingOnALiveChannel()
{
    SoundWindow fixture;
    fixture.play(0);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    const qint64 before = fixture.player().timeMs();
    QTest::keyClick(&panel, Qt::Key_Right);
    // It plays on from where it was.
    QTRY_VERIFY(fixture.player().timeMs() >= before + 500);
    QVERIFY(fixture.player().timeMs() < before + 5000);
    QVERIFY(fixture.find<QWidget>(u"seekRow"_s).isHidden());
}

void tst_MainWindowKeys::spaceAndTheButtonPause()
{
    SoundWindow fixture;
    fixture.play(1);
    auto &button = fixture.find<QPushButton>(u"accentButton"_s);
    const auto keyOrButton = [&fixture, &button](bool key) {
        if (key) {
            pressKey(fixture, Qt::Key_Space);
        } else {
            button.click();
        }
    };
    for (const auto &[keyPauses, keyResumes] :
         {std::pair(true, false), std::pair(false, true), std::pair(true, true)}) {
        keyOrButton(keyPauses);
        QTRY_COMPARE(button.text(), u"Play"_s);
        QTRY_VERIFY(!fixture.player().isPlaying());
        keyOrButton(keyResumes);
        QTRY_COMPARE(button.text(), u"Pause"_s);
        QTRY_VERIFY(fixture.player().isPlaying());
    }
}

void tst_MainWindowKeys::aHeldKeySwitchesOnce()
{
    SoundWindow fixture;
    fixture.play(1);
    MainWindow &window = fixture.window();
    auto &volume = fixture.find<QSlider>(u"volumeSlider"_s);
    const QSignalSpy paused(&fixture.player(), &VlcPlayer::pausedChanged);
    holdKey(Qt::Key_Space);
    QCOMPARE(paused.count(), 1);

    const QSignalSpy volumes(&volume, &QSlider::valueChanged);
    holdKey(Qt::Key_M);
    QCOMPARE(volumes.count(), 1);
    QCOMPARE(volume.value(), 0);

    // Four switches would end where they began, so each is counted.
    const QSignalSpy states(window.windowHandle(), &QWindow::windowStateChanged);
    holdKey(Qt::Key_F);
    QCOMPARE(states.count(), 1);
    QVERIFY(window.isFullScreen());
    QVERIFY(QTest::qWaitForWindowActive(&window));
    // The repeats of an Escape that was for something else, as a dialog.
    QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Escape, Qt::NoModifier, {},
                         true);
    QVERIFY(window.isFullScreen());
    holdKey(Qt::Key_Escape);
    QVERIFY(!window.isFullScreen());
}

void tst_MainWindowKeys::aHeldKeyTurnsTheVolumeOn()
{
    SoundWindow fixture;
    auto &volume = fixture.find<QSlider>(u"volumeSlider"_s);
    fixture.find<QWidget>(u"playerPanel"_s).setFocus();
    volume.setValue(50);
    holdKey(Qt::Key_Up);
    QCOMPARE(volume.value(), 70);
    holdKey(Qt::Key_Down);
    QCOMPARE(volume.value(), 50);
}

void tst_MainWindowKeys::aHeldKeySeeksOn()
{
    SoundWindow fixture;
    const auto shortcuts = fixture.find<QWidget>(u"playerPanel"_s).findChildren<QShortcut *>();
    QList<QKeySequence> repeating;
    for (const QShortcut *shortcut : shortcuts) {
        if (shortcut->autoRepeat()) {
            repeating << shortcut->key();
        }
    }
    QCOMPARE(repeating,
             (QList<QKeySequence>{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}));
}

VANTIRO_TEST_MAIN(tst_MainWindowKeys)
#include "tst_MainWindowKeys.moc"
