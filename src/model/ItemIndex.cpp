#include "model/ItemIndex.h"

#include "model/ItemFilter.h"
#include "model/NameMatcher.h"

#include <array>

QList<MediaItem> ItemIndex::select(const QList<MediaItem> &items, const QString &categoryId,
                                   const QString &query, const QString &sortKey)
{
    if (items.constData() != indexed.constData() || items.size() != indexed.size()) {
        indexed = items;
        orders.clear();
    }
    // Entries of one score stay in the order of the key, so one pass over it sorts them all.
    std::array<QList<int>, NameMatcher::NoMatch> rowsByScore;
    NameMatcher matcher(query);
    for (const int row : orderBy(sortKey)) {
        const MediaItem &item = indexed.at(row);
        if (!categoryId.isEmpty() && item.categoryId != categoryId) {
            continue;
        }
        const NameMatcher::Score score = matcher.score(item.name);
        if (score != NameMatcher::NoMatch) {
            rowsByScore.at(static_cast<size_t>(score)).append(row);
        }
    }
    QList<MediaItem> selected;
    for (const QList<int> &rows : rowsByScore) {
        for (const int row : rows) {
            selected.append(indexed.at(row));
        }
    }
    return selected;
}

const QList<int> &ItemIndex::orderBy(const QString &sortKey)
{
    auto order = orders.find(sortKey);
    if (order == orders.end()) {
        order = orders.insert(sortKey, sortedOrder(indexed, sortKey));
    }
    return *order;
}
