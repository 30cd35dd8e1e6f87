#include "DialogAnswers.h"
#include "fakeprovider/HttpServer.h"
#include "support/TestMain.h"
#include "ui/SourceDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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

QPushButton &button(const SourceDialog &dialog, const QString &text)
{
    for (QPushButton *candidate : dialog.findChildren<QPushButton *>()) {
        if (candidate->text() == text) {
            return *candidate;
        }
    }
    qFatal("no button \"%s\" in the dialog", qUtf8Printable(text));
}

} // namespace

/// The "Test Connection" button against a real server.
class tst_SourceDialogConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectionTest_data();
    void connectionTest();
    void connectionTestRefused();
    void secondClickStartsASecondTest();
    void dialogClosedDuringATest();
    void returnPressesTheFocusedButton();
    void returnInAFieldAccepts();
    void statusIsNeverCut_data();
    void statusIsNeverCut();
};

void tst_SourceDialogConnection::connectionTest_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("status");
    const QString failed =
        u"Failed: Authentication failed - check server URL, username, and password"_s;
    QTest::newRow("accepted") << R"({"user_info":{"auth":1}})"_ba << u"Connection OK"_s;
    QTest::newRow("refused") << R"({"user_info":{"auth":0}})"_ba << failed;
    QTest::newRow("nothing about the user") << "{}"_ba << failed;
}

void tst_SourceDialogConnection::connectionTest()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, status);
    HttpServer server;
    server.on(u"/player_api.php"_s, HttpReply::json(reply));
    SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"serverEdit"_s).setText(u' ' + server.url() + u' ');
    field(dialog, u"usernameEdit"_s).setText(u" user "_s);
    field(dialog, u"passwordEdit"_s).setText(u" pass "_s);

    QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
    const auto &label = part<QLabel>(dialog, u"statusLabel"_s);
    QCOMPARE(label.text(), u"Testing..."_s);
    QTRY_COMPARE(label.text(), status);
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(server.requests().at(0).queryValue(u"username"_s), u"user"_s);
    QCOMPARE(server.requests().at(0).queryValue(u"password"_s), u" pass "_s);
    QCOMPARE(label.textFormat(), Qt::PlainText);
}

void tst_SourceDialogConnection::connectionTestRefused()
{
    HttpServer server;
    server.refuse();
    SourceDialog dialog(nullptr, nullptr);
    field(dialog, u"serverEdit"_s).setText(server.url());
    QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
    const auto &label = part<QLabel>(dialog, u"statusLabel"_s);
    QTRY_VERIFY(label.text() != "Testing..."_L1);
    QVERIFY2(label.text().startsWith("Failed: "_L1), qUtf8Printable(label.text()));
    QVERIFY(label.text().size() > 8);
}

void tst_SourceDialogConnection::secondClickStartsASecondTest()
{
    HttpServer server;
    HttpReply reply = HttpReply::json(R"({"user_info":{"auth":1}})"_ba);
    reply.held = true;
    server.on(u"/player_api.php"_s, reply);
    SourceDialog dialog(nullptr, nullptr);
    dialog.show();
    field(dialog, u"serverEdit"_s).setText(server.url());
    QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
    QTRY_COMPARE(server.requestCount(), 1);
    // Still usable meanwhile.
    QVERIFY(field(dialog, u"serverEdit"_s).isEnabled());
    QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
    QTRY_COMPARE(server.requestCount(), 2);
    server.release(u"/player_api.php"_s);
    QTRY_COMPARE(part<QLabel>(dialog, u"statusLabel"_s).text(), u"Connection OK"_s);
}

void tst_SourceDialogConnection::dialogClosedDuringATest()
{
    HttpServer server;
    HttpReply reply = HttpReply::json(R"({"user_info":{"auth":1}})"_ba);
    reply.held = true;
    server.on(u"/player_api.php"_s, reply);
    {
        SourceDialog dialog(nullptr, nullptr);
        field(dialog, u"serverEdit"_s).setText(server.url());
        QVERIFY(DialogAnswers::click(dialog, u"Test Connection"_s));
        QTRY_COMPARE(server.openConnections(), 1);
    }
    QTRY_COMPARE(server.openConnections(), 0);
}

void tst_SourceDialogConnection::returnPressesTheFocusedButton()
{
    HttpServer server;
    server.on(u"/player_api.php"_s, HttpReply::json(R"({"user_info":{"auth":1}})"_ba));
    DialogAnswers answers;
    SourceDialog dialog(nullptr, nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    field(dialog, u"serverEdit"_s).setText(server.url());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        server.clearRequests();
        QPushButton &test = button(dialog, u"Test Connection"_s);
        test.setFocus();
        QTest::keyClick(&test, key);
        QTRY_COMPARE(server.requestCount(), 1);
        QTRY_COMPARE(part<QLabel>(dialog, u"statusLabel"_s).text(), u"Connection OK"_s);
        QVERIFY(dialog.isVisible());
    }

    part<QComboBox>(dialog, u"typeCombo"_s).setCurrentIndex(0);
    QPushButton &upload = button(dialog, u"Upload File..."_s);
    upload.setFocus();
    QTest::keyClick(&upload, Qt::Key_Return);
    QCOMPARE(answers.seen().size(), 1);
    QCOMPARE(answers.seen().at(0).title, u"Upload M3U Playlist"_s);
    QVERIFY(dialog.isVisible());
}

void tst_SourceDialogConnection::returnInAFieldAccepts()
{
    for (const QString &name : {u"m3uUrlEdit"_s, u"serverEdit"_s, u"keyEdit"_s}) {
        SourceDialog dialog(nullptr, nullptr);
        part<QComboBox>(dialog, u"typeCombo"_s)
            .setCurrentIndex(name == "m3uUrlEdit"_L1   ? 0
                             : name == "serverEdit"_L1 ? 1
                                                       : 2);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        field(dialog, name).setFocus();
        QTest::keyClick(&field(dialog, name), Qt::Key_Return);
        QCOMPARE(dialog.result(), QDialog::Accepted);
        QVERIFY(!dialog.isVisible());
    }
}

void tst_SourceDialogConnection::statusIsNeverCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("the longest of the client's")
        << u"Failed: Authentication failed - check server URL, username, and password"_s;
    QTest::newRow("longer ones") << QString(u"Failed: a reason "_s).repeated(20).trimmed();
}

void tst_SourceDialogConnection::statusIsNeverCut()
{
    QFETCH(QString, text);
    SourceDialog dialog(nullptr, nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto &label = part<QLabel>(dialog, u"statusLabel"_s);
    label.setText(text);
    const auto whole = [&label] {
        return label.height() >= label.heightForWidth(label.width()) &&
               label.parentWidget()->rect().contains(label.geometry());
    };
    QTRY_VERIFY(whole());
    // Nor when the dialog is made as small as it goes.
    dialog.resize(dialog.minimumSize());
    QTRY_VERIFY(whole());
    QVERIFY(dialog.rect().contains(QRect(label.mapTo(&dialog, QPoint()), label.size())));
}

VANTIRO_TEST_MAIN(tst_SourceDialogConnection)
#include "tst_SourceDialogConnection.moc"
