#include "DialogAnswers.h"
#include "support/HttpReplies.h"
#include "support/TestFiles.h"
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

const QString api = u"/player_api.php"_s;
const QByteArray accepted = R"({"user_info":{"auth":1}})"_ba;
const QStringList fieldNames{u"m3uNameEdit"_s, u"m3uUrlEdit"_s,   u"xtreamNameEdit"_s,
                             u"serverEdit"_s,  u"usernameEdit"_s, u"passwordEdit"_s,
                             u"keyEdit"_s};

/// The form for a new source or an existing one, and its widgets.
struct Form
{
    explicit Form(const SourceConfig *existing = nullptr)
        : dialog(nullptr, existing)
    {}
    QLineEdit &field(const QString &name) const { return *dialog.findChild<QLineEdit *>(name); }
    QStringList texts() const
    {
        QStringList result;
        for (const QString &name : fieldNames) {
            result << field(name).text();
        }
        return result;
    }
    void click(const QString &button) { QVERIFY(DialogAnswers::click(dialog, button)); }
    void press(QWidget &widget, Qt::Key key)
    {
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        widget.setFocus();
        QTest::keyClick(&widget, key);
    }

    SourceDialog dialog;
    QComboBox &types = *dialog.findChild<QComboBox *>(u"typeCombo"_s);
    QComboBox &formats = *dialog.findChild<QComboBox *>(u"liveFormatCombo"_s);
    QStackedWidget &pages = *dialog.findChild<QStackedWidget *>(u"pages"_s);
    QCheckBox &showPassword = *dialog.findChild<QCheckBox *>(u"showPasswordCheck"_s);
    QLabel &status = *dialog.findChild<QLabel *>(u"statusLabel"_s);
};

SourceConfig existingSource(qint32 type)
{
    return {type, u"Home"_s, u"http://h"_s, u"user"_s, u" secret "_s, u"ts"_s, u"ABC-123"_s, 7};
}

QStringList entriesOf(const QComboBox &combo)
{
    QStringList entries;
    for (int index = 0; index < combo.count(); ++index) {
        entries << combo.itemText(index) + u'/' + combo.itemData(index).toString();
    }
    return entries;
}

