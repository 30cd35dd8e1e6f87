#include "DialogAnswers.h"
#include "support/TestMain.h"
#include "ui/SourceDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace {

template <typename Widget>
Widget &part(const SourceDialog &dialog, const QString &name)
{
    auto *widget = dialog.findChild<Widget *>(name);
    if (widget == nullptr)
        qFatal("no widget \"%s\" in the dialog", qUtf8Printable(name));
    return *widget;
}

QLineEdit &field(const SourceDialog &dialog, const QString &name)
{
    return part<QLineEdit>(dialog, name);
}

SourceConfig account(const QString &liveExtension)
{
    SourceConfig source = defaultSourceConfig();
    source.type = SourceType::Xtream;
    source.name = u"Home"_s;
    source.url = u"http://127.0.0.1:8080"_s;
    source.username = u"user"_s;
    source.password = u" secret "_s;
    source.liveExtension = liveExtension;
    return source;
}

/// The labels of a page's form, from top to bottom.
QStringList formLabels(const QWidget &page)
{
    QStringList labels;
    const auto *form = qobject_cast<QFormLayout *>(page.layout());
    for (int row = 0; form != nullptr && row < form->rowCount(); ++row) {
        const QWidget *label = form->itemAt(row, QFormLayout::LabelRole)->widget();
        const auto *text = qobject_cast<const QLabel *>(label);
        const auto *button = qobject_cast<const QPushButton *>(label);
        labels << (text != nullptr ? text->text() : button != nullptr ? button->text() : QString());
    }
    return labels;
}

} // namespace

class tst_SourceDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addingStartsOnTheAccountPage();
    void formsAndButtons();
    void editingShowsThePlaylist();
    void editingShowsTheAccount();
    void editingShowsTheSubscription();
    void liveFormatOfAnEditedAccount_data();
    void liveFormatOfAnEditedAccount();
    void typeChoosesThePage();
    void passwordVisibility();
    void configOfAnAccountTrimsAllButThePassword();
    void configOfASubscriptionIsAlwaysZevrino();
    void configOfAPlaylistTakesNothingElse();
    void emptyNamesGetDefaults_data();
    void emptyNamesGetDefaults();
    void uploadTakesTheChosenPath();
    void uploadCancelledChangesNothing();
    void deletionIsAskedFor_data();
    void deletionIsAskedFor();
};

void tst_SourceDialog::addingStartsOnTheAccountPage()
{
    const SourceDialog dialog(nullptr, nullptr);
    QCOMPARE(dialog.windowTitle(), u"Add Source"_s);
    QCOMPARE(dialog.minimumWidth(), 420);
    const auto &types = part<QComboBox>(dialog, u"typeCombo"_s);
    QStringList entries;
    for (int index = 0; index < types.count(); ++index) {
        entries << types.itemText(index) + u'/' + types.itemData(index).toString();
    }
    QCOMPARE(entries, (QStringList{u"M3U Playlist/0"_s, u"Xtream Codes/1"_s, u"Zevrino/2"_s}));
    QCOMPARE(types.currentIndex(), 1);
    QCOMPARE(part<QStackedWidget>(dialog, u"pages"_s).currentIndex(), 1);

    const auto &formats = part<QComboBox>(dialog, u"liveFormatCombo"_s);
    QCOMPARE(formats.count(), 2);
    QCOMPARE(formats.itemText(0) + u'/' + formats.itemData(0).toString(), u"m3u8/m3u8"_s);
    QCOMPARE(formats.itemText(1) + u'/' + formats.itemData(1).toString(), u"ts/ts"_s);
    QCOMPARE(formats.currentText(), u"ts"_s);
    QVERIFY(part<QCheckBox>(dialog, u"showPasswordCheck"_s).isChecked());
    QCOMPARE(field(dialog, u"passwordEdit"_s).echoMode(), QLineEdit::Normal);
    QVERIFY(!dialog.deleteRequested);
}

