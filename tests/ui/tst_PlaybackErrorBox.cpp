#include "DialogAnswers.h"
#include "support/TestMain.h"
#include "ui/PlainMessageBox.h"
#include "ui/PlaybackErrorBox.h"

#include <QMessageBox>

using namespace Qt::StringLiterals;

class tst_PlaybackErrorBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void oneBoxAtATime();
    void oneBoxOfATitle();
};

void tst_PlaybackErrorBox::answers_data()
{
    QTest::addColumn<bool>("canRetry");
    QTest::addColumn<QString>("button"); ///< empty: Escape
    QTest::addColumn<bool>("expected");
    QTest::newRow("retry") << true << u"Retry"_s << true;
    QTest::newRow("close") << true << u"Close"_s << false;
    QTest::newRow("escape") << true << QString() << false;
    QTest::newRow("nothing to retry") << false << u"Close"_s << false;
}

void tst_PlaybackErrorBox::answers()
{
    QFETCH(bool, canRetry);
    QFETCH(QString, button);
    QFETCH(bool, expected);
    QWidget parent;
    DialogAnswers dialogs;
    dialogs.next([&](QDialog &dialog) {
        auto &box = dynamic_cast<QMessageBox &>(dialog);
        QCOMPARE(box.icon(), QMessageBox::Warning);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.parentWidget(), &parent);
        if (button.isEmpty()) {
            QTest::keyClick(&box, Qt::Key_Escape);
        } else {
            QVERIFY(DialogAnswers::click(box, button));
        }
    });
    QCOMPARE(PlaybackErrorBox().asksToRetry(&parent, u"<i>Could not</i> play"_s, canRetry),
             expected);
    const SeenDialog box = dialogs.seen().value(0);
    QCOMPARE(box.title, u"Playback Error"_s);
    QCOMPARE(box.text, u"<i>Could not</i> play"_s);
    QCOMPARE(box.buttons,
             canRetry ? (QStringList{u"Close"_s, u"Retry"_s}) : QStringList{u"Close"_s});
}

void tst_PlaybackErrorBox::oneBoxAtATime()
{
    PlaybackErrorBox box;
    DialogAnswers dialogs;
    dialogs.next([&](QDialog &dialog) {
        QVERIFY(!box.asksToRetry(nullptr, u"second"_s, true));
        QVERIFY(DialogAnswers::click(dialog, u"Retry"_s));
    });
    QVERIFY(box.asksToRetry(nullptr, u"first"_s, true));
    // The second was dropped, not queued.
    QCoreApplication::processEvents();
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().constFirst().text, u"first"_s);
    dialogs.nextClicks(u"Retry"_s);
    QVERIFY(box.asksToRetry(nullptr, u"third"_s, true));
}

void tst_PlaybackErrorBox::oneBoxOfATitle()
{
    QWidget parent;
    QMessageBox ofAnotherTitle(&parent);
    ofAnotherTitle.setWindowTitle(u"Another"_s);
    ofAnotherTitle.show();
    QMessageBox closed(&parent);
    closed.setWindowTitle(u"Problem"_s);
    DialogAnswers dialogs;
    dialogs.next([&parent](QDialog &dialog) {
        PlainMessageBox::warnOnce(&parent, u"Problem"_s, u"The second one."_s);
        dialog.accept();
    });
    PlainMessageBox::warnOnce(&parent, u"Problem"_s, u"The first one."_s);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().at(0).text, u"The first one."_s);
}

VANTIRO_TEST_MAIN(tst_PlaybackErrorBox)
#include "tst_PlaybackErrorBox.moc"
