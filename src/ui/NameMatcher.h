#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringView>

#include <string>
#include <string_view>
#include <vector>

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
    /// The folded name in hand; a member so that its memory is reused.
    std::u16string folded;
};

/// The order of many names under QString::compare() with Qt::CaseInsensitive.
class NameOrder
{
public:
    /// The first folded units of a name, for a quick answer without looking at the name itself.
    struct Head
    {
        quint64 first = 0;
        quint64 second = 0;
        bool decides = false; ///< false for a name that only Qt can compare

        bool operator==(const Head &) const = default;
    };

    /// Makes room for that many names.
    explicit NameOrder(size_t count);

    /// Adds the name at the next index.
    void add(const QString &name);

    Head head(size_t index) const;

    /// Whether the name at index `a` comes before the one at `b`.
    bool before(size_t a, size_t b) const;

private:
    struct Entry
    {
        size_t start = 0;
        size_t length = 0;
        bool plain = false;
        QString name; ///< held only when it is not plain
    };

    std::u16string_view view(const Entry &entry) const
    {
        return {units.data() + entry.start, entry.length};
    }
    QString nameOf(const Entry &entry) const;

    std::vector<Entry> entries;
    std::u16string units;
};