void tst_SourceDialog::formsAndButtons()
{
    const SourceConfig source = account(u"ts"_s);
    const SourceDialog adding(nullptr, nullptr);
    const SourceDialog editing(nullptr, &source);

    const auto &pages = part<QStackedWidget>(adding, u"pages"_s);
    QCOMPARE(pages.count(), 3);
    QCOMPARE(formLabels(*pages.widget(0)), (QStringList{u"Name:"_s, u"Playlist URL/File:"_s}));
    QCOMPARE(formLabels(*pages.widget(1)),
             (QStringList{u"Name:"_s, u"Server URL:"_s, u"Username:"_s, u"Password:"_s,
                          u"Live Stream Format:"_s, u"Test Connection"_s}));
    QCOMPARE(formLabels(*pages.widget(2)), QStringList{u"Subscription Key:"_s});
    QVERIFY(field(adding, u"m3uUrlEdit"_s).placeholderText().startsWith("http"_L1));
    QVERIFY(field(adding, u"serverEdit"_s).placeholderText().contains(":8080"_L1));
    QCOMPARE(field(adding, u"keyEdit"_s).placeholderText(), u"Your Zevrino subscription key"_s);
    QCOMPARE(part<QCheckBox>(adding, u"showPasswordCheck"_s).text(), u"Show"_s);
    QCOMPARE(part<QLabel>(adding, u"statusLabel"_s).text(), QString());

    for (const SourceDialog *dialog : {&adding, &editing}) {
        auto *box = dialog->findChild<QDialogButtonBox *>();
        QVERIFY(box->button(QDialogButtonBox::Ok) != nullptr);
        QVERIFY(box->button(QDialogButtonBox::Cancel) != nullptr);
        QCOMPARE(box->buttons().size(), dialog == &adding ? 2 : 3);
        for (QAbstractButton *button : box->buttons()) {
            const bool destructive = box->buttonRole(button) == QDialogButtonBox::DestructiveRole;
            QCOMPARE(button->text() == "Delete Source"_L1, destructive);
        }
    }
}

void tst_SourceDialog::editingShowsThePlaylist()
{
    SourceConfig source = account(u"ts"_s);
    source.type = SourceType::Playlist;
    source.url = u"http://127.0.0.1/list.m3u"_s;
    const SourceDialog dialog(nullptr, &source);
    QCOMPARE(dialog.windowTitle(), u"Edit Source"_s);
    QCOMPARE(part<QComboBox>(dialog, u"typeCombo"_s).currentIndex(), 0);
    QCOMPARE(part<QStackedWidget>(dialog, u"pages"_s).currentIndex(), 0);
    QCOMPARE(field(dialog, u"m3uNameEdit"_s).text(), u"Home"_s);
    QCOMPARE(field(dialog, u"m3uUrlEdit"_s).text(), u"http://127.0.0.1/list.m3u"_s);
    for (const QString &other : {u"xtreamNameEdit"_s, u"serverEdit"_s, u"usernameEdit"_s,
                                 u"passwordEdit"_s, u"keyEdit"_s}) {
        QCOMPARE(field(dialog, other).text(), QString());
    }
}

void tst_SourceDialog::editingShowsTheAccount()
{
    const SourceConfig source = account(u"ts"_s);
    const SourceDialog dialog(nullptr, &source);
    QCOMPARE(part<QComboBox>(dialog, u"typeCombo"_s).currentIndex(), 1);
    QCOMPARE(part<QStackedWidget>(dialog, u"pages"_s).currentIndex(), 1);
    QCOMPARE(field(dialog, u"xtreamNameEdit"_s).text(), u"Home"_s);
    QCOMPARE(field(dialog, u"serverEdit"_s).text(), u"http://127.0.0.1:8080"_s);
    QCOMPARE(field(dialog, u"usernameEdit"_s).text(), u"user"_s);
    QCOMPARE(field(dialog, u"passwordEdit"_s).text(), u" secret "_s);
    QCOMPARE(field(dialog, u"passwordEdit"_s).echoMode(), QLineEdit::Normal);
    QCOMPARE(field(dialog, u"m3uNameEdit"_s).text(), QString());
    QCOMPARE(field(dialog, u"m3uUrlEdit"_s).text(), QString());
    QCOMPARE(field(dialog, u"keyEdit"_s).text(), QString());
}

void tst_SourceDialog::editingShowsTheSubscription()
{
    SourceConfig source = account(u"ts"_s);
    source.type = SourceType::Zevrino;
    source.name = u"Zevrino"_s;
    source.subscriptionKey = u"ABC-123"_s;
    const SourceDialog dialog(nullptr, &source);
    QCOMPARE(part<QComboBox>(dialog, u"typeCombo"_s).currentIndex(), 2);
    QCOMPARE(part<QStackedWidget>(dialog, u"pages"_s).currentIndex(), 2);
    QCOMPARE(field(dialog, u"keyEdit"_s).text(), u"ABC-123"_s);
    // What the service gave for the key is not the user's to edit.
    for (const QString &other : {u"xtreamNameEdit"_s, u"serverEdit"_s, u"usernameEdit"_s,
                                 u"passwordEdit"_s, u"m3uNameEdit"_s, u"m3uUrlEdit"_s}) {
        QCOMPARE(field(dialog, other).text(), QString());
    }
}

