#pragma once

#include "model/CatalogRecords.h"

#include <QHash>
#include <QList>
#include <QString>

/// The entries of one tab with their sort orders. Each order is computed once, on first use or
/// ahead of it, so that a keystroke does not sort. Copies share the entries and the orders. One
/// object for one thread at a time.
class ItemIndex final
{
public:
    ItemIndex() = default;
    ItemIndex(const QList<MediaItem> &items)
        : indexed(items)
    {}

    const QList<MediaItem> &items() const { return indexed; }
    bool isEmpty() const { return indexed.isEmpty(); }

    /// Computes the order by a key ahead of its first use.
    void prepareOrder(const QString &sortKey) { orderBy(sortKey); }

    /// The result of applyFilter() followed by sortItems(), as indices into items().
    QList<int> select(const QString &categoryId, const QString &query, const QString &sortKey);

private:
    /// The indices of all entries, sorted by a key.
    const QList<int> &orderBy(const QString &sortKey);

    QList<MediaItem> indexed;
    QHash<QString, QList<int>> orders;
};
