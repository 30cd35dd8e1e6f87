#include "guide/GuideTimes.h"

#include "guide/GuideStore.h"

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Programme
{
    qint64 key = 0;
    qint64 stop = 0;
};

/// When the programme ends, if `next` is the one behind it in the store.
qint64 completeStop(const Programme &programme, const Programme &next)
{
    const qint64 start = GuideStore::startOf(programme.key);
    const bool isSameChannel =
        GuideStore::channelOf(next.key) == GuideStore::channelOf(programme.key);
    const qint64 latest =
        programme.stop > start ? programme.stop : start + GuideTimes::longestUnknown;
    return isSameChannel ? std::min(latest, GuideStore::startOf(next.key)) : latest;
}

} // namespace

bool GuideTimes::removeProgrammes(GuideStore &store, const QString &channels)
{
    QSqlQuery query = store.prepared(channels);
    if (!store.run(query)) {
        return false;
    }
    std::vector<qint64> numbers;
    while (query.next()) {
        numbers.push_back(query.value(0).toLongLong());
    }
    query.finish();
    QSqlQuery remove = store.prepared(u"DELETE FROM programme WHERE key BETWEEN ? AND ?"_s);
    return std::all_of(numbers.cbegin(), numbers.cend(), [&](qint64 number) {
        return store.run(remove, {GuideStore::programmeKey(number, 0),
                                  GuideStore::programmeKey(number + 1, 0) - 1});
    });
}

bool GuideTimes::completeStops(GuideStore &store)
{
    QSqlQuery query = store.prepared(u"SELECT key, stop FROM programme ORDER BY key"_s);
    if (!store.run(query)) {
        return false;
    }
    std::vector<Programme> changes;
    Programme previous;
    const auto complete = [&](const Programme &next) {
        const qint64 stop = completeStop(previous, next);
        if (previous.key != 0 && stop != previous.stop) {
            changes.push_back({previous.key, stop});
        }
        previous = next;
    };
    while (query.next()) {
        complete({query.value(0).toLongLong(), query.value(1).toLongLong()});
    }
    complete({});
    query.finish();
    QSqlQuery update = store.prepared(u"UPDATE programme SET stop = ? WHERE key = ?"_s);
    return std::all_of(changes.cbegin(), changes.cend(), [&](const Programme &change) {
        return store.run(update, {change.stop, change.key});
    });
}

qint64 GuideTimes::newestStart(GuideStore &store)
{
    QSqlQuery query = store.prepared(u"SELECT key FROM programme"_s);
    qint64 newest = 0;
    if (store.run(query)) {
        while (query.next()) {
            newest = std::max(newest, GuideStore::startOf(query.value(0).toLongLong()));
        }
    }
    return newest;
}
