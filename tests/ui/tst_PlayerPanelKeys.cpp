#include "PanelFixture.h"
#include "support/TestMain.h"

#include <QShortcut>
#include <QSignalSpy>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

/// Holds a key: one press and three repeats of it.
void holdKey(Qt::Key key)
{
    for (const bool repeat : {false, true, true, true}) {
        QTest::simulateEvent(QApplication::focusWidget(), true, key, Qt::NoModifier, {}, repeat);
    }
    QTest::simulateEvent(QApplication::focusWidget(), false, key, Qt::NoModifier, {}, false);
}

QSlider &volumeOf(const PanelFixture &fixture)
{
    return fixture.find<QSlider>(u"volumeSlider"_s);
}

} // namespace

/// The keys of the panel.
class tst_PlayerPanelKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mutingWithNothingRememberedGivesFullVolume();
    void volumeKeys_data();
    void volumeKeys();
    void anotherPanelRemembersTheSameVolume();
    void keysActOnThePanelsChildren_data();
    void keysActOnThePanelsChildren();
    void leftAndRightSeekInAFilm_data();
    void leftAndRightSeekInAFilm();
    void leftAndRightDoNothingOnALiveChannel();
    void aHeldKeySwitchesOnce();
    void onlyVolumeAndPositionKeysRepeat();
};

// Before every other test that mutes: the remembered volume is one for the whole process.
void tst_PlayerPanelKeys::mutingWithNothingRememberedGivesFullVolume()
{
    PanelFixture fixture;
    volumeOf(fixture).setValue(0);
    fixture.pressKey(Qt::Key_M);
    QCOMPARE(volumeOf(fixture).value(), 100);
}

void tst_PlayerPanelKeys::volumeKeys_data()
{
    QTest::addColumn<int>("volume");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QList<int>>("expected"); ///< after each press
    QTest::newRow("louder up to the end") << 92 << Qt::Key_Up << QList<int>{97, 100, 100};
    QTest::newRow("quieter down to nothing") << 8 << Qt::Key_Down << QList<int>{3, 0, 0};
    QTest::newRow("muting twice restores") << 35 << Qt::Key_M << QList<int>{0, 35, 0};
}

void tst_PlayerPanelKeys::volumeKeys()
{
    QFETCH(int, volume);
    QFETCH(Qt::Key, key);
    QFETCH(QList<int>, expected);
    PanelFixture fixture;
    volumeOf(fixture).setValue(volume);
    for (const int value : expected) {
        fixture.pressKey(key);
        QCOMPARE(volumeOf(fixture).value(), value);
    }
}

void tst_PlayerPanelKeys::anotherPanelRemembersTheSameVolume()
{
    const auto setAndPressM = [](int volume) {
        PanelFixture fixture;
        volumeOf(fixture).setValue(volume);
        fixture.pressKey(Qt::Key_M);
        return volumeOf(fixture).value();
    };
    QCOMPARE(setAndPressM(60), 0);
    QCOMPARE(setAndPressM(0), 60);
}

void tst_PlayerPanelKeys::keysActOnThePanelsChildren_data()
{
    QTest::addColumn<QString>("focused");
    for (const QString &name : {u"playerPanel"_s, u"accentButton"_s, u"audioButton"_s,
                                u"seekSlider"_s, u"volumeSlider"_s}) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_PlayerPanelKeys::keysActOnThePanelsChildren()
{
    QFETCH(QString, focused);
    PanelFixture fixture;
    fixture.playSound();
    const QSlider &volume = volumeOf(fixture);
    auto &widget = fixture.find<QWidget>(focused);
    widget.setFocus();
    QVERIFY(widget.hasFocus());
    for (const auto &[key, expected] : {std::pair(Qt::Key_Down, 95), std::pair(Qt::Key_Up, 100),
                                        std::pair(Qt::Key_M, 0), std::pair(Qt::Key_M, 100)}) {
        fixture.pressKey(key);
        QCOMPARE(volume.value(), expected);
    }
    fixture.pressKey(Qt::Key_Right);
    QTRY_VERIFY(fixture.player.timeMs() > 8000);
    // A button would be pressed by it, and a menu open.
    const QSignalSpy paused(&fixture.player, &VlcPlayer::pausedChanged);
    fixture.pressKey(Qt::Key_Space);
    QCOMPARE(paused.count(), 1);
    const QSignalSpy toggled(&fixture.panel, &PlayerPanel::fullscreenToggled);
    fixture.pressKey(Qt::Key_F);
    QCOMPARE(toggled.count(), 1);
}

void tst_PlayerPanelKeys::leftAndRightSeekInAFilm_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::newRow("film") << StreamKind::Movie;
    QTest::newRow("episode") << StreamKind::Episode;
}

void tst_PlayerPanelKeys::leftAndRightSeekInAFilm()
{
    QFETCH(qint32, kind);
    PanelFixture fixture;
    fixture.playSound(kind);
    fixture.player.seek(5000);
    QTRY_VERIFY(fixture.player.timeMs() > 4000);
    fixture.pressKey(Qt::Key_Left);
    QTRY_VERIFY(fixture.player.timeMs() < 3000);
    fixture.pressKey(Qt::Key_Right);
    QTRY_VERIFY(fixture.player.timeMs() > 8000);
}

void tst_PlayerPanelKeys::leftAndRightDoNothingOnALiveChannel()
{
    PanelFixture fixture;
    fixture.playSound(StreamKind::Live);
    const qint64 before = fixture.player.timeMs();
    fixture.pressKey(Qt::Key_Right);
    QVERIFY(fixture.playsOnFrom(before));
}

void tst_PlayerPanelKeys::aHeldKeySwitchesOnce()
{
    PanelFixture fixture;
    fixture.playSound();
    const QSignalSpy paused(&fixture.player, &VlcPlayer::pausedChanged);
    const QSignalSpy volumes(&volumeOf(fixture), &QSlider::valueChanged);
    const QSignalSpy toggled(&fixture.panel, &PlayerPanel::fullscreenToggled);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_M, Qt::Key_F}) {
        holdKey(key);
    }
    QCOMPARE(paused.count(), 1);
    QCOMPARE(volumes.count(), 1);
    QCOMPARE(toggled.count(), 1);
    holdKey(Qt::Key_Up);
    QCOMPARE(volumeOf(fixture).value(), 20);
}

void tst_PlayerPanelKeys::onlyVolumeAndPositionKeysRepeat()
{
    PanelFixture fixture;
    QList<QKeySequence> repeating;
    for (const QShortcut *shortcut : fixture.panel.findChildren<QShortcut *>()) {
        if (shortcut->autoRepeat()) {
            repeating << shortcut->key();
        }
    }
    QCOMPARE(repeating,
             (QList<QKeySequence>{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}));
}

VANTIRO_TEST_MAIN(tst_PlayerPanelKeys)
#include "tst_PlayerPanelKeys.moc"