/// The labels of a page's form, from top to bottom.
QStringList formLabels(const QWidget &page)
{
    QStringList labels;
    const auto *form = qobject_cast<QFormLayout *>(page.layout());
    for (int row = 0; form != nullptr && row < form->rowCount(); ++row) {
        // A label or a button.
        labels << form->itemAt(row, QFormLayout::LabelRole)->widget()->property("text").toString();
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
    void editingShowsWhatTheTypeHas_data();
    void editingShowsWhatTheTypeHas();
    void unknownLiveFormatsShowTheFirst();
    void configTakesWhatTheTypeHas_data();
    void configTakesWhatTheTypeHas();
    void uploadTakesTheChosenPath();
    void deletionIsAskedFor_data();
    void deletionIsAskedFor();
    void connectionTest_data();
    void connectionTest();
    void secondClickStartsASecondTest();
    void returnPressesTheFocusedButton();
    void returnInAFieldAccepts();
    void statusIsNeverCut();
};

void tst_SourceDialog::addingStartsOnTheAccountPage()
{
    const Form form;
    QCOMPARE(form.dialog.windowTitle(), u"Add Source"_s);
    QCOMPARE(form.dialog.minimumWidth(), 420);
    QCOMPARE(entriesOf(form.types),
             (QStringList{u"M3U Playlist/0"_s, u"Xtream Codes/1"_s, u"Zevrino/2"_s}));
    QCOMPARE(form.types.currentIndex(), 1);
    QCOMPARE(form.pages.currentIndex(), 1);
    QCOMPARE(entriesOf(form.formats), (QStringList{u"m3u8/m3u8"_s, u"ts/ts"_s}));
    QCOMPARE(form.formats.currentText(), u"ts"_s);
    QVERIFY(!form.dialog.deleteRequested);

    const QLineEdit &password = form.field(u"passwordEdit"_s);
    QVERIFY(form.showPassword.isChecked());
    for (const auto mode : {QLineEdit::Normal, QLineEdit::Password, QLineEdit::Normal}) {
        QCOMPARE(password.echoMode(), mode);
        form.showPassword.click();
    }
}

void tst_SourceDialog::formsAndButtons()
{
    const SourceConfig source = existingSource(SourceType::Xtream);
    const Form adding;
    const Form editing(&source);
    QCOMPARE(adding.pages.count(), 3);
    QCOMPARE(formLabels(*adding.pages.widget(0)),
             (QStringList{u"Name:"_s, u"Playlist URL/File:"_s}));
    QCOMPARE(formLabels(*adding.pages.widget(1)),
             (QStringList{u"Name:"_s, u"Server URL:"_s, u"Username:"_s, u"Password:"_s,
                          u"Live Stream Format:"_s, u"Test Connection"_s}));
    QCOMPARE(formLabels(*adding.pages.widget(2)), QStringList{u"Subscription Key:"_s});
    QVERIFY(adding.field(u"m3uUrlEdit"_s).placeholderText().startsWith("http"_L1));
    QVERIFY(adding.field(u"serverEdit"_s).placeholderText().contains(":8080"_L1));
    QCOMPARE(adding.field(u"keyEdit"_s).placeholderText(), u"Your Zevrino subscription key"_s);
    QCOMPARE(adding.showPassword.text(), u"Show"_s);
    QCOMPARE(adding.status.text(), QString());

    for (const Form *form : {&adding, &editing}) {
        const auto *box = form->dialog.findChild<QDialogButtonBox *>();
        QVERIFY(box->button(QDialogButtonBox::Ok) != nullptr);
        QVERIFY(box->button(QDialogButtonBox::Cancel) != nullptr);
        QCOMPARE(box->buttons().size(), form == &adding ? 2 : 3);
        for (QAbstractButton *button : box->buttons()) {
            const bool destructive = box->buttonRole(button) == QDialogButtonBox::DestructiveRole;
            QCOMPARE(button->text() == "Delete Source"_L1, destructive);
        }
    }
}

void tst_SourceDialog::editingShowsWhatTheTypeHas_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("playlist") << SourceType::Playlist
                              << QStringList{u"Home"_s, u"http://h"_s, {}, {}, {}, {}, {}};
    QTest::newRow("account") << SourceType::Xtream
                             << QStringList{
                                    {}, {}, u"Home"_s, u"http://h"_s, u"user"_s, u" secret "_s, {}};
    QTest::newRow("unknown, which is loaded as a playlist")
        << 7 << QStringList{u"Home"_s, u"http://h"_s, {}, {}, {}, {}, {}};
    // What the service gave for the key is not the user's to edit.
    QTest::newRow("subscription") << SourceType::Zevrino
                                  << QStringList{{}, {}, {}, {}, {}, {}, u"ABC-123"_s};
}

void tst_SourceDialog::editingShowsWhatTheTypeHas()
{
    QFETCH(qint32, type);
    const SourceConfig source = existingSource(type);
    const Form form(&source);
    QCOMPARE(form.dialog.windowTitle(), u"Edit Source"_s);
    const int page = SourceType::isAccount(type) ? type : SourceType::Playlist;
    QCOMPARE(form.types.currentIndex(), page);
    QCOMPARE(form.pages.currentIndex(), page);
    QTEST(form.texts(), "texts");
}

void tst_SourceDialog::unknownLiveFormatsShowTheFirst()
{
    SourceConfig source = existingSource(SourceType::Xtream);
    for (const QString &format : {u"m3u8"_s, u"ts"_s, u"mkv"_s, u"TS"_s, QString()}) {
        source.liveExtension = format;
        const Form form(&source);
        const QString shown = format == "ts"_L1 ? u"ts"_s : u"m3u8"_s;
        QCOMPARE(form.formats.currentText(), shown);
        QCOMPARE(form.dialog.config().liveExtension, shown);
    }
}

