#include "model/JsonReader.h"

#include "model/JsonEvents.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocale>
#include <QVariant>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace JsonEvents;

namespace {

/// Whether Qt alone knows what the text means.
bool isOddText(QByteArrayView utf8)
{
    return utf8.startsWith(byteOrderMark) || holdsSurrogate(utf8);
}

/// Collects the wanted fields of each element of the root array.
class ObjectsHandler final : public EventHandler<ObjectsHandler, rapidjson::InsituStringStream>
{
public:
    ObjectsHandler(const QList<QByteArray> &wantedKeys,
                   const std::function<void(const JsonFields &)> &callback)
        : keys(wantedKeys)
        , take(callback)
        , fields(static_cast<size_t>(wantedKeys.size()))
    {}

    QByteArrayView number(const char *text, qsizetype length) const { return {text, length}; }

    /// Also for a container inside an element, whose contents do not matter. A value at depth 0 is
    /// a root that is no array: refused.
    bool value(const JsonField &field)
    {
        if (depth == memberDepth && inObject) {
            if (wanted < 0) {
                return true;
            }
            if (field.kind == JsonField::Kind::Text && isOddText(field.bytes)) {
                return false;
            }
            fields[static_cast<size_t>(wanted)] = field;
        } else if (depth == elementDepth) {
            clearFields();
            take(fields);
        }
        return depth > 0;
    }

    bool key(QByteArrayView name)
    {
        if (depth == memberDepth) {
            wanted = keys.indexOf(name);
        }
        return true;
    }

    bool begin(bool object)
    {
        if (depth == elementDepth && object) {
            inObject = true;
            clearFields();
            return true;
        }
        return (depth == 0 && !object) || value({JsonField::Kind::Other, {}, {}});
    }

    bool end(bool object)
    {
        if (depth == elementDepth && object) {
            inObject = false;
            take(fields);
        }
        return true;
    }

private:
    static constexpr int elementDepth = 1;
    static constexpr int memberDepth = 2;

    void clearFields() { fields.assign(fields.size(), JsonField()); }

    const QList<QByteArray> &keys;
    const std::function<void(const JsonFields &)> &take;
    JsonFields fields;
    qsizetype wanted = -1;
    bool inObject = false;
};

/// The value of a number in a document, for the conversions that are Qt's own business.
QJsonValue numberValue(QByteArrayView number)
{
    bool isInteger = false;
    const qint64 integer = number.toLongLong(&isInteger);
    return isInteger ? QJsonValue(integer) : QJsonValue(number.toDouble());
}

QByteArray numberText(const QJsonValue &number)
{
    const QVariant variant = number.toVariant();
    return variant.typeId() == QMetaType::LongLong
               ? QByteArray::number(variant.toLongLong())
               : QByteArray::number(number.toDouble(), 'g', QLocale::FloatingPointShortest);
}

JsonField fieldOf(const QJsonValue &value, QByteArray &numberBytes)
{
    switch (value.type()) {
    case QJsonValue::Undefined:
        return {};
    case QJsonValue::String:
        return {JsonField::Kind::Text, {}, value.toString()};
    case QJsonValue::Double:
        numberBytes = numberText(value);
        return {JsonField::Kind::Number, numberBytes, {}};
    case QJsonValue::Bool:
        return {value.toBool() ? JsonField::Kind::True : JsonField::Kind::Other, {}, {}};
    default:
        return {JsonField::Kind::Other, {}, {}};
    }
}

} // namespace

QString JsonField::toText() const
{
    if (kind != Kind::Text) {
        return {};
    }
    return oddText.isEmpty() ? QString::fromUtf8(bytes) : oddText;
}

int JsonField::toInt() const
{
    return kind == Kind::Number ? numberValue(bytes).toInt() : 0;
}

qint64 JsonField::toInteger() const
{
    switch (kind) {
    case Kind::Number:
        return numberValue(bytes).toVariant().toLongLong();
    case Kind::Text:
        return QVariant(toText()).toLongLong();
    default:
        return 0;
    }
}

qint64 JsonField::toVariantInteger() const
{
    return kind == Kind::True ? 1 : toInteger();
}

double JsonField::toReal() const
{
    double number = 0.0;
    if (kind == Kind::Number) {
        number = bytes.toDouble();
        if (number == 0.0) {
            number = 0.0; // a document holds no minus zero
        }
    } else if (kind == Kind::Text) {
        number = QVariant(toText()).toDouble();
    }
    return std::isfinite(number) ? number : 0.0;
}

bool readJsonObjects(const QByteArray &json, const QList<QByteArray> &keys,
                     const std::function<void()> &restart,
                     const std::function<void(const JsonFields &)> &take)
{
    ObjectsHandler handler(keys, take);
    if (readEvents(json, handler)) {
        return true;
    }
    restart();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        return false;
    }
    JsonFields fields(static_cast<size_t>(keys.size()));
    std::vector<QByteArray> numbers(fields.size());
    const QJsonArray elements = document.array();
    for (const QJsonValueConstRef element : elements) {
        const QJsonObject object = element.toObject();
        for (size_t index = 0; index < fields.size(); ++index) {
            const QByteArray &key = keys.at(static_cast<qsizetype>(index));
            fields[index] = fieldOf(object.value(QLatin1StringView(key)), numbers[index]);
        }
        take(fields);
    }
    return true;
}
