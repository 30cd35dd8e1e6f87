#include "guide/GuideMatching.h"

#include "guide/CatchUp.h"
#include "guide/GuideStore.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// How often a long loop asks whether it is cancelled.
constexpr qint64 rowsBetweenChecks = 1000;

bool isSure(GuideMatch::Rule rule)
{
    return rule != GuideMatch::Rule::None && rule != GuideMatch::Rule::Suggestion;
}

} // namespace

GuideMatching::GuideMatching(GuideStore &store, const QHash<QString, QString> &corrections,
                             std::function<bool()> cancelled)
    : guideStore(store)
    , chosenIds(corrections)
    , isCancelled(std::move(cancelled))
{}

bool GuideMatching::match(qint64 guide)
{
    GuideMatcher matcher;
    QHash<QString, qint64> numbers;
    QSqlQuery channels = guideStore.prepared(
        u"SELECT number, id, names FROM channel WHERE guide = ? ORDER BY number"_s);
    if (!guideStore.run(channels, {guide})) {
        return false;
    }
    while (channels.next()) {
        const QString id = channels.value(1).toString();
        matcher.addChannel(id, channels.value(2).toString().split(u'\n', Qt::SkipEmptyParts));
        numbers.insert(id, channels.value(0).toLongLong());
    }
    QSqlQuery rows = guideStore.prepared(u"SELECT number, id, guideId, guideName, name, "
                                         "archiveForm, archiveDays FROM entry ORDER BY number"_s);
    if (!guideStore.run(rows)) {
        return false;
    }
    last.clear();
    archiveOfChannel.clear();
    entryCount = 0;
    while (rows.next()) {
        if (++entryCount % rowsBetweenChecks == 0 && isCancelled()) {
            return false;
        }
        const auto number = static_cast<std::size_t>(rows.value(0).toLongLong());
        last.resize(number + 1);
        const Found found =
            matchOf(matcher, numbers, rows.value(1).toString(), rows.value(2).toString(),
                    rows.value(3).toString(), rows.value(4).toString());
        last[number] = found;
        if (found.channel != 0) {
            CatchUpRules rules;
            if (!rows.value(5).isNull()) {
                rules.form = static_cast<CatchUpForm>(rows.value(5).toInt());
            }
            if (!rows.value(6).isNull()) {
                rules.days = rows.value(6).toDouble();
            }
            qint64 &reach = archiveOfChannel[found.channel];
            reach = std::max(reach, ::archiveSeconds(rules));
        }
    }
    return true;
}

GuideMatching::Found GuideMatching::matchOf(const GuideMatcher &matcher,
                                            const QHash<QString, qint64> &numbers,
                                            const QString &entryId, const QString &guideId,
                                            const QString &guideName, const QString &name) const
{
    if (const auto chosen = chosenIds.constFind(entryId); chosen != chosenIds.constEnd()) {
        const qint64 channel = numbers.value(*chosen);
        // Also without a channel: no guide of lower preference is asked.
        return {channel, channel != 0 || chosen->isEmpty() ? GuideMatch::Rule::Chosen
                                                           : GuideMatch::Rule::None};
    }
    const GuideMatch match = matcher.match(guideId, guideName, name);
    return {numbers.value(match.id), match.rule};
}

void GuideMatching::keep()
{
    kept.resize(std::max(kept.size(), last.size()));
    for (std::size_t number = 0; number < last.size(); ++number) {
        Found &best = kept[number];
        const Found &found = last[number];
        if (best.rule == GuideMatch::Rule::None || (!isSure(best.rule) && isSure(found.rule))) {
            best = found;
        }
    }
}

bool GuideMatching::store()
{
    std::vector<std::pair<qint64, Found>> changes;
    QSqlQuery rows = guideStore.prepared(u"SELECT number, channel, rule FROM entry"_s);
    if (!guideStore.run(rows)) {
        return false;
    }
    while (rows.next()) {
        const qint64 number = rows.value(0).toLongLong();
        const auto index = static_cast<std::size_t>(number);
        const Found found = index < kept.size() ? kept[index] : Found();
        if (found.channel != rows.value(1).toLongLong() ||
            static_cast<int>(found.rule) != rows.value(2).toInt()) {
            changes.emplace_back(number, found);
        }
    }
    QSqlQuery update =
        guideStore.prepared(u"UPDATE entry SET channel = ?, rule = ? WHERE number = ?"_s);
    return std::all_of(changes.cbegin(), changes.cend(), [&](const auto &change) {
        const auto &[number, found] = change;
        return !isCancelled() &&
               guideStore.run(update, {found.channel, static_cast<int>(found.rule), number});
    });
}

qint64 GuideMatching::matchedEntries() const
{
    return std::count_if(kept.cbegin(), kept.cend(),
                         [](const Found &found) { return found.channel != 0; });
}

qint64 GuideMatching::suggestedEntries() const
{
    return std::count_if(kept.cbegin(), kept.cend(), [](const Found &found) {
        return found.rule == GuideMatch::Rule::Suggestion;
    });
}
