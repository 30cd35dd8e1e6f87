#include "guide/GuideMatcher.h"

#include <utility>

namespace {

QString foldedId(const QString &id)
{
    return id.trimmed().normalized(QString::NormalizationForm_C).toCaseFolded();
}

QString foldedName(QString name)
{
    return foldedId(name.replace(u'_', u' ').simplified());
}

/// The country that an id ends in, as in "news.uk".
QString countryOfId(const QString &id)
{
    const qsizetype dot = id.lastIndexOf(u'.');
    return dot > 0 ? countryOf(id.sliced(dot + 1)) : QString();
}

/// Keeps the first value of a key; an empty key is none.
void insertFirst(QHash<QString, qsizetype> &hash, const QString &key, qsizetype value)
{
    if (!key.isEmpty() && !hash.contains(key)) {
        hash.insert(key, value);
    }
}

} // namespace

void GuideMatcher::addChannel(const QString &id, const QStringList &displayNames)
{
    if (id.trimmed().isEmpty()) {
        return;
    }
    const qsizetype channel = ids.size();
    ids << id;
    insertFirst(channelOfId, foldedId(id), channel);
    for (const QString &name : displayNames) {
        insertFirst(channelOfName, foldedName(name), channel);
        LooseName loose = looseName(name);
        if (!loose.text.isEmpty()) {
            const QString country = loose.country.isEmpty() ? countryOfId(id) : loose.country;
            candidatesOfName[loose.text].append({channel, country, name.size()});
        }
    }
}

GuideMatch GuideMatcher::match(const QString &guideId, const QString &guideName,
                               const QString &channelName) const
{
    using Rule = GuideMatch::Rule;
    if (const qsizetype found = channelOfId.value(foldedId(guideId), -1); found >= 0) {
        return {ids.at(found), Rule::Id};
    }
    for (const auto &[name, rule] :
         {std::pair(guideName, Rule::GuideName), std::pair(channelName, Rule::ChannelName)}) {
        if (const qsizetype found = channelOfName.value(foldedName(name), -1); found >= 0) {
            return {ids.at(found), rule};
        }
    }
    const GuideMatch byGuideName = suggestionFor(guideName);
    return byGuideName.id.isEmpty() ? suggestionFor(channelName) : byGuideName;
}

GuideMatch GuideMatcher::suggestionFor(const QString &name) const
{
    const LooseName loose = looseName(name);
    const QList<Candidate> candidates = candidatesOfName.value(loose.text);
    const Candidate *best = nullptr;
    const auto isOfSameCountry = [&loose](const Candidate &candidate) {
        return !loose.country.isEmpty() && candidate.country == loose.country;
    };
    for (const Candidate &candidate : candidates) {
        // "News" of one country is another channel than "News" of another.
        const bool isForeign =
            !loose.country.isEmpty() && !candidate.country.isEmpty() && !isOfSameCountry(candidate);
        if (isForeign) {
            continue;
        }
        const auto rank = [&](const Candidate &one) {
            return std::pair(isOfSameCountry(one) ? 0 : 1, one.nameLength);
        };
        if (best == nullptr || rank(candidate) < rank(*best)) {
            best = &candidate;
        }
    }
    return best == nullptr ? GuideMatch()
                           : GuideMatch{ids.at(best->channel), GuideMatch::Rule::Suggestion};
}
