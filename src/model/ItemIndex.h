#pragma once

#include "model/CatalogRecords.h"

#include <QHash>
#include <QList>
#include <QString>

/// The entries of one tab with their orders by sort key, each made once per load, on first use: so
/// that a keystroke need not sort.
class ItemIndex final
{
public:
    /// What applyFilter() followed by sortItems() gives for these entries. A list other than the
    /// last one, told by its data, makes the orders anew.
    QList<MediaItem> select(const QList<MediaItem> &items, const QString &categoryId,
                            const QString &query, const QString &sortKey);

private:
    /// The indices of all entries in the order of a sort key.
    const QList<int> &orderBy(const QString &sortKey);

    /// Shares its data with the tab's list, and thereby keeps it from being that of another list.
    QList<MediaItem> indexed;
    QHash<QString, QList<int>> orders;
};
