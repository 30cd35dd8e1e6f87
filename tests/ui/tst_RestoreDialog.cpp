#include "providers/SampleCatalogs.h"
#include "support/TestMain.h"
#include "ui/RestoreDialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

// What is told before a backup is restored. tst_RestorePlan shows that it is what happens.

namespace {

using Content = LibraryBackup::Content;

const QString nothing = u"no change"_s;

LibraryEntry film(const QString &id)
{
    return {u"A"_s, EntryKind::Movie, id, u"Film "_s + id, {}};
}

/// The sources A and B; of A the favorites 1 and 2, one entry watched and one position.
Content hereNow()
{
    Content content;
    content.sources = {accountSource(u"A"_s, u"http://a"_s), accountSource(u"B"_s, u"http://b"_s)};
    content.rows.favorites = {{film(u"1"_s), 1, 1}, {film(u"2"_s), 2, 1}};
    content.rows.history = {{film(u"1"_s), 5}};
    Progress progress = progressOf(film(u"1"_s));
    progress.positionMs = 60'000;
    progress.updatedAt = 5;
    content.rows.progress = {progress};
    return content;
}

/// The texts of the parts.
QStringList counts(const RestoreDialog &dialog)
{
    const auto *form = dialog.findChild<QFormLayout *>();
    QStringList texts;
    for (int row = 0; row < form->rowCount(); ++row) {
        const QWidget *value = form->itemAt(row, QFormLayout::FieldRole)->widget();
        texts << qobject_cast<const QLabel *>(value)->text();
    }
    return texts;
}

QPushButton &restoreButton(const RestoreDialog &dialog)
{
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    return **std::find_if(buttons.begin(), buttons.end(),
                          [](const QPushButton *button) { return button->text() == "Restore"_L1; });
}

} // namespace

class tst_RestoreDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsFollowTheMode();
    void ownBackupHasNothingToDo();
    void guidesAndLanguagesAreToldWhereThereAreSome();
    void guideAddressesWithoutPasswords();
    void whatIsMissingIsTold_data();
    void whatIsMissingIsTold();
};

void tst_RestoreDialog::countsFollowTheMode()
{
    Content backup = hereNow();
    backup.sources = {accountSource(u"A"_s, u"http://new"_s), accountSource(u"C"_s, u"http://c"_s)};
    backup.rows.favorites = {{film(u"2"_s), 9, 1}, {film(u"3"_s), 10, 1}};
    backup.rows.history = {};
    backup.rows.progress[0].updatedAt = 6;
    backup.rows.hiddenCategories = {{{u"A"_s, EntryKind::Movie, u"c"_s, u"C"_s, {}}}};
    const RestoreDialog dialog(hereNow(), backup, nullptr);
    QCOMPARE(dialog.mode(), RestoreMode::Merge);
    const QStringList merged{u"1 added, 0 changed, 0 removed"_s, u"1 added, 0 changed, 0 removed"_s,
                             nothing, u"0 added, 1 changed, 0 removed"_s,
                             u"1 added, 0 changed, 0 removed"_s};
    QCOMPARE(counts(dialog), merged);

    dialog.findChild<QRadioButton *>(u"replaceButton"_s)->click();
    QCOMPARE(dialog.mode(), RestoreMode::Replace);
    QCOMPARE(counts(dialog),
             (QStringList{u"1 added, 1 changed, 1 removed"_s, u"1 added, 1 changed, 1 removed"_s,
                          u"0 added, 0 changed, 1 removed"_s, u"0 added, 1 changed, 0 removed"_s,
                          u"1 added, 0 changed, 0 removed"_s}));

    dialog.findChild<QRadioButton *>(u"mergeButton"_s)->click();
    QCOMPARE(dialog.mode(), RestoreMode::Merge);
    QCOMPARE(counts(dialog), merged);
    QVERIFY(restoreButton(dialog).isEnabled());
}

void tst_RestoreDialog::ownBackupHasNothingToDo()
{
    Content backup = hereNow();
    const RestoreDialog dialog(hereNow(), backup, nullptr);
    QCOMPARE(counts(dialog), QStringList(5, nothing));
    QVERIFY(!restoreButton(dialog).isEnabled());
}

