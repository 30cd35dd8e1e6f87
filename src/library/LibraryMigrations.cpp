#include "library/LibraryStore.h"

#include <array>

using namespace Qt::StringLiterals;

// The versions of the library's file.

std::span<const LibraryStore::Migration> LibraryStore::migrations()
{
    // Never change a step that was released: add one.
    static const QString key = u"source TEXT NOT NULL, kind TEXT NOT NULL, id TEXT NOT NULL, "
                               "name TEXT NOT NULL DEFAULT '', "_s;
    static const QString end = u"PRIMARY KEY (source, kind, id)) WITHOUT ROWID"_s;
    static const std::array steps{
        Migration{
            u"CREATE TABLE favorites ("_s + key +
                u"category TEXT NOT NULL DEFAULT '', "
                "place INTEGER NOT NULL DEFAULT 0, "
                "addedAt INTEGER NOT NULL DEFAULT 0, "_s +
                end,
            u"CREATE TABLE history ("_s + key +
                u"category TEXT NOT NULL DEFAULT '', "
                "watchedAt INTEGER NOT NULL DEFAULT 0, "_s +
                end,
            u"CREATE TABLE progress ("_s + key +
                u"category TEXT NOT NULL DEFAULT '', "
                "show TEXT NOT NULL DEFAULT '', "
                "season INTEGER NOT NULL DEFAULT 0, "
                "episode INTEGER NOT NULL DEFAULT 0, "
                "isLast INTEGER NOT NULL DEFAULT 0, "
                "position INTEGER NOT NULL DEFAULT 0, "
                "duration INTEGER NOT NULL DEFAULT 0, "
                "watched INTEGER NOT NULL DEFAULT 0, "
                "updatedAt INTEGER NOT NULL DEFAULT 0, "_s +
                end,
            u"CREATE TABLE hiddenCategories ("_s + key + end,
        },
        Migration{
            u"CREATE TABLE guideSettings ("_s + key +
                u"enabled INTEGER NOT NULL DEFAULT 0, "
                "addresses TEXT NOT NULL DEFAULT '', "
                "timeOffset INTEGER NOT NULL DEFAULT 0, "
                "refresh INTEGER NOT NULL DEFAULT 1, "
                "archiveForm INTEGER NOT NULL DEFAULT -1, "_s +
                end,
            u"CREATE TABLE guideCorrections ("_s + key +
                u"category TEXT NOT NULL DEFAULT '', "
                "guideId TEXT NOT NULL DEFAULT '', "_s +
                end,
            u"CREATE TABLE reminders ("_s + key +
                u"category TEXT NOT NULL DEFAULT '', "
                "entry TEXT NOT NULL DEFAULT '', "
                "start INTEGER NOT NULL DEFAULT 0, "
                "stop INTEGER NOT NULL DEFAULT 0, "
                "title TEXT NOT NULL DEFAULT '', "_s +
                end,
        },
        Migration{
            u"CREATE TABLE languages ("_s + key +
                u"audio TEXT NOT NULL DEFAULT '', "
                "subtitles TEXT NOT NULL DEFAULT '', "_s +
                end,
        },
    };
    return steps;
}
