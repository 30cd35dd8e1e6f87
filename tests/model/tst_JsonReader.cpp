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
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

// Whatever is read is what QJsonDocument reads from the text, malformed texts included.

namespace {

/// The results of all conversions of one field.
struct Value
{
    QString text;
    int integer = 0;
    double real = 0;
    qint64 variantInteger = 0;
    qint64 lenientInteger = 0;
    double lenientReal = 0;
    bool minus = false;
    QString integerText;

    bool operator==(const Value &) const = default;
};

Value valueOf(const JsonField &field)
{
    const double real = field.toLenientReal();
    return {field.toText(),           field.toInt(), field.toDouble(),   field.toVariantInteger(),
            field.toLenientInteger(), real,          std::signbit(real), field.toIntegerText()};
}

Value valueOf(const QJsonValue &value)
{
    const QVariant variant = value.toVariant();
    const bool numeric = value.isDouble() || value.isString();
    const qint64 integer = numeric ? variant.toLongLong() : 0;
    double real = numeric ? variant.toDouble() : 0.0;
    real = std::isfinite(real) ? real : 0.0;
    return {value.toString(), value.toInt(), value.toDouble(),   variant.toLongLong(),
            integer,          real,          std::signbit(real), QString::number(integer)};
}

using Values = std::optional<QList<QList<Value>>>;

const std::vector<QByteArrayView> keys{"a", "b"};

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

/// Whether Qt reads the same members one by one, as a whole, and after a change.
bool sameMembers(const QByteArray &json)
{
    if (json.contains("\"\xef\xbb\xbf")) {
        return true; // Qt's iterator and its look-up disagree on such a name
    }
    QJsonObject expected = QJsonDocument::fromJson(json).object();
    JsonMembers object = readJsonMembers(json);
    for (auto member = expected.constBegin(); member != expected.constEnd(); ++member) {
        const QByteArray value = object.value(member.key());
        if (!object.contains(member.key()) ||
            QJsonDocument::fromJson('[' + value + ']').array() != QJsonArray{member.value()}) {
            return false;
        }
    }
    const bool sameRoot = QJsonDocument::fromJson(writeJsonMembers(object)).object() == expected;
    expected.insert("a"_L1, QJsonArray{1});
    object.insert(u"a"_s, "[1]"_ba);
    return sameRoot && QJsonDocument::fromJson(writeJsonMembers(object)).object() == expected;
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
    QVERIFY2(valid > 100, "too few texts are valid");
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
    QCOMPARE(readJsonMembers(R"({"a":{},"b":)" + number + '}').contains(u"a"_s), taken);
    QCOMPARE(readJsonMembers(R"({"a":{},"b":[)" + number + "]}").contains(u"a"_s), taken);
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
    const JsonMembers object = readJsonMembers(
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

VANTIRO_TEST_GUILESS_MAIN(tst_JsonReader)
#include "tst_JsonReader.moc"
