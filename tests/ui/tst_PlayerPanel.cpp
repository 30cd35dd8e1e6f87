#include "PanelFixture.h"

#include <QBoxLayout>
#include <QDialog>
#include <QSignalSpy>

#include <functional>
#include <limits>
#include <optional>

namespace {

/// The texts of a layout's widgets in order; the object name of those without a text.
QString widgetsOf(const QWidget &row)
{
    QStringList result;
    for (int index = 0; index < row.layout()->count(); ++index) {
        const QWidget *widget = row.layout()->itemAt(index)->widget();
        const QString text = widget->property("text").toString();
        result << (text.isEmpty() ? widget->objectName() : text);
    }
    return result.join(u'|');
}

} // namespace

/// The rows of the panel: what they are, when they show, and what they say.
class tst_PlayerPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(); }
    void isBuiltInOrder();
    void rowsOfEachKind();
    void theLabelFollowsTheSession();
    void theRowsOfAFailedFilmLeaveTheFocusToThePanel_data();
    void theRowsOfAFailedFilmLeaveTheFocusToThePanel();
    void hiddenRowsStayHidden();
    void theNextEpisodeButton();
    void positionsMoveTheSlider();
    void timeRunsFromLeftToRightInEveryScript();
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
    void offersToContinue();

private:
    /// A place on the slider behind its middle.
    QPoint laterPlace() const
    {
        return {fixture->seekSlider.width() * 3 / 4, fixture->seekSlider.height() / 2};
    }

    std::optional<PanelFixture> fixture;
};

