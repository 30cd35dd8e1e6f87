#include "model/CatalogCache.h"

#include "model/Age.h"
#include "model/CacheFile.h"
#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "model/SafeFileName.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMutex>
#include <QStandardPaths>
#include <QVariant>

#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QString categoriesKey = u"categories"_s;
const QString itemsKey = u"items"_s;
const QString episodesKey = u"episodes"_s;
const QString savedAtKey = u"savedAt"_s;
const QString listKey = u"list"_s;

QString cacheDir()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/catalog_cache"_L1;
}

QString cacheFilePath(const QString &sourceName)
{
    return cacheDir() + u'/' + safeFileName(sourceName) + ".json"_L1;
}

/// Guards the files, and what is remembered of them.
QMutex filesMutex;

// The columns stand in the order in which the members are written.
constexpr std::tuple categoryTable{
    JsonColumn{"id", &Category::id, &JsonField::toText},
    JsonColumn{"name", &Category::name, &JsonField::toText},
};
constexpr std::tuple itemTable{
    JsonColumn{"type", &MediaItem::type, &JsonField::toInt},
    JsonColumn{"id", &MediaItem::id, &JsonField::toCatalogText},
    JsonColumn{"name", &MediaItem::name, &JsonField::toCatalogText},
    JsonColumn{"categoryId", &MediaItem::categoryId, &JsonField::toCatalogText},
    JsonColumn{"iconUrl", &MediaItem::iconUrl, &JsonField::toCatalogText},
    JsonColumn{"containerExtension", &MediaItem::containerExtension, &JsonField::toCatalogText},
    JsonColumn{"streamUrl", &MediaItem::streamUrl, &JsonField::toCatalogText},
    JsonColumn{"rating", &MediaItem::rating, &JsonField::toDouble},
    JsonColumn{"addedAt", &MediaItem::addedAt, &JsonField::toVariantInteger},
};
constexpr std::tuple episodeTable{
    JsonColumn{"id", &Episode::id, &JsonField::toText},
    JsonColumn{"seriesName", &Episode::seriesName, &JsonField::toText},
    JsonColumn{"season", &Episode::season, &JsonField::toInt},
    JsonColumn{"episodeNumber", &Episode::episodeNumber, &JsonField::toInt},
    JsonColumn{"title", &Episode::title, &JsonField::toText},
    JsonColumn{"containerExtension", &Episode::containerExtension, &JsonField::toText},
};

/// The sections as JSON; nothing when one of them is missing.
std::optional<QList<QByteArray>> sectionTexts(const QString &sourceName,
                                              const QStringList &sections)
{
    const QMutexLocker lock(&filesMutex);
    CacheFile file(cacheFilePath(sourceName));
    QList<QByteArray> texts;
    for (const QString &name : sections) {
        if (!file.contains(name)) {
            return std::nullopt;
        }
        texts.append(file.value(name));
    }
    return texts;
}

/// The time stamp that a JSON text holds; 0 when it holds none.
qint64 stampFrom(const QByteArray &json)
{
    return QJsonDocument::fromJson('[' + json + ']').array().at(0).toVariant().toLongLong();
}

} // namespace

qint64 CatalogCache::fileSize(const QString &sourceName)
{
    return QFileInfo(cacheFilePath(sourceName)).size();
}

bool CatalogCache::load(const QString &sourceName, const QString &section, Section &out)
{
    QList<Section> loaded;
    if (!load(sourceName, QStringList{section}, loaded)) {
        return false;
    }
    out = loaded.takeFirst();
    return true;
}

bool CatalogCache::load(const QString &sourceName, const QStringList &sections, QList<Section> &out)
{
    const std::optional<QList<QByteArray>> texts = sectionTexts(sourceName, sections);
    if (!texts) {
        return false;
    }
    out.clear();
    for (const QByteArray &text : *texts) {
        const JsonMembers object = readJsonMembers(text);
        out.append({readJsonRecords(object.value(categoriesKey), categoryTable),
                    readJsonRecords(object.value(itemsKey), itemTable)});
    }
    return true;
}

void CatalogCache::save(const QString &sourceName, const QString &section, const Section &data)
{
    JsonMembers object;
    object.insert(categoriesKey, writeJsonRecords(data.categories, categoryTable));
    object.insert(itemsKey, writeJsonRecords(data.items, itemTable));
    const QByteArray json = writeJsonMembers(object);
    const QMutexLocker lock(&filesMutex);
    QDir().mkpath(cacheDir());
    CacheFile(cacheFilePath(sourceName)).replace(section, json);
}

bool CatalogCache::loadEpisodes(const QString &sourceName, const QString &seriesId,
                                long long maxAgeSeconds, QList<Episode> &out)
{
    const QMutexLocker lock(&filesMutex);
    const JsonMembers store =
        readJsonMembers(CacheFile(cacheFilePath(sourceName)).value(episodesKey));
    if (!store.contains(seriesId)) {
        return false;
    }
    const JsonMembers entry = readJsonMembers(store.value(seriesId));
    if (secondsSince(stampFrom(entry.value(savedAtKey))) >= maxAgeSeconds) {
        return false;
    }
    out = readJsonRecords(entry.value(listKey), episodeTable);
    return true;
}

void CatalogCache::saveEpisodes(const QString &sourceName, const QString &seriesId,
                                const QList<Episode> &episodes)
{
    JsonMembers entry;
    entry.insert(savedAtKey, QByteArray::number(QDateTime::currentSecsSinceEpoch()));
    entry.insert(listKey, writeJsonRecords(episodes, episodeTable));
    const QMutexLocker lock(&filesMutex);
    QDir().mkpath(cacheDir());
    CacheFile file(cacheFilePath(sourceName));
    JsonMembers store = readJsonMembers(file.value(episodesKey));
    store.insert(seriesId, writeJsonMembers(entry));
    file.replace(episodesKey, writeJsonMembers(store));
}
