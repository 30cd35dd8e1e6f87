#include "PanelFixture.h"
#include "support/TestMain.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QMenu>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// The texts of a menu's actions, with a star behind what is checked.
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

/// The menus and dialogs of the panel's buttons, on streams without a picture.
class tst_TrackMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutTracks_data();
    void withoutTracks();
    void aMenuOpensAboveItsButton();
    void theCurrentAudioTrackIsMarked();
    void subtitleFileIsAskedFor();
    void streamInfo();
};

void tst_TrackMenus::withoutTracks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("audio") << u"Audio"_s << QStringList{u"No audio tracks"_s} << false;
    QTest::newRow("subtitles") << u"Subtitles"_s
                               << QStringList{u"Disable*"_s, u"--"_s, u"Load Subtitle File..."_s}
                               << true;
}

void tst_TrackMenus::withoutTracks()
{
    QFETCH(QString, button);
    QFETCH(QStringList, expected);
    QFETCH(bool, enabled);
    PanelFixture fixture;
    fixture.play(StreamKind::Movie);
    fixture.dialogs.nextMenu([&](QMenu &menu) {
        QCOMPARE(actionsOf(menu), expected);
        QCOMPARE(menu.actions().constFirst()->isEnabled(), enabled);
        QCOMPARE(menu.parentWidget(), &fixture.window);
    });
    fixture.button(button).click();
    QCOMPARE(fixture.dialogs.waiting(), 0);
}

void tst_TrackMenus::aMenuOpensAboveItsButton()
{
    PanelFixture fixture;
    fixture.play(StreamKind::Movie);
    auto &button = fixture.button(u"Subtitles"_s);
    // To a place where the whole menu fits on the screen.
    fixture.window.move(fixture.window.pos() + QPoint(100, 400) - button.mapToGlobal(QPoint()));
    QTRY_VERIFY(button.mapToGlobal(QPoint()).x() < 200);
    QRect place;
    fixture.dialogs.nextMenu([&](QMenu &menu) { place = menu.geometry(); });
    button.click();
    const QPoint corner = button.mapToGlobal(QPoint());
    QCOMPARE(place.left(), corner.x());
    QCOMPARE(place.top() + place.height(), corner.y());
}

void tst_TrackMenus::theCurrentAudioTrackIsMarked()
{
    PanelFixture fixture;
    fixture.playSound();
    QTRY_COMPARE(fixture.player.audioTracks().size(), 1);
    const QString name = fixture.player.audioTracks().constFirst().second;
    fixture.dialogs.nextMenu(
        [&](QMenu &menu) { QCOMPARE(actionsOf(menu), QStringList{name + u'*'}); });
    fixture.button(u"Audio"_s).click();
    QCOMPARE(fixture.dialogs.waiting(), 0);
}

void tst_TrackMenus::subtitleFileIsAskedFor()
{
    PanelFixture fixture;
    fixture.play(StreamKind::Movie);
    fixture.dialogs.nextMenu([](QMenu &menu) { menu.actions().constLast()->trigger(); });
    fixture.dialogs.next([&](QDialog &dialog) {
        QCOMPARE(dynamic_cast<QFileDialog &>(dialog).nameFilters(),
                 (QStringList{u"Subtitles (*.srt *.ass *.ssa *.sub *.vtt)"_s, u"All Files (*)"_s}));
        QCOMPARE(dialog.parentWidget(), &fixture.window);
        dialog.reject();
    });
    fixture.button(u"Subtitles"_s).click();
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().constFirst().title, u"Load Subtitle File"_s);
}

void tst_TrackMenus::streamInfo()
{
    PanelFixture fixture;
    fixture.play(StreamKind::Movie);
    for (int click = 1; click <= 2; ++click) {
        fixture.button(u"Info"_s).click();
        QCOMPARE(fixture.window.findChildren<QDialog *>().size(), click);
    }
    QDialog *dialog = fixture.window.findChild<QDialog *>();
    QCOMPARE(dialog->windowTitle(), u"Stream Info"_s);
    QVERIFY(!dialog->isModal());
    QCOMPARE(dialog->minimumSize(), QSize(440, 340));
    QCOMPARE(qobject_cast<QVBoxLayout *>(dialog->layout())->stretch(0), 1);
    const auto *text = dialog->findChild<QPlainTextEdit *>();
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->toPlainText(), fixture.player.mediaInfoText());

    fixture.playSound();
    QTRY_VERIFY((DialogAnswers::click(*dialog, u"Refresh"_s),
                 text->toPlainText().contains("mp"_L1, Qt::CaseInsensitive)));
    dialog->close();
    QTRY_COMPARE(fixture.window.findChildren<QDialog *>().size(), 1);
}

VANTIRO_TEST_MAIN(tst_TrackMenus)
#include "tst_TrackMenus.moc"
