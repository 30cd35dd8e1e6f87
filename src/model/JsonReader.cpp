#include "model/JsonReader.h"

#include "model/JsonHandlers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocale>
#include <QVariant>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace JsonEvents;

namespace {

/// Passes the elements of a root array to a collector.
class ObjectsHandler final : public EventHandler<ObjectsHandler, rapidjson::InsituStringStream>
{
public:
    ObjectsHandler(const std::vector<QByteArrayView> &keys,
                   const std::function<void(const JsonFields &)> &take)
        : elements(elementDepth)
    {
        elements.start(keys, take);
    }

    QByteArrayView number(const char *text, qsizetype length) const { return {text, length}; }

    /// A value at depth 0 is a root that is not an array and is refused.
    bool value(const JsonField &field) { return elements.value(field, depth) && depth > 0; }
    bool key(QByteArrayView name)
    {
        elements.key(name, depth);
        return true;
    }
    bool begin(bool object)
    {
        return (depth == 0 && !object) || (depth > 0 && elements.begin(object, depth));
    }
    bool end(bool object)
    {
        elements.end(object, depth);
        return true;
    }

private:
    static constexpr int elementDepth = 1;

    ElementFields elements;
};

/// Records the positions of the root object's members.
class MembersHandler final : public EventHandler<MembersHandler, PositionStream>
{
public:
    explicit MembersHandler(QByteArrayView text)
        : members(text)
    {}

    QByteArrayView number(const char * /*text*/, qsizetype length) const
    {
        return members.number(*stream, length);
    }
    bool value(const JsonField & /*field*/)
    {
        members.setEnd(*stream, depth);
        return depth > 0;
    }
    bool key(QByteArrayView name) { return members.key(name, *stream, depth); }
    bool begin(bool object) { return depth > 0 || object; }
    bool end(bool /*object*/)
    {
        members.setEnd(*stream, depth);
        return true;
    }

    MemberPlaces members;
};

/// Passes the arrays in the root object's members to their sinks, and records the positions of the
/// members. It refuses a text in which a sink's array is something else or stands twice, and one
/// whose members are not all objects or arrays.
class ArraysHandler final : public EventHandler<ArraysHandler, rapidjson::InsituStringStream>
{
public:
    explicit ArraysHandler(const std::vector<JsonArraySink> &arraySinks)
        : elements(elementDepth)
        , sinks(arraySinks)
        , isFilled(qsizetype(arraySinks.size()), false)
    {}

    QByteArrayView number(const char *text, qsizetype length) const { return {text, length}; }
    bool value(const JsonField &field)
    {
        return depth > memberDepth && !isAtSink() && (!inArray || elements.value(field, depth));
    }
    bool key(QByteArrayView name)
    {
        if (inArray) {
            elements.key(name, depth);
            return true;
        }
        return depth == arrayDepth ? findSink(name) : depth != memberDepth || addMember(name);
    }
    bool begin(bool object)
    {
        if (inArray) {
            return elements.begin(object, depth);
        }
        if (depth == memberDepth) {
            places.last().start = position() - 1;
        }
        if (isAtSink()) {
            inArray = true;
            elements.start(sinks[sink].keys, sinks[sink].take);
            return !object;
        }
        return depth > 0 || object;
    }
    bool end(bool object)
    {
        if (depth == memberDepth) {
            places.last().length = position() - places.last().start;
        }
        if (inArray && depth == arrayDepth) {
            inArray = false;
            sink = noSink;
        } else if (inArray) {
            elements.end(object, depth);
        }
        return true;
    }

    QList<JsonMemberPlace> places;

private:
    static constexpr int memberDepth = 1;
    static constexpr int arrayDepth = 2; ///< of the values that are arrays for sinks
    static constexpr int elementDepth = 3;
    static constexpr size_t noSink = ~size_t(0);

    bool isAtSink() const { return depth == arrayDepth && sink != noSink; }

    /// Up to date at the beginning and the end of objects and arrays only.
    qsizetype position() const { return static_cast<qsizetype>(stream->Tell()); }

    bool addMember(QByteArrayView name)
    {
        const QString key = keyText(name);
        const auto hasKey = [&key](const JsonMemberPlace &place) { return place.key == key; };
        if (holdsSurrogate(name) || std::any_of(places.begin(), places.end(), hasKey)) {
            return false;
        }
        places.append({key, 0, 0});
        return true;
    }

    /// Chooses the sink for the array of this key. False when it has been filled.
    bool findSink(QByteArrayView name)
    {
        const auto found = std::find_if(sinks.begin(), sinks.end(), [&](const JsonArraySink &each) {
            return each.array == name && each.member == places.last().key;
        });
        sink = found == sinks.end() ? noSink : size_t(found - sinks.begin());
        return sink == noSink || !std::exchange(isFilled[qsizetype(sink)], true);
    }

    ElementFields elements;
    const std::vector<JsonArraySink> &sinks;
    QList<bool> isFilled; ///< one for each sink
    size_t sink = noSink; ///< of the value that follows or is being read
    bool inArray = false;
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
    return readEvents(json, handler) ? std::optional(handler.members.places()) : std::nullopt;
}

std::optional<QList<JsonMemberPlace>> readJsonArrays(QByteArray &json,
                                                     const std::vector<JsonArraySink> &sinks)
{
    ArraysHandler handler(sinks);
    return readEventsInPlace(json, handler) ? std::optional(handler.places) : std::nullopt;
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
