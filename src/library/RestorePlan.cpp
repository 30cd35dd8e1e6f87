#include "library/RestorePlan.h"

#include "library/LibraryState.h"
#include "library/LibraryTables.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace {

// ---- sources ----

bool isSameSource(const SourceConfig &a, const SourceConfig &b)
{
    const auto settings = [](const SourceConfig &source) {
        return std::tie(source.type, source.name, source.url, source.username, source.password,
                        source.liveExtension, source.subscriptionKey, source.userAgent);
    };
    return settings(a) == settings(b);
}

const SourceConfig *findSource(const QList<SourceConfig> &sources, const QString &name)
{
    const auto found =
        std::find_if(sources.cbegin(), sources.cend(),
                     [&name](const SourceConfig &source) { return source.name == name; });
    return found == sources.cend() ? nullptr : &*found;
}

/// Fills in the credentials of a source that a backup left out.
void takeCredentials(SourceConfig &source, const SourceConfig &from)
{
    if (source.type == from.type && source.username == from.username &&
        source.url == LibraryBackup::withoutCredentials(from.url)) {
        source.url = from.url;
        source.password = from.password;
        source.subscriptionKey = from.subscriptionKey;
    }
}

void planSources(RestorePlan &plan, const LibraryBackup::Content &current,
                 const LibraryBackup::Content &backup, RestoreMode mode)
{
    if (mode == RestoreMode::Merge) {
        plan.sources = current.sources;
    }
    for (SourceConfig source : backup.sources) {
        if (findSource(plan.sources, source.name) != nullptr) {
            continue;
        }
        const SourceConfig *existing = findSource(current.sources, source.name);
        if (existing != nullptr && !backup.hasCredentials) {
            takeCredentials(source, *existing);
        }
        const bool same = existing != nullptr && isSameSource(source, *existing);
        if (existing == nullptr) {
            ++plan.sourceCounts.added;
        } else if (!same) {
            ++plan.sourceCounts.changed;
        }
        plan.sources.append(same ? *existing : source);
    }
    plan.sourceCounts.removed = std::count_if(
        current.sources.cbegin(), current.sources.cend(), [&plan](const SourceConfig &source) {
            return findSource(plan.sources, source.name) == nullptr;
        });
}

// ---- rows ----

/// Gives the channels of a backup without credentials the URLs that they have now.
void takeUrls(LibraryRows &rows, const LibraryRows &current)
{
    QHash<LibraryListId, QHash<QString, QString>> urls; // by the URL without credentials
    LibraryTables::forEach([&](const auto &table) {
        for (const auto &row : current.*table.rows) {
            if (row.kind == EntryKind::Channel) {
                const QString &url = entryIdOf(row);
                urls[{row.source, row.kind}].insert(LibraryBackup::withoutCredentials(url), url);
            }
        }
    });
    LibraryTables::forEach([&](const auto &table) {
        for (auto &row : rows.*table.rows) {
            const auto list = urls.constFind({row.source, row.kind});
            if (list != urls.constEnd()) {
                setEntryId(row, list->value(entryIdOf(row), entryIdOf(row)));
            }
        }
    });
}

/// The same for the addresses of guides.
void takeGuideAddresses(LibraryRows &rows, const LibraryRows &current)
{
    QHash<QString, QHash<QString, QString>> addresses; // by source, and without credentials
    for (const GuideSettings &row : current.guideSettings) {
        const QStringList lines = row.addresses.split(u'\n');
        for (const QString &line : lines) {
            addresses[row.source].insert(LibraryBackup::withoutCredentials(line), line);
        }
    }
    for (GuideSettings &row : rows.guideSettings) {
        const QHash<QString, QString> known = addresses.value(row.source);
        QStringList lines = row.addresses.split(u'\n');
        for (QString &line : lines) {
            line = known.value(line, line);
        }
        row.addresses = lines.join(u'\n');
    }
}

/// @name What a row becomes when another copy of it is merged in
/// @{
template <typename Row>
Row merged(const Row &existing, const Row &)
{
    return existing;
}
WatchedEntry merged(const WatchedEntry &existing, const WatchedEntry &other)
{
    return other.watchedAt > existing.watchedAt ? other : existing;
}
Progress merged(const Progress &existing, const Progress &other)
{
    return other.updatedAt > existing.updatedAt ? other : existing;
}
/// @}

/// Puts the favorites of a backup behind those that are there.
void placeBehind(LibraryRows &rows, const LibraryState &current)
{
    QHash<LibraryListId, qint64> lastPlaces;
    const auto &lists = current.lists<Favorite>();
    for (auto list = lists.cbegin(); list != lists.cend(); ++list) {
        for (const Favorite &row : *list) {
            qint64 &last = lastPlaces[list.key()];
            last = std::max(last, row.place);
        }
    }
    for (Favorite &row : rows.favorites) {
        row.place += lastPlaces.value({row.source, row.kind});
    }
}

template <typename Row>
RestoreCounts planRows(const LibraryState &current, const LibraryState &backup, RestoreMode mode,
                       QList<Row> &removed, QList<Row> &put)
{
    RestoreCounts counts;
    const auto &incoming = backup.lists<Row>();
    for (auto list = incoming.cbegin(); list != incoming.cend(); ++list) {
        const LibraryList<Row> &there = current.list<Row>(list.key());
        for (const Row &row : *list) {
            const auto existing = there.constFind(row.id);
            if (existing == there.constEnd()) {
                ++counts.added;
                put.append(row);
                continue;
            }
            const Row wanted = mode == RestoreMode::Merge ? merged(*existing, row) : row;
            if (wanted != *existing) {
                ++counts.changed;
                put.append(wanted);
            }
        }
    }
    if (mode == RestoreMode::Replace) {
        const auto &existing = current.lists<Row>();
        for (auto list = existing.cbegin(); list != existing.cend(); ++list) {
            for (const Row &row : *list) {
                if (!backup.list<Row>(list.key()).contains(row.id)) {
                    removed.append(row);
                }
            }
        }
        counts.removed = removed.size();
    }
    return counts;
}

RestoreCounts &countsOf(RestorePlan &plan, LibraryPart part)
{
    switch (part) {
    case LibraryPart::Favorites:
        return plan.favoriteCounts;
    case LibraryPart::History:
        return plan.historyCounts;
    case LibraryPart::Progress:
        return plan.progressCounts;
    case LibraryPart::HiddenCategories:
        return plan.hiddenCategoryCounts;
    case LibraryPart::GuideSettings:
        return plan.guideSettingsCounts;
    case LibraryPart::GuideCorrections:
        return plan.guideCorrectionCounts;
    case LibraryPart::Reminders:
        return plan.reminderCounts;
    case LibraryPart::Languages:
        break;
    }
    return plan.languageCounts;
}

} // namespace

RestorePlan planRestore(const LibraryBackup::Content &current, const LibraryBackup::Content &backup,
                        RestoreMode mode)
{
    RestorePlan plan;
    planSources(plan, current, backup, mode);
    const LibraryState state(current.rows);
    LibraryRows rows = backup.rows;
    if (!backup.hasCredentials) {
        takeUrls(rows, current.rows);
        takeGuideAddresses(rows, current.rows);
    }
    if (mode == RestoreMode::Merge) {
        placeBehind(rows, state);
    }
    const LibraryState incoming(rows);
    LibraryTables::forEach([&](const auto &table) {
        countsOf(plan, table.part) = planRows(
            state, incoming, mode, plan.change.removed.*table.rows, plan.change.put.*table.rows);
    });
    return plan;
}
