#include "library/LibraryStore.h"

#include "model/OwnerOnlyFile.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

using namespace Qt::StringLiterals;

// The part of LibraryStore that opens, checks and replaces the file.

namespace {

constexpr int busyTimeoutMs = 5000;
constexpr int busy = 5; ///< SQLite's result code

/// Makes a missing file and narrows the permissions of one that is there. SQLite gives the files
/// that it puts beside it the same permissions.
bool makeOwnerOnly(const QString &path)
{
    QFile file(path);
    if (file.exists()) {
#ifndef Q_OS_WIN
        // Without opening it: closing it would release the locks of this process on the file.
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
#endif
        return true;
    }
    return QDir().mkpath(QFileInfo(path).path()) && openOwnerOnly(file, QIODevice::ReadWrite);
}

} // namespace

// ---- opening ----

LibraryStore::Result LibraryStore::open()
{
    if (database.isOpen()) {
        return Result::Done;
    }
    Result result = connectToFile();
    if (result == Result::Done) {
        result = migrate();
    }
    if (result != Result::Done) {
        close();
    }
    return result;
}

LibraryStore::Result LibraryStore::connectToFile()
{
    if (!makeOwnerOnly(path)) {
        lastError = path;
        return Result::Unavailable;
    }
    database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName);
    database.setDatabaseName(path);
    database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMs));
    if (!database.open()) {
        return fail(database.lastError());
    }
    const Result result = writeAhead();
    // Each commit reaches the disk.
    return result == Result::Done ? execute(u"PRAGMA synchronous = FULL"_s) : result;
}

/// Sets the journal mode WAL; a file system on which that does not work keeps the other mode.
LibraryStore::Result LibraryStore::writeAhead()
{
    constexpr int retryMs = 10;
    const QDeadlineTimer limit(busyTimeoutMs);
    QSqlQuery query(database);
    while (!query.exec(u"PRAGMA journal_mode = WAL"_s)) {
        // When two processes make the file, SQLite refuses one of them at once, whatever its
        // timeout.
        if (query.lastError().nativeErrorCode().toInt() != busy || limit.hasExpired()) {
            return fail(query.lastError());
        }
        QThread::msleep(retryMs);
    }
    return Result::Done;
}

LibraryStore::Result LibraryStore::version(int &number)
{
    QSqlQuery query(database);
    if (!query.exec(u"PRAGMA user_version"_s) || !query.next()) {
        return fail(query.lastError());
    }
    number = query.value(0).toInt();
    return Result::Done;
}

LibraryStore::Result LibraryStore::migrate()
{
    const int current = static_cast<int>(migrationSteps.size());
    int number = 0;
    Result result = version(number);
    if (result != Result::Done || number == current) {
        return result;
    }
    return inTransaction(u"BEGIN IMMEDIATE"_s, [&] {
        // Again: another process may have migrated it meanwhile.
        result = version(number);
        if (result == Result::Done && (number > current || number < 0)) {
            lastError = u"PRAGMA user_version = %1"_s.arg(number);
            return number < 0 ? Result::Damaged : Result::Newer;
        }
        for (int step = number; result == Result::Done && step < current; ++step) {
            for (const QString &statement : migrationSteps[static_cast<std::size_t>(step)]) {
                result = result == Result::Done ? execute(statement) : result;
            }
        }
        return result == Result::Done ? execute(u"PRAGMA user_version = %1"_s.arg(current))
                                      : result;
    });
}

/// Looks for damage that the queries of one start may not meet.
LibraryStore::Result LibraryStore::check()
{
    QSqlQuery query(database);
    if (!query.exec(u"PRAGMA quick_check(1)"_s) || !query.next()) {
        return fail(query.lastError());
    }
    lastError = query.value(0).toString();
    return lastError == "ok"_L1 ? Result::Done : Result::Damaged;
}

// ---- recovering ----

LibraryStore::Result LibraryStore::recover(QString &aside)
{
    aside.clear();
    // One process at a time: the second one finds the new file.
    QLockFile lock(path + ".lock"_L1);
    lock.tryLock(busyTimeoutMs);
    close();
    LibraryRows rows;
    const Result found = load(rows);
    if (found != Result::Damaged) {
        return found;
    }
    close();
    if (!renameAway(aside)) {
        lastError = path;
        return Result::Unavailable;
    }
    return open();
}

bool LibraryStore::renameAway(QString &aside)
{
    const QString base =
        path + ".damaged-"_L1 + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QString target = base;
    for (int number = 2; QFile::exists(target); ++number) {
        target = base + u'-' + QString::number(number);
    }
    // The log first: SQLite would take it for that of the new file.
    for (const QString &suffix : {u"-wal"_s, u"-shm"_s}) {
        if (QFile::exists(path + suffix) && !QFile::rename(path + suffix, target + suffix)) {
            return false;
        }
    }
    if (!QFile::rename(path, target)) {
        return false;
    }
    aside = target;
    return true;
}
