#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QThreadPool>

#include <algorithm>
#include <utility>

/// The entries that a view shows: row r shows the entry at `rows[r]` of the list. The addresses of
/// the entries stay valid while the object is not assigned to. Copies share the list.
class ShownEntries
{
public:
    ShownEntries() = default;
    ShownEntries(const QList<MediaItem> &allEntries, const QList<int> &shownRows)
        : entries(allEntries)
        , rows(shownRows)
    {}

    /// Whether both show rows of one list.
    bool sharesListWith(const ShownEntries &other) const { return isOf(other.entries); }
    bool isOf(const QList<MediaItem> &list) const { return entries.isSharedWith(list); }

    const QList<int> &shownRows() const { return rows; }
    int count() const { return static_cast<int>(rows.size()); }
    const MediaItem &at(int row) const { return entries.at(rows.at(row)); }
    /// The first row with the entry of that id, -1 when there is none.
    int rowOf(const CatalogText &id) const
    {
        const auto found = std::find_if(rows.begin(), rows.end(), [this, &id](int index) {
            return entries.at(index).id == id;
        });
        return found != rows.end() ? static_cast<int>(found - rows.begin()) : -1;
    }

private:
    QList<MediaItem> entries;
    QList<int> rows;
};

/// Freeing hundreds of thousands of entries takes longer than filling a view. Does nothing else
/// while another copy is left.
inline void freeInBackground(ShownEntries &&entries)
{
    QThreadPool::globalInstance()->start([old = std::move(entries)] {});
}
