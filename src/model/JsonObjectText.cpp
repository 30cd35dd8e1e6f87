#include "model/JsonObjectText.h"

#include "model/JsonEvents.h"
#include "model/JsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>

#include <utility>

using namespace Qt::StringLiterals;
using namespace JsonEvents;

namespace {

/// A key as QString::fromUtf8() reads it, but with a byte-order mark at its begin kept.
QString keyText(QByteArrayView utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith(byteOrderMark) && !text.startsWith(QChar::ByteOrderMark)
               ? QChar::ByteOrderMark + text
               : text;
}

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

    /// The stream hands over the place behind a number in place of the number.
    QByteArrayView number(const char * /*text*/, qsizetype length) const
    {
        const auto end = static_cast<qsizetype>(stream->Tell());
        return QByteArrayView(json).sliced(end - length, length);
    }

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

/// A value of a document as a JSON text of its own.
QByteArray textOf(const QJsonValue &value)
{
    // Only arrays and objects can be documents.
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
}

} // namespace

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
    // Sections hold tens of megabytes: one allocation, and no copy of the whole.
    qsizetype size = 2;
    for (const Member &member : members) {
        constexpr qsizetype roomForKey = 50;
        size += member.json.size() + roomForKey;
    }
    QByteArray json;
    json.reserve(size);
    json += '{';
    for (const Member &member : members) {
        if (json.size() > 1) {
            json += ',';
        }
        appendJsonText(json, member.key);
        json += ':';
        json += member.json;
    }
    json += '}';
    return json;
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
