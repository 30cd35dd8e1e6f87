#pragma once

#include "model/JsonEvents.h"
#include "model/JsonMembers.h"

#include <QList>
#include <QSet>

#include <functional>
#include <vector>

/// @file
/// What the handlers of JsonReader have in common: collecting the members of an object's elements,
/// and the places of the root object's members.

namespace JsonEvents {

/// Whether only Qt can decode the text.
inline bool needsQt(QByteArrayView utf8)
{
    return utf8.startsWith(byteOrderMark) || holdsSurrogate(utf8);
}

/// Collects the requested fields of each element of an array.
class ElementFields final
{
public:
    /// The elements stand at this depth.
    explicit ElementFields(int depthOfElements)
        : elementDepth(depthOfElements)
    {}

    /// Begins an array. The arguments must outlive it.
    void start(const std::vector<QByteArrayView> &requestedKeys,
               const std::function<void(const JsonFields &)> &callback)
    {
        keys = &requestedKeys;
        take = &callback;
        fields.resize(requestedKeys.size());
        requested = nullptr;
        inObject = false;
    }

    /// Called also for a container inside an element; its contents are skipped. False for a text
    /// that only Qt can decode.
    bool value(const JsonField &field, int depth)
    {
        if (depth == elementDepth + 1 && inObject) {
            if (requested == nullptr) {
                return true;
            }
            if (field.kind == JsonField::Kind::Text && needsQt(field.bytes)) {
                return false;
            }
            *requested = field;
        } else if (depth == elementDepth) {
            clearFields();
            (*take)(fields);
        }
        return true;
    }

    void key(QByteArrayView name, int depth)
    {
        if (depth == elementDepth + 1) {
            // Members mostly stand in the order of the keys.
            if (next < keys->size() && (*keys)[next] == name) {
                requested = &fields[next++];
                return;
            }
            const auto found = std::find(keys->begin(), keys->end(), name);
            next = size_t(found - keys->begin());
            requested = found == keys->end() ? nullptr : &fields[next++];
        }
    }

    bool begin(bool object, int depth)
    {
        if (depth == elementDepth && object) {
            inObject = true;
            next = 0;
            clearFields();
            return true;
        }
        return value({JsonField::Kind::Other, {}, {}}, depth);
    }

    void end(bool object, int depth)
    {
        if (depth == elementDepth && object) {
            inObject = false;
            (*take)(fields);
        }
    }

private:
    void clearFields() { fields.assign(fields.size(), JsonField()); }

    int elementDepth;
    const std::vector<QByteArrayView> *keys = nullptr;
    const std::function<void(const JsonFields &)> *take = nullptr;
    JsonFields fields;
    JsonField *requested = nullptr; ///< the field for the value that follows, if it is requested
    size_t next = 0;                ///< the index of the key that is expected
    bool inObject = false;
};

/// A key as QString::fromUtf8() decodes it, but with a leading byte-order mark kept.
inline QString keyText(QByteArrayView utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith(byteOrderMark) && !text.startsWith(QChar::ByteOrderMark)
               ? QChar::ByteOrderMark + text
               : text;
}

/// Records the positions of the root object's members. Refuses duplicate members.
class MemberPlaces final
{
public:
    explicit MemberPlaces(QByteArrayView text)
        : json(text)
    {}

    /// With this stream RapidJSON passes the position behind the number instead of the number.
    QByteArrayView number(PositionStream &stream, qsizetype length) const
    {
        return json.sliced(static_cast<qsizetype>(stream.Tell()) - length, length);
    }

    bool key(QByteArrayView name, PositionStream &stream, int depth)
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
        place.start = static_cast<qsizetype>(stream.Tell());
        while (place.start < json.size() &&
               QByteArrayView(" \t\r\n:").contains(json.at(place.start))) {
            ++place.start;
        }
        found.append(place);
        return true;
    }

    /// Called behind each value; the depth is that of the value.
    void setEnd(PositionStream &stream, int depth)
    {
        if (depth == memberDepth) {
            found.last().length = static_cast<qsizetype>(stream.Tell()) - found.last().start;
        }
    }

    const QList<JsonMemberPlace> &places() const { return found; }

private:
    static constexpr int memberDepth = 1;

    QByteArrayView json;
    QList<JsonMemberPlace> found;
    QSet<QString> keys;
};

} // namespace JsonEvents
