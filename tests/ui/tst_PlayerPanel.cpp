#include "PanelFixture.h"
#include "support/TestMain.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString controls = u"mutedLabel controlsRow"_s;
const QString allRows = u"mutedLabel seekRow controlsRow"_s;

/// The texts of a layout's widgets in order; the object name of those without a text.
QStringList widgetsOf(const QWidget &row)
{
    QStringList result;
    for (int index = 0; index < row.layout()->count(); ++index) {
        const QWidget *widget = row.layout()->itemAt(index)->widget();
        const QString text = widget->property("text").toString();
        result << (text.isEmpty() ? widget->objectName() : text);
    }
    return result;
}

} // namespace

/// The rows of the panel: what they are, when they show, and what they say.
class tst_PlayerPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isBuiltInOrder();
    void rowsOfEachKind_data();
    void rowsOfEachKind();
    void theLabelFollowsTheSession();
    void theRowsOfAFailedFilmLeaveTheFocusToThePanel_data();
    void theRowsOfAFailedFilmLeaveTheFocusToThePanel();
    void hiddenRowsStayHidden();
    void theNextEpisodeButton();
    void positionsMoveTheSlider();
    void positionsThatSayNothingAreIgnored_data();
    void positionsThatSayNothingAreIgnored();
    void aHeldSliderStays();
    void aHoldThatEndsWithoutAReleaseSeeksNowhere_data();
    void aHoldThatEndsWithoutAReleaseSeeksNowhere();
    void theSliderSeeksOnRelease();
    void aClickWithoutALengthSeeksNowhere();
    void theButtonsSeek();
    void theButtonPauses();
    void everyStartSetsThePanelsVolume();
};

void tst_PlayerPanel::isBuiltInOrder()
{
    PanelFixture fixture;
    QCOMPARE(fixture.panel.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(fixture.panel.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(widgetsOf(fixture.panel), (QStringList{u"videoSurface"_s, u"Nothing playing"_s,
                                                    u"seekRow"_s, u"controlsRow"_s}));
    QCOMPARE(qobject_cast<QVBoxLayout *>(fixture.panel.layout())->stretch(0), 1);
    const QWidget &surface = *fixture.panel.surface();
    QCOMPARE(surface.minimumSize(), QSize(480, 270));
    QCOMPARE(surface.styleSheet(), u"background-color: black;"_s);
    QVERIFY(surface.hasMouseTracking() && fixture.panel.hasMouseTracking());
    const QPoint middle = surface.mapTo(&fixture.window, surface.rect().center());
    QCOMPARE(fixture.window.grab().toImage().pixelColor(middle), QColor(Qt::black));

    const auto &seekRow = fixture.find<QWidget>(u"seekRow"_s);
    QCOMPARE(widgetsOf(seekRow),
             (QStringList{u"<< 10s"_s, u"seekSlider"_s, u"10s >>"_s, u"00:00 / 00:00"_s}));
    QCOMPARE(qobject_cast<QHBoxLayout *>(seekRow.layout())->stretch(1), 1);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).maximum(), 0);
    const auto &row = fixture.find<QWidget>(u"controlsRow"_s);
    QCOMPARE(widgetsOf(row),
             (QStringList{u"Pause"_s, u"Next Episode"_s, u"Fullscreen"_s, u"Info"_s, u"Audio"_s,
                          u"Subtitles"_s, u"Vol:"_s, u"volumeSlider"_s}));
    QCOMPARE(seekRow.layout()->contentsMargins(), QMargins());
    QCOMPARE(row.layout()->contentsMargins(), QMargins());
    const auto &volume = fixture.find<QSlider>(u"volumeSlider"_s);
    QCOMPARE(volume.orientation(), Qt::Horizontal);
    QCOMPARE(volume.minimum(), 0);
    QCOMPARE(volume.maximum(), 100);
    QCOMPARE(volume.value(), 100);
    QCOMPARE(volume.maximumWidth(), 80);

    QCOMPARE(fixture.shownRows(), QStringList());
    QVERIFY(surface.isVisible());
}

