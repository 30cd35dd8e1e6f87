#include "fakeprovider/XtreamProvider.h"
#include "providers/SampleCatalogs.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/AccountInformationDialog.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals;

// What the dialog shows of a real server's reply. tst_AccountInformation shows how replies are
// read.

namespace {

const QString noAnswer = u"The server could not be reached, or its answer cannot be read."_s;
const QString refused = u"The server does not accept this account, or tells nothing about it."_s;

} // namespace

class tst_AccountInformationDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { dialog.reset(); }

    void everythingIsKnown();
    void nothingIsKnown();
    void longTextsAreCut();
    void failuresCanBeRetried_data();
    void failuresCanBeRetried();
    void closingEndsTheRequest();

private:
    void ask(const QByteArray &summary);
    /// The text of the row of that name.
    QString value(const QString &name) const;
    const QLabel &message() const { return *dialog->findChild<QLabel *>(u"accountMessage"_s); }
    QPushButton &retry() const
    {
        return *dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Retry);
    }

    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<AccountInformationDialog> dialog;
};

void tst_AccountInformationDialog::init()
{
    provider = std::make_unique<XtreamProvider>();
}

void tst_AccountInformationDialog::ask(const QByteArray &summary)
{
    if (!summary.isEmpty()) {
        provider->setReply(XtreamAction::login, summary);
    }
    dialog =
        std::make_unique<AccountInformationDialog>(sourceFor(*provider, u"<i>Mine</i>"_s), nullptr);
    dialog->show();
    QVERIFY(message().isVisible());
    QCOMPARE(message().text(), u"Asking the server..."_s);
    QVERIFY(!retry().isVisible());
}

QString tst_AccountInformationDialog::value(const QString &name) const
{
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->accessibleName() == name) {
            return label->text();
        }
    }
    return u"no such row"_s;
}

void tst_AccountInformationDialog::everythingIsKnown()
{
    ask(R"({"user_info":{"auth":1,"status":"Active","exp_date":"1893499200","is_trial":"1",
            "active_cons":"1","max_connections":"2","allowed_output_formats":["m3u8","ts"]},
            "server_info":{"timezone":"Europe/Berlin"}})"_ba);
    QTRY_VERIFY(!message().isVisible());
    QCOMPARE(value(u"Source"_s), u"<i>Mine</i>"_s);
    QCOMPARE(value(u"Status"_s), u"Active"_s);
    const QDate expiry = QDateTime::fromSecsSinceEpoch(1893499200).date();
    QCOMPARE(value(u"Expires"_s), QLocale().toString(expiry, QLocale::LongFormat));
    QCOMPARE(value(u"Trial"_s), u"Yes"_s);
    QCOMPARE(value(u"Connections in use"_s), u"1"_s);
    QCOMPARE(value(u"Connections allowed"_s), u"2"_s);
    QCOMPARE(value(u"Formats"_s), u"m3u8, ts"_s);
    QCOMPARE(value(u"Time zone of the server"_s), u"Europe/Berlin"_s);
    QCOMPARE(provider->actions(), QStringList{XtreamAction::login});
    QVERIFY(!retry().isVisible());
}

void tst_AccountInformationDialog::nothingIsKnown()
{
    ask(R"({"user_info":{"auth":1}})"_ba);
    QTRY_VERIFY(!message().isVisible());
    for (const QString &name :
         {u"Status"_s, u"Trial"_s, u"Connections in use"_s, u"Connections allowed"_s, u"Formats"_s,
          u"Time zone of the server"_s}) {
        QCOMPARE(value(name), u"Unknown"_s);
    }
    QCOMPARE(value(u"Expires"_s), u"Never"_s);
}

void tst_AccountInformationDialog::longTextsAreCut()
{
    const QByteArray status = QByteArray("very\\n ").repeated(100'000);
    ask(R"({"user_info":{"auth":1,"status":")"_ba + status + R"("}})"_ba);
    QTRY_VERIFY(!message().isVisible());
    QCOMPARE(value(u"Status"_s), u"very "_s.repeated(40));
    QVERIFY(dialog->sizeHint().height() < 700);
}

void tst_AccountInformationDialog::failuresCanBeRetried_data()
{
    QTest::addColumn<XtreamProvider::Manner>("manner");
    QTest::addColumn<QByteArray>("summary");
    QTest::addColumn<QString>("text");
    using Manner = XtreamProvider::Manner;
    QTest::newRow("refused") << Manner::Plain << R"({"user_info":{"auth":0}})"_ba << refused;
    QTest::newRow("no summary") << Manner::Plain << "[]"_ba << refused;
    QTest::newRow("a page") << Manner::HtmlPage << "{}"_ba << noAnswer;
    QTest::newRow("an error") << Manner::Unavailable << "{}"_ba << noAnswer;
    QTest::newRow("cut short") << Manner::CutReply << "{}"_ba << noAnswer;
}

void tst_AccountInformationDialog::failuresCanBeRetried()
{
    QFETCH(const XtreamProvider::Manner, manner);
    QFETCH(const QByteArray, summary);
    QFETCH(const QString, text);
    provider->setManner(XtreamAction::login, manner);
    ask(summary);
    QTRY_COMPARE(message().text(), text);
    QVERIFY(message().isVisible());
    QCOMPARE(value(u"Status"_s), u"no such row"_s);
    const int requests = provider->requestCount(XtreamAction::login);

    // As long as it fails, and when it no longer does.
    retry().click();
    QVERIFY(!retry().isVisible());
    QTRY_VERIFY(retry().isVisible());
    QCOMPARE(message().text(), text);
    QVERIFY(provider->requestCount(XtreamAction::login) > requests);
    provider->setManner(XtreamAction::login, XtreamProvider::Manner::Plain);
    provider->setReply(XtreamAction::login, R"({"user_info":{"auth":1,"status":"Active"}})"_ba);
    retry().click();
    QTRY_COMPARE(value(u"Status"_s), u"Active"_s);
    QVERIFY(!message().isVisible());
}

void tst_AccountInformationDialog::closingEndsTheRequest()
{
    provider->setManner(XtreamAction::login, XtreamProvider::Manner::Held);
    ask({});
    QTRY_COMPARE(provider->requestCount(XtreamAction::login), 1);
    QTRY_VERIFY(provider->http().openConnections() > 0);
    dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close)->click();
    QVERIFY(!dialog->isVisible());
    dialog.reset();
    QTRY_COMPARE(provider->http().openConnections(), 0);
}

VANTIRO_TEST_MAIN(tst_AccountInformationDialog)
#include "tst_AccountInformationDialog.moc"
