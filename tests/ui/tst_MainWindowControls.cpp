#include "SoundWindow.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/PlaybackSession.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

/// The texts of a layout's widgets, from left to right; the object name of those without a text.
QStringList widgetsOf(const QWidget &row)
{
    QStringList result;
    for (int index = 0; index < row.layout()->count(); ++index) {
        QWidget *widget = row.layout()->itemAt(index)->widget();
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        const auto *label = qobject_cast<QLabel *>(widget);
        result << (button != nullptr  ? button->text()
                   : label != nullptr ? label->text()
                                      : widget->objectName());
    }
    return result;
}

QStringList actionsOf(const QMenu &menu)
{
    QStringList result;
    for (const QAction *action : menu.actions()) {
        result << (action->isSeparator() ? u"--"_s
                   : action->isChecked() ? action->text() + u'*'
                                         : action->text());
    }
    return result;
}

} // namespace

/// The panel's controls, with sound but no picture.
class tst_MainWindowControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panelIsBuiltInOrder();
    void volumeSlider();
    void aStreamStartsAtThePanelsVolume();
    void everyStartSetsThePanelsVolume();
    void onlyAChannelHasNoEndOfItsOwn();
    void theButtonsSeek();
    void theSliderSeeksOnRelease();
    void aClickWithoutALengthSeeksNowhere();
    void aHoldThatEndsWithoutAReleaseSeeksNowhere_data();
    void aHoldThatEndsWithoutAReleaseSeeksNowhere();
    void audioMenuWithoutTracks();
    void subtitleMenuWithoutTracks();
    void audioMenuMarksTheCurrentTrack();
    void subtitleFileIsAskedFor();
    void streamInfo();
};

void tst_MainWindowControls::panelIsBuiltInOrder()
{
    SoundWindow fixture;
    const auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    QCOMPARE(panel.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(widgetsOf(panel), (QStringList{u"videoSurface"_s, u"Nothing playing"_s, u"seekRow"_s,
                                            u"controlsRow"_s}));
    QCOMPARE(qobject_cast<QVBoxLayout *>(panel.layout())->stretch(0), 1);
    const auto &surface = fixture.find<QWidget>(u"videoSurface"_s);
    QCOMPARE(surface.minimumSize(), QSize(480, 270));
    QCOMPARE(surface.styleSheet(), u"background-color: black;"_s);
    QVERIFY(surface.hasMouseTracking() && panel.hasMouseTracking());
    QCOMPARE(fixture.window().grab().toImage().pixelColor(
                 surface.mapTo(&fixture.window(), surface.rect().center())),
             QColor(Qt::black));

    const auto &seekRow = fixture.find<QWidget>(u"seekRow"_s);
    QCOMPARE(widgetsOf(seekRow),
             (QStringList{u"<< 10s"_s, u"seekSlider"_s, u"10s >>"_s, u"00:00 / 00:00"_s}));
    QCOMPARE(qobject_cast<QHBoxLayout *>(seekRow.layout())->stretch(1), 1);
    QCOMPARE(seekRow.layout()->contentsMargins(), QMargins());
    const auto &controls = fixture.find<QWidget>(u"controlsRow"_s);
    QCOMPARE(widgetsOf(controls),
             (QStringList{u"Pause"_s, u"Next Episode"_s, u"Fullscreen"_s, u"Info"_s, u"Audio"_s,
                          u"Subtitles"_s, u"Vol:"_s, u"volumeSlider"_s}));
    QCOMPARE(controls.layout()->contentsMargins(), QMargins());
}

void tst_MainWindowControls::volumeSlider()
{
    SoundWindow fixture;
    const auto &slider = fixture.find<QSlider>(u"volumeSlider"_s);
    QCOMPARE(slider.minimum(), 0);
    QCOMPARE(slider.maximum(), 100);
    QCOMPARE(slider.value(), 100);
    QCOMPARE(slider.maximumWidth(), 80);
    QCOMPARE(slider.orientation(), Qt::Horizontal);
}

void tst_MainWindowControls::aStreamStartsAtThePanelsVolume()
{
#ifdef Q_OS_WIN
    QSKIP("libVLC tells no volume under Wine");
#endif
    SoundWindow fixture;
    fixture.find<QSlider>(u"volumeSlider"_s).setValue(40);
    fixture.play(1);
    QTRY_COMPARE(fixture.player().volume(), 40);
    fixture.find<QSlider>(u"volumeSlider"_s).setValue(70);
    QTRY_COMPARE(fixture.player().volume(), 70);
}

void tst_MainWindowControls::everyStartSetsThePanelsVolume()
{
#ifdef Q_OS_WIN
    QSKIP("libVLC tells no volume under Wine");
#endif
    SoundWindow fixture;
    VlcPlayer &player = fixture.player();
    // The slider has not been moved, and stands at 100.
    player.setVolume(30);
    fixture.play(1);
    QTRY_COMPARE(player.volume(), 100);
    player.setVolume(30);
    QTRY_COMPARE(player.volume(), 30);
    fixture.window().findChild<PlaybackSession *>()->replay();
    QTRY_COMPARE(player.volume(), 100);
}

void tst_MainWindowControls::onlyAChannelHasNoEndOfItsOwn()
{
    for (const qint32 kind : {0, 1}) {
        SoundWindow fixture;
        fixture.play(kind);
        const QSignalSpy interrupted(&fixture.player(), &VlcPlayer::playbackInterrupted);
        fixture.player().seek(9500);
        if (kind == 0) {
            QTRY_COMPARE(fixture.find<QLabel>(u"mutedLabel"_s).text(),
                         u"Reconnecting to Sound... (attempt 1)"_s);
        } else {
            QTRY_VERIFY(!fixture.player().isPlaying());
            QCoreApplication::processEvents();
            QCOMPARE(interrupted.count(), 0);
        }
        QVERIFY(fixture.dialogs.seen().isEmpty());
    }
}

void tst_MainWindowControls::theButtonsSeek()
{
    SoundWindow fixture;
    fixture.play(1);
    fixture.player().seek(5000);
    QTRY_VERIFY(fixture.player().timeMs() > 4000);
    fixture.button(u"<< 10s"_s).click();
    QTRY_VERIFY(fixture.player().timeMs() < 3000);
    fixture.button(u"10s >>"_s).click();
    QTRY_VERIFY(fixture.player().timeMs() > 8000);
}

void tst_MainWindowControls::theSliderSeeksOnRelease()
{
    SoundWindow fixture;
    fixture.play(1);
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    QTRY_VERIFY(slider.maximum() > 9000);
    const QPoint place(slider.width() * 3 / 4, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, place);
    const int wanted = slider.value();
    QVERIFY(wanted > 6000);
    QVERIFY(fixture.player().timeMs() < 5000);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, place);
    QTRY_VERIFY(fixture.player().timeMs() > wanted - 1000);
    QTRY_VERIFY(slider.value() > wanted - 1000);
}