void tst_SourceDialog::configTakesWhatTheTypeHas_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("taken"); ///< name, URL, user, password, format, key
    QTest::addColumn<QString>("defaultName");
    QTest::newRow("playlist") << 0 << QStringList{u"0"_s, u"1"_s, {}, {}, u"m3u8"_s, {}}
                              << u"M3U Playlist"_s;
    QTest::newRow("account") << 1 << QStringList{u"2"_s, u"3"_s, u"4"_s, u"\t5 "_s, u"ts"_s, {}}
                             << u"Xtream Account"_s;
    QTest::newRow("subscription") << 2 << QStringList{u"Zevrino"_s, {}, {}, {}, u"m3u8"_s, u"6"_s}
                                  << u"Zevrino"_s;
}

void tst_SourceDialog::configTakesWhatTheTypeHas()
{
    QFETCH(int, type);
    const Form form;
    form.types.setCurrentIndex(1 - type % 2);
    form.types.setCurrentIndex(type);
    QCOMPARE(form.pages.currentIndex(), type);
    QTEST(form.dialog.config().name, "defaultName");
    for (int number = 0; number < fieldNames.size(); ++number) {
        form.field(fieldNames.at(number)).setText(u"\t%1 "_s.arg(number));
    }
    const SourceConfig config = form.dialog.config();
    QCOMPARE(config.type, type);
    QTEST((QStringList{config.name, config.url, config.username, config.password,
                       config.liveExtension, config.subscriptionKey}),
          "taken");
    QCOMPARE(config.lastUpdated, 0);
    form.field(u"m3uNameEdit"_s).setText(u"  "_s);
    form.field(u"xtreamNameEdit"_s).setText(u"  "_s);
    QTEST(form.dialog.config().name, "defaultName");
}

void tst_SourceDialog::uploadTakesTheChosenPath()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"my list.m3u8"_s);
    writeFile(path, {});
    DialogAnswers answers;
    Form form;
    QStringList filters;
    answers.next([&](QDialog &opened) {
        auto &chooser = dynamic_cast<QFileDialog &>(opened);
        filters = chooser.nameFilters();
        chooser.selectFile(path);
        opened.accept();
    });
    form.click(u"Upload File..."_s);
    QCOMPARE(answers.seen().at(0).title, u"Upload M3U Playlist"_s);
    QCOMPARE(filters, (QStringList{u"Playlists (*.m3u *.m3u8)"_s, u"All Files (*)"_s}));
    QCOMPARE(form.field(u"m3uUrlEdit"_s).text(), path);

    // Cancelled, it changes nothing.
    form.click(u"Upload File..."_s);
    QCOMPARE(answers.seen().size(), 2);
    form.types.setCurrentIndex(0);
    QCOMPARE(form.dialog.config().url, path);
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
    SourceConfig source = existingSource(SourceType::Xtream);
    source.name = u"<i>Home</i> %1"_s;
    DialogAnswers answers;
    Form form(&source);
    QString defaultButton;
    answers.next([&](QDialog &opened) {
        auto &box = dynamic_cast<QMessageBox &>(opened);
        defaultButton = box.defaultButton()->text().remove(u'&');
        QCOMPARE(box.icon(), QMessageBox::Question);
        // A name from a settings file is shown, not read as markup.
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QVERIFY(DialogAnswers::click(box, answer));
    });
    form.dialog.open();
    // Another name in the field does not matter: the stored source would go.
    form.field(u"xtreamNameEdit"_s).setText(u"Other"_s);
    form.click(u"Delete Source"_s);

    const SeenDialog seen = answers.seen().last();
    QCOMPARE(seen.title, u"Delete Source"_s);
    QCOMPARE(seen.text, u"Delete source \"<i>Home</i> %1\"? This cannot be undone."_s);
    QCOMPARE(seen.buttons, (QStringList{u"No"_s, u"Yes"_s}));
    QCOMPARE(defaultButton, u"No"_s);
    QCOMPARE(form.dialog.deleteRequested, deleted);
    QCOMPARE(form.dialog.isVisible(), !deleted);
    QCOMPARE(form.dialog.result(), int(QDialog::Rejected));
}

