#include "providers/XtreamCatalog.h"

#include "model/JsonReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QVariant>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr std::tuple categoryTable{
    JsonColumn{"category_id", &Category::id, &JsonField::toText},
    JsonColumn{"category_name", &Category::name, &JsonField::toText},
};
constexpr std::tuple liveTable{
    JsonColumn{"stream_id", &MediaItem::id, &JsonField::toIntegerText},
    JsonColumn{"name", &MediaItem::name, &JsonField::toCatalogText},
    JsonColumn{"category_id", &MediaItem::categoryId, &JsonField::toCatalogText},
    JsonColumn{"stream_icon", &MediaItem::iconUrl, &JsonField::toCatalogText},
};
constexpr std::tuple vodTable{
    JsonColumn{"stream_id", &MediaItem::id, &JsonField::toIntegerText},
    JsonColumn{"name", &MediaItem::name, &JsonField::toCatalogText},
    JsonColumn{"category_id", &MediaItem::categoryId, &JsonField::toCatalogText},
    JsonColumn{"stream_icon", &MediaItem::iconUrl, &JsonField::toCatalogText},
    JsonColumn{"rating", &MediaItem::rating, &JsonField::toLenientReal},
    JsonColumn{"added", &MediaItem::addedAt, &JsonField::toLenientInteger},
    JsonColumn{"container_extension", &MediaItem::containerExtension, &JsonField::toCatalogText},
};
constexpr std::tuple seriesTable{
    JsonColumn{"series_id", &MediaItem::id, &JsonField::toIntegerText},
    JsonColumn{"name", &MediaItem::name, &JsonField::toCatalogText},
    JsonColumn{"category_id", &MediaItem::categoryId, &JsonField::toCatalogText},
    JsonColumn{"cover", &MediaItem::iconUrl, &JsonField::toCatalogText},
    JsonColumn{"rating", &MediaItem::rating, &JsonField::toLenientReal},
    JsonColumn{"last_modified", &MediaItem::addedAt, &JsonField::toLenientInteger},
};

MediaItem itemOfKind(qint32 kind)
{
    MediaItem item;
    item.type = kind;
    return item;
}

/// The integer of a number or of a decimal text, 0 otherwise.
qint64 integerOf(const QJsonValue &value)
{
    return value.isDouble() || value.isString() ? value.toVariant().toLongLong() : 0;
}

Episode episodeOf(const QJsonObject &object, const QString &seriesName, qint32 season)
{
    Episode episode;
    episode.id = QString::number(integerOf(object.value("id"_L1)));
    episode.seriesName = seriesName;
    episode.season = season;
    episode.episodeNumber = object.value("episode_num"_L1).toInt();
    episode.title = object.value("title"_L1).toString();
    episode.containerExtension = object.value("container_extension"_L1).toString();
    return episode;
}

} // namespace

QList<Category> parseCategories(const QByteArray &body)
{
    return readJsonRecords(body, categoryTable);
}

QList<MediaItem> parseLiveStreams(const QByteArray &body)
{
    return readJsonRecords(body, liveTable, itemOfKind(StreamKind::Live));
}

QList<MediaItem> parseVodStreams(const QByteArray &body)
{
    return readJsonRecords(body, vodTable, itemOfKind(StreamKind::Movie));
}

QList<MediaItem> parseSeries(const QByteArray &body)
{
    return readJsonRecords(body, seriesTable, itemOfKind(StreamKind::Series));
}

QList<Episode> parseSeriesEpisodes(const QByteArray &body)
{
    const QJsonObject root = QJsonDocument::fromJson(body).object();
    const QString seriesName = root.value("info"_L1).toObject().value("name"_L1).toString();
    const QJsonObject seasons = root.value("episodes"_L1).toObject();
    QList<Episode> episodes;
    for (auto season = seasons.constBegin(); season != seasons.constEnd(); ++season) {
        const qint32 number = season.key().toInt();
        const QJsonArray list = season.value().toArray();
        for (const QJsonValueConstRef element : list) {
            episodes.append(episodeOf(element.toObject(), seriesName, number));
        }
    }
    return episodes;
}
