#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringView>

#include <string>

/// Scores how well names match one query, ignoring case. Create one per query and use it for many
/// names.
///
/// The results are those of QString::compare(), startsWith() and contains() with
/// Qt::CaseInsensitive, and of the regular expression "\b" + query. Names and queries of the Basic
/// Multilingual Plane are case-folded and compared by code unit; Qt compares all others.
class NameMatcher
{
public:
    /// Scores, lower is better.
    enum Score : int
    {
        Equal = 0,
        Prefix = 1,
        WordStart = 2,
        Inside = 3,
        NoMatch = 4
    };

    explicit NameMatcher(const QString &query);

    /// The score of a name; NoMatch if it does not contain the query. With an empty query every
    /// name is Equal.
    Score score(QStringView name);

private:
    Score scoreByQt(QStringView name) const;
    Score scoreAtWordStart(QStringView name) const;
    bool startsWordAnywhere(size_t found) const;

    QString query;
    std::u16string foldedQuery;
    bool queryIsAscii = false;
    bool queryIsPlain = false;
    QRegularExpression wordStart;
    /// The folded name under comparison; a member so that its memory is reused.
    std::u16string folded;
};