void tst_PlayerPanel::rowsOfEachKind_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("live") << StreamKind::Live << controls;
    QTest::newRow("movie") << StreamKind::Movie << allRows;
    QTest::newRow("episode") << StreamKind::Episode << allRows;
}

void tst_PlayerPanel::rowsOfEachKind()
{
    QFETCH(qint32, kind);
    QFETCH(QString, expected);
    PanelFixture fixture;
    fixture.play(kind);
    QCOMPARE(fixture.shownRows().join(u' '), expected);
    // From any kind to any other.
    fixture.play(StreamKind::Live);
    QCOMPARE(fixture.shownRows().join(u' '), controls);
    fixture.play(kind);
    QCOMPARE(fixture.shownRows().join(u' '), expected);
    fixture.session.stop();
    QCOMPARE(fixture.shownRows(), QStringList());
}

void tst_PlayerPanel::theLabelFollowsTheSession()
{
    PanelFixture fixture;
    const auto &label = fixture.find<QLabel>(u"mutedLabel"_s);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    const QString title = u"<b>One</b> %1 & two"_s;
    fixture.play(StreamKind::Live, title);
    QCOMPARE(label.text(), u"Playing: "_s + title);
    for (const QString &attempt : {u"1"_s, u"2"_s}) {
        fixture.interrupt();
        QCOMPARE(label.text(), u"Reconnecting to "_s + title + u"... (attempt "_s + attempt + u')');
        QCOMPARE(fixture.shownRows().join(u' '), controls);
        fixture.session.replay();
        QCOMPARE(label.text(), u"Playing: "_s + title);
    }
    fixture.session.stop();
    QCOMPARE(label.text(), u"Nothing playing"_s);
}

void tst_PlayerPanel::theRowsOfAFailedFilmLeaveTheFocusToThePanel_data()
{
    QTest::addColumn<QString>("focused");
    QTest::addColumn<bool>("active");
    QTest::newRow("a button of the controls") << u"Pause"_s << true;
    QTest::newRow("a button beside the slider") << u"<< 10s"_s << true;
    QTest::newRow("while a box has the keyboard") << u"Pause"_s << false;
}

void tst_PlayerPanel::theRowsOfAFailedFilmLeaveTheFocusToThePanel()
{
    QFETCH(QString, focused);
    QFETCH(bool, active);
    PanelFixture fixture;
    fixture.play(StreamKind::Movie);
    fixture.button(focused).setFocus();
    QVERIFY(fixture.button(focused).hasFocus());
    QDialog box(&fixture.window);
    if (!active) {
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
    }
    fixture.interrupt();
    QCOMPARE(fixture.shownRows(), QStringList());
    QCOMPARE(fixture.window.focusWidget(), &fixture.panel);
    // A replay shows them again.
    fixture.session.replay();
    QCOMPARE(fixture.shownRows().join(u' '), allRows);
}

void tst_PlayerPanel::hiddenRowsStayHidden()
{
    PanelFixture fixture;
    const QSignalSpy updated(&fixture.panel, &PlayerPanel::rowsUpdated);
    fixture.panel.setRowsHidden(true);
    fixture.play(StreamKind::Movie);
    QCOMPARE(fixture.shownRows(), QStringList());
    QCOMPARE(updated.last().at(0).toBool(), false);
    fixture.panel.setRowsHidden(false);
    QCOMPARE(fixture.shownRows().join(u' '), allRows);
    QCOMPARE(updated.last().at(0).toBool(), true);
}

void tst_PlayerPanel::theNextEpisodeButton()
{
    PanelFixture fixture;
    auto &button = fixture.find<QPushButton>(u"nextEpisodeButton"_s);
    const QSignalSpy requested(&fixture.panel, &PlayerPanel::nextEpisodeRequested);
    fixture.play(StreamKind::Episode);
    QVERIFY(!button.isVisible());
    fixture.panel.showNextEpisodeButton(true, false);
    QVERIFY(button.isVisible() && !button.isEnabled());
    fixture.panel.showNextEpisodeButton(true, true);
    button.click();
    QCOMPARE(requested.count(), 1);
}

