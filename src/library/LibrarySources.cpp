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

/// Whether the rows of a part belong to entries, whose ids may change.
bool belongsToEntries(LibraryPart part)
{
    return part != LibraryPart::HiddenCategories && part != LibraryPart::GuideSettings &&
           part != LibraryPart::Languages;
}

/// Everything that is kept of one source and kind, by the entry's id.
KeptEntries keptEntries(const LibraryState &state, const LibraryListId &id)
{
    KeptEntries kept;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        if (belongsToEntries(table.part)) {
            for (const Row &row : state.list<Row>(id)) {
                LibraryEntry entry = row;
                entry.id = entryIdOf(row);
                kept.insert(entry.id, entry);
            }
        }
    });
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

/// The change that gives rows new ids; each row that is removed stands at the index of the one that
/// takes its place.
LibraryChange planToFollow(const LibraryState &state, const LibraryListId &listId,
                           const QList<MediaItem> &items)
{
    const KeptEntries kept = keptEntries(state, listId);
    KeptEntries missing = kept;
    dropPresent(missing, items);
    LibraryChange change;
    if (missing.isEmpty()) {
        return change;
    }
    const QHash<QString, QString> ids = newIds(missing, kept, items);
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        if (!belongsToEntries(table.part)) {
            return;
        }
        for (Row row : state.list<Row>(listId)) {
            const auto id = ids.constFind(entryIdOf(row));
            if (id != ids.constEnd()) {
                (change.removed.*table.rows).append(row);
                setEntryId(row, *id);
                (change.put.*table.rows).append(row);
            }
        }
    });
    return change;
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

void Library::followEntries(const QString &source, EntryKind kind, const QList<MediaItem> &items)
{
    if (isLarge) {
        followWhenLoaded = [this, source, kind, items] { followEntries(source, kind, items); };
        return;
    }
    const LibraryListId id{source, kind};
    bool hasRows = false;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        hasRows = hasRows || (belongsToEntries(table.part) && !state().list<Row>(id).isEmpty());
    });
    if (!hasRows) {
        return;
    }
    followers.start([this, id, items, snapshot = state()] {
        const LibraryChange change = planToFollow(snapshot, id, items);
        if (!change.isEmpty()) {
            QMetaObject::invokeMethod(
                this, [this, change] { followIfUnchanged(change); }, Qt::QueuedConnection);
        }
    });
}

/// Makes a change of planToFollow(), as far as its rows are still what they were.
void Library::followIfUnchanged(const LibraryChange &change)
{
    LibraryChange valid;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        const QList<Row> &from = change.removed.*table.rows;
        const QList<Row> &to = change.put.*table.rows;
        for (qsizetype index = 0; index < from.size(); ++index) {
            const Row &row = from.at(index);
            const auto &list = state().list<Row>({row.source, row.kind});
            const auto found = list.constFind(row.id);
            if (found != list.constEnd() && *found == row && !list.contains(to.at(index).id)) {
                (valid.removed.*table.rows).append(row);
                (valid.put.*table.rows).append(to.at(index));
            }
        }
    });
    apply(valid);
}
