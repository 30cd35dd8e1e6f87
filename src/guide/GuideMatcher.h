#pragma once

#include "guide/LooseName.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// A channel's place in a guide, and how sure it is.
struct GuideMatch
{
    enum class Rule : quint8
    {
        None,
        Id,          ///< the source names the guide's id
        GuideName,   ///< the source names one of the guide's names
        ChannelName, ///< the channel is called like one of the guide's names
        Suggestion,  ///< by looser rules: to be confirmed by the user
        Chosen       ///< by the user
    };

    QString id; ///< in the guide, as the guide writes it; empty for no match
    Rule rule = Rule::None;

    bool operator==(const GuideMatch &) const = default;
};

/// Finds channels in a guide by their ids and names. Comparing ignores case, and in names takes
/// blanks and underscores alike. Where several channels of the guide fit, the one that was added
/// first counts; for a suggestion, one of the same country and then the one with the shortest name.
///
/// Any thread, one at a time. A look-up takes the same time however large the guide is.
class GuideMatcher final
{
public:
    /// Adds a channel of the guide; guides of higher preference first. One without an id is left
    /// out.
    void addChannel(const QString &id, const QStringList &displayNames);

    /// The match of a channel with this id and name in the guide, as the source gives them (either
    /// may be empty), and this name of its own.
    GuideMatch match(const QString &guideId, const QString &guideName,
                     const QString &channelName) const;

private:
    struct Candidate
    {
        qsizetype channel = 0; ///< an index of `ids`
        QString country;
        qsizetype nameLength = 0;
    };

    GuideMatch suggestionFor(const QString &name) const;

    QStringList ids;
    QHash<QString, qsizetype> channelOfId;
    QHash<QString, qsizetype> channelOfName;
    QHash<QString, QList<Candidate>> candidatesOfName;
};
