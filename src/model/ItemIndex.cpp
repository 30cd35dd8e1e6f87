#include "model/ItemIndex.h"

#include "model/ItemFilter.h"

QList<int> ItemIndex::select(const QString &categoryId, const QString &query,
                             const QString &sortKey)
{
    return filteredRows(indexed, orderBy(sortKey), categoryId, query);
}

const QList<int> &ItemIndex::orderBy(const QString &sortKey)
{
    auto order = orders.find(sortKey);
    if (order == orders.end()) {
        order = orders.insert(sortKey, sortedOrder(indexed, sortKey));
    }
    return *order;
}
