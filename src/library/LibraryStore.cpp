#include "library/LibraryStore.h"

#include "library/LibraryTables.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// SQLite's result codes that matter here.
enum SqliteCode
{
    GeneralError = 1, ///< a table or column is missing: the schema is not ours
    Corrupt = 11,
    NotADatabase = 26
};

template <typename Table>
QStringList columnNames(const Table &table)
{
    QStringList names;
    LibraryTables::forEachColumn(table, [&names](const auto &column) { names << column.name; });
    return names;
}

template <typename Table>
QString selectStatement(const Table &table)
{
    return "SELECT "_L1 + columnNames(table).join(u", "_s) + " FROM "_L1 + table.name;
}

template <typename Table>
QString putStatement(const Table &table)
{
    const QStringList names = columnNames(table);
    return "INSERT OR REPLACE INTO "_L1 + table.name + " ("_L1 + names.join(u", "_s) +
           ") VALUES ("_L1 + QStringList(names.size(), u"?"_s).join(u", "_s) + u')';
}

template <typename Table>
QString removeStatement(const Table &table)
{
    const QStringList key = columnNames(table).first(LibraryTables::keyColumns);
    return "DELETE FROM "_L1 + table.name + " WHERE "_L1 + key.join(u" = ? AND "_s) + " = ?"_L1;
}

void bindKey(QSqlQuery &query, const LibraryEntry &row)
{
    query.bindValue(0, LibraryTables::toVariant(row.source));
    query.bindValue(1, LibraryTables::toVariant(row.kind));
    query.bindValue(2, LibraryTables::toVariant(row.id));
}

template <typename Table>
void bindRow(QSqlQuery &query, const Table &table, const typename Table::Row &row)
{
    int position = 0;
    LibraryTables::forEachColumn(table, [&](const auto &column) {
        query.bindValue(position++, LibraryTables::toVariant(row.*column.field));
    });
}

} // namespace

LibraryStore::LibraryStore(const QString &filePath)
    : LibraryStore(filePath, migrations())
{}

LibraryStore::LibraryStore(QString filePath, std::span<const Migration> steps)
    : path(std::move(filePath))
    , connectionName("library-"_L1 + QUuid::createUuid().toString())
    , migrationSteps(steps)
{}

LibraryStore::~LibraryStore()
{
    close();
}

void LibraryStore::close()
{
    if (database.isValid()) {
        database = {};
        QSqlDatabase::removeDatabase(connectionName);
    }
}

LibraryStore::Result LibraryStore::fail(const QSqlError &error)
{
    constexpr int primaryCode = 0xff;
    lastError = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    switch (error.nativeErrorCode().toInt() & primaryCode) {
    case GeneralError:
    case Corrupt:
    case NotADatabase:
        return Result::Damaged;
    default:
        return Result::Unavailable;
    }
}

LibraryStore::Result LibraryStore::execute(const QString &statement)
{
    QSqlQuery query(database);
    return query.exec(statement) ? Result::Done : fail(query.lastError());
}

/// Runs `work` in a transaction, which it begins with that statement.
LibraryStore::Result LibraryStore::inTransaction(const QString &begin,
                                                 const std::function<Result()> &work)
{
    Result result = execute(begin);
    if (result != Result::Done) {
        return result;
    }
    result = work();
    if (result == Result::Done) {
        result = execute(u"COMMIT"_s);
    }
    if (result != Result::Done) {
        const QString reason = lastError;
        execute(u"ROLLBACK"_s);
        lastError = reason;
    }
    return result;
}

// ---- reading ----

template <typename Table>
LibraryStore::Result LibraryStore::loadTable(const Table &table, LibraryRows &rows)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(selectStatement(table))) {
        return fail(query.lastError());
    }
    auto &list = rows.*table.rows;
    while (query.next()) {
        typename Table::Row row;
        int position = 0;
        bool valid = true;
        LibraryTables::forEachColumn(table, [&](const auto &column) {
            valid = LibraryTables::fromVariant(query.value(position++), row.*column.field) && valid;
        });
        if (!valid) {
            continue;
        }
        // Neighbours share the text.
        if (!list.isEmpty() && list.constLast().source == row.source) {
            row.source = list.constLast().source;
        }
        list.append(row);
    }
    return query.lastError().isValid() ? fail(query.lastError()) : Result::Done;
}

LibraryStore::Result LibraryStore::load(LibraryRows &rows)
{
    Result result = open();
    if (result == Result::Done) {
        result = check();
    }
    if (result != Result::Done) {
        return result;
    }
    LibraryRows loaded;
    result = inTransaction(u"BEGIN"_s, [&] {
        Result soFar = Result::Done;
        LibraryTables::forEach([&](const auto &table) {
            soFar = soFar == Result::Done ? loadTable(table, loaded) : soFar;
        });
        return soFar;
    });
    if (result == Result::Done) {
        rows = loaded;
    }
    return result;
}

// ---- writing ----

LibraryStore::Result LibraryStore::apply(const QList<LibraryChange> &changes)
{
    const Result result = open();
    return result == Result::Done
               ? inTransaction(u"BEGIN IMMEDIATE"_s, [&] { return applyAll(changes); })
               : result;
}

LibraryStore::Result LibraryStore::applyAll(const QList<LibraryChange> &changes)
{
    Result result = Result::Done;
    for (const LibraryChange &change : changes) {
        LibraryTables::forEach([&](const auto &table) {
            result = result == Result::Done ? applyTo(table, change) : result;
        });
    }
    return result;
}

template <typename Table>
LibraryStore::Result LibraryStore::applyTo(const Table &table, const LibraryChange &change)
{
    Result result = Result::Done;
    const auto then = [&](auto &&step) { result = result == Result::Done ? step() : result; };
    if (change.cleared.contains(table.part)) {
        then([&] { return execute("DELETE FROM "_L1 + table.name); });
    }
    for (const SourceMove &move : change.moves) {
        then([&] { return moveSource(table.name, move); });
    }
    then([&] {
        return executeForEach(removeStatement(table), change.removed.*table.rows, bindKey);
    });
    then([&] {
        return executeForEach(
            putStatement(table), change.put.*table.rows,
            [&table](QSqlQuery &query, const auto &row) { bindRow(query, table, row); });
    });
    return result;
}

LibraryStore::Result LibraryStore::moveSource(QLatin1StringView table, const SourceMove &move)
{
    if (move.to.isEmpty()) {
        return executeForEach(
            "DELETE FROM "_L1 + table + " WHERE source = ?"_L1, QList{move},
            [](QSqlQuery &query, const SourceMove &deleted) { query.bindValue(0, deleted.from); });
    }
    return executeForEach("UPDATE OR REPLACE "_L1 + table + " SET source = ? WHERE source = ?"_L1,
                          QList{move}, [](QSqlQuery &query, const SourceMove &renamed) {
                              query.bindValue(0, renamed.to);
                              query.bindValue(1, renamed.from);
                          });
}

template <typename Element, typename Bind>
LibraryStore::Result LibraryStore::executeForEach(const QString &statement,
                                                  const QList<Element> &list, Bind bind)
{
    if (list.isEmpty()) {
        return Result::Done;
    }
    QSqlQuery query(database);
    if (!query.prepare(statement)) {
        return fail(query.lastError());
    }
    for (const Element &element : list) {
        bind(query, element);
        if (!query.exec()) {
            return fail(query.lastError());
        }
    }
    return Result::Done;
}
