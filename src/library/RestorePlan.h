#pragma once

#include "library/LibraryBackup.h"
#include "library/LibraryRecords.h"
#include "model/SourceConfig.h"

#include <QList>

enum class RestoreMode
{
    /// Adds what is missing. What is there stays as it is; of what was watched twice the later
    /// counts.
    Merge,
    /// Afterwards there is what the backup holds, and nothing else.
    Replace
};

struct RestoreCounts
{
    qsizetype added = 0;
    qsizetype changed = 0;
    qsizetype removed = 0;

    bool operator==(const RestoreCounts &) const = default;
};

/// What restoring a backup will do, to be shown before it is done.
///
/// To do it, pass `change` to Library::applyNow(), and when that succeeds store `sources`.
struct RestorePlan
{
    RestoreCounts sourceCounts;
    RestoreCounts favoriteCounts;
    RestoreCounts historyCounts;
    RestoreCounts progressCounts;
    RestoreCounts hiddenCategoryCounts;
    RestoreCounts guideSettingsCounts;
    RestoreCounts guideCorrectionCounts;
    RestoreCounts reminderCounts;
    RestoreCounts languageCounts;

    /// All sources that there will be, in their order.
    QList<SourceConfig> sources;
    LibraryChange change;
};

/// Plans to restore `backup` where `current` is there now. What a backup without credentials lacks
/// is taken from `current` where that has the same source or entry.
RestorePlan planRestore(const LibraryBackup::Content &current, const LibraryBackup::Content &backup,
                        RestoreMode mode);
