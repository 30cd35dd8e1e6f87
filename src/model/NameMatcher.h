#pragma once

#include "model/CatalogText.h"

#include <QRegularExpression>
#include <QString>

#include <string>

/// Scores how well names match one query, ignoring case. Create one per query and use it for many
/// names.
///
/// The results are those of QString::compare(), startsWith() and contains() with
/// Qt::CaseInsensitive, and of the regular expression "\b" + query. Names and queries of the Basic
/// Multilingual Plane are case-folded and compared by byte; Qt compares all others.
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
    Score score(const CatalogText &name);

private:
    Score scoreByQt(const QString &name) const;
    Score scoreAtWordStart(const QString &name) const;
    bool startsWordAnywhere(size_t found) const;

    QString query;
    std::string foldedQuery;
    bool queryIsAscii = false;
    bool queryIsPlain = false;
    QRegularExpression wordStart;
    /// The folded name under comparison; a member so that its memory is reused.
    std::string folded;
};
