#include "model/NameOrder.h"

#include "model/NameFolding.h"

NameOrder::NameOrder(size_t count)
{
    constexpr size_t usualLength = 40;
    entries.reserve(count);
    units.reserve(count * usualLength);
}

void NameOrder::add(const QString &name)
{
    Entry entry;
    entry.start = units.size();
    entry.plain = appendFolded(name, units) != Alphabet::WithSurrogates;
    if (!entry.plain) {
        units.resize(entry.start);
        entry.name = name;
    }
    entry.length = units.size() - entry.start;
    entries.push_back(std::move(entry));
}

NameOrder::Head NameOrder::head(size_t index) const
{
    const Entry &entry = entries[index];
    const auto pack = [this, &entry](size_t from) {
        constexpr size_t unitsInPack = 4;
        quint64 packed = 0;
        for (size_t at = from; at < from + unitsInPack; ++at) {
            packed = packed << 16U | (at < entry.length ? units[entry.start + at] : u'\0');
        }
        return packed;
    };
    return {pack(0), pack(4), entry.plain};
}

bool NameOrder::before(size_t a, size_t b) const
{
    const Entry &first = entries[a];
    const Entry &second = entries[b];
    return first.plain && second.plain
               ? view(first) < view(second)
               : nameOf(first).compare(nameOf(second), Qt::CaseInsensitive) < 0;
}

/// For a plain name its folded form, which compares the same.
QString NameOrder::nameOf(const Entry &entry) const
{
    return entry.plain ? QString::fromUtf16(units.data() + entry.start,
                                            static_cast<qsizetype>(entry.length))
                       : entry.name;
}
