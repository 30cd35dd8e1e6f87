#pragma once

#include "model/CatalogText.h"

#include <string>
#include <string_view>
#include <vector>

/// The order of many names under QString::compare() with Qt::CaseInsensitive.
class NameOrder
{
public:
    /// The first folded bytes of a name, for comparing without access to the name.
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
    void add(const CatalogText &name);

    Head head(size_t index) const;

    /// Whether the name at index `a` comes before the one at `b`.
    bool before(size_t a, size_t b) const;

private:
    struct Entry
    {
        size_t start = 0;
        size_t length = 0;
        bool plain = false; ///< whether its folded bytes compare as the name does
        CatalogText name;
    };

    std::string_view view(const Entry &entry) const
    {
        return {bytes.data() + entry.start, entry.length};
    }

    std::vector<Entry> entries;
    std::string bytes;
};
