#include "model/JsonScan.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocale>
#include <QSet>
#include <QUtf8StringView>
#include <QVariant>

#include <cmath>

#include <rapidjson/reader.h>

using namespace Qt::StringLiterals;

namespace {

/// Far deeper than any catalog and far below what Qt takes.
constexpr int maxDepth = 100;

/// Whether RapidJSON may read it: its reader ends at a zero byte and does not look at the encoding.
bool isCleanText(const QByteArray &json)
{
    return !json.isEmpty() && !json.contains('\0') &&
           QUtf8StringView(json.constData(), json.size()).isValidUtf8();
}

const QByteArrayView byteOrderMark("\xef\xbb\xbf");

/// A key as QString::fromUtf8() reads it, but with a byte-order mark at its begin kept.
QString keyText(QByteArrayView utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith(byteOrderMark) && !text.startsWith(QChar::ByteOrderMark)
               ? QChar::ByteOrderMark + text
               : text;
}

/// Whether an escape for a lone surrogate stood in the text: UTF-8 has no place for it, but the
/// reader makes bytes of it.
bool holdsSurrogate(QByteArrayView utf8)
{
    qsizetype lead = utf8.indexOf('\xed');
    while (lead >= 0 && lead + 1 < utf8.size()) {
        if (static_cast<unsigned char>(utf8.at(lead + 1)) >= 0xa0) {
            return true;
        }
        lead = utf8.indexOf('\xed', lead + 1);
    }
    return false;
}

/// Whether Qt alone knows what the text means.
bool isOddText(QByteArrayView utf8)
{
    return utf8.startsWith(byteOrderMark) || holdsSurrogate(utf8);
}

/// A stream whose Tell() is true while a handler runs: with RapidJSON's own type the reader works
/// on a copy. Numbers, though, are handed over rightly by RapidJSON's own type only.
class TellingStream final : public rapidjson::InsituStringStream
{
public:
    using rapidjson::InsituStringStream::InsituStringStream;
};

/// What the two handlers below have in common: they count how deep they are, see every value as one
/// of value() or a container, and take numbers as they are written. The method names are the
/// reader's.
template <typename Derived, typename StreamType>
class EventHandler
{
public:
    using Stream = StreamType;

    bool Null() { return self().value({JsonField::Kind::Other, {}, {}}); }
    bool Bool(bool /*value*/) { return self().value({JsonField::Kind::Other, {}, {}}); }
    bool RawNumber(const char *text, rapidjson::SizeType length, bool /*copy*/)
    {
        return self().value({JsonField::Kind::Number, {text, static_cast<qsizetype>(length)}, {}});
    }
    bool String(const char *text, rapidjson::SizeType length, bool /*copy*/)
    {
        const QByteArrayView bytes(text, static_cast<qsizetype>(length));
        return self().value({JsonField::Kind::Text, bytes, {}});
    }
    bool Key(const char *text, rapidjson::SizeType length, bool /*copy*/)
    {
        const QByteArrayView bytes(text, static_cast<qsizetype>(length));
        return self().key(bytes);
    }
    bool StartObject() { return self().begin(true) && ++depth <= maxDepth; }
    bool EndObject(rapidjson::SizeType /*count*/)
    {
        --depth;
        return self().end(true);
    }
    bool StartArray() { return self().begin(false) && ++depth <= maxDepth; }
    bool EndArray(rapidjson::SizeType /*count*/)
    {
        --depth;
        return self().end(false);
    }

    /// The text being read; set while it is.
    Stream *stream = nullptr;

    // Never called: numbers come as they are written.
    bool Int(int /*value*/) { return false; }
    bool Uint(unsigned /*value*/) { return false; }
    bool Int64(int64_t /*value*/) { return false; }
    bool Uint64(uint64_t /*value*/) { return false; }
    bool Double(double /*value*/) { return false; }

protected:
    int depth = 0;

private:
    Derived &self() { return static_cast<Derived &>(*this); }
};

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

/// One member of a root object: its key, and its value's place in the text, in bytes.
struct MemberPlace
{
    QString key;
    qsizetype start = 0;
    qsizetype length = 0;
};

/// Notes where the members of the root object stand. Refuses a member that comes twice.
class MembersHandler final : public EventHandler<MembersHandler, TellingStream>
{
public:
    explicit MembersHandler(const QByteArray &text)
        : json(text)
    {}

