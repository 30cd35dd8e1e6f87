#include "ui/ItemFilter.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

int relevance(const QString &name, const QString &query, const QRegularExpression &wordStart)
{
    if (name.compare(query, Qt::CaseInsensitive) == 0) {
        return 0;
    }
    if (name.startsWith(query, Qt::CaseInsensitive)) {
        return 1;
    }
    return wordStart.match(name).hasMatch() ? 2 : 3;
}

QList<int> relevanceScores(const QList<MediaItem> &items, const QString &query)
{
    QList<int> scores(items.size(), 0);
    if (query.isEmpty()) {
        return scores;
    }
    const QRegularExpression wordStart(u"\\b"_s + QRegularExpression::escape(query),
                                       QRegularExpression::CaseInsensitiveOption);
    std::transform(items.begin(), items.end(), scores.begin(),
                   [&](const MediaItem &item) { return relevance(item.name, query, wordStart); });
    return scores;
}

double orderedRating(const MediaItem &item)
{
    return std::isfinite(item.rating) ? item.rating : 0.0;
}

bool comesBefore(const MediaItem &a, const MediaItem &b, const QString &sortKey)
{
    if (sortKey == "added"_L1) {
        return a.addedAt > b.addedAt;
    }
    if (sortKey == "rating"_L1) {
        return orderedRating(a) > orderedRating(b);
    }
    return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
}

} // namespace

QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query)
{
    QList<MediaItem> result;
    for (const MediaItem &item : items) {
        if (!categoryId.isEmpty() && item.categoryId != categoryId) {
            continue;
        }
        if (!query.isEmpty() && !item.name.contains(query, Qt::CaseInsensitive)) {
            continue;
        }
        result.append(item);
    }
    if (!query.isEmpty()) {
        sortByRelevance(result, query, [](int, int, const QList<int> &) { return false; });
    }
    return result;
}

void sortByRelevance(QList<MediaItem> &items, const QString &query,
                     const std::function<bool(int, int, const QList<int> &)> &tieBreak)
{
    const QList<int> scores = relevanceScores(items, query);
    QList<int> order(items.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return scores.at(a) != scores.at(b) ? scores.at(a) < scores.at(b) : tieBreak(a, b, scores);
    });
    QList<MediaItem> sorted;
    sorted.reserve(items.size());
    for (const int index : std::as_const(order)) {
        sorted.append(items.at(index));
    }
    items = std::move(sorted);
}

void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey)
{
    const QList<MediaItem> before = items;
    sortByRelevance(items, query, [&before, &sortKey](int a, int b, const QList<int> &) {
        return comesBefore(before.at(a), before.at(b), sortKey);
    });
}