void tst_SourceDialog::liveFormatOfAnEditedAccount_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("m3u8") << u"m3u8"_s << u"m3u8"_s;
    QTest::newRow("ts") << u"ts"_s << u"ts"_s;
    QTest::newRow("an unknown format shows the first") << u"mkv"_s << u"m3u8"_s;
    QTest::newRow("a format in capitals is unknown") << u"TS"_s << u"m3u8"_s;
    QTest::newRow("no format") << QString() << u"m3u8"_s;
}

void tst_SourceDialog::liveFormatOfAnEditedAccount()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    const SourceConfig source = account(stored);
    const SourceDialog dialog(nullptr, &source);
    QCOMPARE(part<QComboBox>(dialog, u"liveFormatCombo"_s).currentText(), shown);
    QCOMPARE(dialog.config().liveExtension, shown);
}

void tst_SourceDialog::typeChoosesThePage()
{
    const SourceDialog dialog(nullptr, nullptr);
    for (const int type : {0, 2, 1}) {
        part<QComboBox>(dialog, u"typeCombo"_s).setCurrentIndex(type);
        QCOMPARE(part<QStackedWidget>(dialog, u"pages"_s).currentIndex(), type);
        QCOMPARE(dialog.config().type, type);
    }
}

void tst_SourceDialog::passwordVisibility()
{
    const SourceDialog dialog(nullptr, nullptr);
    auto &check = part<QCheckBox>(dialog, u"showPasswordCheck"_s);
    check.click();
    QCOMPARE(field(dialog, u"passwordEdit"_s).echoMode(), QLineEdit::Password);
    check.click();
    QCOMPARE(field(dialog, u"passwordEdit"_s).echoMode(), QLineEdit::Normal);
}

void tst_SourceDialog::configOfAnAccountTrimsAllButThePassword()
{
    const SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"xtreamNameEdit"_s).setText(u"  My Account "_s);
    field(dialog, u"serverEdit"_s).setText(u" http://127.0.0.1:8080 "_s);
    field(dialog, u"usernameEdit"_s).setText(u"\tuser "_s);
    field(dialog, u"passwordEdit"_s).setText(u" pass word "_s);
    part<QComboBox>(dialog, u"liveFormatCombo"_s).setCurrentIndex(0);
    const SourceConfig config = dialog.config();
    QCOMPARE(config.type, SourceType::Xtream);
    QCOMPARE(config.name, u"My Account"_s);
    QCOMPARE(config.url, u"http://127.0.0.1:8080"_s);
    QCOMPARE(config.username, u"user"_s);
    QCOMPARE(config.password, u" pass word "_s);
    QCOMPARE(config.liveExtension, u"m3u8"_s);
    QCOMPARE(config.subscriptionKey, QString());
    QCOMPARE(config.lastUpdated, 0);
}

void tst_SourceDialog::configOfASubscriptionIsAlwaysZevrino()
{
    const SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"xtreamNameEdit"_s).setText(u"My Account"_s);
    field(dialog, u"serverEdit"_s).setText(u"http://127.0.0.1"_s);
    part<QComboBox>(dialog, u"typeCombo"_s).setCurrentIndex(2);
    field(dialog, u"keyEdit"_s).setText(u"  ABC 123 "_s);
    const SourceConfig config = dialog.config();
    QCOMPARE(config.type, SourceType::Zevrino);
    QCOMPARE(config.name, u"Zevrino"_s);
    QCOMPARE(config.subscriptionKey, u"ABC 123"_s);
    QCOMPARE(config.liveExtension, u"m3u8"_s);
    QCOMPARE(config.url + config.username + config.password, QString());
}

