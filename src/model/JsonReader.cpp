#include "model/JsonReader.h"

#include "model/JsonEvents.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocale>
#include <QSet>
#include <QVariant>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace JsonEvents;

namespace {

/// Whether only Qt can decode the text.
bool needsQt(QByteArrayView utf8)
{
    return utf8.startsWith(byteOrderMark) || holdsSurrogate(utf8);
}

/// Collects the requested fields of each element of the root array.
class ObjectsHandler final : public EventHandler<ObjectsHandler, rapidjson::InsituStringStream>
{
public:
    ObjectsHandler(const std::vector<QByteArrayView> &requestedKeys,
                   const std::function<void(const JsonFields &)> &callback)
        : keys(requestedKeys)
        , take(callback)
        , fields(requestedKeys.size())
    {}

    QByteArrayView number(const char *text, qsizetype length) const { return {text, length}; }

    /// Called also for a container inside an element; its contents are skipped. A value at depth 0
    /// is a root that is not an array and is refused.
    bool value(const JsonField &field)
    {
        if (depth == memberDepth && inObject) {
            if (requested == nullptr) {
                return true;
            }
            if (field.kind == JsonField::Kind::Text && needsQt(field.bytes)) {
                return false;
            }
            *requested = field;
        } else if (depth == elementDepth) {
            clearFields();
            take(fields);
        }
        return depth > 0;
    }

    bool key(QByteArrayView name)
    {
        if (depth == memberDepth) {
            const auto found = std::find(keys.begin(), keys.end(), name);
            requested = found == keys.end() ? nullptr : &fields[size_t(found - keys.begin())];
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

    const std::vector<QByteArrayView> &keys;
    const std::function<void(const JsonFields &)> &take;
    JsonFields fields;
    JsonField *requested = nullptr; ///< the field for the value that follows, if it is requested
    bool inObject = false;
};

/// A key as QString::fromUtf8() decodes it, but with a leading byte-order mark kept.
QString keyText(QByteArrayView utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith(byteOrderMark) && !text.startsWith(QChar::ByteOrderMark)
               ? QChar::ByteOrderMark + text
               : text;
}

/// Records the positions of the root object's members. Refuses duplicate members.
class MembersHandler final : public EventHandler<MembersHandler, PositionStream>
{
public:
    explicit MembersHandler(const QByteArray &text)
        : json(text)
    {}

    /// With this stream RapidJSON passes the position behind the number instead of the number.
    QByteArrayView number(const char * /*text*/, qsizetype length) const
    {
        const auto end = static_cast<qsizetype>(stream->Tell());
        return QByteArrayView(json).sliced(end - length, length);
    }

    bool value(const JsonField & /*field*/)
    {
        setEnd();
        return depth > 0;
    }

    bool key(QByteArrayView name)
    {
        if (depth != memberDepth) {
            return true;
        }
        JsonMemberPlace place;
        place.key = keyText(name);
        if (holdsSurrogate(name) || keys.contains(place.key)) {
            return false;
        }
        keys.insert(place.key);
        // A colon and possibly whitespace follow the key.
        place.start = static_cast<qsizetype>(stream->Tell());
        while (place.start < json.size() &&
               QByteArrayView(" \t\r\n:").contains(json.at(place.start))) {
            ++place.start;
        }
        places.append(place);
        return true;
    }

    bool begin(bool object) { return depth > 0 || object; }

    bool end(bool /*object*/)
    {
        setEnd();
        return true;
    }

    QList<JsonMemberPlace> places;

private:
    static constexpr int memberDepth = 1;

    void setEnd()
    {
        if (depth == memberDepth) {
            places.last().length = static_cast<qsizetype>(stream->Tell()) - places.last().start;
        }
    }

    const QByteArray &json;
    QSet<QString> keys;
};

QByteArray numberText(const QJsonValue &number)
{
    const QVariant variant = number.toVariant();
    return variant.typeId() == QMetaType::LongLong
               ? QByteArray::number(variant.toLongLong())
               : QByteArray::number(number.toDouble(), 'g', QLocale::FloatingPointShortest);
}

/// The same field as the event reader would give. `numberBytes` keeps the bytes of a number.
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

/// A value of a document as a JSON text of its own.
QByteArray textOf(const QJsonValue &value)
{
    // Only arrays and objects can be documents.
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
}

} // namespace

bool readJsonObjects(const QByteArray &json, const std::vector<QByteArrayView> &keys,
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
    JsonFields fields(keys.size());
    std::vector<QByteArray> numbers(keys.size()); // what the fields of numbers refer to
    const QJsonArray elements = document.array();
    for (const QJsonValueConstRef element : elements) {
        const QJsonObject object = element.toObject();
        for (size_t index = 0; index < fields.size(); ++index) {
            fields[index] = fieldOf(object.value(QLatin1StringView(keys[index])), numbers[index]);
        }
        take(fields);
    }
    return true;
}

std::optional<QList<JsonMemberPlace>> findJsonMembers(const QByteArray &json)
{
    MembersHandler handler(json);
    return readEvents(json, handler) ? std::optional(handler.places) : std::nullopt;
}

JsonMembers readJsonMembers(const QByteArray &json)
{
    JsonMembers members;
    if (const auto places = findJsonMembers(json)) {
        for (const JsonMemberPlace &place : *places) {
            members.append(place.key, json.mid(place.start, place.length));
        }
        return members;
    }
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    for (auto member = root.constBegin(); member != root.constEnd(); ++member) {
        members.append(member.key(), textOf(member.value()));
    }
    return members;
}
