#pragma once

#include "library/LibraryRecords.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <functional>
#include <span>

class QSqlError;

/// The library's SQLite file: its schema, reading and writing.
///
/// Other processes may use the file at the same time; each call waits some seconds for them. One
/// thread at a time, always the same.
class LibraryStore final
{
public:
    enum class Result
    {
        Done,
        /// The file or its folder cannot be used now; errorText() says why. Worth another try.
        Unavailable,
        /// The file is no library. recover() sets it aside.
        Damaged,
        /// A newer version of the program made the file. It stays as it is.
        Newer
    };

    /// The statements of one step from a version of the schema to the next.
    using Migration = QStringList;

    explicit LibraryStore(const QString &filePath);
    /// With other migrations than the program's; for tests.
    LibraryStore(QString filePath, std::span<const Migration> steps);
    ~LibraryStore();
    Q_DISABLE_COPY_MOVE(LibraryStore)

    /// The program's migrations. Step n leads from version n of the schema to version n + 1.
    static std::span<const Migration> migrations();

    /// Reads all rows, after a check of the file, which is made where it is missing. `rows` changes
    /// only when the result is Done.
    Result load(LibraryRows &rows);

    /// Makes all changes or none. When it returns Done they have reached the disk.
    Result apply(const QList<LibraryChange> &changes);

    /// Renames a damaged file, and begins a new one. `aside` becomes its new path; it stays empty
    /// when another process has set the file aside already.
    Result recover(QString &aside);

    /// What went wrong last, as SQLite or the system says it.
    QString errorText() const { return lastError; }

private:
    Result open();
    Result connectToFile();
    Result writeAhead();
    Result migrate();
    Result check();
    Result version(int &number);
    Result applyAll(const QList<LibraryChange> &changes);
    template <typename Table>
    Result applyTo(const Table &table, const LibraryChange &change);
    Result moveSource(QLatin1StringView table, const SourceMove &move);
    template <typename Table>
    Result loadTable(const Table &table, LibraryRows &rows);
    Result execute(const QString &statement);
    template <typename Element, typename Bind>
    Result executeForEach(const QString &statement, const QList<Element> &list, Bind bind);
    Result inTransaction(const QString &begin, const std::function<Result()> &work);
    Result fail(const QSqlError &error);
    bool renameAway(QString &aside);
    void close();

    QString path;
    QString connectionName;
    std::span<const Migration> migrationSteps;
    QSqlDatabase database;
    QString lastError;
};