void tst_MainWindowControls::aClickWithoutALengthSeeksNowhere()
{
    SoundWindow fixture;
    fixture.play(1);
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    fixture.player().seek(4000);
    QTRY_VERIFY(fixture.player().timeMs() > 3000);
    const qint64 before = fixture.player().timeMs();
    // As before the first report of a length.
    slider.setRange(0, 0);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, slider.rect().center());
    QVERIFY(fixture.playsOnFrom(before));
    // Reports move it again.
    QTRY_VERIFY(slider.value() > 4000);
}

void tst_MainWindowControls::aHoldThatEndsWithoutAReleaseSeeksNowhere_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("another film starts") << u"start"_s;
    QTest::newRow("a channel starts") << u"channel"_s;
    QTest::newRow("the same film starts again") << u"replay"_s;
    QTest::newRow("the film is interrupted") << u"interruption"_s;
    QTest::newRow("a box opens") << u"box"_s;
    QTest::newRow("fullscreen hides the row") << u"fullscreen"_s;
}

void tst_MainWindowControls::aHoldThatEndsWithoutAReleaseSeeksNowhere()
{
    QFETCH(QString, end);
    SoundWindow fixture;
    fixture.play(1);
    MainWindow &window = fixture.window();
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    QTRY_VERIFY(slider.maximum() > 9000);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    const QPoint place(slider.width() * 3 / 4, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, place);
    QVERIFY(slider.isSliderDown());
    if (end == "start"_L1) {
        fixture.play(1);
    } else if (end == "channel"_L1) {
        fixture.play(0);
    } else if (end == "replay"_L1) {
        window.findChild<PlaybackSession *>()->replay();
        QTRY_VERIFY(fixture.player().timeMs() > 0);
    } else if (end == "interruption"_L1) {
        Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    } else if (end == "box"_L1) {
        Q_EMIT fixture.player().playbackError(u"no"_s);
    } else {
        window.toggleFullscreen();
    }
    QVERIFY(!slider.isSliderDown());
    const qint64 before = fixture.player().timeMs();
    // One that comes after all is none.
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, place);
    QCOMPARE(released.count(), 0);
    QVERIFY(fixture.playsOnFrom(before));

    // The next film's slider follows it, and can be held again.
    fixture.play(1);
    QTRY_VERIFY(slider.maximum() > 9000 && slider.value() > 0 && slider.value() < 5000);
}