void tst_PlayerPanel::positionsMoveTheSlider()
{
    PanelFixture fixture;
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    const auto &label = fixture.find<QLabel>(u"timeLabel"_s);
    fixture.play(StreamKind::Episode);
    const QSignalSpy changed(&slider, &QSlider::valueChanged);
    Q_EMIT fixture.player.positionChanged(61000, 3600000);
    QCOMPARE(slider.minimum(), 0);
    QCOMPARE(slider.maximum(), 3600000);
    QCOMPARE(slider.value(), 61000);
    QCOMPARE(label.text(), u"01:01 / 1:00:00"_s);
    // The player moved it, not the user.
    QCOMPARE(changed.count(), 0);

    Q_EMIT fixture.player.positionChanged(1000, std::numeric_limits<qint64>::max());
    QCOMPARE(slider.maximum(), std::numeric_limits<int>::max());

    // Another entry starts at zero.
    fixture.play(StreamKind::Movie);
    QCOMPARE(label.text(), u"00:00 / 00:00"_s);
    QCOMPARE(slider.maximum(), 0);
    QCOMPARE(slider.value(), 0);
}

void tst_PlayerPanel::positionsThatSayNothingAreIgnored_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a live channel") << StreamKind::Live << qint64(60000) << u"00:00 / 00:00"_s;
    QTest::newRow("an unknown length") << StreamKind::Movie << qint64(0) << u"00:00 / 00:00"_s;
    QTest::newRow("a negative length") << StreamKind::Movie << qint64(-1) << u"00:00 / 00:00"_s;
    QTest::newRow("the shortest length") << StreamKind::Movie << qint64(1) << u"00:05 / 00:00"_s;
}

void tst_PlayerPanel::positionsThatSayNothingAreIgnored()
{
    QFETCH(qint32, kind);
    QFETCH(qint64, total);
    QFETCH(QString, expected);
    PanelFixture fixture;
    fixture.play(kind);
    Q_EMIT fixture.player.positionChanged(5000, total);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), expected);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).maximum(),
             expected.startsWith(u"00:05") ? 1 : 0);
}

void tst_PlayerPanel::aHeldSliderStays()
{
    PanelFixture fixture;
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    fixture.play(StreamKind::Movie);
    Q_EMIT fixture.player.positionChanged(1000, 60000);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.rect().center());
    const int held = slider.value();
    QVERIFY(held > 1000);
    Q_EMIT fixture.player.positionChanged(2000, 90000);
    QCOMPARE(slider.value(), held);
    QCOMPARE(slider.maximum(), 60000);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"00:02 / 01:30"_s);

    QTest::mouseRelease(&slider, Qt::LeftButton, {}, slider.rect().center());
    Q_EMIT fixture.player.positionChanged(3000, 90000);
    QCOMPARE(slider.value(), 3000);
    QCOMPARE(slider.maximum(), 90000);
}

void tst_PlayerPanel::aHoldThatEndsWithoutAReleaseSeeksNowhere_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("another film starts") << u"start"_s;
    QTest::newRow("a channel starts") << u"channel"_s;
    QTest::newRow("the same film starts again") << u"replay"_s;
    QTest::newRow("the film is interrupted") << u"interruption"_s;
    QTest::newRow("it is ended from outside") << u"call"_s;
    QTest::newRow("the row is hidden") << u"hide"_s;
}

