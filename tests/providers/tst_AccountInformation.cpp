#include "providers/AccountInformation.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What an account's summary tells, however the provider writes it.

namespace {

std::optional<AccountInformation> read(const QByteArray &json)
{
    return readAccountInformation(QJsonDocument::fromJson(json));
}

/// The summary with these members of "user_info".
AccountInformation readUser(const QByteArray &members)
{
    return read(R"({"user_info":{"auth":1,)" + members + "}}").value_or(AccountInformation());
}

} // namespace

class tst_AccountInformation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void complete();
    void noSummary_data();
    void noSummary();
    void authorised_data();
    void authorised();
    void expiry_data();
    void expiry();
    void trial_data();
    void trial();
    void connections_data();
    void connections();
    void formats_data();
    void formats();
    void timeZone_data();
    void timeZone();
};

void tst_AccountInformation::complete()
{
    const AccountInformation expected{u"Active"_s,          1'900'000'000,     false, 1, 2,
                                      {u"m3u8"_s, u"ts"_s}, u"Europe/Berlin"_s};
    QCOMPARE(read(R"({"user_info":{"username":"u","password":"p","auth":1,"status":"Active",
                     "exp_date":"1900000000","is_trial":"0","active_cons":"1",
                     "max_connections":"2","allowed_output_formats":["m3u8","ts"]},
                     "server_info":{"timezone":"Europe/Berlin"}})"_ba),
             expected);
}

void tst_AccountInformation::noSummary_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("an array") << "[]"_ba;
    QTest::newRow("without a user") << R"({"server_info":{"timezone":"UTC"}})"_ba;
    QTest::newRow("an array for the user") << R"({"user_info":[]})"_ba;
    QTest::newRow("null for the user") << R"({"user_info":null})"_ba;
    QTest::newRow("refused") << R"({"user_info":{"auth":0,"status":"Active"}})"_ba;
    QTest::newRow("refused, as a text") << R"({"user_info":{"auth":"0"}})"_ba;
    QTest::newRow("refused, as a flag") << R"({"user_info":{"auth":false}})"_ba;
}

void tst_AccountInformation::noSummary()
{
    QFETCH(QByteArray, json);
    QVERIFY(!read(json));
}

void tst_AccountInformation::authorised_data()
{
    QTest::addColumn<QByteArray>("auth");
    QTest::newRow("number") << R"("auth":1,)"_ba;
    QTest::newRow("text") << R"("auth":"1",)"_ba;
    QTest::newRow("flag") << R"("auth":true,)"_ba;
    QTest::newRow("missing") << ""_ba;
    QTest::newRow("null") << R"("auth":null,)"_ba;
}

void tst_AccountInformation::authorised()
{
    QFETCH(QByteArray, auth);
    const auto information = read(R"({"user_info":{)" + auth + R"("status":" Active "}})");
    QVERIFY(information);
    AccountInformation expected;
    expected.status = u"Active"_s;
    QCOMPARE(*information, expected);
}

