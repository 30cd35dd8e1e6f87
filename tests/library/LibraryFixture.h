#pragma once

#include "library/LibraryRecords.h"
#include "support/PrivateProfile.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <algorithm>

/// @file
/// What the tests of the library share.

inline QString libraryFile()
{
    return PrivateProfile::current().appDataDir() + QStringLiteral("/library.sqlite");
}

inline LibraryEntry makeEntry(const QString &id, EntryKind kind = EntryKind::Movie,
                              const QString &source = QStringLiteral("S"))
{
    return {source, kind, id, QStringLiteral("Name ") + id, QStringLiteral("c1")};
}

/// A channel of a playlist.
inline MediaItem makeChannel(const QString &url, const QString &name,
                             const QString &category = QStringLiteral("c1"))
{
    MediaItem item;
    item.id = url;
    item.name = name;
    item.categoryId = category;
    return item;
}

/// A row of each part, with a value of its own in each field.
inline LibraryRows sampleRows()
{
    const LibraryEntry episode = makeEntry(QStringLiteral("e1"), EntryKind::Episode);
    LibraryRows rows;
    rows.favorites = {{makeEntry(QStringLiteral("1")), 7, 1'700'000'001}};
    rows.history = {{makeEntry(QStringLiteral("2"), EntryKind::Live), 1'700'000'002}};
    rows.progress = {
        {episode, QStringLiteral("s1"), 3, 4, true, 90'000, 5'400'000'000, true, 1'700'000'003}};
    rows.hiddenCategories = {
        {{QStringLiteral("S"), EntryKind::Show, QStringLiteral("c9"), QStringLiteral("Nine"), {}}}};
    rows.guideSettings = {{{QStringLiteral("S"), EntryKind::Live, {}, {}, {}},
                           true,
                           QStringLiteral("account\nhttp://h/guide.xml.gz"),
                           -5400,
                           false,
                           2}};
    rows.guideCorrections = {
        {makeEntry(QStringLiteral("3"), EntryKind::Live), QStringLiteral("three.tv")}};
    rows.reminders = {reminderOf(makeEntry(QStringLiteral("4"), EntryKind::Live), 1'700'000'004,
                                 1'700'000'005, QStringLiteral("Evening News"))};
    rows.languages = {{{QStringLiteral("S"), EntryKind::Live, {}, {}, {}},
                       QStringLiteral("de"),
                       subtitlesOff.toString()}};
    return rows;
}

/// The library's file as SQLite sees it, while the object lives.
class RawLibraryFile final
{
public:
    explicit RawLibraryFile(const QString &path = libraryFile())
    {
        database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("raw"));
        database.setDatabaseName(path);
        if (!database.open())
            qFatal("cannot open %s", qUtf8Printable(path));
    }
    ~RawLibraryFile()
    {
        database = {};
        QSqlDatabase::removeDatabase(QStringLiteral("raw"));
    }
    Q_DISABLE_COPY_MOVE(RawLibraryFile)

    /// The first value of the statement's result.
    QVariant run(const QString &statement)
    {
        QSqlQuery query(database);
        if (!query.exec(statement))
            qFatal("%s", qUtf8Printable(query.lastError().text()));
        return query.next() ? query.value(0) : QVariant();
    }

private:
    QSqlDatabase database;
};

/// The ids of a list of rows.
template <typename Rows>
QStringList idsOf(const Rows &rows)
{
    QStringList ids;
    for (const auto &row : rows)
        ids << row.id;
    return ids;
}

template <typename Rows>
QStringList sortedIdsOf(const Rows &rows)
{
    QStringList ids = idsOf(rows);
    std::sort(ids.begin(), ids.end());
    return ids;
}