void tst_SourceDialog::connectionTest_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("status");
    QTest::newRow("accepted") << accepted << u"Connection OK"_s;
    QTest::newRow("refused")
        << "{}"_ba << u"Failed: Authentication failed - check server URL, username, and password"_s;
}

void tst_SourceDialog::connectionTest()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, status);
    HttpServer server;
    server.on(api, HttpReply::json(reply));
    Form form;
    form.field(u"serverEdit"_s).setText(u' ' + server.url() + u' ');
    form.field(u"usernameEdit"_s).setText(u" user "_s);
    form.field(u"passwordEdit"_s).setText(u" pass "_s);
    form.click(u"Test Connection"_s);
    QCOMPARE(form.status.text(), u"Testing..."_s);
    QTRY_COMPARE(form.status.text(), status);
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(server.requests().at(0).queryValue(u"username"_s), u"user"_s);
    QCOMPARE(server.requests().at(0).queryValue(u"password"_s), u" pass "_s);
    QCOMPARE(form.status.textFormat(), Qt::PlainText);
}

void tst_SourceDialog::secondClickStartsASecondTest()
{
    HttpServer server;
    server.on(api, held(HttpReply::json(accepted)));
    Form form;
    form.field(u"serverEdit"_s).setText(server.url());
    form.click(u"Test Connection"_s);
    QTRY_COMPARE(server.requestCount(), 1);
    // Still usable meanwhile.
    QVERIFY(form.field(u"serverEdit"_s).isEnabled());
    form.click(u"Test Connection"_s);
    QTRY_COMPARE(server.requestCount(), 2);
    server.release(api);
    QTRY_COMPARE(form.status.text(), u"Connection OK"_s);
}

void tst_SourceDialog::returnPressesTheFocusedButton()
{
    HttpServer server;
    server.on(api, HttpReply::json(accepted));
    DialogAnswers answers;
    Form form;
    form.field(u"serverEdit"_s).setText(server.url());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        server.clearRequests();
        form.press(*buttonOf(form.dialog, u"Test Connection"_s), key);
        QTRY_COMPARE(server.requestCount(), 1);
        QTRY_COMPARE(form.status.text(), u"Connection OK"_s);
        QVERIFY(form.dialog.isVisible());
    }
    form.types.setCurrentIndex(0);
    form.press(*buttonOf(form.dialog, u"Upload File..."_s), Qt::Key_Return);
    QCOMPARE(answers.seen().at(0).title, u"Upload M3U Playlist"_s);
    QVERIFY(form.dialog.isVisible());
}

void tst_SourceDialog::returnInAFieldAccepts()
{
    const QStringList fields{u"m3uUrlEdit"_s, u"serverEdit"_s, u"keyEdit"_s};
    for (int type = 0; type < fields.size(); ++type) {
        Form form;
        form.types.setCurrentIndex(type);
        form.press(form.field(fields.at(type)), Qt::Key_Return);
        QCOMPARE(form.dialog.result(), QDialog::Accepted);
        QVERIFY(!form.dialog.isVisible());
    }
}

void tst_SourceDialog::statusIsNeverCut()
{
    Form form;
    form.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&form.dialog));
    const QLabel &label = form.status;
    form.status.setText(QString(u"Failed: a reason "_s).repeated(20).trimmed());
    const auto whole = [&label] {
        return label.height() >= label.heightForWidth(label.width()) &&
               label.parentWidget()->rect().contains(label.geometry());
    };
    QTRY_VERIFY(whole());
    // Nor when the dialog is made as small as it goes.
    form.dialog.resize(form.dialog.minimumSize());
    QTRY_VERIFY(whole());
    QVERIFY(form.dialog.rect().contains(QRect(label.mapTo(&form.dialog, QPoint()), label.size())));
}

VANTIRO_TEST_MAIN(tst_SourceDialog)
#include "tst_SourceDialog.moc"