void tst_MainWindowControls::audioMenuWithoutTracks()
{
    SoundWindow fixture;
    QStringList actions;
    bool enabled = true;
    fixture.dialogs.nextMenu([&](QMenu &menu) {
        actions = actionsOf(menu);
        enabled = menu.actions().at(0)->isEnabled();
    });
    fixture.find<QPushButton>(u"audioButton"_s).click();
    QCOMPARE(actions, QStringList{u"No audio tracks"_s});
    QVERIFY(!enabled);
}

void tst_MainWindowControls::subtitleMenuWithoutTracks()
{
    SoundWindow fixture;
    MainWindow &window = fixture.window();
    window.playMediaItem(entry(1, u"Sound"_s));
    auto &button = fixture.find<QPushButton>(u"subtitlesButton"_s);
    // To a place where the whole menu fits on the screen.
    window.move(window.pos() + QPoint(100, 400) - button.mapToGlobal(QPoint(0, 0)));
    QTRY_VERIFY(button.mapToGlobal(QPoint(0, 0)).x() < 200);
    QStringList actions;
    QRect place;
    fixture.dialogs.nextMenu([&](QMenu &menu) {
        actions = actionsOf(menu);
        place = menu.geometry();
    });
    button.click();
    QCOMPARE(actions, (QStringList{u"Disable*"_s, u"--"_s, u"Load Subtitle File..."_s}));
    const QPoint corner = button.mapToGlobal(QPoint(0, 0));
    QCOMPARE(place.left(), corner.x());
    QCOMPARE(place.top() + place.height(), corner.y());
}

void tst_MainWindowControls::audioMenuMarksTheCurrentTrack()
{
    SoundWindow fixture;
    fixture.play(1);
    QTRY_COMPARE(fixture.player().audioTracks().size(), 1);
    QStringList actions;
    fixture.dialogs.nextMenu([&](QMenu &menu) { actions = actionsOf(menu); });
    fixture.find<QPushButton>(u"audioButton"_s).click();
    QCOMPARE(actions, QStringList{fixture.player().audioTracks().at(0).second + u'*'});
}

void tst_MainWindowControls::subtitleFileIsAskedFor()
{
    SoundWindow fixture;
    MainWindow &window = fixture.window();
    QStringList filters;
    fixture.dialogs.next([&](QDialog &dialog) {
        filters = dynamic_cast<QFileDialog &>(dialog).nameFilters();
        dialog.reject();
    });
    window.loadSubtitleFile();
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Load Subtitle File"_s);
    QCOMPARE(filters,
             (QStringList{u"Subtitles (*.srt *.ass *.ssa *.sub *.vtt)"_s, u"All Files (*)"_s}));
}

void tst_MainWindowControls::streamInfo()
{
    SoundWindow fixture;
    MainWindow &window = fixture.window();
    fixture.button(u"Info"_s).click();
    fixture.button(u"Info"_s).click();
    const QList<QDialog *> shown = window.findChildren<QDialog *>();
    QCOMPARE(shown.size(), 2);
    QDialog *dialog = shown.at(0);
    QCOMPARE(dialog->windowTitle(), u"Stream Info"_s);
    QVERIFY(!dialog->isModal());
    QCOMPARE(dialog->minimumSize(), QSize(440, 340));
    auto *text = dialog->findChild<QPlainTextEdit *>();
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->toPlainText(), fixture.player().mediaInfoText().trimmed());
    QCOMPARE(qobject_cast<QVBoxLayout *>(dialog->layout())->stretch(0), 1);

    fixture.play(1);
    QTRY_VERIFY((DialogAnswers::click(*dialog, u"Refresh"_s),
                 text->toPlainText().contains("mp"_L1, Qt::CaseInsensitive)));
    dialog->close();
    QTRY_COMPARE(window.findChildren<QDialog *>().size(), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowControls)
#include "tst_MainWindowControls.moc"
