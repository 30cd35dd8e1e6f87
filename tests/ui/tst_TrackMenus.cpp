#include "PanelFixture.h"
#include "fakeprovider/Streams.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QMenu>
#include <QPlainTextEdit>

#include <optional>

/// The menus and dialogs of the panel's buttons, on streams without a picture.
class tst_TrackMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(); }
    void withoutTracks();
    void aMenuOpensAboveItsButton();
    void theCurrentAudioTrackIsMarked();
    void subtitlesCanBeTurnedOff();
    void subtitleFileIsAskedFor();
    void streamInfo();

private:
    /// The actions of the menu that the button opens: with a star behind what is checked, and in
    /// brackets what is disabled.
    QStringList menuOf(const QString &button);

    std::optional<PanelFixture> fixture;
};

QStringList tst_TrackMenus::menuOf(const QString &button)
{
    QStringList result;
    fixture->dialogs.nextMenu([&](QMenu &menu) {
        QCOMPARE(menu.parentWidget(), &fixture->window);
        for (const QAction *action : menu.actions()) {
            const QString text = action->isSeparator() ? u"--"_s : action->text();
            result << (!action->isEnabled()  ? u'(' + text + u')'
                       : action->isChecked() ? text + u'*'
                                             : text);
        }
    });
    fixture->button(button).click();
    return result;
}

void tst_TrackMenus::withoutTracks()
{
    fixture->play(StreamKind::Movie);
    QCOMPARE(menuOf(u"Audio"_s), QStringList{u"(No audio tracks)"_s});
    QCOMPARE(menuOf(u"Subtitles"_s),
             (QStringList{u"Disable*"_s, u"--"_s, u"Load Subtitle File..."_s}));
}

void tst_TrackMenus::aMenuOpensAboveItsButton()
{
    fixture->play(StreamKind::Movie);
    auto &button = fixture->button(u"Subtitles"_s);
    // To a place where the whole menu fits on the screen.
    fixture->window.move(fixture->window.pos() + QPoint(100, 400) - button.mapToGlobal(QPoint()));
    QTRY_VERIFY(button.mapToGlobal(QPoint()).x() < 200);
    QRect place;
    fixture->dialogs.nextMenu([&](QMenu &menu) { place = menu.geometry(); });
    button.click();
    const QPoint corner = button.mapToGlobal(QPoint());
    QCOMPARE(place.left(), corner.x());
    QCOMPARE(place.top() + place.height(), corner.y());
}

void tst_TrackMenus::theCurrentAudioTrackIsMarked()
{
    fixture->playSound();
    QTRY_COMPARE(fixture->player.audioTracks().size(), 1);
    const QString name = fixture->player.audioTracks().constFirst().second;
    QCOMPARE(menuOf(u"Audio"_s), QStringList{name + u'*'});
}

void tst_TrackMenus::subtitlesCanBeTurnedOff()
{
    fixture->playSound();
    fixture->player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_VERIFY(fixture->player.currentSubtitleTrack() >= 0);
    fixture->dialogs.nextMenu([](QMenu &menu) {
        QVERIFY(!menu.actions().constFirst()->isChecked());
        menu.actions().constFirst()->trigger();
    });
    fixture->button(u"Subtitles"_s).click();
    QTRY_COMPARE(fixture->player.currentSubtitleTrack(), -1);
    QVERIFY(menuOf(u"Subtitles"_s).contains(u"Disable*"_s));
}

void tst_TrackMenus::subtitleFileIsAskedFor()
{
    fixture->play(StreamKind::Movie);
    fixture->dialogs.nextMenu([](QMenu &menu) { menu.actions().constLast()->trigger(); });
    fixture->dialogs.next([&](QDialog &dialog) {
        QCOMPARE(dynamic_cast<QFileDialog &>(dialog).nameFilters(),
                 (QStringList{u"Subtitles (*.srt *.ass *.ssa *.sub *.vtt)"_s, u"All Files (*)"_s}));
        QCOMPARE(dialog.parentWidget(), &fixture->window);
        dialog.reject();
    });
    fixture->button(u"Subtitles"_s).click();
    QCOMPARE(fixture->dialogs.seen().size(), 1);
    QCOMPARE(fixture->dialogs.seen().constFirst().title, u"Load Subtitle File"_s);
}

void tst_TrackMenus::streamInfo()
{
    fixture->play(StreamKind::Movie);
    for (int click = 1; click <= 2; ++click) {
        fixture->button(u"Info"_s).click();
        QCOMPARE(fixture->window.findChildren<QDialog *>().size(), click);
    }
    auto *dialog = fixture->window.findChild<QDialog *>();
    QCOMPARE(dialog->windowTitle(), u"Stream Info"_s);
    QVERIFY(!dialog->isModal());
    QCOMPARE(dialog->minimumSize(), QSize(440, 340));
    QCOMPARE(qobject_cast<QVBoxLayout *>(dialog->layout())->stretch(0), 1);
    const auto *text = dialog->findChild<QPlainTextEdit *>();
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->toPlainText(), fixture->player.mediaInfoText());

    fixture->playSound();
    QTRY_VERIFY((DialogAnswers::click(*dialog, u"Refresh"_s),
                 text->toPlainText().contains("mp"_L1, Qt::CaseInsensitive)));
    dialog->close();
    QTRY_COMPARE(fixture->window.findChildren<QDialog *>().size(), 1);
}

VANTIRO_TEST_MAIN(tst_TrackMenus)
#include "tst_TrackMenus.moc"
