#pragma once

#include "model/CatalogRecords.h"

#include <QList>

/// The entries that a view shows: row r shows the entry at `rows[r]` of the list. The addresses of
/// the entries stay valid while the object is not assigned to.
class ShownEntries
{
public:
    ShownEntries() = default;
    ShownEntries(const QList<MediaItem> &allEntries, const QList<int> &shownRows)
        : entries(allEntries)
        , rows(shownRows)
    {}

    /// Whether both show rows of one list.
    bool sharesListWith(const ShownEntries &other) const
    {
        return entries.isSharedWith(other.entries);
    }

    const QList<int> &shownRows() const { return rows; }
    int count() const { return static_cast<int>(rows.size()); }
    const MediaItem &at(int row) const { return entries.at(rows.at(row)); }

private:
    QList<MediaItem> entries;
    QList<int> rows;
};