void tst_PlayerPanel::isBuiltInOrder()
{
    const PlayerPanel &panel = fixture->panel;
    QCOMPARE(panel.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(panel.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(widgetsOf(panel), u"videoSurface|Nothing playing|mutedLabel|seekRow|controlsRow"_s);
    QCOMPARE(qobject_cast<QVBoxLayout *>(panel.layout())->stretch(0), 1);
    QCOMPARE(fixture->shownRows(), QString());

    const QWidget &surface = *panel.surface();
    QVERIFY(surface.isVisible());
    QCOMPARE(surface.minimumSize(), QSize(480, 270));
    QVERIFY(surface.hasMouseTracking() && panel.hasMouseTracking());
    const QPoint middle = surface.mapTo(&fixture->window, surface.rect().center());
    QCOMPARE(fixture->window.grab().toImage().pixelColor(middle), QColor(Qt::black));

    const auto &seekRow = fixture->find<QWidget>(u"seekRow"_s);
    QCOMPARE(widgetsOf(seekRow), u"<< 10s|seekSlider|continueButton|10s >>|00:00 / 00:00"_s);
    QCOMPARE(qobject_cast<QHBoxLayout *>(seekRow.layout())->stretch(1), 1);
    QCOMPARE(seekRow.layout()->contentsMargins(), QMargins());
    QCOMPARE(fixture->seekSlider.maximum(), 0);

    const auto &controls = fixture->find<QWidget>(u"controlsRow"_s);
    QCOMPARE(widgetsOf(controls),
             u"Pause|Next Episode|Fullscreen|Info|Audio|Subtitles|Vol:|volumeSlider"_s);
    QCOMPARE(controls.layout()->contentsMargins(), QMargins());
    const QSlider &volume = fixture->volumeSlider;
    QCOMPARE(volume.orientation(), Qt::Horizontal);
    QCOMPARE(volume.minimum(), 0);
    QCOMPARE(volume.maximum(), 100);
    QCOMPARE(volume.value(), 100);
    QCOMPARE(volume.maximumWidth(), 80);
}

void tst_PlayerPanel::rowsOfEachKind()
{
    // From any kind to any other.
    for (const qint32 kind : {StreamKind::Live, StreamKind::Movie, StreamKind::Live,
                              StreamKind::Episode, StreamKind::Archive, StreamKind::Movie}) {
        fixture->play(kind);
        QCOMPARE(fixture->shownRows(), kind == StreamKind::Live ? liveRows : allRows);
    }
    fixture->session.stop();
    QCOMPARE(fixture->shownRows(), QString());
}

void tst_PlayerPanel::theLabelFollowsTheSession()
{
    const auto &label = fixture->find<QLabel>(u"mutedLabel"_s);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    const QString title = u"<b>One</b> %1 & two"_s;
    fixture->play(StreamKind::Live, title);
    QCOMPARE(label.text(), u"Playing: "_s + title);
    for (const QString &attempt : {u"1"_s, u"2"_s}) {
        fixture->interrupt();
        QCOMPARE(label.text(), u"Reconnecting to "_s + title + u"... (attempt "_s + attempt + u')');
        QCOMPARE(fixture->shownRows(), liveRows);
        fixture->session.replay();
        QCOMPARE(label.text(), u"Playing: "_s + title);
    }
    fixture->session.stop();
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
    fixture->play(StreamKind::Movie);
    fixture->button(focused).setFocus();
    QVERIFY(fixture->button(focused).hasFocus());
    QDialog box(&fixture->window);
    if (!active) {
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
    }
    fixture->interrupt();
    QCOMPARE(fixture->shownRows(), QString());
    QCOMPARE(fixture->window.focusWidget(), &fixture->panel);
    // A replay shows them again.
    fixture->session.replay();
    QCOMPARE(fixture->shownRows(), allRows);
}

void tst_PlayerPanel::hiddenRowsStayHidden()
{
    const QSignalSpy updated(&fixture->panel, &PlayerPanel::rowsUpdated);
    fixture->panel.setRowsHidden(true);
    fixture->play(StreamKind::Movie);
    QCOMPARE(fixture->shownRows(), QString());
    QCOMPARE(updated.last().at(0).toBool(), false);
    fixture->panel.setRowsHidden(false);
    QCOMPARE(fixture->shownRows(), allRows);
    QCOMPARE(updated.last().at(0).toBool(), true);
}

void tst_PlayerPanel::theNextEpisodeButton()
{
    QPushButton &button = fixture->button(u"Next Episode"_s);
    const QSignalSpy requested(&fixture->panel, &PlayerPanel::nextEpisodeRequested);
    fixture->play(StreamKind::Episode);
    QVERIFY(!button.isVisible());
    fixture->panel.showNextEpisodeButton(true, false);
    QVERIFY(button.isVisible() && !button.isEnabled());
    fixture->panel.showNextEpisodeButton(true, true);
    button.click();
    QCOMPARE(requested.count(), 1);
}

void tst_PlayerPanel::positionsMoveTheSlider()
{
    const QSlider &slider = fixture->seekSlider;
    fixture->play(StreamKind::Episode);
    const QSignalSpy changed(&slider, &QSlider::valueChanged);
    Q_EMIT fixture->player.positionChanged(61000, 3600000);
    QCOMPARE(slider.minimum(), 0);
    QCOMPARE(slider.maximum(), 3600000);
    QCOMPARE(slider.value(), 61000);
    QCOMPARE(fixture->timeLabel.text(), u"01:01 / 1:00:00"_s);
    // The player moved it, not the user.
    QCOMPARE(changed.count(), 0);

    Q_EMIT fixture->player.positionChanged(1000, std::numeric_limits<qint64>::max());
    QCOMPARE(slider.maximum(), std::numeric_limits<int>::max());

    // Another entry starts at zero.
    fixture->play(StreamKind::Movie);
    QCOMPARE(fixture->timeLabel.text(), u"00:00 / 00:00"_s);
    QCOMPARE(slider.maximum(), 0);
    QCOMPARE(slider.value(), 0);
}

void tst_PlayerPanel::timeRunsFromLeftToRightInEveryScript()
{
    fixture->window.setLayoutDirection(Qt::RightToLeft);
    fixture->play(StreamKind::Movie);
    const auto &seekSlider = fixture->find<QSlider>(u"seekSlider"_s);
    const auto &volumeSlider = fixture->find<QSlider>(u"volumeSlider"_s);
    QCOMPARE(seekSlider.layoutDirection(), Qt::LeftToRight);
    QCOMPARE(volumeSlider.layoutDirection(), Qt::LeftToRight);
    QVERIFY(seekSlider.x() < fixture->find<QLabel>(u"timeLabel"_s).x());
    const auto &pause = fixture->find<QPushButton>(u"accentButton"_s);
    QVERIFY(volumeSlider.x() < pause.x());
}

void tst_PlayerPanel::positionsThatSayNothingAreIgnored_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a live channel") << StreamKind::Live << qint64{60000} << u"00:00 / 00:00"_s;
    QTest::newRow("an unknown length") << StreamKind::Movie << qint64{0} << u"00:00 / 00:00"_s;
    QTest::newRow("the shortest length") << StreamKind::Movie << qint64{1} << u"00:05 / 00:00"_s;
}

void tst_PlayerPanel::positionsThatSayNothingAreIgnored()
{
    QFETCH(qint32, kind);
    QFETCH(qint64, total);
    QFETCH(QString, expected);
    fixture->play(kind);
    Q_EMIT fixture->player.positionChanged(5000, total);
    QCOMPARE(fixture->timeLabel.text(), expected);
    QCOMPARE(fixture->seekSlider.maximum(), expected.startsWith(u"00:05") ? 1 : 0);
}

void tst_PlayerPanel::aHeldSliderStays()
{
    QSlider &slider = fixture->seekSlider;
    fixture->play(StreamKind::Movie);
    Q_EMIT fixture->player.positionChanged(1000, 60000);
    QTest::mousePress(&slider, Qt::LeftButton, {}, laterPlace());
    const int held = slider.value();
    QVERIFY(held > 1000);
    Q_EMIT fixture->player.positionChanged(2000, 90000);
    QCOMPARE(slider.value(), held);
    QCOMPARE(slider.maximum(), 60000);
    QCOMPARE(fixture->timeLabel.text(), u"00:02 / 01:30"_s);

    QTest::mouseRelease(&slider, Qt::LeftButton, {}, laterPlace());
    Q_EMIT fixture->player.positionChanged(3000, 90000);
    QCOMPARE(slider.value(), 3000);
    QCOMPARE(slider.maximum(), 90000);
}

void tst_PlayerPanel::aHoldThatEndsWithoutAReleaseSeeksNowhere_data()
{
    QTest::addColumn<std::function<void(PanelFixture &)>>("end");
    const auto row = [](const char *name, const std::function<void(PanelFixture &)> &end) {
        QTest::newRow(name) << end;
    };
    row("another film starts", [](PanelFixture &panel) { panel.playSound(); });
    row("a channel starts", [](PanelFixture &panel) { panel.playSound(StreamKind::Live); });
    row("the film is interrupted", [](PanelFixture &panel) { panel.interrupt(); });
    row("it is ended from outside", [](PanelFixture &panel) { panel.panel.endSeekHold(); });
    row("the row is hidden", [](PanelFixture &panel) { panel.panel.setRowsHidden(true); });
}

void tst_PlayerPanel::aHoldThatEndsWithoutAReleaseSeeksNowhere()
{
    QFETCH(const std::function<void(PanelFixture &)>, end);
    fixture->playSound();
    QSlider &slider = fixture->seekSlider;
    QTRY_VERIFY(slider.maximum() > 9000);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mousePress(&slider, Qt::LeftButton, {}, laterPlace());
    QVERIFY(slider.isSliderDown());
    end(*fixture);
    QVERIFY(!slider.isSliderDown());
    const qint64 before = fixture->player.timeMs();
    // A release that comes after all does nothing.
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, laterPlace());
    QCOMPARE(released.count(), 0);
    QVERIFY(fixture->playsOnFrom(before));

    // The slider follows the next film, and can be held again.
    fixture->panel.setRowsHidden(false);
    fixture->playSound();
    QTRY_VERIFY(slider.maximum() > 9000 && slider.value() > 0 && slider.value() < 5000);
}

