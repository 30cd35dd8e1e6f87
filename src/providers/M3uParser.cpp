#include "providers/M3uParser.h"

#include "model/StreamHeaders.h"

#include <QByteArrayView>
#include <QHash>

#include <iterator>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");

/// What QString::fromUtf8() makes of these bytes in the middle of a text, where it keeps a
/// byte-order mark.
CatalogText textOf(QByteArrayView bytes)
{
    return bytes.startsWith(byteOrderMark)
               ? CatalogText(QString::fromUtf8("_"_ba.append(bytes)).sliced(1))
               : CatalogText::fromUtf8(bytes);
}

bool isSpace(QByteArrayView character)
{
    const char byte = character.front();
    if (character.size() == 1) {
        return byte == ' ' || (byte >= '\t' && byte <= '\r');
    }
    const QString text = QString::fromUtf8(character);
    return text.size() == 1 && text.front().isSpace();
}

/// The length of the white space at one end: `takeEnd` gives that many bytes of it. All spaces have
/// one to three bytes, and only ASCII has one.
template <typename TakeEnd>
qsizetype spaceLength(QByteArrayView bytes, char outermost, TakeEnd takeEnd)
{
    const bool ascii = static_cast<unsigned char>(outermost) < 0x80;
    for (qsizetype length = ascii ? 1 : 2; length <= (ascii ? 1 : 3); ++length) {
        if (length <= bytes.size() && isSpace(takeEnd(length))) {
            return length;
        }
    }
    return 0;
}

/// What QString::trimmed() leaves.
QByteArrayView trimmed(QByteArrayView bytes)
{
    const auto first = [&bytes](qsizetype length) { return bytes.first(length); };
    const auto last = [&bytes](qsizetype length) { return bytes.last(length); };
    qsizetype length = 0;
    while (!bytes.isEmpty() && (length = spaceLength(bytes, bytes.front(), first)) > 0) {
        bytes = bytes.sliced(length);
    }
    while (!bytes.isEmpty() && (length = spaceLength(bytes, bytes.back(), last)) > 0) {
        bytes.chop(length);
    }
    return bytes;
}

/// The value of the attribute whose name, equals sign and opening quote are `opening`; empty when
/// the line has none. The first occurrence counts, also at the end of a longer attribute name.
QByteArrayView extractAttr(QByteArrayView line, std::string_view opening)
{
    const size_t found = std::string_view(line.data(), size_t(line.size())).find(opening);
    if (found == std::string_view::npos) {
        return {};
    }
    const auto start = static_cast<qsizetype>(found) + std::ssize(opening);
    const qsizetype end = line.indexOf('"', start);
    return end < 0 ? QByteArrayView() : line.sliced(start, end - start);
}

constexpr QByteArrayView optionTag("#EXTVLCOPT:");

/// Builds the result line by line. The pending entry is held as views into the text, and each group
/// has one text: with 600,000 entries, allocations dominate the time.
class Scanner
{
public:
    void takeLine(QByteArrayView rawLine)
    {
        const QByteArrayView line = trimmed(rawLine);
        if (line.isEmpty()) {
            return;
        }
        if (line.front() != '#') {
            takeUrl(line);
        } else if (hasTag(line, "#EXTINF")) {
            takeInfo(line);
        } else if (hasTag(line, optionTag)) {
            takeOption(line.sliced(optionTag.size()));
        }
    }

    M3uParser::Result takeResult() { return std::move(result); }

private:
    static bool hasTag(QByteArrayView line, QByteArrayView tag)
    {
        return line.size() >= tag.size() &&
               line.first(tag.size()).compare(tag, Qt::CaseInsensitive) == 0;
    }

    void takeInfo(QByteArrayView line)
    {
        const qsizetype comma = line.lastIndexOf(',');
        pendingName = comma < 0 ? QByteArrayView("Unnamed") : trimmed(line.sliced(comma + 1));
        pendingGroup = extractAttr(line, "group-title=\"");
        if (pendingGroup.isEmpty()) {
            pendingGroup = "Uncategorized";
        }
        pendingLogo = extractAttr(line, "tvg-logo=\"");
    }

