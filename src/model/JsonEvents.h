#pragma once

#include "model/JsonField.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QUtf8StringView>

#include <algorithm>

// RapidJSON scans texts with vector instructions where there are any. Their loads are aligned and
// may touch bytes behind the text, which the address sanitizer reports.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VANTIRO_ADDRESS_SANITIZER
#endif
#endif
#if defined(__SSE2__) && !defined(VANTIRO_ADDRESS_SANITIZER) && !defined(__SANITIZE_ADDRESS__)
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/reader.h>

/// @file
/// The part of JsonReader that drives RapidJSON's event reader. It refuses texts that RapidJSON
/// would read differently from Qt's parser.

namespace JsonEvents {

/// Far deeper than any catalog and far below Qt's own limit.
inline constexpr int maxDepth = 100;

inline constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");

/// Whether RapidJSON can read the text: its reader stops at a zero byte and does not validate
/// UTF-8.
inline bool isReadable(const QByteArray &json)
{
    return !json.isEmpty() && !json.contains('\0') &&
           QUtf8StringView(json.constData(), json.size()).isValidUtf8();
}

/// Whether the text contained an escape for a lone surrogate. UTF-8 cannot represent one, but
/// RapidJSON encodes it all the same.
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

/// Whether Qt accepts the number. It rejects a text with a number that overflows or underflows a
/// double.
inline bool isInRange(QByteArrayView number)
{
    constexpr qsizetype alwaysInRange =
        300; // a double reaches 308 digits on either side of the point
    const auto isExponent = [](char sign) { return sign == 'e' || sign == 'E'; };
    if (number.size() < alwaysInRange && std::none_of(number.begin(), number.end(), isExponent)) {
        return true;
    }
    bool inRange = false;
    static_cast<void>(number.toDouble(&inRange));
    return inRange;
}

/// A stream whose Tell() is up to date while a handler runs: with RapidJSON's own type the reader
/// works on a copy. Only RapidJSON's own type passes numbers correctly, though.
class PositionStream final : public rapidjson::InsituStringStream
{
public:
    using rapidjson::InsituStringStream::InsituStringStream;
};

/// Base of the handlers: tracks the depth, reports each value by value() and each container by
/// begin() and end(), and passes numbers as written. RapidJSON prescribes the method names.
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

    /// The text being read; null at other times.
    Stream *stream = nullptr;

    // Never called, since numbers are passed as written.
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

/// Passes the events of a text to the handler. False if RapidJSON or the handler refuses the text.
/// RapidJSON unescapes texts in place, so that positions in the stream are those of the text.
template <typename AnyHandler>
bool readEventsInPlace(QByteArray &json, AnyHandler &handler)
{
    if (!isReadable(json)) {
        return false;
    }
    typename AnyHandler::Stream stream(json.data());
    handler.stream = &stream;
    rapidjson::Reader reader;
    constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
    const bool read = !reader.Parse<flags>(stream, handler).IsError();
    handler.stream = nullptr;
    return read;
}

/// The same with a copy of the text.
template <typename AnyHandler>
bool readEvents(const QByteArray &json, AnyHandler &handler)
{
    QByteArray buffer(json.constData(), json.size());
    return readEventsInPlace(buffer, handler);
}

} // namespace JsonEvents
