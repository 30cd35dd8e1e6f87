#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "support/TestMain.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// What is appended to a text for this value.
template <typename Value>
QByteArray jsonOf(const Value &value)
{
    JsonText text(0);
    text.append('x');
    appendJson(text, value);
    const QByteArray json = text.take();
    return json.startsWith('x') ? json.sliced(1) : "overwritten"_ba;
}

} // namespace

class tst_JsonWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts();
    void numbers();
    void records();
    void members();
};

void tst_JsonWriter::texts()
{
    // A byte-order mark in front would not be read back, and UTF-8 has no lone surrogates.
    const QList<std::pair<QString, QByteArray>> texts{
        {{}, R"("")"_ba},
        {u"Caf\u00e9 \U0001F600"_s, "\"Caf\xc3\xa9 \xf0\x9f\x98\x80\""_ba},
        {uR"(a"b\c/)"_s, R"("a\"b\\c/")"_ba},
        {u"\n\x01\x1f\x7f"_s, "\"\\u000a\\u0001\\u001f\x7f\""_ba},
        {QString(QChar(0)), R"("\u0000")"_ba},
        {u"\ufeffa"_s, R"("\ufeff\u0061")"_ba},
        {u"a\ufeff"_s, "\"a\xef\xbb\xbf\""_ba},
        {u"a"_s + QChar(0xd83d), R"("\u0061\ud83d")"_ba},
    };
    for (const auto &[text, json] : texts) {
        QCOMPARE(jsonOf(text), json);
    }
}

void tst_JsonWriter::numbers()
{
    using Limits = std::numeric_limits<double>;
    QCOMPARE(jsonOf(0.0), "0"_ba);
    QCOMPARE(jsonOf(-0.0), "0"_ba);
    QCOMPARE(jsonOf(0.1), "0.1"_ba);
    QCOMPARE(jsonOf(0.1 + 0.2), "0.30000000000000004"_ba);
    QCOMPARE(jsonOf(-7.25), "-7.25"_ba);
    QCOMPARE(jsonOf(Limits::denorm_min()), "5e-324"_ba);
    QCOMPARE(jsonOf(Limits::max()), "1.7976931348623157e+308"_ba);
    for (const double number : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        QCOMPARE(jsonOf(number), "null"_ba);
    }
}

void tst_JsonWriter::records()
{
    struct Record
    {
        QString text;
        qint32 small = 0;
        qint64 large = 0;
        double real = 0;
        bool operator==(const Record &) const = default;
    };
    constexpr std::tuple table{
        JsonColumn{"t", &Record::text, &JsonField::toText},
        JsonColumn{"l", &Record::large, &JsonField::toVariantInteger},
        JsonColumn{"s", &Record::small, &JsonField::toInt},
        JsonColumn{"r", &Record::real, &JsonField::toDouble},
    };
    const QList<Record> records{{u"a\""_s, -1, 1LL << 60, 0.5}, {}};
    const QByteArray json =
        R"([{"t":"a\"","l":1152921504606846976,"s":-1,"r":0.5},{"t":"","l":0,"s":0,"r":0}])"_ba;
    QCOMPARE(writeJsonRecords(records, table), json);
    QVERIFY(readJsonRecords(json, table) == records);
    QCOMPARE(writeJsonRecords(QList<Record>(), table), "[]"_ba);
    // A key that is missing resets the field; a field without a column keeps its initial value.
    const Record initial{u"x"_s, 1, 2, 3};
    constexpr std::tuple oneColumn{JsonColumn{"t", &Record::text, &JsonField::toText}};
    QVERIFY(readJsonRecords("[{}]"_ba, oneColumn, initial) == (QList<Record>{{{}, 1, 2, 3}}));
}

void tst_JsonWriter::members()
{
    JsonMembers object = readJsonMembers(R"({"z":1,"a":2,"m":3})"_ba);
    object.insert(u"a"_s, "true"_ba);
    object.insert(u"b"_s, "[]"_ba);
    QCOMPARE(writeJsonMembers(object), R"({"z":1,"a":true,"m":3,"b":[]})"_ba);
    QCOMPARE(writeJsonMembers(JsonMembers()), "{}"_ba);
}

VANTIRO_TEST_GUILESS_MAIN(tst_JsonWriter)
#include "tst_JsonWriter.moc"
