#include "model/NameOrder.h"

#include "model/NameFolding.h"

#include <QtEndian>

#include <array>
#include <utility>

NameOrder::NameOrder(size_t count)
{
    constexpr size_t usualLength = 40;
    entries.reserve(count);
    bytes.reserve(count * usualLength);
}

void NameOrder::add(const CatalogText &name)
{
    Entry entry;
    entry.start = bytes.size();
    entry.plain = appendFolded(name, bytes) != Alphabet::WithSurrogates;
    entry.name = name;
    entry.length = bytes.size() - entry.start;
    entries.push_back(std::move(entry));
}

NameOrder::Head NameOrder::head(size_t index) const
{
    const Entry &entry = entries[index];
    std::array<char, 2 * sizeof(quint64)> first{};
    view(entry).copy(first.data(), first.size());
    return {qFromBigEndian<quint64>(first.data()),
            qFromBigEndian<quint64>(first.data() + sizeof(quint64)), entry.plain};
}

bool NameOrder::before(size_t a, size_t b) const
{
    const Entry &first = entries[a];
    const Entry &second = entries[b];
    return first.plain && second.plain
               ? view(first) < view(second)
               : first.name.toString().compare(second.name, Qt::CaseInsensitive) < 0;
}
