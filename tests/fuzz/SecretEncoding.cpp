#include "SecretEncoding.h"

#include "FuzzTarget.h"

#include <QList>

#include <array>
#include <cctype>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Escape
{
    char32_t character;
    QByteArrayView text;
};

/// Behind one or more backslashes.
constexpr std::array<Escape, 7> jsonEscapes{{{U'"', "\""},
                                             {U'/', "/"},
                                             {U'\n', "n"},
                                             {U'\r', "r"},
                                             {U'\t', "t"},
                                             {U'\b', "b"},
                                             {U'\f', "f"}}};
constexpr std::array<Escape, 5> htmlNames{
    {{U'&', "&amp;"}, {U'<', "&lt;"}, {U'>', "&gt;"}, {U'"', "&quot;"}, {U'\'', "&apos;"}}};

QByteArray utf8Of(char32_t character)
{
    return QString::fromUcs4(&character, 1).toUtf8();
}

QByteArray hex(uint number, int digits, bool upper)
{
    const QByteArray text = QByteArray::number(number, 16).rightJustified(digits, '0');
    return upper ? text.toUpper() : text;
}

QByteArray percentEncoded(char32_t character, int times, bool upper)
{
    QByteArray text;
    for (const char byte : utf8Of(character)) {
        text += '%' + "25"_ba.repeated(times) + hex(static_cast<unsigned char>(byte), 2, upper);
    }
    return text;
}

QByteArray jsonEscaped(char32_t character, int nesting, bool upper)
{
    // Each nesting doubles the backslashes.
    const QByteArray backslashes = "\\"_ba.repeated(1 << nesting);
    if (character == U'\\') {
        return backslashes.repeated(2);
    }
    for (const Escape &escape : jsonEscapes) {
        if (escape.character == character && !upper) {
            return backslashes + escape.text.toByteArray();
        }
    }
    QByteArray text;
    const QString units = QString::fromUcs4(&character, 1);
    for (const QChar unit : units) {
        text += backslashes + 'u' + hex(unit.unicode(), 4, upper);
    }
    return text;
}

QByteArray reference(char32_t character, int zeros, bool upper)
{
    for (const Escape &name : htmlNames) {
        if (name.character == character && zeros == 0) {
            return name.text.toByteArray();
        }
    }
    return upper ? "&#x"_ba + "0"_ba.repeated(zeros) + QByteArray::number(character, 16) + ';'
                 : "&#"_ba + "0"_ba.repeated(zeros) + QByteArray::number(character) + ';';
}

std::optional<uint> hexAt(QByteArrayView text, qsizetype start, qsizetype digits)
{
    if (start + digits > text.size()) {
        return std::nullopt;
    }
    bool ok = false;
    const uint number = text.sliced(start, digits).toByteArray().toUInt(&ok, 16);
    // toUInt() takes a sign and blanks.
    return ok && std::isxdigit(static_cast<unsigned char>(text[start])) != 0 ? std::optional(number)
                                                                             : std::nullopt;
}

/// Decodes a text once, character by character.
class Decoder
{
public:
    Decoder(const QByteArray &encoded, bool plusIsSpace)
        : text(encoded)
        , plus(plusIsSpace ? ' ' : '+')
    {}

    QByteArray decode()
    {
        while (at < text.size()) {
            if (!takePercent() && !takeJson() && !takeReference()) {
                const char byte = text.at(at++);
                result += byte == '+' ? plus : byte;
            }
        }
        return result;
    }

private:
    bool takePercent()
    {
        if (text.at(at) != '%') {
            return false;
        }
        qsizetype digits = at + 1;
        while (text.sliced(digits).startsWith("25") && hexAt(text, digits + 2, 2)) {
            digits += 2;
        }
        const auto byte = hexAt(text, digits, 2);
        if (byte) {
            result += static_cast<char>(*byte);
            at = digits + 2;
        }
        return byte.has_value();
    }

    std::optional<char16_t> unitAt(qsizetype start, qsizetype *end) const
    {
        qsizetype letter = start;
        while (letter < text.size() && text.at(letter) == '\\') {
            ++letter;
        }
        if (letter == start || letter >= text.size() || text.at(letter) != 'u') {
            return std::nullopt;
        }
        const auto unit = hexAt(text, letter + 1, 4);
        *end = letter + 5;
        return unit ? std::optional(static_cast<char16_t>(*unit)) : std::nullopt;
    }

    bool takeJson()
    {
        if (text.at(at) != '\\') {
            return false;
        }
        qsizetype end = 0;
        if (const auto unit = unitAt(at, &end)) {
            QString written = QChar(*unit);
            at = end;
            if (QChar::isHighSurrogate(*unit)) {
                if (const auto low = unitAt(at, &end)) {
                    written += QChar(*low);
                    at = end;
                }
            }
            result += written.toUtf8();
            return true;
        }
        while (at < text.size() && text.at(at) == '\\') {
            ++at;
        }
        for (const Escape &escape : jsonEscapes) {
            if (at < text.size() && text.at(at) == escape.text.front()) {
                result += utf8Of(escape.character);
                ++at;
                return true;
            }
        }
        result += '\\';
        return true;
    }

    bool takeReference()
    {
        const QByteArrayView rest = QByteArrayView(text).sliced(at);
        for (const Escape &name : htmlNames) {
            if (rest.startsWith(name.text)) {
                result += utf8Of(name.character);
                at += name.text.size();
                return true;
            }
        }
        const qsizetype end = rest.indexOf(';');
        if (!rest.startsWith("&#") || end < 0) {
            return false;
        }
        const QByteArray number = rest.sliced(2, end - 2).toByteArray().toLower();
        bool ok = false;
        const uint character =
            number.startsWith('x') ? number.mid(1).toUInt(&ok, 16) : number.toUInt(&ok, 10);
        if (!ok || character > 0x10ffff) {
            return false;
        }
        result += utf8Of(character);
        at += end + 1;
        return true;
    }

    const QByteArray &text;
    char plus;
    qsizetype at = 0;
    QByteArray result;
};

bool isBase64(char byte)
{
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || "+/-_"_ba.contains(byte);
}

bool holdsInBase64(const QByteArray &text, const QByteArray &secret)
{
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && isBase64(text.at(end))) {
            ++end;
        }
        QByteArray run = text.sliced(start, end - start);
        run.replace('-', '+').replace('_', '/');
        for (qsizetype skipped = 0; skipped < 4 && skipped < run.size(); ++skipped) {
            if (QByteArray::fromBase64(run.mid(skipped)).contains(secret)) {
                return true;
            }
        }
        start = end + 1;
    }
    return false;
}

} // namespace

QByteArray encodeSecret(const QString &secret, FuzzInput &input)
{
    QByteArray text;
    const QList<uint> characters = secret.toUcs4();
    for (const char32_t character : characters) {
        const int form = input.below(4);
        const int times = input.below(3);
        const bool upper = input.below(2) == 1;
        switch (form) {
        case 1:
            text += percentEncoded(character, times, upper);
            break;
        case 2:
            text += jsonEscaped(character, times, upper);
            break;
        case 3:
            text += reference(character, times, upper);
            break;
        default:
            text += character == U' ' && upper ? "+"_ba : utf8Of(character);
            break;
        }
    }
    return text;
}

bool showsSecret(const QByteArray &text, const QString &secret)
{
    const QByteArray utf8 = secret.toUtf8();
    const QByteArray decoded = Decoder(text, false).decode();
    return text.contains(utf8) || decoded.contains(utf8) ||
           Decoder(text, true).decode().contains(utf8) || holdsInBase64(text, utf8) ||
           holdsInBase64(decoded, utf8);
}
