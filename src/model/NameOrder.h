#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

/// The order of many names under QString::compare() with Qt::CaseInsensitive.
class NameOrder
{
public:
    /// The first folded code units of a name, for comparing without access to the name.
    struct Head
    {
        quint64 first = 0;
        quint64 second = 0;
        bool decides = false; ///< false for a name that only Qt can compare

        bool operator==(const Head &) const = default;
    };

    /// Reserves memory for that many names.
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