    bool value(const JsonField & /*field*/)
    {
        noteEnd();
        return depth > 0;
    }

    bool key(QByteArrayView name)
    {
        if (depth != memberDepth) {
            return true;
        }
        MemberPlace place;
        place.key = keyText(name);
        if (holdsSurrogate(name) || keys.contains(place.key)) {
            return false;
        }
        keys.insert(place.key);
        // Behind the key stand a colon and perhaps blanks.
        place.start = static_cast<qsizetype>(stream->Tell());
        while (QByteArrayView(" \t\r\n:").contains(json.at(place.start))) {
            ++place.start;
        }
        places.append(place);
        return true;
    }

    bool begin(bool object) { return depth > 0 || object; }

    bool end(bool /*object*/)
    {
        noteEnd();
        return true;
    }

    QList<MemberPlace> places;

private:
    static constexpr int memberDepth = 1;

    void noteEnd()
    {
        if (depth == memberDepth) {
            places.last().length = static_cast<qsizetype>(stream->Tell()) - places.last().start;
        }
    }

    const QByteArray &json;
    QSet<QString> keys;
};

/// Hands the events of a text to the handler. False for a text that is not clean. The reader
/// unescapes texts in place, in a copy; places in that stream are those of the text.
template <typename AnyHandler>
bool readEvents(const QByteArray &json, AnyHandler &handler)
{
    if (!isCleanText(json)) {
        return false;
    }
    QByteArray buffer(json.constData(), json.size());
    typename AnyHandler::Stream stream(buffer.data());
    handler.stream = &stream;
    rapidjson::Reader reader;
    constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
    const bool read = !reader.Parse<flags>(stream, handler).IsError();
    handler.stream = nullptr;
    return read;
}

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

double JsonField::toReal() const
{
    double number = 0.0;
    if (kind == Kind::Number) {
        number = bytes.toDouble();
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

JsonObjectText JsonObjectText::read(const QByteArray &json)
{
    JsonObjectText object;
    MembersHandler handler(json);
    if (readEvents(json, handler)) {
        for (const MemberPlace &place : std::as_const(handler.places)) {
            object.members.append({place.key, json.mid(place.start, place.length)});
        }
        return object;
    }
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    for (auto member = root.constBegin(); member != root.constEnd(); ++member) {
        object.members.append({member.key(), textOf(member.value())});
    }
    return object;
}

QByteArray JsonObjectText::value(const QString &key) const
{
    const qsizetype index = find(key);
    return index < 0 ? QByteArray() : members.at(index).json;
}

void JsonObjectText::insert(const QString &key, const QByteArray &json)
{
    const qsizetype index = find(key);
    if (index < 0) {
        members.append({key, json});
    } else {
        members[index].json = json;
    }
}

QByteArray JsonObjectText::toJson() const
{
    QByteArray json = "{"_ba;
    for (const Member &member : members) {
        if (json.size() > 1) {
            json += ',';
        }
        appendJsonText(json, member.key);
        json += ':';
        json += member.json;
    }
    return json + '}';
}

qsizetype JsonObjectText::find(const QString &key) const
{
    for (qsizetype index = 0; index < members.size(); ++index) {
        if (members.at(index).key == key) {
            return index;
        }
    }
    return -1;
}

void appendJsonText(QByteArray &json, QStringView text)
{
    json += '"';
    if (text.isValidUtf16() && !text.startsWith(QChar::ByteOrderMark)) {
        const QByteArray utf8 = text.toUtf8();
        for (const char byte : utf8) {
            if (byte == '"' || byte == '\\') {
                json += '\\';
                json += byte;
            } else if (static_cast<unsigned char>(byte) < 0x20) {
                json += "\\u00"_ba + QByteArray(1, byte).toHex();
            } else {
                json += byte;
            }
        }
    } else {
        // UTF-8 has no lone surrogates, and a byte-order mark would not be read back.
        for (const QChar unit : text) {
            json += "\\u"_ba + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        }
    }
    json += '"';
}

void appendJsonNumber(QByteArray &json, double number)
{
    json += std::isfinite(number) ? QByteArray::number(number, 'g', QLocale::FloatingPointShortest)
                                  : "null"_ba;
}