void tst_RestoreDialog::guidesAndLanguagesAreToldWhereThereAreSome()
{
    const LibraryEntry channel{u"A"_s, EntryKind::Live, u"1"_s, u"One"_s, {}};
    GuideSettings settings;
    settings.source = u"A"_s;
    Content here = hereNow();
    here.rows.reminders = {reminderOf(channel, 1, 2, u"News"_s)};
    Content backup = hereNow();
    backup.rows.guideSettings = {settings};
    backup.rows.guideCorrections = {{channel, u"one.tv"_s}};
    backup.rows.languages = {{{u"A"_s, EntryKind::Live, {}, {}, {}}, u"de"_s, {}}};
    const RestoreDialog dialog(here, backup, nullptr);
    const QString added = u"1 added, 0 changed, 0 removed"_s;
    QCOMPARE(counts(dialog), (QStringList(5, nothing) + QStringList{added, added, nothing, added}));
    dialog.findChild<QRadioButton *>(u"replaceButton"_s)->click();
    QCOMPARE(counts(dialog).at(7), u"0 added, 0 changed, 1 removed"_s);
    QVERIFY(restoreButton(dialog).isEnabled());
}

void tst_RestoreDialog::guideAddressesWithoutPasswords()
{
    GuideSettings settings;
    settings.source = u"A"_s;
    settings.addresses = u"http://h/guide.xml?password=***"_s;
    Content backup = hereNow();
    backup.rows.guideSettings = {settings};
    const RestoreDialog dialog(hereNow(), backup, nullptr);
    QCOMPARE(dialog.findChild<QLabel *>(u"restoreNotes"_s)->text(),
             u"The backup has no passwords in addresses of guides. Enter them afterwards with "
             "\"Programme Guide...\" for: A"_s);
}

void tst_RestoreDialog::whatIsMissingIsTold_data()
{
    QTest::addColumn<QList<SourceConfig>>("here");
    QTest::addColumn<QList<SourceConfig>>("backup");
    QTest::addColumn<QStringList>("notes");
    using Sources = QList<SourceConfig>;
    const QString credentials =
        u"The backup has no passwords and keys. Enter them afterwards with \"Edit Source...\" for: "_s;
    const QString files =
        u"The backup has no playlist files. Choose them afterwards with \"Edit Source...\" for: "_s;
    const SourceConfig account = accountSource(u"<b>A</b>"_s, u"http://a"_s);
    SourceConfig bare = account;
    bare.password.clear();
    const SourceConfig playlist = playlistSource(u"P"_s, u"http://h/?password=***"_s);
    const SourceConfig file = playlistSource(u"F"_s, u"/nowhere/list.m3u"_s);
    QTest::newRow("nothing") << Sources() << Sources{account} << QStringList();
    QTest::newRow("credentials") << Sources() << Sources{bare, playlist}
                                 << QStringList{credentials + u"<b>A</b>, P"_s};
    QTest::newRow("a file") << Sources() << Sources{account, file} << QStringList{files + u'F'};
    QTest::newRow("both") << Sources() << Sources{bare, file}
                          << QStringList{credentials + u"<b>A</b>"_s, files + u'F'};
    QTest::newRow("those that are there already")
        << Sources{account, file} << Sources{bare, file} << QStringList();
}

void tst_RestoreDialog::whatIsMissingIsTold()
{
    QFETCH(const QList<SourceConfig>, here);
    QFETCH(const QList<SourceConfig>, backup);
    QFETCH(const QStringList, notes);
    RestoreDialog dialog({here, {}}, {backup, {}, false}, nullptr);
    dialog.show();
    const auto *label = dialog.findChild<QLabel *>(u"restoreNotes"_s);
    QCOMPARE(label->text(), notes.join(u'\n'));
    QCOMPARE(label->isVisible(), !notes.isEmpty());
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

VANTIRO_TEST_MAIN(tst_RestoreDialog)
#include "tst_RestoreDialog.moc"
