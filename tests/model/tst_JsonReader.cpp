#include "model/JsonObjectText.h"
#include "model/JsonReader.h"
#include "model/JsonTexts.h"
#include "model/JsonWriter.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QTest>
#include <QVariant>

#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

// Whatever is read is what QJsonDocument makes of the text, of the malformed ones too, and what is
// written is what QJsonDocument reads.

namespace {

/// All that can be asked of a field.
struct Value
{
    QString text;
    int integer = 0;
    qint64 integer64 = 0;
    qint64 variantInteger = 0;
    double real = 0;
    bool minus = false;

    bool operator==(const Value &) const = default;
};

Value valueOf(const JsonField &field)
{
    return {field.toText(),           field.toInt(),  field.toInteger(),
            field.toVariantInteger(), field.toReal(), std::signbit(field.toReal())};
}

Value valueOf(const QJsonValue &value)
{
    const QVariant variant = value.toVariant();
    const bool numeric = value.isDouble() || value.isString();
    double real = numeric ? variant.toDouble() : 0.0;
    real = std::isfinite(real) ? real : 0.0;
    return {value.toString(),     value.toInt(), numeric ? variant.toLongLong() : 0,
            variant.toLongLong(), real,          std::signbit(real)};
}

using Values = std::optional<QList<QList<Value>>>;

const QList<QByteArray> keys{"a"_ba, "b"_ba};

Values read(const QByteArray &json)
{
    QList<QList<Value>> elements;
    const bool valid = readJsonObjects(
        json, keys, [&elements] { elements.clear(); },
        [&elements](const JsonFields &fields) {
            elements.append({valueOf(fields.at(0)), valueOf(fields.at(1))});
        });
    return valid ? Values(elements) : std::nullopt;
}

Values readByQt(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonArray array = QJsonDocument::fromJson(json, &error).array();
    if (error.error != QJsonParseError::NoError) {
        return std::nullopt;
    }
    QList<QList<Value>> elements;
    for (const QJsonValue element : array) {
        const QJsonObject object = element.toObject();
        elements.append({valueOf(object.value("a"_L1)), valueOf(object.value("b"_L1))});
    }
    return elements;
}

/// Whether the object is the same in parts, as a whole, and after a change.
bool sameMembers(const QByteArray &json)
{
    if (json.contains("\"\xef\xbb\xbf")) {
        return true; // Qt's iterator and its look-up do not agree on such a name
    }
    QJsonObject expected = QJsonDocument::fromJson(json).object();
    JsonObjectText object = JsonObjectText::read(json);
    for (auto member = expected.constBegin(); member != expected.constEnd(); ++member) {
        const QByteArray value = object.value(member.key());
        if (!object.contains(member.key()) ||
            QJsonDocument::fromJson('[' + value + ']').array() != QJsonArray{member.value()}) {
            return false;
        }
    }
    const bool sameRoot = QJsonDocument::fromJson(object.toJson()).object() == expected;
    expected.insert("a"_L1, QJsonArray{1});
    object.insert(u"a"_s, "[1]"_ba);
    return sameRoot && QJsonDocument::fromJson(object.toJson()).object() == expected;
}

} // namespace

class tst_JsonReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameAsQt_data();
    void sameAsQt();
    void sameAsQtOnRandomTexts_data();
    void sameAsQtOnRandomTexts();
    void whatQtRefuses_data();
    void whatQtRefuses();
    void fieldsAreThoseOfTheirObject();
    void membersAreKeptAsTheyStand();
    void membersKeepTheirPlace();
    void writtenTexts_data();
    void writtenTexts();
    void writtenNumbers_data();
    void writtenNumbers();
};

