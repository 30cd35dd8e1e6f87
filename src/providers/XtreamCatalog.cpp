#include "providers/XtreamCatalog.h"

#include "model/JsonReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

// The converters below take the fields in the order of these keys.
const QList<QByteArray> categoryKeys = {"category_id"_ba, "category_name"_ba};
const QList<QByteArray> liveKeys = {"stream_id"_ba, "name"_ba, "category_id"_ba, "stream_icon"_ba};
const QList<QByteArray> vodKeys = {"stream_id"_ba,          "name"_ba,   "category_id"_ba,
                                   "stream_icon"_ba,        "rating"_ba, "added"_ba,
                                   "container_extension"_ba};
const QList<QByteArray> seriesKeys = {"series_id"_ba, "name"_ba,   "category_id"_ba,
                                      "cover"_ba,     "rating"_ba, "last_modified"_ba};

Category categoryFrom(const JsonFields &fields)
{
    return {fields[0].toText(), fields[1].toText()};
}

/// What the entries of all three kinds have in common.
MediaItem itemFrom(const JsonFields &fields, qint32 type)
{
    MediaItem item;
    item.type = type;
    item.id = QString::number(fields[0].toInteger());
    item.name = fields[1].toText();
    item.categoryId = fields[2].toText();
    item.iconUrl = fields[3].toText();
    return item;
}

MediaItem channelFrom(const JsonFields &fields)
{
    return itemFrom(fields, StreamKind::Live);
}

MediaItem movieFrom(const JsonFields &fields)
{
    MediaItem item = itemFrom(fields, StreamKind::Movie);
    item.rating = fields[4].toReal();
    item.addedAt = fields[5].toInteger();
    item.containerExtension = fields[6].toText();
    return item;
}

MediaItem showFrom(const JsonFields &fields)
{
    MediaItem item = itemFrom(fields, StreamKind::Series);
    item.rating = fields[4].toReal();
    item.addedAt = fields[5].toInteger();
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
    return readJsonRecords(body, categoryKeys, &categoryFrom);
}

QList<MediaItem> parseLiveStreams(const QByteArray &body)
{
    return readJsonRecords(body, liveKeys, &channelFrom);
}

QList<MediaItem> parseVodStreams(const QByteArray &body)
{
    return readJsonRecords(body, vodKeys, &movieFrom);
}

QList<MediaItem> parseSeries(const QByteArray &body)
{
    return readJsonRecords(body, seriesKeys, &showFrom);
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
