#include "providers/PlainXtreamCatalog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QVariant>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The integer of a number or of a decimal text, 0 otherwise.
qint64 integerOf(const QJsonValue &value)
{
    return value.isDouble() || value.isString() ? value.toVariant().toLongLong() : 0;
}

QString numberText(const QJsonValue &value)
{
    return QString::number(integerOf(value));
}

/// The real number of a number or of a numeric text, 0 otherwise.
double realOf(const QJsonValue &value)
{
    const double number = value.isDouble() || value.isString() ? value.toVariant().toDouble() : 0.0;
    return std::isfinite(number) ? number : 0.0;
}

template <typename Record, typename Convert>
QList<Record> convertAll(const QJsonArray &array, Convert convert)
{
    QList<Record> records;
    records.reserve(array.size());
    for (const QJsonValue &element : array) {
        records.append(convert(element.toObject()));
    }
    return records;
}

Category categoryOf(const QJsonObject &object)
{
    return {object.value("category_id"_L1).toString(), object.value("category_name"_L1).toString()};
}

/// What the entries of all three kinds have in common.
MediaItem itemOf(const QJsonObject &object, qint32 type, QLatin1StringView idKey,
                 QLatin1StringView iconKey)
{
    MediaItem item;
    item.type = type;
    item.id = numberText(object.value(idKey));
    item.name = object.value("name"_L1).toString();
    item.categoryId = object.value("category_id"_L1).toString();
    item.iconUrl = object.value(iconKey).toString();
    return item;
}

MediaItem channelOf(const QJsonObject &object)
{
    return itemOf(object, StreamKind::Live, "stream_id"_L1, "stream_icon"_L1);
}

MediaItem movieOf(const QJsonObject &object)
{
    MediaItem item = itemOf(object, StreamKind::Movie, "stream_id"_L1, "stream_icon"_L1);
    item.containerExtension = object.value("container_extension"_L1).toString();
    item.rating = realOf(object.value("rating"_L1));
    item.addedAt = integerOf(object.value("added"_L1));
    return item;
}

MediaItem showOf(const QJsonObject &object)
{
    MediaItem item = itemOf(object, StreamKind::Series, "series_id"_L1, "cover"_L1);
    item.rating = realOf(object.value("rating"_L1));
    item.addedAt = integerOf(object.value("last_modified"_L1));
    return item;
}

Episode episodeOf(const QJsonObject &object, const QString &seriesName, qint32 season)
{
    Episode episode;
    episode.id = numberText(object.value("id"_L1));
    episode.seriesName = seriesName;
    episode.season = season;
    episode.episodeNumber = object.value("episode_num"_L1).toInt();
    episode.title = object.value("title"_L1).toString();
    episode.containerExtension = object.value("container_extension"_L1).toString();
    return episode;
}

} // namespace

QList<Category> PlainXtreamCatalog::parseCategories(const QByteArray &body)
{
    return convertAll<Category>(QJsonDocument::fromJson(body).array(), categoryOf);
}

QList<MediaItem> PlainXtreamCatalog::parseLiveStreams(const QByteArray &body)
{
    return convertAll<MediaItem>(QJsonDocument::fromJson(body).array(), channelOf);
}

QList<MediaItem> PlainXtreamCatalog::parseVodStreams(const QByteArray &body)
{
    return convertAll<MediaItem>(QJsonDocument::fromJson(body).array(), movieOf);
}

QList<MediaItem> PlainXtreamCatalog::parseSeries(const QByteArray &body)
{
    return convertAll<MediaItem>(QJsonDocument::fromJson(body).array(), showOf);
}

QList<Episode> PlainXtreamCatalog::parseSeriesEpisodes(const QByteArray &body)
{
    const QJsonObject root = QJsonDocument::fromJson(body).object();
    const QString seriesName = root.value("info"_L1).toObject().value("name"_L1).toString();
    const QJsonObject seasons = root.value("episodes"_L1).toObject();
    QList<Episode> episodes;
    for (auto season = seasons.constBegin(); season != seasons.constEnd(); ++season) {
        const qint32 number = season.key().toInt();
        const QJsonArray list = season.value().toArray();
        for (const QJsonValue &element : list) {
            episodes.append(episodeOf(element.toObject(), seriesName, number));
        }
    }
    return episodes;
}
