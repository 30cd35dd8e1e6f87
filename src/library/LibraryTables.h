#pragma once

#include "library/LibraryRecords.h"

#include <QLatin1StringView>
#include <QStringView>
#include <QVariant>

#include <optional>
#include <tuple>
#include <utility>

/// @file
/// The parts of the library as tables. One description serves the file, the state in memory and the
/// backup.

/// A column of the file and member of the backup, and its field.
template <typename Record, typename Value>
struct LibraryColumn
{
    constexpr LibraryColumn(QLatin1StringView columnName, Value Record::*recordField)
        : name(columnName)
        , field(recordField)
    {}

    QLatin1StringView name;
    Value Record::*field;
};

/// A part of the library. The first columns are those of the key.
template <typename Record, typename Columns>
struct LibraryTable
{
    using Row = Record;

    constexpr LibraryTable(LibraryPart whichPart, QLatin1StringView tableName,
                           QList<Record> LibraryRows::*tableRows, Columns tableColumns)
        : part(whichPart)
        , name(tableName)
        , rows(tableRows)
        , columns(std::move(tableColumns))
    {}

    LibraryPart part;
    QLatin1StringView name;
    QList<Record> LibraryRows::*rows;
    Columns columns;
};

namespace LibraryTables {

using Qt::StringLiterals::operator""_L1;

inline constexpr int keyColumns = 3;

inline constexpr std::tuple namedKey{
    LibraryColumn{"source"_L1, &LibraryEntry::source},
    LibraryColumn{"kind"_L1, &LibraryEntry::kind},
    LibraryColumn{"id"_L1, &LibraryEntry::id},
    LibraryColumn{"name"_L1, &LibraryEntry::name},
};
inline constexpr std::tuple entry =
    std::tuple_cat(namedKey, std::tuple{LibraryColumn{"category"_L1, &LibraryEntry::categoryId}});

inline constexpr std::tuple all{
    LibraryTable{LibraryPart::Favorites, "favorites"_L1, &LibraryRows::favorites,
                 std::tuple_cat(entry,
                                std::tuple{
                                    LibraryColumn{"place"_L1, &Favorite::place},
                                    LibraryColumn{"addedAt"_L1, &Favorite::addedAt},
                                })},
    LibraryTable{
        LibraryPart::History, "history"_L1, &LibraryRows::history,
        std::tuple_cat(entry, std::tuple{LibraryColumn{"watchedAt"_L1, &WatchedEntry::watchedAt}})},
    LibraryTable{LibraryPart::Progress, "progress"_L1, &LibraryRows::progress,
                 std::tuple_cat(entry,
                                std::tuple{
                                    LibraryColumn{"show"_L1, &Progress::showId},
                                    LibraryColumn{"season"_L1, &Progress::season},
                                    LibraryColumn{"episode"_L1, &Progress::episodeNumber},
                                    LibraryColumn{"isLast"_L1, &Progress::isLast},
                                    LibraryColumn{"position"_L1, &Progress::positionMs},
                                    LibraryColumn{"duration"_L1, &Progress::durationMs},
                                    LibraryColumn{"watched"_L1, &Progress::watched},
                                    LibraryColumn{"updatedAt"_L1, &Progress::updatedAt},
                                })},
    LibraryTable{LibraryPart::HiddenCategories, "hiddenCategories"_L1,
                 &LibraryRows::hiddenCategories, namedKey},
    LibraryTable{LibraryPart::GuideSettings, "guideSettings"_L1, &LibraryRows::guideSettings,
                 std::tuple_cat(namedKey,
                                std::tuple{
                                    LibraryColumn{"enabled"_L1, &GuideSettings::enabled},
                                    LibraryColumn{"addresses"_L1, &GuideSettings::addresses},
                                    LibraryColumn{"timeOffset"_L1, &GuideSettings::offsetSeconds},
                                    LibraryColumn{"refresh"_L1, &GuideSettings::refresh},
                                    LibraryColumn{"archiveForm"_L1, &GuideSettings::archiveForm},
                                })},
    LibraryTable{
        LibraryPart::GuideCorrections, "guideCorrections"_L1, &LibraryRows::guideCorrections,
        std::tuple_cat(entry, std::tuple{LibraryColumn{"guideId"_L1, &GuideCorrection::guideId}})},
    LibraryTable{LibraryPart::Reminders, "reminders"_L1, &LibraryRows::reminders,
                 std::tuple_cat(entry,
                                std::tuple{
                                    LibraryColumn{"entry"_L1, &Reminder::entryId},
                                    LibraryColumn{"start"_L1, &Reminder::start},
                                    LibraryColumn{"stop"_L1, &Reminder::stop},
                                    LibraryColumn{"title"_L1, &Reminder::title},
                                })},
    LibraryTable{LibraryPart::Languages, "languages"_L1, &LibraryRows::languages,
                 std::tuple_cat(namedKey,
                                std::tuple{
                                    LibraryColumn{"audio"_L1, &PreferredLanguages::audio},
                                    LibraryColumn{"subtitles"_L1, &PreferredLanguages::subtitles},
                                })},
};

/// Calls `visit` with each table.
template <typename Visit>
void forEach(Visit &&visit)
{
    std::apply([&visit](const auto &...tables) { (visit(tables), ...); }, all);
}

/// Calls `visit` with each column of a table.
template <typename Table, typename Visit>
void forEachColumn(const Table &table, Visit &&visit)
{
    std::apply([&visit](const auto &...columns) { (visit(columns), ...); }, table.columns);
}

/// The stable name of a kind in the file and in a backup.
QLatin1StringView kindName(EntryKind kind);
std::optional<EntryKind> kindOf(QStringView name);

/// @name Values of the file. A text is never null, so that the file need not know nulls.
/// @{
inline QVariant toVariant(const QString &text)
{
    return text.isNull() ? QString(""_L1) : text;
}
inline QVariant toVariant(EntryKind kind)
{
    return QString(kindName(kind));
}
template <typename Number>
QVariant toVariant(Number number)
{
    return QVariant::fromValue(number);
}
/// @}

/// Sets a field from a value of the file or of a backup. False for the name of no kind.
template <typename Value>
bool fromVariant(const QVariant &value, Value &field)
{
    if constexpr (std::is_same_v<Value, EntryKind>) {
        const std::optional<EntryKind> kind = kindOf(value.toString());
        field = kind.value_or(EntryKind::Live);
        return kind.has_value();
    } else {
        field = value.value<Value>();
        return true;
    }
}

} // namespace LibraryTables
