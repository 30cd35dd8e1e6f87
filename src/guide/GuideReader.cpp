#include "guide/GuideReader.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 latestTime = (1LL << GuideStore::startBits) - 1;
/// How many times as many programmes as wanted a search looks at.
constexpr int spareHits = 4;

/// Words that begin with each word of the text; empty without a word.
QString fullTextQuery(const QString &text)
{
    static const QRegularExpression noWord(u"[^\\p{L}\\p{M}\\p{N}]+"_s);
    QStringList terms;
    const QStringList words = text.split(noWord, Qt::SkipEmptyParts);
    for (const QString &word : words) {
        terms << u'"' + word + "\"*"_L1;
    }
    return terms.join(u' ');
}

template <typename Value>
std::optional<Value> optionalOf(const QVariant &value)
{
    return value.isNull() ? std::nullopt : std::optional(value.value<Value>());
}

/// One question to the store. Behind it a damaged file is let go: the next update replaces it,
/// which it cannot on Windows while the file is open.
class Question final
{
public:
    explicit Question(GuideStore &askedStore)
        : store(askedStore)
        , ready(store.open())
    {}
    ~Question()
    {
        if (store.isDamaged()) {
            store.close();
        }
    }
    Q_DISABLE_COPY_MOVE(Question)

    bool isReady() const { return ready; }

private:
    GuideStore &store;
    const bool ready;
};

} // namespace

GuideReader::GuideReader(const QString &path, qint64 offsetSeconds)
    : store(path, GuideStore::Mode::Read)
    , offset(offsetSeconds)
{}

std::optional<GuideReader::StoredEntry> GuideReader::entryOf(const QString &id)
{
    QSqlQuery query = store.prepared(
        u"SELECT entry.channel, entry.rule, entry.shift, channel.id, archiveForm, archiveSource, "
        "archiveDays, archiveCorrection FROM entry LEFT JOIN channel "
        "ON channel.number = entry.channel WHERE entry.id = ?"_s);
    if (!store.run(query, {id}) || !query.next()) {
        return std::nullopt;
    }
    StoredEntry found;
    found.channel = query.value(0).toLongLong();
    found.shift = query.value(2).toLongLong() + offset;
    found.entry.match = {query.value(3).toString(),
                         static_cast<GuideMatch::Rule>(query.value(1).toInt())};
    CatchUpRules &rules = found.entry.catchUp;
    if (const auto form = optionalOf<int>(query.value(4))) {
        rules.form = static_cast<CatchUpForm>(*form);
    }
    rules.source = query.value(5).toString();
    rules.days = optionalOf<double>(query.value(6));
    rules.correction = optionalOf<qint64>(query.value(7));
    return found;
}

GuideProgramme GuideReader::programmeOf(const QSqlQuery &row, qint64 shift) const
{
    return {GuideStore::startOf(row.value(0).toLongLong()) + shift,
            row.value(1).toLongLong() + shift, row.value(2).toString(), row.value(3).toString()};
}

/// The programme that runs on the entry's channel at that time.
std::optional<GuideProgramme> GuideReader::programmeAt(const StoredEntry &entry, qint64 at)
{
    const qint64 stored = std::clamp(at - entry.shift, 0LL, latestTime);
    QSqlQuery query = store.prepared(u"SELECT key, stop, title, description FROM programme "
                                     "WHERE key BETWEEN ? AND ? ORDER BY key DESC LIMIT 1"_s);
    if (!store.run(query, {GuideStore::programmeKey(entry.channel, 0),
                           GuideStore::programmeKey(entry.channel, stored)}) ||
        !query.next() || query.value(1).toLongLong() <= stored) {
        return std::nullopt;
    }
    return programmeOf(query, entry.shift);
}

/// The first programme that starts after that time.
std::optional<GuideProgramme> GuideReader::programmeAfter(const StoredEntry &entry, qint64 at)
{
    const qint64 stored = std::clamp(at - entry.shift, 0LL, latestTime);
    QSqlQuery query = store.prepared(u"SELECT key, stop, title, description FROM programme "
                                     "WHERE key > ? AND key < ? ORDER BY key LIMIT 1"_s);
    if (!store.run(query, {GuideStore::programmeKey(entry.channel, stored),
                           GuideStore::programmeKey(entry.channel + 1, 0)}) ||
        !query.next()) {
        return std::nullopt;
    }
    return programmeOf(query, entry.shift);
}

