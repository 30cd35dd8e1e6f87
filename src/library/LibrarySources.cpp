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

/// The rows of one source and kind whose ids may change.
struct KeptLists
{
    LibraryList<Favorite> favorites;
    LibraryList<WatchedEntry> history;
    LibraryList<Progress> progress;

    bool isEmpty() const { return favorites.isEmpty() && history.isEmpty() && progress.isEmpty(); }
};

/// Everything that is kept of one source and kind, by the entry's id.
KeptEntries keptEntries(const KeptLists &lists)
{
    KeptEntries kept;
    const auto collect = [&kept](const auto &list) {
        for (const auto &row : list) {
            kept.insert(row.id, row);
        }
    };
    collect(lists.favorites);
    collect(lists.history);
    collect(lists.progress);
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
LibraryChange planToFollow(const KeptLists &lists, const QList<MediaItem> &items)
{
    const KeptEntries kept = keptEntries(lists);
    KeptEntries missing = kept;
    dropPresent(missing, items);
    LibraryChange change;
    if (missing.isEmpty()) {
        return change;
    }
    const QHash<QString, QString> ids = newIds(missing, kept, items);
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
    follow(lists.favorites, change.removed.favorites, change.put.favorites);
    follow(lists.history, change.removed.history, change.put.history);
    follow(lists.progress, change.removed.progress, change.put.progress);
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
    const KeptLists lists{state().list<Favorite>(id), state().list<WatchedEntry>(id),
                          state().list<Progress>(id)};
    if (lists.isEmpty()) {
        return;
    }
    followers.start([this, lists, items] {
        const LibraryChange change = planToFollow(lists, items);
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
    const auto check = [this](const auto &from, const auto &to, auto &removed, auto &put) {
        using Row = typename std::decay_t<decltype(from)>::value_type;
        for (qsizetype index = 0; index < from.size(); ++index) {
            const Row &row = from.at(index);
            const auto &list = state().list<Row>({row.source, row.kind});
            const auto found = list.constFind(row.id);
            if (found != list.constEnd() && *found == row && !list.contains(to.at(index).id)) {
                removed.append(row);
                put.append(to.at(index));
            }
        }
    };
    check(change.removed.favorites, change.put.favorites, valid.removed.favorites,
          valid.put.favorites);
    check(change.removed.history, change.put.history, valid.removed.history, valid.put.history);
    check(change.removed.progress, change.put.progress, valid.removed.progress, valid.put.progress);
    apply(valid);
}