void tst_JsonReader::sameAsQt_data()
{
    QTest::addColumn<QByteArray>("json");
    int number = 0;
    const auto row = [&number](const QByteArray &json) {
        QTest::addRow("%d %s", ++number, json.left(30).toPercentEncoding(" {}[]\":,").constData())
            << json;
    };
    for (const QByteArray &value : JsonTexts::values()) {
        row(R"([{"a":)" + value + R"(,"b":"x"}])");
        row(R"([{"x":)" + value + R"(,"b":2}])");
        row(R"([{"a":{"b":)" + value + R"(},"b":2}])");
        row('[' + value + ']');
        row(R"({"a":)" + value + R"(,"b":2})");
        row(R"({"b":{"a":[)" + value + "]}}");
        if (value.startsWith('"')) {
            row("[{" + value + R"(:1,"a":2,"b":3}])");
            row('{' + value + R"(:1,"a":2})");
        }
    }
    for (const QByteArray &document : JsonTexts::documents()) {
        row(document);
    }
}

void tst_JsonReader::sameAsQt()
{
    QFETCH(const QByteArray, json);
    QVERIFY(read(json) == readByQt(json));
    QVERIFY(sameMembers(json));
}

void tst_JsonReader::sameAsQtOnRandomTexts_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_JsonReader::sameAsQtOnRandomTexts()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    const QList<QByteArray> samples{
        R"([{"a":1,"b":"x\u00e9"},{"a":"2","b":-1.5e3,"x":[{"a":[null,true]},"\ud83d\ude00"]},)"
        R"([1,2],null,"t",7.25,{"a":false,"b":null}])"_ba,
        R"({"a":{"b":[1,2.5,"x\n"],"a":{}},"\u00e9":null,"b":true,"c":-7e2,"d":[{"a":"b"}]})"_ba};
    int valid = 0;
    for (int round = 0; round < 5000; ++round) {
        const QByteArray json = JsonTexts::mutated(samples.at(round % 2), random);
        const Values expected = readByQt(json);
        QVERIFY2(read(json) == expected, JsonTexts::printable(json).constData());
        QVERIFY2(sameMembers(json), JsonTexts::printable(json).constData());
        valid += expected ? 1 : 0;
    }
    QVERIFY2(valid > 100, "too few texts are right ones");
}

void tst_JsonReader::whatQtRefuses_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("taken");
    QTest::newRow("beyond a double") << "12e308"_ba << false;
    QTest::newRow("far beyond a double") << "1e400"_ba << false;
    QTest::newRow("too close to 0") << "1e-400"_ba << false;
    QTest::newRow("too many digits") << QByteArray(400, '9') << false;
    QTest::newRow("too many zeros") << "0." + QByteArray(400, '0') + "1" << false;
    QTest::newRow("the largest double") << "1.7976931348623157e308"_ba << true;
    QTest::newRow("the smallest double") << "5e-324"_ba << true;
    QTest::newRow("0 with an exponent") << "0e400"_ba << true;
    QTest::newRow("beyond 64 bits") << "99999999999999999999"_ba << true;
}

void tst_JsonReader::whatQtRefuses()
{
    QFETCH(const QByteArray, number);
    QFETCH(const bool, taken);
    // Wherever it stands, the whole text is refused.
    QCOMPARE(read(R"([{"a":)" + number + "}]").has_value(), taken);
    QCOMPARE(read(R"([{"a":1,"x":[)" + number + "]}]").has_value(), taken);
    QCOMPARE(JsonObjectText::read(R"({"a":{},"b":)" + number + '}').contains(u"a"_s), taken);
    QCOMPARE(JsonObjectText::read(R"({"a":{},"b":[)" + number + "]}").contains(u"a"_s), taken);
}

void tst_JsonReader::fieldsAreThoseOfTheirObject()
{
    // An element without a member must not show that of the one before.
    const auto values =
        read(R"([{"a":"1","b":true},{"a":null},5,{"b":"x","a":"y"},{},{"x":{"a":"z"}}])"_ba);
    QVERIFY(values.has_value());
    QStringList texts;
    for (const QList<Value> &element : *values) {
        texts << element.at(0).text + u'|' + element.at(1).text + u'|' +
                     QString::number(element.at(1).variantInteger);
    }
    QCOMPARE(texts, (QStringList{u"1||1"_s, u"||0"_s, u"||0"_s, u"y|x|0"_s, u"||0"_s, u"||0"_s}));
}