QHash<QString, OnNow> GuideReader::onNow(const QStringList &entryIds, qint64 at)
{
    QHash<QString, OnNow> answer;
    const Question question(store);
    if (!question.isReady()) {
        return answer;
    }
    for (const QString &id : entryIds) {
        if (const auto found = entryOf(id)) {
            answer.insert(id, found->channel == 0 ? OnNow{found->entry, {}, {}}
                                                  : OnNow{found->entry, programmeAt(*found, at),
                                                          programmeAfter(*found, at)});
        }
    }
    return answer;
}

QHash<QString, GuideSchedule> GuideReader::schedules(const QStringList &entryIds, qint64 from,
                                                     qint64 to, bool withDescriptions)
{
    QHash<QString, GuideSchedule> answer;
    const Question question(store);
    if (!question.isReady()) {
        return answer;
    }
    QSqlQuery query = store.prepared("SELECT key, stop, title, "_L1 +
                                     (withDescriptions ? "description"_L1 : "''"_L1) +
                                     " FROM programme WHERE key >= ? AND key < ? ORDER BY key"_L1);
    for (const QString &id : entryIds) {
        const auto found = entryOf(id);
        if (!found) {
            continue;
        }
        GuideSchedule schedule{found->entry, {}};
        if (found->channel != 0) {
            // The one that runs at `from` began earlier.
            const auto running = programmeAt(*found, from);
            const qint64 first =
                std::clamp((running ? running->start : from) - found->shift, 0LL, latestTime);
            const qint64 last = std::clamp(to - found->shift, 0LL, latestTime);
            if (store.run(query, {GuideStore::programmeKey(found->channel, first),
                                  GuideStore::programmeKey(found->channel, last)})) {
                while (query.next()) {
                    schedule.programmes.append(programmeOf(query, found->shift));
                }
            }
        }
        answer.insert(id, schedule);
    }
    return answer;
}

QList<GuideHit> GuideReader::search(const QString &text, qint64 endsAfter, int most)
{
    QList<GuideHit> hits;
    const QString terms = fullTextQuery(text);
    const Question question(store);
    if (terms.isEmpty() || !question.isReady()) {
        return hits;
    }
    // Entries are joined last: a short word may stand in hundreds of thousands of titles. Their
    // shifts differ seldom, so that some more programmes are enough.
    QSqlQuery query = store.prepared(
        u"SELECT key, stop, hit.title, '', entry.id, entry.name, entry.shift FROM "
        "(SELECT key, stop, programme.title FROM titles JOIN programme ON key = titles.rowid "
        "WHERE titles MATCH ? AND stop > ? - (SELECT max(shift) FROM entry) "
        "ORDER BY key & %1 LIMIT ?) AS hit JOIN entry ON channel = key >> %2 "
        "WHERE stop + shift > ? ORDER BY (key & %1) + shift, entry.number LIMIT ?"_s.arg(latestTime)
            .arg(GuideStore::startBits));
    const qint64 after = endsAfter - offset;
    if (store.run(query, {terms, after, most * spareHits, after, most})) {
        while (query.next()) {
            hits.append({query.value(4).toString(), query.value(5).toString(),
                         programmeOf(query, query.value(6).toLongLong() + offset)});
        }
    }
    return hits;
}

QList<GuideChannel> GuideReader::channels(const QString &text, int most)
{
    QList<GuideChannel> found;
    const Question question(store);
    if (!question.isReady()) {
        return found;
    }
    QSqlQuery query = store.prepared(u"SELECT id, names FROM channel ORDER BY guide, number"_s);
    if (!store.run(query)) {
        return found;
    }
    const QString wanted = text.trimmed().toCaseFolded();
    QSet<QString> seen;
    while (query.next()) {
        const QString id = query.value(0).toString();
        const QString names = query.value(1).toString();
        if ((names.toCaseFolded().contains(wanted) || id.toCaseFolded().contains(wanted)) &&
            !seen.contains(id)) {
            seen.insert(id);
            found.append({id, names.isEmpty() ? id : names.section(u'\n', 0, 0)});
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const GuideChannel &a, const GuideChannel &b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    return found.mid(0, most);
}

GuideResult GuideReader::lastResult()
{
    const Question question(store);
    return question.isReady() ? guideResultOfJson(store.state(u"result"_s)) : GuideResult();
}
