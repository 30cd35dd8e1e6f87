#include "providers/M3uParser.h"

#include <QHash>
#include <QStringView>

using namespace Qt::StringLiterals;

namespace {

/// The value of the attribute whose name, equals sign and opening quote are `opening`; empty when
/// the line has none. The first occurrence counts, also at the end of a longer attribute name.
QStringView extractAttr(QStringView line, QLatin1StringView opening)
{
    const qsizetype found = line.indexOf(opening);
    if (found < 0) {
        return {};
    }
    const qsizetype start = found + opening.size();
    const qsizetype end = line.indexOf(u'"', start);
    return end < 0 ? QStringView() : line.sliced(start, end - start);
}

/// Builds the result line by line. The pending entry is held as views into the text, and each group
/// has one text: with 600,000 entries, allocations dominate the time.
class Scanner
{
public:
    void takeLine(QStringView rawLine)
    {
        const QStringView line = rawLine.trimmed();
        if (line.isEmpty()) {
            return;
        }
        if (line.front() != u'#') {
            takeUrl(line);
        } else if (line.startsWith("#EXTINF"_L1, Qt::CaseInsensitive)) {
            takeInfo(line);
        }
    }

    M3uParser::Result takeResult() { return std::move(result); }

private:
    void takeInfo(QStringView line)
    {
        const qsizetype comma = line.lastIndexOf(u',');
        pendingName = comma < 0 ? QStringView(u"Unnamed") : line.sliced(comma + 1).trimmed();
        pendingGroup = extractAttr(line, "group-title=\""_L1);
        if (pendingGroup.isEmpty()) {
            pendingGroup = u"Uncategorized";
        }
        pendingLogo = extractAttr(line, "tvg-logo=\""_L1);
    }

    void takeUrl(QStringView url)
    {
        if (pendingName.isEmpty()) {
            return;
        }
        MediaItem item;
        item.type = StreamKind::Live;
        item.id = url.toString();
        item.streamUrl = item.id;
        item.name = pendingName.toString();
        item.categoryId = sharedGroup();
        item.iconUrl = pendingLogo.toString();
        result.items.append(std::move(item));
        pendingName = {};
    }

    /// The text of the pending group, shared by its entries. The first occurrence of a group adds a
    /// category.
    CatalogText sharedGroup()
    {
        if (pendingGroup != lastGroup) {
            lastGroup = pendingGroup.toString();
            auto known = groups.constFind(lastGroup);
            if (known == groups.constEnd()) {
                known = groups.insert(lastGroup, lastGroup);
                result.categories.append({lastGroup, lastGroup});
            }
            lastGroupText = *known;
        }
        return lastGroupText;
    }

    M3uParser::Result result;
    QHash<QString, CatalogText> groups;
    QString lastGroup;
    CatalogText lastGroupText;
    QStringView pendingName;
    QStringView pendingGroup;
    QStringView pendingLogo;
};

/// Calls `take` for each piece of `text` between two `separator`s, the empty ones included.
template <typename Take>
void forEachPiece(QStringView text, QChar separator, Take take)
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

} // namespace

M3uParser::Result M3uParser::parse(const QString &text)
{
    Scanner scanner;
    // "\r\n" gives one extra empty piece, and empty lines are skipped.
    forEachPiece(text, u'\n', [&scanner](QStringView line) {
        forEachPiece(line, u'\r', [&scanner](QStringView part) { scanner.takeLine(part); });
    });
    return scanner.takeResult();
}
