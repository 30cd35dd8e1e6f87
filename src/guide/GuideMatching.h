#pragma once

#include "guide/GuideMatcher.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

class GuideStore;

/// Finds out which channel of which guide each entry of the source is, during an update. All tables
/// are read from and written to the store, since a source may have 300,000 entries.
class GuideMatching final
{
public:
    /// The ids of guide channels that the user has chosen, by the entries' ids; an empty one for an
    /// entry without a guide. `cancelled` is asked now and then.
    GuideMatching(GuideStore &guideStore, const QHash<QString, QString> &corrections,
                  std::function<bool()> cancelled);

    /// Matches all entries with the channels of one guide. False when the store failed or it was
    /// cancelled.
    bool match(qint64 guide);
    /// Whether match() has found an entry for that channel of the guide that was matched last.
    bool isWanted(qint64 channel) const { return archiveOfChannel.contains(channel); }
    /// How far back the entries' archives of that channel reach, in seconds.
    qint64 archiveSeconds(qint64 channel) const { return archiveOfChannel.value(channel); }

    /// Takes over what was matched last. Guides come in the order of preference: a match counts
    /// unless an earlier guide had one that is as sure.
    void keep();
    /// Writes what was kept to the entries.
    bool store();

    qint64 entries() const { return entryCount; }
    qint64 matchedEntries() const;
    qint64 suggestedEntries() const;

private:
    struct Found
    {
        qint64 channel = 0;
        GuideMatch::Rule rule = GuideMatch::Rule::None;
    };

    Found matchOf(const GuideMatcher &matcher, const QHash<QString, qint64> &numbers,
                  const QString &entryId, const QString &guideId, const QString &guideName,
                  const QString &name) const;

    GuideStore &guideStore;
    const QHash<QString, QString> &chosenIds;
    std::function<bool()> isCancelled;
    qint64 entryCount = 0;
    std::vector<Found> last; ///< by the entries' numbers
    std::vector<Found> kept; ///< likewise
    QHash<qint64, qint64> archiveOfChannel;
};
