#include "support/TestMain.h"
#include "ui/ClearHistoryDialog.h"

#include <QCheckBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

// What can be chosen to go.

class tst_ClearHistoryDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choices_data();
    void choices();
};

void tst_ClearHistoryDialog::choices_data()
{
    QTest::addColumn<bool>("hasWatched");
    QTest::addColumn<bool>("hasProgress");
    QTest::addColumn<QStringList>("clicks"); ///< check boxes
    QTest::addColumn<QList<LibraryPart>>("parts");
    const QString watched = u"watchedCheck"_s;
    const QString progress = u"progressCheck"_s;
    using Parts = QList<LibraryPart>;
    constexpr auto history = LibraryPart::History;
    constexpr auto positions = LibraryPart::Progress;
    QTest::newRow("all") << true << true << QStringList() << Parts{history, positions};
    QTest::newRow("not what was watched")
        << true << true << QStringList{watched} << Parts{positions};
    QTest::newRow("not the positions") << true << true << QStringList{progress} << Parts{history};
    QTest::newRow("nothing") << true << true << QStringList{watched, progress} << Parts();
    QTest::newRow("there are no positions") << true << false << QStringList() << Parts{history};
    QTest::newRow("nothing was watched") << false << true << QStringList() << Parts{positions};
    QTest::newRow("a box without rows")
        << false << true << QStringList{watched} << Parts{positions};
}

void tst_ClearHistoryDialog::choices()
{
    QFETCH(const bool, hasWatched);
    QFETCH(const bool, hasProgress);
    QFETCH(const QStringList, clicks);
    QFETCH(const QList<LibraryPart>, parts);
    LibraryRows rows;
    if (hasWatched) {
        rows.history.append(WatchedEntry());
    }
    if (hasProgress) {
        rows.progress.append(Progress());
    }
    const ClearHistoryDialog dialog(rows, nullptr);
    for (const QString &box : clicks) {
        dialog.findChild<QCheckBox *>(box)->click();
    }
    QCOMPARE(dialog.parts(), parts);
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    const auto clear = std::find_if(buttons.begin(), buttons.end(), [](const QPushButton *button) {
        return button->text() == "Clear"_L1;
    });
    QCOMPARE((*clear)->isEnabled(), !parts.isEmpty());
}

VANTIRO_TEST_MAIN(tst_ClearHistoryDialog)
#include "tst_ClearHistoryDialog.moc"