void tst_PlayerPanel::aHoldThatEndsWithoutAReleaseSeeksNowhere()
{
    QFETCH(QString, end);
    PanelFixture fixture;
    fixture.playSound();
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    QTRY_VERIFY(slider.maximum() > 9000);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    const QPoint place(slider.width() * 3 / 4, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, place);
    QVERIFY(slider.isSliderDown());
    if (end == "start"_L1) {
        fixture.playSound();
    } else if (end == "channel"_L1) {
        fixture.playSound(StreamKind::Live);
    } else if (end == "replay"_L1) {
        fixture.session.replay();
        QTRY_VERIFY(fixture.player.timeMs() > 0);
    } else if (end == "interruption"_L1) {
        fixture.interrupt();
    } else if (end == "call"_L1) {
        fixture.panel.endSeekHold();
    } else {
        fixture.panel.setRowsHidden(true);
    }
    QVERIFY(!slider.isSliderDown());
    const qint64 before = fixture.player.timeMs();
    // A release that comes after all does nothing.
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, place);
    QCOMPARE(released.count(), 0);
    QVERIFY(fixture.playsOnFrom(before));

    // The slider follows the next film, and can be held again.
    fixture.panel.setRowsHidden(false);
    fixture.playSound();
    QTRY_VERIFY(slider.maximum() > 9000 && slider.value() > 0 && slider.value() < 5000);
}

void tst_PlayerPanel::theSliderSeeksOnRelease()
{
    PanelFixture fixture;
    fixture.playSound();
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    QTRY_VERIFY(slider.maximum() > 9000);
    const QPoint place(slider.width() * 3 / 4, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, place);
    const int wanted = slider.value();
    QVERIFY(wanted > 6000);
    QVERIFY(fixture.player.timeMs() < 5000);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, place);
    QTRY_VERIFY(fixture.player.timeMs() > wanted - 1000);
    QTRY_VERIFY(slider.value() > wanted - 1000);
}

void tst_PlayerPanel::aClickWithoutALengthSeeksNowhere()
{
    PanelFixture fixture;
    fixture.playSound();
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    fixture.player.seek(4000);
    QTRY_VERIFY(fixture.player.timeMs() > 3000);
    const qint64 before = fixture.player.timeMs();
    // As before the first report of a length.
    slider.setRange(0, 0);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, slider.rect().center());
    QVERIFY(fixture.playsOnFrom(before));
    QTRY_VERIFY(slider.value() > 4000);
}

void tst_PlayerPanel::theButtonsSeek()
{
    PanelFixture fixture;
    fixture.playSound();
    fixture.player.seek(5000);
    QTRY_VERIFY(fixture.player.timeMs() > 4000);
    fixture.button(u"<< 10s"_s).click();
    QTRY_VERIFY(fixture.player.timeMs() < 3000);
    fixture.button(u"10s >>"_s).click();
    QTRY_VERIFY(fixture.player.timeMs() > 8000);
}

void tst_PlayerPanel::theButtonPauses()
{
    PanelFixture fixture;
    auto &button = fixture.find<QPushButton>(u"accentButton"_s);
    fixture.playSound();
    for (const bool plays : {false, true, false}) {
        button.click();
        QTRY_COMPARE(button.text(), plays ? u"Pause"_s : u"Play"_s);
        QTRY_COMPARE(fixture.player.isPlaying(), plays);
    }
    // A new stream plays.
    fixture.play(StreamKind::Live);
    QTRY_COMPARE(button.text(), u"Pause"_s);
}

void tst_PlayerPanel::everyStartSetsThePanelsVolume()
{
#ifdef Q_OS_WIN
    QSKIP("libVLC reports no volume under Wine");
#endif
    PanelFixture fixture;
    auto &slider = fixture.find<QSlider>(u"volumeSlider"_s);
    // The slider has not been moved, and stands at 100.
    fixture.player.setVolume(30);
    fixture.playSound();
    QTRY_COMPARE(fixture.player.volume(), 100);
    slider.setValue(70);
    QTRY_COMPARE(fixture.player.volume(), 70);
    fixture.player.setVolume(30);
    QTRY_COMPARE(fixture.player.volume(), 30);
    fixture.session.replay();
    QTRY_COMPARE(fixture.player.volume(), 70);
}

VANTIRO_TEST_MAIN(tst_PlayerPanel)
#include "tst_PlayerPanel.moc"
