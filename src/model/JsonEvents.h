#pragma once

#include "model/JsonReader.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QUtf8StringView>

#include <algorithm>

#include <rapidjson/reader.h>

/// @file
/// What the readers of JSON have in common; for src/model alone. RapidJSON's event reader takes
/// clean texts, and what it would take differently from Qt's parser is refused here.

namespace JsonEvents {

/// Far deeper than any catalog and far below what Qt takes.
inline constexpr int maxDepth = 100;

inline constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");

/// Whether RapidJSON may read it: its reader ends at a zero byte and does not look at the encoding.
inline bool isCleanText(const QByteArray &json)
{
    return !json.isEmpty() && !json.contains('\0') &&
           QUtf8StringView(json.constData(), json.size()).isValidUtf8();
}

/// Whether an escape for a lone surrogate stood in the text: UTF-8 has no place for it, but the
/// reader makes bytes of it.
inline bool holdsSurrogate(QByteArrayView utf8)
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

/// Whether Qt takes the number: it refuses a text with one beyond a double, or too close to 0.
inline bool isInRange(QByteArrayView number)
{
    constexpr qsizetype alwaysInRange = 300; // a double has 308 digits before or behind the point
    const auto isExponent = [](char sign) { return sign == 'e' || sign == 'E'; };
    if (number.size() < alwaysInRange && std::none_of(number.begin(), number.end(), isExponent)) {
        return true;
    }
    bool inRange = false;
    static_cast<void>(number.toDouble(&inRange));
    return inRange;
}

/// A stream whose Tell() is true while a handler runs: with RapidJSON's own type the reader works
/// on a copy. Numbers, though, are handed over rightly by RapidJSON's own type only.
class TellingStream final : public rapidjson::InsituStringStream
{
public:
    using rapidjson::InsituStringStream::InsituStringStream;
};

/// What the handlers have in common: they count how deep they are, see every value as one of
/// value() or a container, and take numbers as they are written. The method names are the reader's.
template <typename Derived, typename StreamType>
class EventHandler
{
public:
    using Stream = StreamType;

    bool Null() { return self().value({JsonField::Kind::Other, {}, {}}); }
    bool Bool(bool value)
    {
        return self().value({value ? JsonField::Kind::True : JsonField::Kind::Other, {}, {}});
    }
    bool RawNumber(const char *text, rapidjson::SizeType length, bool /*copy*/)
    {
        const QByteArrayView number = self().number(text, static_cast<qsizetype>(length));
        return isInRange(number) && self().value({JsonField::Kind::Number, number, {}});
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

} // namespace JsonEvents
