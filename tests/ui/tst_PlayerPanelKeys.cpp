#include "PanelFixture.h"

#include <QShortcut>
#include <QSignalSpy>

#include <optional>

namespace {

/// Holds a key: one press and three repeats of it.
void holdKey(Qt::Key key)
{
    for (const bool repeat : {false, true, true, true}) {
        QTest::simulateEvent(QApplication::focusWidget(), true, key, Qt::NoModifier, {}, repeat);
    }
    QTest::simulateEvent(QApplication::focusWidget(), false, key, Qt::NoModifier, {}, false);
}

} // namespace

/// The keys of the panel.
class tst_PlayerPanelKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(); }
    void mutingWithNothingRememberedGivesFullVolume();
    void volumeKeys_data();
    void volumeKeys();
    void anotherPanelRemembersTheSameVolume();
    void keysActOnThePanelsChildren_data();
    void keysActOnThePanelsChildren();
    void leftAndRightSeekInAnEpisode();
    void leftAndRightDoNothingOnALiveChannel();
    void aHeldKeySwitchesOnce();
    void onlyVolumeAndPositionKeysRepeat();

private:
    int volumeAfter(Qt::Key key) const
    {
        fixture->pressKey(key);
        return fixture->volumeSlider.value();
    }

    std::optional<PanelFixture> fixture;
};

// Before every other test that mutes: the remembered volume is one for the whole process.
void tst_PlayerPanelKeys::mutingWithNothingRememberedGivesFullVolume()
{
    fixture->volumeSlider.setValue(0);
    QCOMPARE(volumeAfter(Qt::Key_M), 100);
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
    fixture->volumeSlider.setValue(volume);
    for (const int value : expected) {
        QCOMPARE(volumeAfter(key), value);
    }
}

void tst_PlayerPanelKeys::anotherPanelRemembersTheSameVolume()
{
    fixture->volumeSlider.setValue(60);
    QCOMPARE(volumeAfter(Qt::Key_M), 0);
    fixture.emplace();
    fixture->volumeSlider.setValue(0);
    QCOMPARE(volumeAfter(Qt::Key_M), 60);
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
    fixture->playSound();
    auto &widget = fixture->find<QWidget>(focused);
    widget.setFocus();
    QVERIFY(widget.hasFocus());
    QCOMPARE(volumeAfter(Qt::Key_Down), 95);
    QCOMPARE(volumeAfter(Qt::Key_Up), 100);
    QCOMPARE(volumeAfter(Qt::Key_M), 0);
    QCOMPARE(volumeAfter(Qt::Key_M), 100);
    fixture->pressKey(Qt::Key_Right);
    QTRY_VERIFY(fixture->player.timeMs() > 8000);
    // A button would be pressed by it, and a menu open.
    const QSignalSpy paused(&fixture->player, &VlcPlayer::pausedChanged);
    fixture->pressKey(Qt::Key_Space);
    QCOMPARE(paused.count(), 1);
    const QSignalSpy toggled(&fixture->panel, &PlayerPanel::fullscreenToggled);
    fixture->pressKey(Qt::Key_F);
    QCOMPARE(toggled.count(), 1);
}

void tst_PlayerPanelKeys::leftAndRightSeekInAnEpisode()
{
    fixture->playSoundFromItsMiddle(StreamKind::Episode);
    fixture->pressKey(Qt::Key_Left);
    QTRY_VERIFY(fixture->player.timeMs() < 3000);
    fixture->pressKey(Qt::Key_Right);
    QTRY_VERIFY(fixture->player.timeMs() > 8000);
}

void tst_PlayerPanelKeys::leftAndRightDoNothingOnALiveChannel()
{
    fixture->playSound(StreamKind::Live);
    const qint64 before = fixture->player.timeMs();
    fixture->pressKey(Qt::Key_Right);
    QVERIFY(fixture->playsOnFrom(before));
}

void tst_PlayerPanelKeys::aHeldKeySwitchesOnce()
{
    fixture->playSound();
    const QSignalSpy paused(&fixture->player, &VlcPlayer::pausedChanged);
    const QSignalSpy volumes(&fixture->volumeSlider, &QSlider::valueChanged);
    const QSignalSpy toggled(&fixture->panel, &PlayerPanel::fullscreenToggled);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_M, Qt::Key_F}) {
        holdKey(key);
    }
    QCOMPARE(paused.count(), 1);
    QCOMPARE(volumes.count(), 1);
    QCOMPARE(toggled.count(), 1);
    holdKey(Qt::Key_Up);
    QCOMPARE(fixture->volumeSlider.value(), 20);
}

void tst_PlayerPanelKeys::onlyVolumeAndPositionKeysRepeat()
{
    QList<QKeySequence> repeating;
    for (const QShortcut *shortcut : fixture->panel.findChildren<QShortcut *>()) {
        if (shortcut->autoRepeat()) {
            repeating << shortcut->key();
        }
    }
    QCOMPARE(repeating,
             (QList<QKeySequence>{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}));
}

VANTIRO_TEST_MAIN(tst_PlayerPanelKeys)
#include "tst_PlayerPanelKeys.moc"
