#include "CatalogRules.h"

#include "FuzzTarget.h"

#include "model/ItemFilter.h"

#include <QStringList>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// Whether the entry `before` may stand before `after`.
bool mayPrecede(const MediaItem &before, const MediaItem &after, const QString &sortKey)
{
    if (sortKey == "added"_L1) {
        return before.addedAt >= after.addedAt;
    }
    if (sortKey == "rating"_L1) {
        return before.rating >= after.rating;
    }
    return before.name.toString().compare(after.name.toString(), Qt::CaseInsensitive) <= 0;
}

} // namespace

void requireCompleteOrders(const QList<MediaItem> &items)
{
    QList<int> every(items.size());
    std::iota(every.begin(), every.end(), 0);
    for (const QString &sortKey : {u"name"_s, u"added"_s, u"rating"_s}) {
        const QList<int> order = sortedOrder(items, sortKey);
        require(std::is_permutation(order.begin(), order.end(), every.begin(), every.end()),
                "an order has every entry once");
        for (qsizetype row = 1; row < order.size(); ++row) {
            require(mayPrecede(items.at(order.at(row - 1)), items.at(order.at(row)), sortKey),
                    "an order is in order");
        }
    }
}

void requireFoundByName(const QList<MediaItem> &items)
{
    constexpr qsizetype enough = 10;
    for (qsizetype row = 0; row < std::min(items.size(), enough); ++row) {
        const MediaItem &item = items.at(row);
        require(filteredRows(items, item.categoryId, item.name).contains(static_cast<int>(row)),
                "a search by its name finds an entry");
    }
}

void requireCached(const CatalogCache::Section &section)
{
    const QString source = u"fuzz"_s;
    CatalogCache::save(source, u"live"_s, section);
    CatalogCache::Section loaded;
    require(CatalogCache::load(source, u"live"_s, loaded), "a saved section is there");
    require(loaded == section, "a saved section comes back unchanged");
}
