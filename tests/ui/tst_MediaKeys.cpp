// What the media keys do with what plays, and what the desktop is told of its length.

#include "PanelFixture.h"
#include "desktop/MediaControls.h"
#include "ui/DesktopControls.h"

#include <QSignalSpy>

class tst_MediaKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rewind_data();
    void rewind();
    void aLengthStaysKnown();
    void whatIsOverPlaysAgain();
};

namespace {

/// The desktop's controls for a panel.
struct Desktop
{
    PanelFixture fixture;
    DesktopControls controls{&fixture.player, &fixture.session, &fixture.panel, &fixture.window};
    MediaControls &told = *controls.findChild<MediaControls *>();
};

/// QTest's own keyClick() knows no media keys.
void press(Qt::Key key)
{
    for (const bool isDown : {true, false}) {
        QTest::simulateEvent(QApplication::focusWidget(), isDown, key, Qt::NoModifier, {}, false);
    }
}

} // namespace

void tst_MediaKeys::rewind_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<bool>("seeks");
    QTest::newRow("a film") << StreamKind::Movie << true;
    QTest::newRow("a channel") << StreamKind::Live << false;
}

void tst_MediaKeys::rewind()
{
    QFETCH(const qint32, kind);
    QFETCH(const bool, seeks);
    Desktop desktop;
    desktop.fixture.playSoundFromItsMiddle(kind);
    QTRY_COMPARE(desktop.told.status().canSeek, seeks);
    const qint64 before = desktop.fixture.player.timeMs();
    press(Qt::Key_AudioRewind);
    if (seeks) {
        QTRY_VERIFY(desktop.fixture.player.timeMs() < 3000);
    } else {
        QVERIFY(desktop.fixture.playsOnFrom(before));
    }
}

/// libVLC may know it later than the first position.
void tst_MediaKeys::aLengthStaysKnown()
{
    Desktop desktop;
    desktop.fixture.play(StreamKind::Movie);
    const auto report = [&desktop](qint64 lengthMs) {
        Q_EMIT desktop.fixture.player.positionChanged(1000, lengthMs);
    };
    report(-1);
    QCOMPARE(desktop.told.status().lengthMs, 0);
    QVERIFY(!desktop.told.status().canSeek);
    report(60'000);
    report(0);
    QCOMPARE(desktop.told.status().lengthMs, 60'000);
    QVERIFY(desktop.told.status().canSeek);
}

void tst_MediaKeys::whatIsOverPlaysAgain()
{
    Desktop desktop;
    desktop.fixture.playSound();
    const QSignalSpy finished(&desktop.fixture.player, &VlcPlayer::finished);
    desktop.fixture.player.seek(9500);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 10000);
    QCOMPARE(desktop.told.status().playback, MediaStatus::Playback::Stopped);
    QVERIFY(!desktop.told.status().canSeek);
    press(Qt::Key_MediaPlay);
    QCOMPARE(desktop.told.status().playback, MediaStatus::Playback::Playing);
    QTRY_VERIFY_WITH_TIMEOUT(desktop.fixture.player.isPlaying(), 10000);
    QVERIFY(desktop.fixture.player.timeMs() < 5000);
}

VANTIRO_TEST_MAIN(tst_MediaKeys)
#include "tst_MediaKeys.moc"