void tst_PlayerPanel::theSliderSeeksOnRelease()
{
    fixture->playSound();
    QSlider &slider = fixture->seekSlider;
    QTRY_VERIFY(slider.maximum() > 9000);
    QTest::mousePress(&slider, Qt::LeftButton, {}, laterPlace());
    const int wanted = slider.value();
    QVERIFY(wanted > 6000);
    QVERIFY(fixture->player.timeMs() < 5000);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, laterPlace());
    QTRY_VERIFY(fixture->player.timeMs() > wanted - 1000);
    QTRY_VERIFY(slider.value() > wanted - 1000);
}

void tst_PlayerPanel::aClickWithoutALengthSeeksNowhere()
{
    fixture->playSoundFromItsMiddle();
    const qint64 before = fixture->player.timeMs();
    // As before the first report of a length.
    fixture->seekSlider.setRange(0, 0);
    QTest::mouseClick(&fixture->seekSlider, Qt::LeftButton, {}, laterPlace());
    QVERIFY(fixture->playsOnFrom(before));
    QTRY_VERIFY(fixture->seekSlider.value() > 4000);
}

void tst_PlayerPanel::theButtonsSeek()
{
    fixture->playSoundFromItsMiddle();
    fixture->button(u"<< 10s"_s).click();
    QTRY_VERIFY(fixture->player.timeMs() < 3000);
    fixture->button(u"10s >>"_s).click();
    QTRY_VERIFY(fixture->player.timeMs() > 8000);
}

