#pragma once

#include "guide/GuideRecords.h"
#include "guide/GuideResult.h"
#include "guide/GuideStore.h"

#include <QHash>
#include <QList>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <optional>

/// Answers questions about a stored guide. All times are seconds since the epoch, with the entry's
/// shift and the source's offset added. A file that is missing or damaged is an empty guide.
///
/// One thread, always the same; it may wait for the disk.
class GuideReader final
{
public:
    GuideReader(const QString &path, qint64 offsetSeconds);

    QHash<QString, OnNow> onNow(const QStringList &entryIds, qint64 at);
    /// The programmes that run between the two times.
    QHash<QString, GuideSchedule> schedules(const QStringList &entryIds, qint64 from, qint64 to,
                                            bool withDescriptions);
    /// See Guide::search().
    QList<GuideHit> search(const QString &text, qint64 endsAfter, int most);
    /// See Guide::fetchChannels().
    QList<GuideChannel> channels(const QString &text, int most);
    /// What came of the last update.
    GuideResult lastResult();

private:
    struct StoredEntry
    {
        GuideEntry entry;
        qint64 channel = 0;
        qint64 shift = 0;
    };

    std::optional<StoredEntry> entryOf(const QString &id);
    std::optional<GuideProgramme> programmeAt(const StoredEntry &entry, qint64 at);
    std::optional<GuideProgramme> programmeAfter(const StoredEntry &entry, qint64 at);
    GuideProgramme programmeOf(const QSqlQuery &row, qint64 shift) const;

    GuideStore store;
    qint64 offset;
};
