#include "model/ItemFilter.h"

#include "model/NameMatcher.h"
#include "model/NameOrder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The scores of the entries' names. A name without the query scores like one that contains it.
QList<int> relevanceScores(const QList<MediaItem> &items, const QString &query)
{
    QList<int> scores(items.size(), 0);
    if (query.isEmpty()) {
        return scores;
    }
    NameMatcher matcher(query);
    std::transform(items.begin(), items.end(), scores.begin(), [&matcher](const MediaItem &item) {
        return std::min<int>(matcher.score(item.name), NameMatcher::Inside);
    });
    return scores;
}

/// The score of each entry; NoMatch also for the entries of other categories.
std::vector<quint8> scoresOf(const QList<MediaItem> &items, const CatalogText &categoryId,
                             const QString &query)
{
    NameMatcher matcher(query);
    std::vector<quint8> scores(static_cast<size_t>(items.size()), NameMatcher::NoMatch);
    std::transform(items.begin(), items.end(), scores.begin(), [&](const MediaItem &item) {
        const bool isListed = categoryId.isEmpty() || item.categoryId == categoryId;
        return static_cast<quint8>(isListed ? matcher.score(item.name) : NameMatcher::NoMatch);
    });
    return scores;
}

/// Arranges the entries in the order of these indices.
void reorder(QList<MediaItem> &items, const QList<int> &order)
{
    QList<MediaItem> sorted;
    sorted.reserve(items.size());
    for (const int index : order) {
        sorted.append(std::move(items[index]));
    }
    items = std::move(sorted);
}

/// The order of a stable sort by score, then by `tieBreak(a, b)`, as indices.
template <typename TieBreak>
QList<int> orderByScore(const QList<int> &scores, TieBreak tieBreak)
{
    QList<int> order(scores.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return scores.at(a) != scores.at(b) ? scores.at(a) < scores.at(b) : tieBreak(a, b);
    });
    return order;
}

double orderedRating(double rating)
{
    return std::isfinite(rating) ? rating : 0.0;
}

QList<int> orderByName(const QList<MediaItem> &items, const QList<int> &scores)
{
    // Keys are small and contiguous, so that most comparisons need no look at the names.
    struct Key
    {
        NameOrder::Head head;
        int score = 0;
        int index = 0;
    };
    NameOrder names(static_cast<size_t>(items.size()));
    std::vector<Key> keys(static_cast<size_t>(items.size()));
    for (size_t index = 0; index < keys.size(); ++index) {
        const auto row = static_cast<qsizetype>(index);
        names.add(items.at(row).name);
        keys[index] = {names.head(index), scores.at(row), static_cast<int>(index)};
    }
    std::stable_sort(keys.begin(), keys.end(), [&names](const Key &a, const Key &b) {
        if (a.score != b.score) {
            return a.score < b.score;
        }
        if (a.head.decides && b.head.decides && a.head != b.head) {
            return std::tie(a.head.first, a.head.second) < std::tie(b.head.first, b.head.second);
        }
        return names.before(static_cast<size_t>(a.index), static_cast<size_t>(b.index));
    });
    QList<int> order(items.size());
    std::transform(keys.begin(), keys.end(), order.begin(),
                   [](const Key &key) { return key.index; });
    return order;
}

/// The order by a number of each entry, highest first.
template <typename Number, typename NumberOf>
QList<int> orderDescending(const QList<MediaItem> &items, const QList<int> &scores,
                           NumberOf numberOf)
{
    QList<Number> numbers(items.size());
    std::transform(items.cbegin(), items.cend(), numbers.begin(), numberOf);
    return orderByScore(scores, [&numbers](int a, int b) { return numbers.at(a) > numbers.at(b); });
}

QList<int> orderByKey(const QList<MediaItem> &items, const QList<int> &scores,
                      const QString &sortKey)
{
    if (sortKey == "added"_L1) {
        return orderDescending<qint64>(items, scores,
                                       [](const MediaItem &item) { return item.addedAt; });
    }
    if (sortKey == "rating"_L1) {
        return orderDescending<double>(
            items, scores, [](const MediaItem &item) { return orderedRating(item.rating); });
    }
    return orderByName(items, scores);
}

} // namespace

QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query)
{
    if (categoryId.isEmpty() && query.isEmpty()) {
        return items;
    }
    QList<MediaItem> matches;
    for (const int row : filteredRows(items, categoryId, query)) {
        matches.append(items.at(row));
    }
    return matches;
}

QList<int> filteredRows(const QList<MediaItem> &items, const QString &categoryId,
                        const QString &query)
{
    QList<int> order(items.size());
    std::iota(order.begin(), order.end(), 0);
    return filteredRows(items, order, categoryId, query);
}

QList<int> filteredRows(const QList<MediaItem> &items, const QList<int> &order,
                        const QString &categoryId, const QString &query)
{
    // Names are scored in the order in which they lie in memory.
    const std::vector<quint8> scores = scoresOf(items, CatalogText(categoryId), query);
    // Entries of one score keep their order, so one pass sorts them all.
    std::array<QList<int>, NameMatcher::NoMatch> rowsByScore;
    for (const int row : order) {
        const quint8 score = scores[static_cast<size_t>(row)];
        if (score != NameMatcher::NoMatch) {
            rowsByScore.at(score).append(row);
        }
    }
    QList<int> rows;
    for (const QList<int> &scored : rowsByScore) {
        rows.append(scored);
    }
    return rows;
}

void sortByRelevance(QList<MediaItem> &items, const QString &query,
                     const std::function<bool(int, int, const QList<int> &)> &tieBreak)
{
    const QList<int> scores = relevanceScores(items, query);
    reorder(items, orderByScore(scores, [&](int a, int b) { return tieBreak(a, b, scores); }));
}

void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey)
{
    reorder(items, orderByKey(items, relevanceScores(items, query), sortKey));
}

QList<int> sortedOrder(const QList<MediaItem> &items, const QString &sortKey)
{
    return orderByKey(items, QList<int>(items.size(), 0), sortKey);
}