void tst_PlayerPanel::theButtonPauses()
{
    auto &button = fixture->find<QPushButton>(u"accentButton"_s);
    fixture->playSound();
    for (const bool plays : {false, true, false}) {
        button.click();
        QTRY_COMPARE(button.text(), plays ? u"Pause"_s : u"Play"_s);
        QTRY_COMPARE(fixture->player.isPlaying(), plays);
    }
    // A new stream plays.
    fixture->play(StreamKind::Live);
    QTRY_COMPARE(button.text(), u"Pause"_s);
}

void tst_PlayerPanel::everyStartSetsThePanelsVolume()
{
#ifdef Q_OS_WIN
    QSKIP("libVLC reports no volume under Wine");
#endif
    // The slider has not been moved, and stands at 100.
    fixture->player.setVolume(30);
    fixture->playSound();
    QTRY_COMPARE(fixture->player.volume(), 100);
    fixture->volumeSlider.setValue(70);
    QTRY_COMPARE(fixture->player.volume(), 70);
    fixture->player.setVolume(30);
    QTRY_COMPARE(fixture->player.volume(), 30);
    fixture->session.replay();
    QTRY_COMPARE(fixture->player.volume(), 70);
}

void tst_PlayerPanel::offersToContinue()
{
    fixture->play(StreamKind::Movie);
    const auto &button = fixture->find<QPushButton>(u"continueButton"_s);
    const QSignalSpy requests(&fixture->panel, &PlayerPanel::continueRequested);
    fixture->pressKey(Qt::Key_C);
    QVERIFY(!button.isVisible());
    QCOMPARE(requests.count(), 0);

    const QSize surface = fixture->panel.surface()->size();
    fixture->panel.offerToContinue(754'000);
    QVERIFY(button.isVisible());
    QCOMPARE(button.text(), u"Continue at 12:34"_s);
    QApplication::processEvents();
    QCOMPARE(fixture->panel.surface()->size(), surface);
    fixture->pressKey(Qt::Key_C);
    QCOMPARE(requests.count(), 1);
    QTest::mouseClick(&fixture->button(u"Continue at 12:34"_s), Qt::LeftButton);
    QCOMPARE(requests.count(), 2);

    fixture->find<QPushButton>(u"continueButton"_s).setFocus();
    fixture->panel.withdrawOffer();
    QVERIFY(!button.isVisible());
    QVERIFY(fixture->panel.hasFocus());
    fixture->pressKey(Qt::Key_C);
    QCOMPARE(requests.count(), 2);
}

VANTIRO_TEST_MAIN(tst_PlayerPanel)
#include "tst_PlayerPanel.moc"