    /// An option for the next URL. Two names are known, exactly: the others can make libVLC write
    /// files.
    void takeOption(QByteArrayView option)
    {
        constexpr QByteArrayView userAgentOption("http-user-agent=");
        constexpr QByteArrayView referrerOption("http-referrer=");
        option = trimmed(option);
        if (option.startsWith(userAgentOption)) {
            pendingUserAgent = trimmed(option.sliced(userAgentOption.size()));
        } else if (option.startsWith(referrerOption)) {
            pendingReferrer = trimmed(option.sliced(referrerOption.size()));
        }
    }

    void takeUrl(QByteArrayView url)
    {
        appendItem(url);
        pendingName = {};
        pendingUserAgent = {};
        pendingReferrer = {};
    }

    void appendItem(QByteArrayView url)
    {
        if (pendingName.isEmpty()) {
            return;
        }
        MediaItem item;
        item.type = StreamKind::Live;
        item.id = textOf(url);
        item.streamUrl = item.id;
        item.name = textOf(pendingName);
        item.categoryId = sharedGroup();
        item.iconUrl = textOf(pendingLogo);
        if (!pendingUserAgent.isEmpty() || !pendingReferrer.isEmpty()) {
            item.headers = sharedHeaders();
        }
        result.items.append(std::move(item));
    }

    /// The text of the pending headers, shared by neighbours that have the same.
    CatalogText sharedHeaders()
    {
        if (pendingUserAgent != userAgentOfHeaders || pendingReferrer != referrerOfHeaders) {
            userAgentOfHeaders = pendingUserAgent;
            referrerOfHeaders = pendingReferrer;
            headers = textOfHeaders({checked(pendingUserAgent), checked(pendingReferrer)});
        }
        return headers;
    }

    /// Empty for what must not be sent.
    static QString checked(QByteArrayView value)
    {
        const QString text = QString::fromUtf8(value);
        return isHeaderValue(text) ? text : QString();
    }

    /// The text of the pending group, shared by its entries. The first occurrence of a group adds a
    /// category.
    CatalogText sharedGroup()
    {
        if (const auto known = groupOfBytes.constFind(pendingGroup);
            known != groupOfBytes.constEnd()) {
            return *known;
        }
        // Different bytes that are not UTF-8 may decode to the same text.
        const QString name = textOf(pendingGroup);
        auto group = groupOfName.constFind(name);
        if (group == groupOfName.constEnd()) {
            group = groupOfName.insert(name, name);
            result.categories.append({name, name});
        }
        groupOfBytes.insert(pendingGroup, *group);
        return *group;
    }

    M3uParser::Result result;
    QHash<QByteArrayView, CatalogText> groupOfBytes;
    QHash<QString, CatalogText> groupOfName;
    QByteArrayView pendingName;
    QByteArrayView pendingGroup;
    QByteArrayView pendingLogo;
    QByteArrayView pendingUserAgent;
    QByteArrayView pendingReferrer;
    CatalogText headers; ///< of these two:
    QByteArrayView userAgentOfHeaders;
    QByteArrayView referrerOfHeaders;
};

/// Calls `take` for each piece of `text` between two `separator`s, the empty ones included.
template <typename Take>
void forEachPiece(QByteArrayView text, char separator, Take take)
{
    qsizetype start = 0;
    for (;;) {
        const qsizetype end = text.indexOf(separator, start);
        if (end < 0) {
            take(text.sliced(start));
            return;
        }
        take(text.sliced(start, end - start));
        start = end + 1;
    }
}

M3uParser::Result parseText(QByteArrayView text)
{
    Scanner scanner;
    // "\r\n" gives one extra empty piece, and empty lines are skipped.
    forEachPiece(text, '\n', [&scanner](QByteArrayView line) {
        forEachPiece(line, '\r', [&scanner](QByteArrayView part) { scanner.takeLine(part); });
    });
    return scanner.takeResult();
}

} // namespace

M3uParser::Result M3uParser::parse(const QString &text)
{
    return parseText(text.toUtf8());
}

M3uParser::Result M3uParser::parseUtf8(const QByteArray &text)
{
    const qsizetype start = text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
    return parseText(QByteArrayView(text).sliced(start));
}
