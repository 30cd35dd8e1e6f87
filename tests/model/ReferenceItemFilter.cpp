#include "ReferenceItemFilter.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double orderedRating(const MediaItem &item)
{
    return std::isnan(item.rating) || std::isinf(item.rating) ? 0.0 : item.rating;
}

bool keyComesBefore(const MediaItem &a, const MediaItem &b, const QString &sortKey)
{
    if (sortKey == "added"_L1) {
        return a.addedAt > b.addedAt;
    }
    if (sortKey == "rating"_L1) {
        return orderedRating(a) > orderedRating(b);
    }
    return QString::compare(a.name, b.name, Qt::CaseInsensitive) < 0;
}

} // namespace

int ReferenceItemFilter::score(const QString &name, const QString &query)
{
    if (query.isEmpty()) {
        return 0;
    }
    if (QString::compare(name, query, Qt::CaseInsensitive) == 0) {
        return 0;
    }
    if (name.startsWith(query, Qt::CaseInsensitive)) {
        return 1;
    }
    const QRegularExpression wordStart(u"\\b"_s + QRegularExpression::escape(query),
                                       QRegularExpression::CaseInsensitiveOption);
    return wordStart.match(name).hasMatch() ? 2 : 3;
}

QList<MediaItem> ReferenceItemFilter::applyFilter(const QList<MediaItem> &items,
                                                  const QString &categoryId, const QString &query)
{
    QList<MediaItem> result;
    for (const MediaItem &item : items) {
        const bool otherCategory = !categoryId.isEmpty() && item.categoryId != categoryId;
        const bool otherName =
            !query.isEmpty() && item.name.indexOf(query, 0, Qt::CaseInsensitive) == -1;
        if (!otherCategory && !otherName) {
            result.append(item);
        }
    }
    std::stable_sort(result.begin(), result.end(), [&](const MediaItem &a, const MediaItem &b) {
        return score(a.name, query) < score(b.name, query);
    });
    return result;
}

void ReferenceItemFilter::sortItems(QList<MediaItem> &items, const QString &query,
                                    const QString &sortKey)
{
    std::stable_sort(items.begin(), items.end(), [&](const MediaItem &a, const MediaItem &b) {
        const int scoreA = score(a.name, query);
        const int scoreB = score(b.name, query);
        return scoreA != scoreB ? scoreA < scoreB : keyComesBefore(a, b, sortKey);
    });
}
