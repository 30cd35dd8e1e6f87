#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>
#include <QtGlobal>

#include <functional>
#include <optional>

/// The SQLite file of a source's guide. One connection writes (GuideImport), another one reads
/// (GuideReader) and never waits for it: until a transaction ends, the guide is as it was before.
///
/// The file can be made again at any time: one that is damaged, or of another version of the
/// program, is replaced. It holds no credentials, but what somebody may watch, and is readable by
/// its owner only. One thread, always the same.
///
/// Tables:
/// - `guide`: the checksums of the addresses, and their places in the order of preference
/// - `channel`: those of the guides
/// - `programme`: `key` is programmeKey(); times as the guide gives them
/// - `titles`: full-text index over the titles of `programme`
/// - `entry`: the channels of the source, and which channel of the guide each one is
/// - `state`: texts by name
class GuideStore final
{
public:
    enum class Mode
    {
        Read, ///< a missing file is not made
        Write
    };

    GuideStore(QString filePath, Mode mode);
    ~GuideStore();
    Q_DISABLE_COPY_MOVE(GuideStore)

    /// Opens the file, unless it is open. False when there is none to be read, or when it cannot be
    /// used.
    bool open();
    void close();
    /// Whether the last statement failed because the file is damaged.
    bool isDamaged() const;
    /// Closes and removes the file.
    bool replaceFile();
    bool isOpen() const { return database.isOpen(); }

    /// Prepares a statement; it is executed by run(). Fast to ask for again.
    QSqlQuery prepared(const QString &statement);
    /// Executes a prepared statement with these values.
    bool run(QSqlQuery &query, const QVariantList &values = {});
    /// Executes a statement once.
    bool run(const QString &statement, const QVariantList &values = {});
    /// Makes all changes of `work` or none: `work` returns false to give up. May be nested.
    bool inTransaction(const std::function<bool()> &work);
    /// Moves what was written into the file itself, so that it does not stay twice on the disk.
    void settle();

    /// The text, which SQLite is not to take for a missing value when it is null.
    static QString notNull(const QString &text)
    {
        return text.isNull() ? QStringLiteral("") : text;
    }
    QString state(const QString &name);
    bool setState(const QString &name, const QString &text);

    /// What went wrong last, as SQLite or the system says it.
    QString errorText() const { return lastError; }

    /// A programme's key: of its channel's number and its start.
    static qint64 programmeKey(qint64 channel, qint64 start)
    {
        return channel << startBits | start;
    }
    static qint64 channelOf(qint64 key) { return key >> startBits; }
    static qint64 startOf(qint64 key) { return key & ((1LL << startBits) - 1); }
    /// Starts fit into a key: of the years 1970 to 2242.
    static bool fitsKey(qint64 start) { return start >= 0 && start >> startBits == 0; }

    /// The bits of a key that hold the start; the channel's number stands above them.
    static constexpr int startBits = 33;

private:
    bool connectToFile();
    bool writeAhead();
    std::optional<int> schemaInFile();
    bool hasSchema();
    bool makeSchema();
    void noteError(const QSqlQuery &query);

    QString path;
    Mode openMode;
    QString connectionName;
    QSqlDatabase database;
    QString lastError;
    int lastCode = 0; ///< of SQLite, for lastError
    int depth = 0;    ///< of transactions
};
