#include "library/Library.h"

#include "library/LibraryTables.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

// The part of Library that follows the sources: their names, and the entries of their playlists.

namespace {

/// As in the catalog, whose texts are not converted to be looked up.
using KeptEntries = QHash<CatalogText, LibraryEntry>;
using NameAndCategory = std::pair<CatalogText, CatalogText>;

NameAndCategory nameOf(const LibraryEntry &entry)
{
    return {entry.name, entry.categoryId};
}

/// Everything that is kept of one source and kind, by the entry's id.
KeptEntries keptEntries(const LibraryState &state, const LibraryListId &listId)
{
    KeptEntries kept;
    const auto collect = [&kept](const auto &list) {
        for (const auto &row : list) {
            kept.insert(row.id, row);
        }
    };
    collect(state.list<Favorite>(listId));
    collect(state.list<WatchedEntry>(listId));
    collect(state.list<Progress>(listId));
    return kept;
}

void dropPresent(KeptEntries &entries, const QList<MediaItem> &items)
{
    for (const MediaItem &item : items) {
        if (entries.isEmpty()) {
            return;
        }
        entries.remove(item.id);
    }
}

/// For each entry the id of an item of the same name and category, each item once and none of
/// those that are kept.
QHash<QString, QString> newIds(const KeptEntries &missing, const KeptEntries &kept,
                               const QList<MediaItem> &items)
{
    QHash<NameAndCategory, QStringList> wanted;
    for (const LibraryEntry &entry : missing) {
        if (!entry.name.isEmpty()) {
            wanted[nameOf(entry)].append(entry.id);
        }
    }
    for (QStringList &ids : wanted) {
        std::sort(ids.begin(), ids.end());
    }
    QHash<QString, QString> found;
    QSet<CatalogText> taken;
    for (const MediaItem &item : items) {
        if (wanted.isEmpty()) {
            break;
        }
        const auto ids = wanted.find({item.name, item.categoryId});
        if (ids != wanted.end() && !kept.contains(item.id) && !taken.contains(item.id)) {
            taken.insert(item.id);
            found.insert(ids->takeFirst(), item.id);
            if (ids->isEmpty()) {
                wanted.erase(ids);
            }
        }
    }
    return found;
}

} // namespace

LibraryChange Library::renameSource(const QString &from, const QString &to)
{
    if (from == to || to.isEmpty()) {
        return {};
    }
    LibraryChange change;
    change.moves.append({from, to});
    return apply(change);
}

LibraryChange Library::forgetSource(const QString &source)
{
    LibraryChange change;
    change.moves.append({source, {}});
    return apply(change);
}

LibraryChange Library::followEntries(const QString &source, EntryKind kind,
                                     const QList<MediaItem> &items)
{
    const LibraryListId listId{source, kind};
    const KeptEntries kept = keptEntries(state(), listId);
    KeptEntries missing = kept;
    dropPresent(missing, items);
    const QHash<QString, QString> ids = newIds(missing, kept, items);
    LibraryChange change;
    const auto follow = [&ids](const auto &list, auto &removed, auto &put) {
        for (auto row : list) {
            const auto id = ids.constFind(row.id);
            if (id != ids.constEnd()) {
                removed.append(row);
                row.id = *id;
                put.append(row);
            }
        }
    };
    follow(state().list<Favorite>(listId), change.removed.favorites, change.put.favorites);
    follow(state().list<WatchedEntry>(listId), change.removed.history, change.put.history);
    follow(state().list<Progress>(listId), change.removed.progress, change.put.progress);
    return apply(change);
}
