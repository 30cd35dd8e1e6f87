#include "model/SourceMerge.h"

#include <QHash>

#include <utility>

namespace {

/// A source's name, and how many of that name stand before it.
using SourceKey = std::pair<QString, int>;

QList<SourceKey> keysOf(const QList<SourceConfig> &sources)
{
    QHash<QString, int> counts;
    QList<SourceKey> keys;
    for (const SourceConfig &source : sources) {
        keys.append({source.name, counts[source.name]++});
    }
    return keys;
}

/// A list that is searched by key.
class KeyedSources
{
public:
    explicit KeyedSources(const QList<SourceConfig> &sources)
        : list(sources)
    {
        const QList<SourceKey> keys = keysOf(sources);
        for (qsizetype index = 0; index < keys.size(); ++index) {
            indexes.insert(keys.at(index), index);
        }
    }

    /// Null when there is none.
    const SourceConfig *find(const SourceKey &key) const
    {
        const auto found = indexes.constFind(key);
        return found != indexes.constEnd() ? &list.at(*found) : nullptr;
    }

private:
    const QList<SourceConfig> &list;
    QHash<SourceKey, qsizetype> indexes;
};

SourceConfig mergeFields(const SourceConfig &before, const SourceConfig &ours,
                         const SourceConfig &theirs)
{
    SourceConfig merged = theirs;
    const auto merge = [&](auto field) {
        if (ours.*field != before.*field) {
            merged.*field = ours.*field;
        }
    };
    merge(&SourceConfig::type);
    merge(&SourceConfig::url);
    merge(&SourceConfig::username);
    merge(&SourceConfig::password);
    merge(&SourceConfig::liveExtension);
    merge(&SourceConfig::subscriptionKey);
    merge(&SourceConfig::lastUpdated);
    merge(&SourceConfig::userAgent);
    return merged;
}

} // namespace

QList<SourceConfig> mergeSources(const QList<SourceConfig> &before, const QList<SourceConfig> &ours,
                                 const QList<SourceConfig> &theirs)
{
    if (theirs == before) {
        return ours;
    }
    const KeyedSources beforeByKey(before);
    const KeyedSources oursByKey(ours);
    const KeyedSources theirsByKey(theirs);
    QList<SourceConfig> merged;

    const QList<SourceKey> theirKeys = keysOf(theirs);
    for (qsizetype index = 0; index < theirs.size(); ++index) {
        const SourceConfig *old = beforeByKey.find(theirKeys.at(index));
        const SourceConfig *our = oursByKey.find(theirKeys.at(index));
        if (our != nullptr) {
            merged.append(old != nullptr ? mergeFields(*old, *our, theirs.at(index)) : *our);
        } else if (old == nullptr) {
            merged.append(theirs.at(index)); // added there
        }
    }

    const QList<SourceKey> ourKeys = keysOf(ours);
    for (qsizetype index = 0; index < ours.size(); ++index) {
        const SourceConfig *old = beforeByKey.find(ourKeys.at(index));
        const bool changedHere = old == nullptr || *old != ours.at(index);
        if (changedHere && theirsByKey.find(ourKeys.at(index)) == nullptr) {
            merged.append(ours.at(index));
        }
    }
    return merged;
}
