#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringView>

#include <string>

/// How well names match one query, ignoring case. Made once per query and used for many names.
///
/// The answers are those of QString::compare(), startsWith() and contains() with
/// Qt::CaseInsensitive, and of the expression "\b" + query. Names and queries of the Basic
/// Multilingual Plane are compared folded and unit by unit, anything else by Qt itself.
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

    /// The score of a name, NoMatch when it does not contain the query. An empty query makes every
    /// name Equal.
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
