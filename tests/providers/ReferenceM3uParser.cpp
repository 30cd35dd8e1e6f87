#include "providers/ReferenceM3uParser.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

QString extractAttr(const QString &line, const QString &key)
{
    const QRegularExpression expression(key + u"=\"([^\"]*)\""_s);
    const QRegularExpressionMatch match = expression.match(line);
    return match.hasMatch() ? match.captured(1) : QString();
}

} // namespace

M3uParser::Result ReferenceM3uParser::parse(const QString &text)
{
    M3uParser::Result result;
    QSet<QString> seenGroups;
    QString name;
    QString group;
    QString logo;
    const QStringList lines = text.split(QRegularExpression(u"\r\n|\n|\r"_s), Qt::KeepEmptyParts);
    for (const QString &rawLine : lines) {
        const QString line = rawLine.trimmed();
        if (line.isEmpty()) {
            continue;
        }
        if (line.startsWith(u"#EXTINF"_s, Qt::CaseInsensitive)) {
            const qsizetype comma = line.lastIndexOf(u',');
            name = comma < 0 ? u"Unnamed"_s : line.mid(comma + 1).trimmed();
            group = extractAttr(line, u"group-title"_s);
            if (group.isEmpty()) {
                group = u"Uncategorized"_s;
            }
            logo = extractAttr(line, u"tvg-logo"_s);
            continue;
        }
        if (line.startsWith(u'#') || name.isEmpty()) {
            continue;
        }
        MediaItem item;
        item.id = line;
        item.name = name;
        item.categoryId = group;
        item.iconUrl = logo;
        item.streamUrl = line;
        result.items.append(item);
        if (!seenGroups.contains(group)) {
            seenGroups.insert(group);
            result.categories.append({group, group});
        }
        name.clear();
        group.clear();
        logo.clear();
    }
    return result;
}
