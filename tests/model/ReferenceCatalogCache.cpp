#include "model/ReferenceCatalogCache.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString episodesKey = u"episodes"_s;

/// The root object of a file, empty when there is no usable one.
QJsonObject readRoot(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        return {};
    }
    return document.object();
}

void writeRoot(const QString &path, const QJsonObject &root)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(QJsonDocument(root).toJson(QJsonDocument::Compact));
    }
}

QJsonObject toJson(const Category &category)
{
    return {{u"id"_s, category.id}, {u"name"_s, category.name}};
}

Category categoryFromJson(const QJsonObject &object)
{
    return {object.value("id"_L1).toString(), object.value("name"_L1).toString()};
}

QJsonObject toJson(const MediaItem &item)
{
    return {{u"type"_s, item.type},
            {u"id"_s, item.id},
            {u"name"_s, item.name},
            {u"categoryId"_s, item.categoryId},
            {u"iconUrl"_s, item.iconUrl},
            {u"containerExtension"_s, item.containerExtension},
            {u"streamUrl"_s, item.streamUrl},
            {u"rating"_s, item.rating},
            {u"addedAt"_s, QJsonValue::fromVariant(QVariant(item.addedAt))}};
}

MediaItem itemFromJson(const QJsonObject &object)
{
    MediaItem item;
    item.type = object.value("type"_L1).toInt();
    item.id = object.value("id"_L1).toString();
    item.name = object.value("name"_L1).toString();
    item.categoryId = object.value("categoryId"_L1).toString();
    item.iconUrl = object.value("iconUrl"_L1).toString();
    item.containerExtension = object.value("containerExtension"_L1).toString();
    item.streamUrl = object.value("streamUrl"_L1).toString();
    item.rating = object.value("rating"_L1).toDouble();
    item.addedAt = object.value("addedAt"_L1).toVariant().toLongLong();
    return item;
}

QJsonObject toJson(const Episode &episode)
{
    return {{u"id"_s, episode.id},         {u"seriesName"_s, episode.seriesName},
            {u"season"_s, episode.season}, {u"episodeNumber"_s, episode.episodeNumber},
            {u"title"_s, episode.title},   {u"containerExtension"_s, episode.containerExtension}};
}

Episode episodeFromJson(const QJsonObject &object)
{
    Episode episode;
    episode.id = object.value("id"_L1).toString();
    episode.seriesName = object.value("seriesName"_L1).toString();
    episode.season = object.value("season"_L1).toInt();
    episode.episodeNumber = object.value("episodeNumber"_L1).toInt();
    episode.title = object.value("title"_L1).toString();
    episode.containerExtension = object.value("containerExtension"_L1).toString();
    return episode;
}

template <typename Record>
QJsonArray toJsonArray(const QList<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records) {
        array.append(toJson(record));
    }
    return array;
}

template <typename Record>
QList<Record> fromJsonArray(const QJsonArray &array, Record (*convert)(const QJsonObject &))
{
    QList<Record> records;
    records.reserve(array.size());
    for (const QJsonValue &element : array) {
        records.append(convert(element.toObject()));
    }
    return records;
}

} // namespace

bool ReferenceCatalogCache::load(const QString &path, const QString &section,
                                 CatalogCache::Section &out)
{
    const QJsonObject root = readRoot(path);
    const auto found = root.constFind(section);
    if (found == root.constEnd()) {
        return false;
    }
    const QJsonObject object = found->toObject();
    out.categories = fromJsonArray(object.value("categories"_L1).toArray(), categoryFromJson);
    out.items = fromJsonArray(object.value("items"_L1).toArray(), itemFromJson);
    return true;
}

void ReferenceCatalogCache::save(const QString &path, const QString &section,
                                 const CatalogCache::Section &data)
{
    QJsonObject root = readRoot(path);
    root.insert(section, QJsonObject{{u"categories"_s, toJsonArray(data.categories)},
                                     {u"items"_s, toJsonArray(data.items)}});
    writeRoot(path, root);
}

bool ReferenceCatalogCache::loadEpisodes(const QString &path, const QString &seriesId,
                                         QList<Episode> &out)
{
    const QJsonObject store = readRoot(path).value(episodesKey).toObject();
    const auto found = store.constFind(seriesId);
    if (found == store.constEnd()) {
        return false;
    }
    const QJsonObject entry = found->toObject();
    // What was saved longer ago than 64 bits of seconds can tell is older than any limit.
    constexpr qint64 longest = std::numeric_limits<qint64>::max();
    if (entry.value("savedAt"_L1).toVariant().toLongLong() <=
        QDateTime::currentSecsSinceEpoch() - longest) {
        return false;
    }
    out = fromJsonArray(entry.value("list"_L1).toArray(), episodeFromJson);
    return true;
}

void ReferenceCatalogCache::saveEpisodes(const QString &path, const QString &seriesId,
                                         const QList<Episode> &episodes)
{
    QJsonObject root = readRoot(path);
    QJsonObject store = root.value(episodesKey).toObject();
    store.insert(seriesId, QJsonObject{{u"savedAt"_s, QDateTime::currentSecsSinceEpoch()},
                                       {u"list"_s, toJsonArray(episodes)}});
    root.insert(episodesKey, store);
    writeRoot(path, root);
}
