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

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

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
    JsonColumn{"headers", &MediaItem::headers, &JsonField::toCatalogText, true},
};
constexpr std::tuple episodeTable{
    JsonColumn{"id", &Episode::id, &JsonField::toText},
    JsonColumn{"seriesName", &Episode::seriesName, &JsonField::toText},
    JsonColumn{"season", &Episode::season, &JsonField::toInt},
    JsonColumn{"episodeNumber", &Episode::episodeNumber, &JsonField::toInt},
    JsonColumn{"title", &Episode::title, &JsonField::toText},
    JsonColumn{"containerExtension", &Episode::containerExtension, &JsonField::toText},
};

using Sections = QList<CatalogCache::Section>;

/// Gives the item the texts of the one before where they are equal: neighbours often share them.
void shareTexts(MediaItem &item, const MediaItem &before)
{
    const auto share = [](CatalogText &text, const CatalogText &other) {
        if (text == other) {
            text = other;
        }
    };
    share(item.categoryId, before.categoryId);
    share(item.containerExtension, before.containerExtension);
    share(item.streamUrl, item.id);
    share(item.headers, before.headers);
}

/// Reads the sections in one pass over the file. Nothing when the file has to be read member by
/// member, or a section is missing.
std::optional<Sections> readInOnePass(const QString &sourceName, const QStringList &names)
{
    CacheFile file(cacheFilePath(sourceName));
    QMutexLocker lock(&filesMutex);
    QByteArray text = file.readText();
    lock.unlock();

    Sections sections(names.size());
    std::vector<JsonArraySink> sinks;
    for (qsizetype index = 0; index < names.size(); ++index) {
        CatalogCache::Section &section = sections[index];
        sinks.push_back({names.at(index), "categories", keysOf(categoryTable),
                         [&section](const JsonFields &fields) {
                             setFields(section.categories.emplaceBack(), categoryTable, fields);
                         }});
        sinks.push_back({names.at(index), "items", keysOf(itemTable),
                         [&section, before = MediaItem()](const JsonFields &fields) mutable {
                             MediaItem &item = section.items.emplaceBack();
                             setFields(item, itemTable, fields);
                             shareTexts(item, before);
                             before = item;
                         }});
    }
    const auto places = readJsonArrays(text, sinks);
    if (!places) {
        return std::nullopt;
    }
    lock.relock();
    file.keepPlaces(*places);
    const auto stands = [&places](const QString &name) {
        return std::any_of(places->begin(), places->end(),
                           [&name](const JsonMemberPlace &place) { return place.key == name; });
    };
    return std::all_of(names.begin(), names.end(), stands) ? std::optional(sections) : std::nullopt;
}

/// The same for any file, member by member. Nothing when a section is missing.
std::optional<Sections> readByMember(const QString &sourceName, const QStringList &names)
{
    QMutexLocker lock(&filesMutex);
    CacheFile file(cacheFilePath(sourceName));
    QList<QByteArray> texts;
    for (const QString &name : names) {
        if (!file.contains(name)) {
            return std::nullopt;
        }
        texts.append(file.value(name));
    }
    lock.unlock();
    Sections sections;
    for (const QByteArray &text : std::as_const(texts)) {
        const JsonMembers object = readJsonMembers(text);
        sections.append({readJsonRecords(object.value(categoriesKey), categoryTable),
                         readJsonRecords(object.value(itemsKey), itemTable)});
    }
    return sections;
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
    auto loaded = readInOnePass(sourceName, sections);
    if (!loaded) {
        loaded = readByMember(sourceName, sections);
    }
    if (!loaded) {
        return false;
    }
    out = std::move(*loaded);
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
