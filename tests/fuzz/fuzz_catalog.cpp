// The six replies that make an account's catalog. The records must be those that Qt's own parser
// gives, be found by search, be ordered completely, and come back from the cache unchanged.

#include "CatalogRules.h"
#include "FuzzTarget.h"

#include "providers/XtreamCatalog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

qint64 integerOf(const QJsonValue &value)
{
    return value.isDouble() || value.isString() ? value.toVariant().toLongLong() : 0;
}

double realOf(const QJsonValue &value)
{
    const bool isNumber = value.isDouble() || value.isString();
    const double number = isNumber ? value.toVariant().toDouble() : 0;
    return std::isfinite(number) ? number : 0;
}

/// The keys of one reply's entries; empty for what such entries do not have.
struct Keys
{
    qint32 type;
    QLatin1StringView id;
    QLatin1StringView icon;
    QLatin1StringView rating;
    QLatin1StringView added;
    QLatin1StringView extension;
};
constexpr Keys liveKeys{StreamKind::Live, "stream_id"_L1, "stream_icon"_L1, {}, {}, {}};
constexpr Keys movieKeys{StreamKind::Movie, "stream_id"_L1, "stream_icon"_L1,
                         "rating"_L1,       "added"_L1,     "container_extension"_L1};
constexpr Keys seriesKeys{StreamKind::Series, "series_id"_L1,     "cover"_L1,
                          "rating"_L1,        "last_modified"_L1, {}};

MediaItem itemOf(const QJsonObject &object, const Keys &keys)
{
    MediaItem item;
    item.type = keys.type;
    item.id = QString::number(integerOf(object.value(keys.id)));
    item.name = object.value("name"_L1).toString();
    item.categoryId = object.value("category_id"_L1).toString();
    item.iconUrl = object.value(keys.icon).toString();
    if (!keys.rating.isEmpty()) {
        item.rating = realOf(object.value(keys.rating));
        item.addedAt = integerOf(object.value(keys.added));
    }
    if (!keys.extension.isEmpty()) {
        item.containerExtension = object.value(keys.extension).toString();
    }
    return item;
}

QList<MediaItem> itemsOf(const QJsonArray &elements, const Keys &keys)
{
    QList<MediaItem> items;
    for (const QJsonValueConstRef element : elements) {
        items.append(itemOf(element.toObject(), keys));
    }
    return items;
}

QList<Category> categoriesOf(const QJsonArray &elements)
{
    QList<Category> categories;
    for (const QJsonValueConstRef element : elements) {
        const QJsonObject object = element.toObject();
        categories.append({object.value("category_id"_L1).toString(),
                           object.value("category_name"_L1).toString()});
    }
    return categories;
}

} // namespace

void fuzz(FuzzInput &input)
{
    constexpr int replies = 4; // the three of categories are read alike
    const int reply = input.below(replies);
    const QByteArray body = input.rest();
    const QJsonArray elements = QJsonDocument::fromJson(body).array();
    QList<Category> categories;
    QList<MediaItem> items;
    switch (reply) {
    case 0:
        categories = parseCategories(body);
        require(categories == categoriesOf(elements), "the categories are Qt's");
        break;
    case 1:
        items = parseLiveStreams(body);
        require(items == itemsOf(elements, liveKeys), "the channels are Qt's");
        break;
    case 2:
        items = parseVodStreams(body);
        require(items == itemsOf(elements, movieKeys), "the films are Qt's");
        break;
    default:
        items = parseSeries(body);
        require(items == itemsOf(elements, seriesKeys), "the shows are Qt's");
        break;
    }
    requireCompleteOrders(items);
    requireFoundByName(items);
    requireCached({categories, items});
}
