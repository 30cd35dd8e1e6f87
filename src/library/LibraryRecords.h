#pragma once

#include "model/CatalogRecords.h"
#include "model/CatalogSection.h"

#include <QList>
#include <QString>
#include <QtGlobal>

/// What an entry of the library is: one of the four sections of a catalog, or an episode.
enum class EntryKind : qint32
{
    Live,
    Movie,
    Show,
    Channel,
    Episode
};

/// The kind of the entries of a section.
constexpr EntryKind entryKind(CatalogSection section)
{
    return static_cast<EntryKind>(section);
}

/// An entry, identified by its source's name, its kind and the provider's id (for the channels of a
/// playlist their URL). Its name and category find it again when a playlist has changed its URL.
struct LibraryEntry
{
    QString source;
    EntryKind kind = EntryKind::Live;
    QString id;
    QString name;
    QString categoryId;

    bool operator==(const LibraryEntry &) const = default;
};

/// The library's name for an entry of the catalog of `source`.
inline LibraryEntry libraryEntry(const QString &source, EntryKind kind, const MediaItem &item)
{
    return {source, kind, item.id, item.name, item.categoryId};
}

struct Favorite : LibraryEntry
{
    /// Ascending in the order that the user chose; not contiguous.
    qint64 place = 0;
    qint64 addedAt = 0; ///< seconds since the epoch

    bool operator==(const Favorite &) const = default;
};

/// An entry that was watched; in the tab of the shows a show.
struct WatchedEntry : LibraryEntry
{
    qint64 watchedAt = 0; ///< seconds since the epoch

    bool operator==(const WatchedEntry &) const = default;
};

/// How far a film or an episode was watched, or that a whole show was.
struct Progress : LibraryEntry
{
    QString showId; ///< of an episode, like the three that follow
    qint32 season = 0;
    qint32 episodeNumber = 0;
    /// Nothing follows in the show, as far as is known.
    bool isLast = false;
    /// Where to resume; 0 when there is nothing to resume.
    qint64 positionMs = 0;
    qint64 durationMs = 0; ///< 0 when unknown
    bool watched = false;
    qint64 updatedAt = 0; ///< seconds since the epoch

    bool operator==(const Progress &) const = default;
};

/// Of an entry that was not watched yet.
inline Progress progressOf(const LibraryEntry &entry)
{
    Progress row;
    static_cast<LibraryEntry &>(row) = entry;
    return row;
}

/// Of an episode that was not watched yet; `isLast` when it is the last of its show.
inline Progress progressOf(const QString &source, const QString &showId, const Episode &episode,
                           bool isLast)
{
    Progress row = progressOf({source, EntryKind::Episode, episode.id, episode.title, {}});
    row.showId = showId;
    row.season = episode.season;
    row.episodeNumber = episode.episodeNumber;
    row.isLast = isLast;
    return row;
}

/// A category that is hidden. Its id is the category's, its kind that of the tab.
struct HiddenCategory : LibraryEntry
{
    bool operator==(const HiddenCategory &) const = default;
};

/// What the user chose for the programme guide of a source. A source has one such row: its kind is
/// EntryKind::Live, its id and name are empty.
struct GuideSettings : LibraryEntry
{
    bool enabled = false;
    /// URLs and paths of files, one per line, the preferred one first. The line
    /// accountGuideAddress stands for the account's own guide.
    QString addresses;
    qint64 offsetSeconds = 0; ///< added to the guide's times
    bool refresh = true;      ///< every 12 hours
    /// The AccountArchiveForm that worked last; -1 when none is known.
    qint32 archiveForm = -1;

    bool operator==(const GuideSettings &) const = default;
};

inline constexpr QStringView accountGuideAddress = u"account";

/// Which channel of the guide a channel is, as the user has set it.
struct GuideCorrection : LibraryEntry
{
    QString guideId; ///< empty: the channel has no guide

    bool operator==(const GuideCorrection &) const = default;
};

/// The languages that the user has chosen by hand while a source played. A source has one such row:
/// its kind is EntryKind::Live, its id and name are empty.
struct PreferredLanguages : LibraryEntry
{
    QString audio; ///< empty when none was chosen, likewise `subtitles`
    QString subtitles;

    bool operator==(const PreferredLanguages &) const = default;
};

/// PreferredLanguages::subtitles while they are to be off. No language has this code.
inline constexpr QStringView subtitlesOff = u"off";

/// A programme that the user wants to be reminded of. A channel may have several, so that its `id`
/// is made of `entryId` and `start`.
struct Reminder : LibraryEntry
{
    QString entryId;  ///< of the channel
    qint64 start = 0; ///< seconds since the epoch, like `stop`
    qint64 stop = 0;
    QString title;

    bool operator==(const Reminder &) const = default;
};

/// Of a programme of the channel `entry`.
inline Reminder reminderOf(const LibraryEntry &entry, qint64 start, qint64 stop,
                           const QString &title)
{
    return {{entry.source, entry.kind, QString::number(start) + u' ' + entry.id, entry.name,
             entry.categoryId},
            entry.id,
            start,
            stop,
            title};
}

/// @name The id of the entry of the catalog that a row belongs to
/// @{
inline const QString &entryIdOf(const LibraryEntry &row)
{
    return row.id;
}
inline const QString &entryIdOf(const Reminder &row)
{
    return row.entryId;
}
inline void setEntryId(LibraryEntry &row, const QString &id)
{
    row.id = id;
}
inline void setEntryId(Reminder &row, const QString &id)
{
    LibraryEntry entry = row;
    entry.id = id;
    row = reminderOf(entry, row.start, row.stop, row.title);
}
/// @}

/// The parts of the library.
enum class LibraryPart
{
    Favorites,
    History,
    Progress,
    HiddenCategories,
    GuideSettings,
    GuideCorrections,
    Reminders,
    Languages
};

/// Rows of all parts.
struct LibraryRows
{
    QList<Favorite> favorites;
    QList<WatchedEntry> history;
    QList<Progress> progress;
    QList<HiddenCategory> hiddenCategories;
    QList<GuideSettings> guideSettings;
    QList<GuideCorrection> guideCorrections;
    QList<Reminder> reminders;
    QList<PreferredLanguages> languages;

    bool operator==(const LibraryRows &) const = default;
};

/// A source that was renamed, or deleted when `to` is empty.
struct SourceMove
{
    QString from;
    QString to;

    bool operator==(const SourceMove &) const = default;
};

/// A change of the library, which happens as a whole or not at all. The members take effect in
/// their order; no key stands twice in `removed` or in `put`.
struct LibraryChange
{
    QList<LibraryPart> cleared;
    QList<SourceMove> moves;
    LibraryRows removed; ///< only the keys count: source, kind and id
    LibraryRows put;     ///< replaces the row with the same key

    bool isEmpty() const { return *this == LibraryChange(); }
    bool operator==(const LibraryChange &) const = default;
};