void tst_SourceDialog::configOfAPlaylistTakesNothingElse()
{
    const SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"passwordEdit"_s).setText(u"secret"_s);
    part<QComboBox>(dialog, u"typeCombo"_s).setCurrentIndex(0);
    field(dialog, u"m3uNameEdit"_s).setText(u" List "_s);
    field(dialog, u"m3uUrlEdit"_s).setText(u" http://127.0.0.1/a.m3u "_s);
    const SourceConfig config = dialog.config();
    QCOMPARE(config.type, SourceType::Playlist);
    QCOMPARE(config.name, u"List"_s);
    QCOMPARE(config.url, u"http://127.0.0.1/a.m3u"_s);
    QCOMPARE(config.liveExtension, u"m3u8"_s);
    QCOMPARE(config.username + config.password + config.subscriptionKey, QString());
}

void tst_SourceDialog::emptyNamesGetDefaults_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("expected");
    QTest::newRow("playlist") << 0 << u"M3U Playlist"_s;
    QTest::newRow("account") << 1 << u"Xtream Account"_s;
    QTest::newRow("subscription") << 2 << u"Zevrino"_s;
}

void tst_SourceDialog::emptyNamesGetDefaults()
{
    QFETCH(int, type);
    QFETCH(QString, expected);
    const SourceDialog dialog(nullptr, nullptr);
    part<QComboBox>(dialog, u"typeCombo"_s).setCurrentIndex(type);
    QCOMPARE(dialog.config().name, expected);
    field(dialog, u"m3uNameEdit"_s).setText(u"  "_s);
    field(dialog, u"xtreamNameEdit"_s).setText(u"  "_s);
    QCOMPARE(dialog.config().name, expected);
}

void tst_SourceDialog::uploadTakesTheChosenPath()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"my list.m3u8"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();

    DialogAnswers answers;
    SourceDialog dialog(nullptr, nullptr);
    QStringList filters;
    answers.next([&](QDialog &opened) {
        auto &chooser = dynamic_cast<QFileDialog &>(opened);
        filters = chooser.nameFilters();
        chooser.selectFile(path);
        opened.accept();
    });
    QVERIFY(DialogAnswers::click(dialog, u"Upload File..."_s));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().at(0).title, u"Upload M3U Playlist"_s);
    QCOMPARE(filters, (QStringList{u"Playlists (*.m3u *.m3u8)"_s, u"All Files (*)"_s}));
    QCOMPARE(field(dialog, u"m3uUrlEdit"_s).text(), path);
}

void tst_SourceDialog::uploadCancelledChangesNothing()
{
    DialogAnswers answers;
    SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"m3uUrlEdit"_s).setText(u"before"_s);
    QVERIFY(DialogAnswers::click(dialog, u"Upload File..."_s));
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(field(dialog, u"m3uUrlEdit"_s).text(), u"before"_s);
}

void tst_SourceDialog::deletionIsAskedFor_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("deleted");
    QTest::newRow("yes") << u"Yes"_s << true;
    QTest::newRow("no") << u"No"_s << false;
}

void tst_SourceDialog::deletionIsAskedFor()
{
    QFETCH(QString, answer);
    QFETCH(bool, deleted);
    SourceConfig source = account(u"ts"_s);
    source.name = u"<i>Home</i> %1"_s;
    DialogAnswers answers;
    SourceDialog dialog(nullptr, &source);
    QString defaultButton;
    answers.next([&](QDialog &opened) {
        auto &box = dynamic_cast<QMessageBox &>(opened);
        defaultButton = box.defaultButton()->text().remove(u'&');
        QCOMPARE(box.icon(), QMessageBox::Question);
        // A name from a settings file is shown, not read as markup.
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QVERIFY(DialogAnswers::click(box, answer));
    });
    dialog.open();
    // Another name in the field does not matter: the stored source would go.
    field(dialog, u"xtreamNameEdit"_s).setText(u"Other"_s);
    QVERIFY(DialogAnswers::click(dialog, u"Delete Source"_s));

    const SeenDialog seen = answers.seen().last();
    QCOMPARE(seen.title, u"Delete Source"_s);
    QCOMPARE(seen.text, u"Delete source \"<i>Home</i> %1\"? This cannot be undone."_s);
    QCOMPARE(seen.buttons, (QStringList{u"No"_s, u"Yes"_s}));
    QCOMPARE(defaultButton, u"No"_s);
    QCOMPARE(dialog.deleteRequested, deleted);
    QCOMPARE(dialog.isVisible(), !deleted);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

VANTIRO_TEST_MAIN(tst_SourceDialog)
#include "tst_SourceDialog.moc"