void tst_AccountInformation::expiry_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint64>("seconds"); ///< 0: does not expire
    QTest::newRow("text") << R"("1900000000")"_ba << qint64(1'900'000'000);
    QTest::newRow("number") << "1900000000"_ba << qint64(1'900'000'000);
    QTest::newRow("white space") << R"(" 1900000000 ")"_ba << qint64(1'900'000'000);
    QTest::newRow("fraction") << "1900000000.5"_ba << qint64(1'900'000'000);
    QTest::newRow("date and time") << R"("2030-03-17T17:46:40Z")"_ba << qint64(1'900'000'000);
    QTest::newRow("with a space") << R"("2030-03-17 17:46:40Z")"_ba << qint64(1'900'000'000);
    QTest::newRow("beyond 32 bits") << "5000000000"_ba << qint64(5'000'000'000);
    for (const QByteArray &none : {"null"_ba, "0"_ba, "-1"_ba, R"("0")"_ba, R"("")"_ba,
                                   R"("Unlimited")"_ba, R"("nan")"_ba, "1e300"_ba, "[]"_ba})
        QTest::newRow(none.constData()) << none << qint64(0);
}

void tst_AccountInformation::expiry()
{
    QFETCH(QByteArray, value);
    QFETCH(qint64, seconds);
    const AccountInformation information = readUser(R"("exp_date":)" + value);
    QCOMPARE(information.expiresAt.has_value(), seconds != 0);
    QCOMPARE(information.expiresAt.value_or(0), seconds);
}

void tst_AccountInformation::trial_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("trial"); ///< -1: unknown
    for (const QByteArray &yes : {"1"_ba, R"("1")"_ba, "true"_ba, R"("true")"_ba, R"("Yes")"_ba})
        QTest::newRow(yes.constData()) << yes << 1;
    for (const QByteArray &no : {"0"_ba, R"("0")"_ba, "false"_ba, R"("False")"_ba, R"("no")"_ba})
        QTest::newRow(no.constData()) << no << 0;
    for (const QByteArray &unknown : {"null"_ba, R"("")"_ba, R"("N/A")"_ba, "{}"_ba})
        QTest::newRow(unknown.constData()) << unknown << -1;
}

void tst_AccountInformation::trial()
{
    QFETCH(QByteArray, value);
    QFETCH(int, trial);
    const std::optional<bool> read = readUser(R"("is_trial":)" + value).isTrial;
    QCOMPARE(read ? int(*read) : -1, trial);
}

void tst_AccountInformation::connections_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint64>("count"); ///< -1: unknown
    QTest::newRow("text") << R"("3")"_ba << qint64(3);
    QTest::newRow("number") << "3"_ba << qint64(3);
    QTest::newRow("flag") << "true"_ba << qint64(1);
    QTest::newRow("flag that is not set") << "false"_ba << qint64(0);
    QTest::newRow("none in use") << "0"_ba << qint64(0);
    for (const QByteArray &unknown : {"null"_ba, R"("N/A")"_ba, R"("")"_ba, "[1]"_ba})
        QTest::newRow(unknown.constData()) << unknown << qint64(-1);
}

void tst_AccountInformation::connections()
{
    QFETCH(QByteArray, value);
    QFETCH(qint64, count);
    const AccountInformation information =
        readUser(R"("max_connections":)" + value + R"(,"active_cons":)" + value);
    QCOMPARE(information.connectionsAllowed.value_or(-1), count);
    QCOMPARE(information.connectionsInUse.value_or(-1), count);
}

void tst_AccountInformation::formats_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QStringList>("expected");
    const QStringList both{u"m3u8"_s, u"ts"_s};
    QTest::newRow("array") << R"(["m3u8","ts"])"_ba << both;
    QTest::newRow("object") << R"({"0":"m3u8","1":"ts"})"_ba << both;
    QTest::newRow("text") << R"("m3u8, ts")"_ba << both;
    QTest::newRow("nulls between") << R"(["m3u8",null,"","ts"])"_ba << both;
    for (const QByteArray &none : {"null"_ba, "[]"_ba, R"("")"_ba, "7"_ba})
        QTest::newRow(none.constData()) << none << QStringList();
}

void tst_AccountInformation::formats()
{
    QFETCH(QByteArray, value);
    QFETCH(QStringList, expected);
    QCOMPARE(readUser(R"("allowed_output_formats":)" + value).formats, expected);
}

void tst_AccountInformation::timeZone_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::addColumn<QString>("expected");
    QTest::newRow("named") << R"({"timezone":"America/New_York"})"_ba << u"America/New_York"_s;
    QTest::newRow("null") << R"({"timezone":null})"_ba << QString();
    QTest::newRow("an array for the server") << "[]"_ba << QString();
}

void tst_AccountInformation::timeZone()
{
    QFETCH(QByteArray, server);
    QFETCH(QString, expected);
    const auto information = read(R"({"user_info":{"auth":1},"server_info":)" + server + '}');
    QVERIFY(information);
    QCOMPARE(information->timeZone, expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_AccountInformation)
#include "tst_AccountInformation.moc"
