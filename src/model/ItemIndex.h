#pragma once

#include "model/CatalogRecords.h"

#include <QHash>
#include <QList>
#include <QString>

/// The entries of one tab with their sort orders. Each order is computed once per load, on first
/// use, so that a keystroke does not sort.
class ItemIndex final
{
public:
    /// The result of applyFilter() followed by sortItems() for these entries, as indices into
    /// `items`. A list other than in the last call, identified by its data pointer, discards the
    /// orders.
    QList<int> select(const QList<MediaItem> &items, const QString &categoryId,
                      const QString &query, const QString &sortKey);

private:
    /// The indices of all entries, sorted by a key.
    const QList<int> &orderBy(const QString &sortKey);

    /// Shares the data of the tab's list, so that no other list can get the same data pointer.
    QList<MediaItem> indexed;
    QHash<QString, QList<int>> orders;
};