void tst_JsonReader::membersAreKeptAsTheyStand()
{
    const JsonObjectText object = JsonObjectText::read(
        "{ \"n\" :\t-1.50e1 , \"t\":\"\\u0041\\/\" ,\n\"l\": [ 1 ] , \"o\":{ \"a\" : 1 }\r,"
        "\"z\":null }"_ba);
    QCOMPARE(object.value(u"n"_s), "-1.50e1"_ba);
    QCOMPARE(object.value(u"t"_s), R"("\u0041\/")"_ba);
    QCOMPARE(object.value(u"l"_s), "[ 1 ]"_ba);
    QCOMPARE(object.value(u"o"_s), R"({ "a" : 1 })"_ba);
    QCOMPARE(object.value(u"z"_s), "null"_ba);
    QCOMPARE(object.value(u"a"_s), QByteArray());
    QVERIFY(!object.contains(u"a"_s));
}

void tst_JsonReader::membersKeepTheirPlace()
{
    JsonObjectText object = JsonObjectText::read(R"({"z":1,"a":2,"m":3})"_ba);
    object.insert(u"a"_s, "true"_ba);
    object.insert(u"b"_s, "[]"_ba);
    QCOMPARE(object.toJson(), R"({"z":1,"a":true,"m":3,"b":[]})"_ba);
    QCOMPARE(JsonObjectText().toJson(), "{}"_ba);
}

void tst_JsonReader::writtenTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("empty") << QString() << R"("")"_ba;
    QTest::newRow("plain") << u"Caf\u00e9 \U0001F600"_s << "\"Caf\xc3\xa9 \xf0\x9f\x98\x80\""_ba;
    QTest::newRow("quotes and backslashes") << uR"(a"b\c/)"_s << R"("a\"b\\c/")"_ba;
    QTest::newRow("control characters")
        << u"\n\x01\x1f\x7f"_s << QByteArray("\"\\u000a\\u0001\\u001f\x7f\"");
    QTest::newRow("NUL") << QString(QChar(0)) << R"("\u0000")"_ba;
    QTest::newRow("byte-order mark") << u"\ufeffa"_s << R"("\ufeff\u0061")"_ba;
    QTest::newRow("byte-order mark inside") << u"a\ufeff"_s << "\"a\xef\xbb\xbf\""_ba;
    QTest::newRow("lone surrogate") << u"a"_s + QChar(0xd83d) << R"("\u0061\ud83d")"_ba;
}

void tst_JsonReader::writtenTexts()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, json);
    QByteArray written = "x"_ba;
    appendJsonText(written, text);
    QCOMPARE(written, 'x' + json);
    if (text.isValidUtf16()) {
        QCOMPARE(QJsonDocument::fromJson('[' + json + ']').array(), QJsonArray{text});
    }
}

void tst_JsonReader::writtenNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("json");
    using Limits = std::numeric_limits<double>;
    QTest::newRow("0") << 0.0 << "0"_ba;
    QTest::newRow("minus 0") << -0.0 << "0"_ba;
    QTest::newRow("shortest form") << 0.1 << "0.1"_ba;
    QTest::newRow("all digits") << 0.1 + 0.2 << "0.30000000000000004"_ba;
    QTest::newRow("negative") << -7.25 << "-7.25"_ba;
    QTest::newRow("smallest") << Limits::denorm_min() << "5e-324"_ba;
    QTest::newRow("largest") << Limits::max() << "1.7976931348623157e+308"_ba;
    QTest::newRow("infinite") << Limits::infinity() << "null"_ba;
    QTest::newRow("negative infinite") << -Limits::infinity() << "null"_ba;
    QTest::newRow("not a number") << Limits::quiet_NaN() << "null"_ba;
}

void tst_JsonReader::writtenNumbers()
{
    QFETCH(const double, number);
    QFETCH(const QByteArray, json);
    QByteArray written = "x"_ba;
    appendJsonNumber(written, number);
    QCOMPARE(written, 'x' + json);
    const QJsonValue value = QJsonDocument::fromJson('[' + json + ']').array().at(0);
    QCOMPARE(value.isDouble(), std::isfinite(number));
    QVERIFY(!value.isDouble() || value.toDouble() == number);
}

VANTIRO_TEST_GUILESS_MAIN(tst_JsonReader)
#include "tst_JsonReader.moc"
