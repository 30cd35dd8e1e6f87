#include "guide/GuideImport.h"

#include "guide/GuideEntries.h"
#include "guide/GuideFileImport.h"
#include "guide/GuideMatching.h"
#include "guide/GuideStore.h"
#include "guide/GuideTimes.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Names an address in the file without its credentials.
QString checksumOf(const QString &address)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(address.toUtf8(), QCryptographicHash::Sha256).toHex());
}

template <typename Value>
QVariant orNull(const std::optional<Value> &value)
{
    return value ? QVariant::fromValue(*value) : QVariant();
}

bool insertEntry(GuideStore &store, QSqlQuery &insert, const GuideSourceEntry &entry)
{
    const CatchUpRules &rules = entry.attributes.catchUp;
    return store.run(insert, {GuideStore::notNull(entry.id), GuideStore::notNull(entry.name),
                              GuideStore::notNull(entry.attributes.guideId),
                              GuideStore::notNull(entry.attributes.guideName),
                              entry.attributes.shift.value_or(0),
                              rules.form ? QVariant(static_cast<int>(*rules.form)) : QVariant(),
                              GuideStore::notNull(rules.source), orNull(rules.days),
                              orNull(rules.correction)});
}

/// One number of the first row.
qint64 numberOf(GuideStore &store, const QString &statement, const QVariantList &values = {})
{
    QSqlQuery query = store.prepared(statement);
    return store.run(query, values) && query.next() ? query.value(0).toLongLong() : 0;
}

} // namespace

GuideImport::GuideImport(GuideImportJob importJob)
    : job(std::move(importJob))
{
    for (const GuideImportJob::File &file : job.guides) {
        allBytes += QFileInfo(file.path).size();
    }
}

int GuideImport::percent() const
{
    constexpr qint64 whole = 100;
    return allBytes > 0 ? static_cast<int>(std::min(whole, readBytes * whole / allBytes)) : 0;
}

GuideResult GuideImport::run()
{
    GuideStore store(job.storePath, GuideStore::Mode::Write);
    bool done = store.open() && store.inTransaction([&] { return update(store); });
    if (!done && !cancelled && store.isDamaged() && store.replaceFile() && store.open()) {
        done = store.inTransaction([&] { return update(store); });
    }
    if (done) {
        store.settle();
        return result;
    }
    GuideResult failed;
    failed.finishedAt = job.now;
    failed.cancelled = cancelled;
    if (!cancelled) {
        failed.addresses.append({{}, GuideProblem::NotStored, store.errorText(), 0, false});
    }
    return failed;
}

bool GuideImport::update(GuideStore &store)
{
    result = {};
    result.finishedAt = job.now;
    readBytes = 0;
    if (!job.entriesProblem.isEmpty()) {
        result.addresses.append(
            {{}, GuideProblem::ChannelsNotLoaded, job.entriesProblem, 0, false});
    }
    GuideMatching matching(store, job.corrections, [this] { return cancelled.load(); });
    if (job.onlyMatches) {
        return matchAgain(store, matching);
    }
    return takeEntries(store) && removeOldGuides(store) &&
           std::all_of(job.guides.cbegin(), job.guides.cend(),
                       [&](const GuideImportJob::File &file) {
                           return takeGuide(store, matching, file);
                       }) &&
           matching.store() && finish(store, matching);
}

/// The result stays that of the last update, but for the numbers.
bool GuideImport::matchAgain(GuideStore &store, GuideMatching &matching)
{
    result = guideResultOfJson(store.state(u"result"_s));
    QSqlQuery query = store.prepared(u"SELECT number FROM guide ORDER BY place"_s);
    if (!store.run(query)) {
        return false;
    }
    while (query.next()) {
        if (!matching.match(query.value(0).toLongLong())) {
            return false;
        }
        matching.keep();
    }
    return matching.store() && finish(store, matching);
}

