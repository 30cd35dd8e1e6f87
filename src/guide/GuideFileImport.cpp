#include "guide/GuideFileImport.h"

#include "guide/GuideMatching.h"
#include "guide/GuideStore.h"
#include "guide/GuideUnpacker.h"

#include <QIODevice>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 pieceBytes = 128LL * 1024;
/// A guide's root element stands within so many bytes.
constexpr qint64 headBytes = 64LL * 1024;
/// A batch is sorted and stored when it has so many programmes, or so long texts.
constexpr std::size_t batchProgrammes = 32'000;
constexpr qsizetype batchUnits = 4LL * 1024 * 1024;

constexpr qint64 day = 86400;
constexpr qint64 comingSeconds = 7 * day;
/// Of a channel of which it is not known yet which archive it has.
constexpr qint64 usualArchiveSeconds = 7 * day;
/// What runs now may have begun long ago, and an offset moves all times by as much.
constexpr qint64 marginSeconds = day;

} // namespace

GuideFileImport::GuideFileImport(GuideStore &guideStore, GuideMatching &guideMatching,
                                 Options importOptions)
    : store(guideStore)
    , matching(guideMatching)
    , options(std::move(importOptions))
    , scanner(*this, options.language)
    , nextNumber(options.firstChannel)
    , matchedBefore(options.firstChannel)
{}

GuideProblem GuideFileImport::run(QIODevice &file)
{
    qint64 before = 0;
    good = countProgrammes(before);
    problem = read(file);
    if (problem != GuideProblem::None || !good) {
        return problem;
    }
    flush();
    if (nextNumber > matchedBefore || matchedBefore == options.firstChannel) {
        matchChannels();
    }
    qint64 after = 0;
    good = good && dropUnwanted() && countProgrammes(after);
    storedProgrammes = after - before;
    return good && storedProgrammes <= 0 ? GuideProblem::NothingMatches : GuideProblem::None;
}

GuideProblem GuideFileImport::read(QIODevice &file)
{
    using Result = GuideUnpacker::Result;
    GuideUnpacker unpacker([this](QByteArrayView bytes) { return takeUnpacked(bytes); });
    Result result = Result::Good;
    while (result == Result::Good && good && !file.atEnd()) {
        const QByteArray piece = file.read(pieceBytes);
        if (piece.isEmpty()) {
            return GuideProblem::CutShort;
        }
        options.tookBytes(piece.size());
        good = !options.cancelled();
        result = unpacker.add(piece);
    }
    if (result == Result::Good) {
        result = unpacker.finish();
    }
    scanner.finish();
    switch (result) {
    case Result::UnknownPacking:
        return GuideProblem::UnknownPacking;
    case Result::Damaged:
        return GuideProblem::Damaged;
    case Result::Stopped:
        return problem;
    case Result::Good:
        break;
    }
    if (!scanner.sawRoot()) {
        return GuideProblem::NotAGuide;
    }
    return scanner.isComplete() ? problem : GuideProblem::CutShort;
}

bool GuideFileImport::takeUnpacked(QByteArrayView bytes)
{
    unpackedBytes += bytes.size();
    if (unpackedBytes > options.mostBytes) {
        problem = GuideProblem::TooLarge;
    } else {
        scanner.add(bytes);
        if (unpackedBytes > headBytes && !scanner.sawRoot()) {
            problem = GuideProblem::NotAGuide;
        }
    }
    return good && problem == GuideProblem::None;
}

// ---- channels ----

void GuideFileImport::channel(const XmltvChannel &channel)
{
    if (!numbers.contains(channel.id)) {
        numberOf(channel.id, channel.names.join(u'\n'));
    } else if (numbers.value(channel.id) >= matchedBefore) {
        // Its programmes came first.
        good = good && store.run(u"UPDATE channel SET names = ? WHERE number = ?"_s,
                                 {GuideStore::notNull(channel.names.join(u'\n')),
                                  numbers.value(channel.id)});
    }
}

/// The number of a channel; a new one is stored.
qint64 GuideFileImport::numberOf(const QString &id, const QString &names)
{
    if (const qint64 known = numbers.value(id); known != 0) {
        return known;
    }
    const qint64 number = nextNumber++;
    numbers.insert(id, number);
    good =
        good && store.run(u"INSERT INTO channel (number, guide, id, names) VALUES (?, ?, ?, ?)"_s,
                          {number, options.guide, id, GuideStore::notNull(names)});
    return number;
}

void GuideFileImport::matchChannels()
{
    matchedBefore = nextNumber;
    good = good && matching.match(options.guide);
}

// ---- programmes ----

bool GuideFileImport::wantsProgramme(const QString &channel, qint64 start)
{
    if (!good) {
        return false;
    }
    if (!tookUnmatched && matchedBefore == options.firstChannel &&
        nextNumber > options.firstChannel) {
        // Channels usually come first. What is declared later is matched at the end.
        matchChannels();
    }
    const qint64 number = numbers.value(channel);
    const bool isMatched = number != 0 && number < matchedBefore;
    if (isMatched && !matching.isWanted(number)) {
        return false;
    }
    const qint64 reach = isMatched ? matching.archiveSeconds(number) : usualArchiveSeconds;
    return GuideStore::fitsKey(start) && start >= options.now - reach - marginSeconds &&
           start <= options.now + comingSeconds + marginSeconds;
}

void GuideFileImport::programme(const XmltvProgramme &programme)
{
    if (++takenProgrammes > options.mostProgrammes) {
        problem = GuideProblem::TooLarge;
        return;
    }
    const qint64 number = numberOf(programme.channel, {});
    tookUnmatched = tookUnmatched || number >= matchedBefore;
    batch.push_back({GuideStore::programmeKey(number, programme.start), programme.stop,
                     programme.title, programme.description});
    batchTexts += programme.title.size() + programme.description.size();
    if (batch.size() >= batchProgrammes || batchTexts >= batchUnits) {
        flush();
    }
}

/// Stores the batch. In the order of the keys, pages of the file are written one after the other.
void GuideFileImport::flush()
{
    std::stable_sort(batch.begin(), batch.end(),
                     [](const Row &a, const Row &b) { return a.key < b.key; });
    // Of several programmes with one start the last one counts.
    QSqlQuery insert = store.prepared(
        u"INSERT OR REPLACE INTO programme (key, stop, title, description) VALUES (?, ?, ?, ?)"_s);
    for (const Row &row : batch) {
        good = good && store.run(insert, {row.key, row.stop, GuideStore::notNull(row.title),
                                          GuideStore::notNull(row.description)});
    }
    batch.clear();
    batchTexts = 0;
}

/// Removes the programmes of channels that turned out to match nothing.
bool GuideFileImport::dropUnwanted()
{
    if (!tookUnmatched) {
        return true;
    }
    return std::all_of(numbers.cbegin(), numbers.cend(), [this](qint64 number) {
        return matching.isWanted(number) ||
               store.run(u"DELETE FROM programme WHERE key BETWEEN ? AND ?"_s,
                         {GuideStore::programmeKey(number, 0),
                          GuideStore::programmeKey(number + 1, 0) - 1});
    });
}

bool GuideFileImport::countProgrammes(qint64 &count)
{
    QSqlQuery query = store.prepared(u"SELECT count(*) FROM programme WHERE key >= ?"_s);
    if (!store.run(query, {GuideStore::programmeKey(options.firstChannel, 0)}) || !query.next()) {
        return false;
    }
    count = query.value(0).toLongLong();
    return true;
}
