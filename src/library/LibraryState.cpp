#include "library/LibraryState.h"

#include "library/LibraryTables.h"

namespace {

template <typename Row>
QList<Row> rowsOf(const LibraryState::Lists<Row> &lists)
{
    QList<Row> rows;
    for (const LibraryList<Row> &list : lists) {
        rows.append(list.values());
    }
    return rows;
}

/// The rows of one source, of all kinds.
template <typename Row>
QList<Row> rowsOf(const LibraryState::Lists<Row> &lists, const QString &source)
{
    QList<Row> rows;
    for (auto list = lists.cbegin(); list != lists.cend(); ++list) {
        if (list.key().source == source) {
            rows.append(list->values());
        }
    }
    return rows;
}

} // namespace

LibraryState::LibraryState(const LibraryRows &rows)
{
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        LibraryListId listId;
        LibraryList<Row> *list = nullptr;
        for (const Row &row : rows.*table.rows) {
            // Neighbours are usually in one list.
            if (list == nullptr || row.source != listId.source || row.kind != listId.kind) {
                listId = {row.source, row.kind};
                list = &std::get<Lists<Row>>(parts)[listId];
            }
            list->insert(row.id, row);
        }
    });
}

LibraryRows LibraryState::rows() const
{
    LibraryRows all;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        all.*table.rows = rowsOf(lists<Row>());
    });
    return all;
}

template <typename Row>
void LibraryState::remove(const LibraryEntry &key, QList<Row> &before)
{
    auto &all = std::get<Lists<Row>>(parts);
    const auto list = all.find({key.source, key.kind});
    if (list == all.end()) {
        return;
    }
    const auto row = list->constFind(key.id);
    if (row == list->constEnd()) {
        return;
    }
    before.append(*row);
    list->erase(row);
    if (list->isEmpty()) {
        all.erase(list);
    }
}

template <typename Row>
void LibraryState::put(const Row &row, QList<Row> &added, QList<Row> &before)
{
    LibraryList<Row> &list = std::get<Lists<Row>>(parts)[{row.source, row.kind}];
    const auto found = list.find(row.id);
    if (found == list.end()) {
        added.append(row);
        list.insert(row.id, row);
    } else {
        before.append(*found);
        *found = row;
    }
}

LibraryChange LibraryState::apply(const LibraryChange &change)
{
    LibraryChange inverse;
    LibraryTables::forEach([&](const auto &table) {
        using Row = typename std::decay_t<decltype(table)>::Row;
        QList<Row> &added = inverse.removed.*table.rows;
        QList<Row> &before = inverse.put.*table.rows;
        if (change.cleared.contains(table.part)) {
            before.append(rowsOf(lists<Row>()));
            std::get<Lists<Row>>(parts).clear();
        }
        for (const SourceMove &move : change.moves) {
            const QList<Row> moved = rowsOf(lists<Row>(), move.from);
            for (Row row : moved) {
                remove(row, before);
                if (!move.to.isEmpty()) {
                    row.source = move.to;
                    put(row, added, before);
                }
            }
        }
        for (const Row &row : change.removed.*table.rows) {
            remove(row, before);
        }
        for (const Row &row : change.put.*table.rows) {
            put(row, added, before);
        }
    });
    return inverse;
}