/// Replaces the source's channels by those of the file, if it has any.
bool GuideImport::takeEntries(GuideStore &store)
{
    QFile file(job.entriesPath);
    if (job.entriesPath.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return true;
    }
    qint64 count = 0;
    bool isStored = true;
    const bool isTaken = store.inTransaction([&] {
        isStored = store.run(u"DELETE FROM entry"_s);
        QSqlQuery insert = store.prepared(
            u"INSERT OR IGNORE INTO entry (id, name, guideId, guideName, shift, archiveForm, "
            "archiveSource, archiveDays, archiveCorrection) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s);
        const auto take = [&](const GuideSourceEntry &entry) {
            ++count;
            isStored = isStored && insertEntry(store, insert, entry);
            return isStored && !cancelled;
        };
        const bool isRead = job.entriesAreOfAccount ? readAccountEntries(file.readAll(), take)
                                                    : readPlaylistEntries(file, take);
        return isRead && count > 0;
    });
    if (!isTaken && isStored && !cancelled) {
        // An error page, most likely.
        result.addresses.append({{}, GuideProblem::ChannelsNotLoaded, {}, 0, false});
        return true;
    }
    return isTaken;
}

/// Removes what came from addresses that are no longer used.
bool GuideImport::removeOldGuides(GuideStore &store)
{
    if (!store.run(u"UPDATE guide SET place = -1"_s)) {
        return false;
    }
    for (qsizetype place = 0; place < job.guides.size(); ++place) {
        if (!store.run(u"INSERT INTO guide (address, place) VALUES (?, ?) "
                       "ON CONFLICT (address) DO UPDATE SET place = excluded.place"_s,
                       {checksumOf(job.guides.at(place).address), place})) {
            return false;
        }
    }
    return GuideTimes::removeProgrammes(store, u"SELECT channel.number FROM channel JOIN guide "
                                               "ON guide.number = channel.guide "
                                               "WHERE guide.place < 0"_s) &&
           store.run(u"DELETE FROM channel WHERE guide IN "
                     "(SELECT number FROM guide WHERE place < 0)"_s) &&
           store.run(u"DELETE FROM guide WHERE place < 0"_s);
}

/// Takes one guide in the place of its former version. False when the whole update must end.
bool GuideImport::takeGuide(GuideStore &store, GuideMatching &matching,
                            const GuideImportJob::File &file)
{
    const qint64 guide = numberOf(store, u"SELECT number FROM guide WHERE address = ?"_s,
                                  {checksumOf(file.address)});
    GuideAddressResult one{file.shown, file.problem, file.detail, 0, false};
    if (file.problem == GuideProblem::None) {
        const bool isTaken = store.inTransaction([&] {
            one = importFile(store, matching, file, guide);
            return one.problem == GuideProblem::None;
        });
        const bool isStored = isTaken || (one.problem != GuideProblem::None &&
                                          one.problem != GuideProblem::NotStored);
        if (cancelled || !isStored) {
            return false;
        }
    }
    result.addresses.append(one);
    // What stays of a guide with a problem is matched anew.
    if (one.problem != GuideProblem::None && !matching.match(guide)) {
        return false;
    }
    matching.keep();
    return true;
}

GuideAddressResult GuideImport::importFile(GuideStore &store, GuideMatching &matching,
                                           const GuideImportJob::File &file, qint64 guide)
{
    GuideAddressResult one{file.shown, GuideProblem::None, {}, 0, false};
    QFile device(file.path);
    if (!device.open(QIODevice::ReadOnly)) {
        one.problem = GuideProblem::FileNotOpened;
        one.detail = device.errorString();
        return one;
    }
    if (!GuideTimes::removeProgrammes(
            store, u"SELECT number FROM channel WHERE guide = %1"_s.arg(guide)) ||
        !store.run(u"DELETE FROM channel WHERE guide = ?"_s, {guide})) {
        one.problem = GuideProblem::NotStored;
        return one;
    }
    GuideFileImport::Options options;
    options.guide = guide;
    options.now = job.now;
    options.language = job.language;
    options.firstChannel = numberOf(store, u"SELECT max(number) FROM channel"_s) + 1;
    options.cancelled = [this] { return cancelled.load(); };
    options.tookBytes = [this](qint64 bytes) { readBytes += bytes; };
    GuideFileImport import(store, matching, options);
    one.problem = import.run(device);
    one.programmes = import.programmes();
    one.tookUnknownZones = import.sawUnknownZone();
    if (!import.isGood()) {
        one.problem = GuideProblem::NotStored;
    }
    return one;
}

/// Completes the times, the index and what is told of the update.
bool GuideImport::finish(GuideStore &store, const GuideMatching &matching)
{
    if (!job.onlyMatches && (!GuideTimes::completeStops(store) ||
                             !store.run(u"INSERT INTO titles (titles) VALUES ('rebuild')"_s))) {
        return false;
    }
    result.programmes = numberOf(store, u"SELECT count(*) FROM programme"_s);
    result.newest = GuideTimes::newestStart(store);
    result.channels = matching.entries();
    result.matched = matching.matchedEntries();
    result.suggested = matching.suggestedEntries();
    return !cancelled && store.setState(u"result"_s, guideResultToJson(result));
}
