#include "ui/NameMatcher.h"

using namespace Qt::StringLiterals;

namespace {

/// What a name is made of, as far as comparing it goes.
enum class Alphabet
{
    Ascii,
    Plain,
    WithSurrogates
};

/// Appends the name's units with simple case folding, as Qt compares them. A name with surrogates
/// is not appended whole.
Alphabet appendFolded(QStringView name, std::u16string &out)
{
    Alphabet alphabet = Alphabet::Ascii;
    const char16_t *units = name.utf16();
    for (qsizetype index = 0; index < name.size(); ++index) {
        const char16_t unit = units[index]; // NOLINT: a view has no other raw access
        if (unit < 0x80) {
            out += unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
            continue;
        }
        if (QChar::isSurrogate(unit)) {
            return Alphabet::WithSurrogates;
        }
        alphabet = Alphabet::Plain;
        out += static_cast<char16_t>(QChar::toCaseFolded(static_cast<char32_t>(unit)));
    }
    return alphabet;
}

/// What "\w" matches among ASCII.
bool isWordUnit(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

} // namespace

NameMatcher::NameMatcher(const QString &text)
    : query(text)
    , wordStart(u"\\b"_s + QRegularExpression::escape(text),
                QRegularExpression::CaseInsensitiveOption)
{
    const Alphabet alphabet = appendFolded(query, foldedQuery);
    queryIsAscii = alphabet == Alphabet::Ascii;
    queryIsPlain = alphabet != Alphabet::WithSurrogates;
}

NameMatcher::Score NameMatcher::score(QStringView name)
{
    if (query.isEmpty()) {
        return Equal;
    }
    folded.clear();
    const Alphabet alphabet = appendFolded(name, folded);
    if (!queryIsPlain || alphabet == Alphabet::WithSurrogates) {
        return scoreByQt(name);
    }
    const size_t found = folded.find(foldedQuery);
    if (found == std::u16string::npos) {
        return NoMatch;
    }
    if (found == 0) {
        return folded.size() == foldedQuery.size() ? Equal : Prefix;
    }
    // Outside ASCII the expression's idea of case differs from Qt's for a few characters.
    if (!queryIsAscii || alphabet != Alphabet::Ascii) {
        return scoreAtWordStart(name);
    }
    return startsWordAnywhere(found) ? WordStart : Inside;
}

NameMatcher::Score NameMatcher::scoreByQt(QStringView name) const
{
    if (name.compare(query, Qt::CaseInsensitive) == 0) {
        return Equal;
    }
    if (name.startsWith(query, Qt::CaseInsensitive)) {
        return Prefix;
    }
    return name.contains(query, Qt::CaseInsensitive) ? scoreAtWordStart(name) : NoMatch;
}

NameMatcher::Score NameMatcher::scoreAtWordStart(QStringView name) const
{
    return wordStart.match(name.toString()).hasMatch() ? WordStart : Inside;
}

/// Whether the query, first seen at `found`, stands at a word boundary there or later.
bool NameMatcher::startsWordAnywhere(size_t found) const
{
    for (size_t at = found; at != std::u16string::npos; at = folded.find(foldedQuery, at + 1)) {
        if (isWordUnit(folded[at - 1]) != isWordUnit(folded[at])) {
            return true;
        }
    }
    return false;
}

NameOrder::NameOrder(size_t count)
{
    constexpr size_t usualLength = 40;
    entries.reserve(count);
    units.reserve(count * usualLength);
}

void NameOrder::add(const QString &name)
{
    Entry entry;
    entry.start = units.size();
    entry.plain = appendFolded(name, units) != Alphabet::WithSurrogates;
    if (!entry.plain) {
        units.resize(entry.start);
        entry.name = name;
    }
    entry.length = units.size() - entry.start;
    entries.push_back(std::move(entry));
}

NameOrder::Head NameOrder::head(size_t index) const
{
    const Entry &entry = entries[index];
    const auto pack = [this, &entry](size_t from) {
        constexpr size_t unitsInPack = 4;
        quint64 packed = 0;
        for (size_t at = from; at < from + unitsInPack; ++at) {
            packed = packed << 16U | (at < entry.length ? units[entry.start + at] : u'\0');
        }
        return packed;
    };
    return {pack(0), pack(4), entry.plain};
}

bool NameOrder::before(size_t a, size_t b) const
{
    const Entry &first = entries[a];
    const Entry &second = entries[b];
    return first.plain && second.plain
               ? view(first) < view(second)
               : nameOf(first).compare(nameOf(second), Qt::CaseInsensitive) < 0;
}

/// For a plain name its folded form, which compares alike.
QString NameOrder::nameOf(const Entry &entry) const
{
    return entry.plain ? QString::fromUtf16(units.data() + entry.start,
                                            static_cast<qsizetype>(entry.length))
                       : entry.name;
}
