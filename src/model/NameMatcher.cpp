#include "model/NameMatcher.h"

#include "model/NameFolding.h"

using namespace Qt::StringLiterals;

namespace {

/// What "\w" matches among ASCII.
bool isWordByte(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '_';
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

NameMatcher::Score NameMatcher::score(const CatalogText &name)
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
    if (found == std::string::npos) {
        return NoMatch;
    }
    if (found == 0) {
        return folded.size() == foldedQuery.size() ? Equal : Prefix;
    }
    // Outside ASCII the regular expression folds a few characters differently from Qt.
    if (!queryIsAscii || alphabet != Alphabet::Ascii) {
        return scoreAtWordStart(name);
    }
    return startsWordAnywhere(found) ? WordStart : Inside;
}

NameMatcher::Score NameMatcher::scoreByQt(const QString &name) const
{
    if (name.compare(query, Qt::CaseInsensitive) == 0) {
        return Equal;
    }
    if (name.startsWith(query, Qt::CaseInsensitive)) {
        return Prefix;
    }
    return name.contains(query, Qt::CaseInsensitive) ? scoreAtWordStart(name) : NoMatch;
}

NameMatcher::Score NameMatcher::scoreAtWordStart(const QString &name) const
{
    return wordStart.match(name).hasMatch() ? WordStart : Inside;
}

/// Whether the query, first found at `found`, occurs at a word boundary there or later.
bool NameMatcher::startsWordAnywhere(size_t found) const
{
    for (size_t at = found; at != std::string::npos; at = folded.find(foldedQuery, at + 1)) {
        if (isWordByte(folded[at - 1]) != isWordByte(folded[at])) {
            return true;
        }
    }
    return false;
}
