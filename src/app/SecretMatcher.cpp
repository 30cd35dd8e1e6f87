#include "app/SecretMatcher.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

bool isHexPair(QByteArrayView text, qsizetype start, uchar value)
{
    return start + 2 <= text.size() &&
           text.sliced(start, 2).compare(QByteArray(1, char(value)).toHex(), Qt::CaseInsensitive) ==
               0;
}

qsizetype endOfRun(QByteArrayView text, qsizetype start, char byte)
{
    qsizetype end = start;
    while (end < text.size() && text[end] == byte) {
        ++end;
    }
    return end;
}

/// The named character reference of HTML, and the plus sign for a space in a form.
QByteArrayView namedForm(uint character)
{
    switch (character) {
    case ' ':
        return "+";
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&apos;";
    default:
        return {};
    }
}

/// The letter of a short JSON escape; 0 if the character has none.
char shortEscape(uint character)
{
    switch (character) {
    case '"':
    case '/':
        return char(character);
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    default:
        return 0;
    }
}

/// Collects where the encodings of one character end that start at a position of a text.
class EncodedCharacter
{
public:
    EncodedCharacter(QByteArrayView wholeText, QList<qsizetype> &foundEnds)
        : text(wholeText)
        , ends(foundEnds)
    {}

    void collect(qsizetype start, uint character)
    {
        const char32_t unit = character;
        const QString written = QString::fromUcs4(&unit, 1);
        const QByteArray utf8 = written.toUtf8();
        if (text.sliced(start).startsWith(utf8)) {
            add(start + utf8.size());
        }
        if (const QByteArrayView name = namedForm(character);
            !name.isEmpty() && text.sliced(start).startsWith(name)) {
            add(start + name.size());
        }
        switch (text[start]) {
        case '%':
            collectPercent(start, utf8);
            break;
        case '\\':
            collectJson(start, character, written);
            break;
        case '&':
            collectReference(start, character);
            break;
        default:
            break;
        }
    }

private:
    void add(qsizetype end)
    {
        if (!ends.contains(end)) {
            ends.append(end);
        }
    }

    void collectPercent(qsizetype start, const QByteArray &utf8)
    {
        qsizetype at = start;
        for (const char byte : utf8) {
            if (at >= text.size() || text[at] != '%') {
                return;
            }
            ++at;
            // Each further encoding turns "%" into "%25".
            while (isHexPair(text, at, '%')) {
                at += 2;
                if (byte == '%') {
                    add(at);
                }
            }
            if (!isHexPair(text, at, uchar(byte))) {
                return;
            }
            at += 2;
        }
        add(at);
    }

    void collectJson(qsizetype start, uint character, const QString &written)
    {
        const qsizetype runEnd = endOfRun(text, start, '\\');
        if (character == '\\') {
            for (qsizetype end = start + 2; end <= runEnd; ++end) {
                add(end);
            }
        }
        if (const char escape = shortEscape(character);
            escape != 0 && runEnd < text.size() && text[runEnd] == escape) {
            add(runEnd + 1);
        }
        qsizetype at = start;
        for (const QChar unit : written) {
            const qsizetype letter = endOfRun(text, at, '\\');
            if (letter == at || letter >= text.size() || text[letter] != 'u' ||
                !isHexPair(text, letter + 1, uchar(unit.unicode() >> 8)) ||
                !isHexPair(text, letter + 3, uchar(unit.unicode() & 0xff))) {
                return;
            }
            at = letter + 5;
        }
        add(at);
    }

    void collectReference(qsizetype start, uint character)
    {
        qsizetype at = start + 1;
        if (at >= text.size() || text[at] != '#') {
            return;
        }
        ++at;
        const bool hexadecimal = at < text.size() && (text[at] == 'x' || text[at] == 'X');
        at = endOfRun(text, hexadecimal ? at + 1 : at, '0');
        const qsizetype end = text.sliced(std::min(at, text.size())).indexOf(';');
        // Seven digits are enough for any character.
        if (end <= 0 || end > 7) {
            return;
        }
        bool ok = false;
        const uint number = text.sliced(at, end).toByteArray().toUInt(&ok, hexadecimal ? 16 : 10);
        if (ok && number == character) {
            add(at + end + 1);
        }
    }

    QByteArrayView text;
    QList<qsizetype> &ends;
};

/// The end of the encoded characters that start at `start`; -1 if they do not stand there. Of
/// several possible ends, the last one.
qsizetype encodedEnd(QByteArrayView text, qsizetype start, const QList<uint> &characters)
{
    QList<qsizetype> places{start};
    QList<qsizetype> ends;
    for (const uint character : characters) {
        ends.clear();
        EncodedCharacter encoded(text, ends);
        for (const qsizetype place : std::as_const(places)) {
            if (place < text.size()) {
                encoded.collect(place, character);
            }
        }
        if (ends.isEmpty()) {
            return -1;
        }
        places.swap(ends);
    }
    return *std::max_element(places.cbegin(), places.cend());
}

bool mayBegin(char byte, uint character)
{
    // Either the first byte of the character itself, or the start of an escape.
    return byte == '%' || byte == '\\' || byte == '&' || byte == '+' || character > 0x7f ||
           uint(uchar(byte)) == character;
}

bool isBase64(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           (byte >= '0' && byte <= '9') || byte == '+' || byte == '/' || byte == '-' || byte == '_';
}

} // namespace

SecretMatcher::SecretMatcher(const QString &secret)
{
    forms.append({secret.toUcs4(), false, false});
    const QByteArray utf8 = secret.toUtf8();
    // A prefix shifts the secret by 0 to 2 bytes within Base64's groups of three bytes.
    for (const qsizetype offset : {0, 1, 2}) {
        addBase64(utf8, offset);
    }
}

qsizetype SecretMatcher::longest(qsizetype bytes)
{
    // The longest encoding of one byte: a percent sign encoded repeatedly, or "&#x0000ff;".
    return bytes * 16;
}

void SecretMatcher::addBase64(const QByteArray &utf8, qsizetype offset)
{
    // A character holds six bits. Characters that share bits with the surrounding text are unknown.
    constexpr std::array<qsizetype, 3> firstKnown{0, 2, 3};
    const qsizetype begin = firstKnown.at(size_t(offset));
    const qsizetype bits = (offset + utf8.size()) * 8;
    const qsizetype size = bits / 6 - begin;
    const QByteArray whole = (QByteArray(offset, '\0') + utf8).toBase64();
    const QByteArray plain = whole.mid(begin, size);
    const QByteArray urlSafe = QByteArray(plain).replace('+', '-').replace('/', '_');
    forms.append({QString::fromLatin1(plain).toUcs4(), offset > 0, bits % 6 != 0});
    if (urlSafe != plain) {
        forms.append({QString::fromLatin1(urlSafe).toUcs4(), offset > 0, bits % 6 != 0});
    }
}

QList<TextRange> SecretMatcher::find(QByteArrayView utf8) const
{
    QList<TextRange> found;
    for (const Form &form : forms) {
        const uint first = form.characters.constFirst();
        for (qsizetype start = 0; start < utf8.size(); ++start) {
            if (!mayBegin(utf8[start], first)) {
                continue;
            }
            qsizetype end = encodedEnd(utf8, start, form.characters);
            if (end < 0) {
                continue;
            }
            const bool widensBefore = form.partialBefore && start > 0 && isBase64(utf8[start - 1]);
            const bool widensAfter = form.partialAfter && end < utf8.size() && isBase64(utf8[end]);
            found.append({start - (widensBefore ? 1 : 0), end + (widensAfter ? 1 : 0)});
            start = end - 1;
        }
    }
    return found;
}
