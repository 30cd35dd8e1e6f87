#include "guide/GuideStore.h"

#include "model/OwnerOnlyFile.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QStringList>
#include <QThread>
#include <QUuid>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int busyTimeoutMs = 5000;
/// Another version replaces the file: everything in it can be fetched again.
constexpr int schemaVersion = 1;
/// Result codes of SQLite.
constexpr int busy = 5;
constexpr int corrupt = 11;
constexpr int notADatabase = 26;

QStringList schema()
{
    return {
        u"CREATE TABLE guide (number INTEGER PRIMARY KEY, address TEXT NOT NULL UNIQUE, "
        "place INTEGER NOT NULL)"_s,
        u"CREATE TABLE channel (number INTEGER PRIMARY KEY, guide INTEGER NOT NULL, "
        "id TEXT NOT NULL, names TEXT NOT NULL DEFAULT '')"_s,
        u"CREATE INDEX channelOfGuide ON channel (guide)"_s,
        u"CREATE TABLE programme (key INTEGER PRIMARY KEY, stop INTEGER NOT NULL, "
        "title TEXT NOT NULL, description TEXT NOT NULL)"_s,
        u"CREATE VIRTUAL TABLE titles USING fts5(title, content='programme', "
        "content_rowid='key')"_s,
        u"CREATE TABLE entry (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, "
        "name TEXT NOT NULL, guideId TEXT NOT NULL, guideName TEXT NOT NULL, "
        "shift INTEGER NOT NULL, archiveForm INTEGER, archiveSource TEXT NOT NULL, "
        "archiveDays REAL, archiveCorrection INTEGER, "
        "channel INTEGER NOT NULL DEFAULT 0, rule INTEGER NOT NULL DEFAULT 0)"_s,
        u"CREATE INDEX entryOfChannel ON entry (channel)"_s,
        u"CREATE TABLE state (name TEXT PRIMARY KEY, text TEXT NOT NULL) WITHOUT ROWID"_s,
        u"PRAGMA user_version = %1"_s.arg(schemaVersion),
    };
}

} // namespace

GuideStore::GuideStore(QString filePath, Mode mode)
    : path(std::move(filePath))
    , openMode(mode)
    , connectionName("guide-"_L1 + QUuid::createUuid().toString())
{}

GuideStore::~GuideStore()
{
    close();
}

// ---- opening ----

bool GuideStore::open()
{
    if (isOpen()) {
        return true;
    }
    if (openMode == Mode::Read) {
        if (QFile::exists(path) && connectToFile() && hasSchema()) {
            return true;
        }
        close();
        return false;
    }
    if (connectToFile() && (hasSchema() || makeSchema())) {
        return true;
    }
    // Not a locked one: another process uses it.
    const bool isUseless =
        isDamaged() || (database.isOpen() && schemaInFile().value_or(0) != 0 && !hasSchema());
    return isUseless && replaceFile() && connectToFile() && makeSchema();
}

void GuideStore::close()
{
    lastCode = 0;
    if (database.isValid()) {
        database = {};
        QSqlDatabase::removeDatabase(connectionName);
    }
}

bool GuideStore::connectToFile()
{
    if (openMode == Mode::Write && !QFile::exists(path)) {
        QFile file(path);
        if (!QDir().mkpath(QFileInfo(path).path()) || !openOwnerOnly(file, QIODevice::ReadWrite)) {
            lastError = path;
            return false;
        }
    }
    database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName);
    database.setDatabaseName(path);
    database.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMs));
    if (!database.open()) {
        lastError = database.lastError().databaseText();
        return false;
    }
    // What a power cut takes is fetched again.
    return openMode == Mode::Read || (writeAhead() && run(u"PRAGMA synchronous = OFF"_s) &&
                                      run(u"PRAGMA cache_size = -16384"_s));
}

/// Sets the journal mode. When two processes make the file, SQLite refuses one of them at once,
/// whatever its timeout.
bool GuideStore::writeAhead()
{
    constexpr int retryMs = 10;
    const QDeadlineTimer limit(busyTimeoutMs);
    while (!run(u"PRAGMA journal_mode = WAL"_s)) {
        if (lastCode != busy || limit.hasExpired()) {
            return false;
        }
        QThread::msleep(retryMs);
    }
    return true;
}

/// The version of the schema; 0 of a new file, nothing of one that cannot be read.
std::optional<int> GuideStore::schemaInFile()
{
    QSqlQuery query = prepared(u"PRAGMA user_version"_s);
    return run(query) && query.next() ? std::optional(query.value(0).toInt()) : std::nullopt;
}

bool GuideStore::hasSchema()
{
    return schemaInFile() == schemaVersion;
}

bool GuideStore::makeSchema()
{
    return inTransaction([this] {
        // Another process may have made it meanwhile.
        if (hasSchema()) {
            return true;
        }
        const QStringList statements = schema();
        for (const QString &statement : statements) {
            if (!run(statement)) {
                return false;
            }
        }
        return true;
    });
}

bool GuideStore::replaceFile()
{
    close();
    for (const QString &suffix : {u"-wal"_s, u"-shm"_s, QString()}) {
        if (QFile::exists(path + suffix) && !QFile::remove(path + suffix)) {
            lastError = path + suffix;
            return false;
        }
    }
    return true;
}

// ---- statements ----

QSqlQuery GuideStore::prepared(const QString &statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.prepare(statement)) {
        noteError(query);
    }
    return query;
}

bool GuideStore::run(QSqlQuery &query, const QVariantList &values)
{
    int position = 0;
    for (const QVariant &value : values) {
        query.bindValue(position++, value);
    }
    if (query.exec()) {
        return true;
    }
    // Of one that could not be prepared the reason is known already.
    if (query.lastError().nativeErrorCode().toInt() != 0) {
        noteError(query);
    }
    return false;
}

bool GuideStore::isDamaged() const
{
    return lastCode == corrupt || lastCode == notADatabase;
}

void GuideStore::noteError(const QSqlQuery &query)
{
    constexpr int primaryCode = 0xff;
    const QSqlError error = query.lastError();
    lastCode = error.nativeErrorCode().toInt() & primaryCode;
    lastError = error.databaseText();
}

bool GuideStore::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query = prepared(statement);
    return run(query, values);
}

bool GuideStore::inTransaction(const std::function<bool()> &work)
{
    const bool isOutermost = depth == 0;
    const QString savepoint = u"step%1"_s.arg(depth);
    if (!run(isOutermost ? u"BEGIN IMMEDIATE"_s : "SAVEPOINT "_L1 + savepoint)) {
        return false;
    }
    ++depth;
    bool done = work();
    --depth;
    done = done && run(isOutermost ? u"COMMIT"_s : "RELEASE "_L1 + savepoint);
    if (!done) {
        const QString reason = lastError;
        if (isOutermost) {
            run(u"ROLLBACK"_s);
        } else {
            run("ROLLBACK TO "_L1 + savepoint);
            run("RELEASE "_L1 + savepoint);
        }
        lastError = reason;
    }
    return done;
}

void GuideStore::settle()
{
    run(u"PRAGMA wal_checkpoint(TRUNCATE)"_s);
}

QString GuideStore::state(const QString &name)
{
    QSqlQuery query = prepared(u"SELECT text FROM state WHERE name = ?"_s);
    return run(query, {name}) && query.next() ? query.value(0).toString() : QString();
}

bool GuideStore::setState(const QString &name, const QString &text)
{
    return run(u"INSERT OR REPLACE INTO state (name, text) VALUES (?, ?)"_s, {name, notNull(text)});
}
