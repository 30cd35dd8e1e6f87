#include "model/CatalogCache.h"

#include "model/Age.h"
#include "model/JsonObjectText.h"
#include "model/JsonReader.h"
#include "model/JsonWriter.h"
#include "model/OwnerOnlyFile.h"
#include "model/SafeFileName.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>

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

/// The members of a source's file, none when there is no usable one.
JsonObjectText readRoot(const QString &sourceName)
{
    QFile file(cacheFilePath(sourceName));
    return file.open(QIODevice::ReadOnly) ? JsonObjectText::read(file.readAll()) : JsonObjectText();
}

void writeRoot(const QString &sourceName, const JsonObjectText &root)
{
    QFile file(cacheFilePath(sourceName));
    if (openOwnerOnly(file)) { // it holds stream URLs, and those credentials
        file.write(root.toJson());
    }
}

/// Writes the members of one JSON object, one after the other.
class ObjectWriter
{
public:
    explicit ObjectWriter(QByteArray &out)
        : json(out)
    {
        json += '{';
    }
    ~ObjectWriter() { json += '}'; }
    Q_DISABLE_COPY_MOVE(ObjectWriter)

    void add(QByteArrayView key, const QString &text)
    {
        addKey(key);
        appendJsonText(json, text);
    }
    void add(QByteArrayView key, double number)
    {
        addKey(key);
        appendJsonNumber(json, number);
    }
    void add(QByteArrayView key, qint64 number)
    {
        addKey(key);
        json += QByteArray::number(number);
    }

private:
    void addKey(QByteArrayView key)
    {
        if (!first) {
            json += ',';
        }
        first = false;
        json += '"';
        json += key;
        json += "\":";
    }

    QByteArray &json;
    bool first = true;
};

void append(QByteArray &json, const Category &category)
{
    ObjectWriter object(json);
    object.add("id", category.id);
    object.add("name", category.name);
}

void append(QByteArray &json, const MediaItem &item)
{
    ObjectWriter object(json);
    object.add("type", qint64(item.type));
    object.add("id", item.id);
    object.add("name", item.name);
    object.add("categoryId", item.categoryId);
    object.add("iconUrl", item.iconUrl);
    object.add("containerExtension", item.containerExtension);
    object.add("streamUrl", item.streamUrl);
    object.add("rating", item.rating);
    object.add("addedAt", item.addedAt);
}

void append(QByteArray &json, const Episode &episode)
{
    ObjectWriter object(json);
    object.add("id", episode.id);
    object.add("seriesName", episode.seriesName);
    object.add("season", qint64(episode.season));
    object.add("episodeNumber", qint64(episode.episodeNumber));
    object.add("title", episode.title);
    object.add("containerExtension", episode.containerExtension);
}

template <typename Record>
QByteArray arrayText(const QList<Record> &records)
{
    constexpr qsizetype usualSize = 200;
    QByteArray json;
    json.reserve(records.size() * usualSize);
    json += '[';
    for (const Record &record : records) {
        if (json.size() > 1) {
            json += ',';
        }
        append(json, record);
    }
    json += ']';
    return json;
}

// The keys stand in the order of the records' members.
const QList<QByteArray> categoryKeys = {"id"_ba, "name"_ba};
const QList<QByteArray> itemKeys = {"type"_ba,       "id"_ba,      "name"_ba,
                                    "categoryId"_ba, "iconUrl"_ba, "containerExtension"_ba,
                                    "streamUrl"_ba,  "rating"_ba,  "addedAt"_ba};
const QList<QByteArray> episodeKeys = {
    "id"_ba, "seriesName"_ba, "season"_ba, "episodeNumber"_ba, "title"_ba, "containerExtension"_ba};

Category categoryFrom(const JsonFields &fields)
{
    return {fields[0].toText(), fields[1].toText()};
}

MediaItem itemFrom(const JsonFields &fields)
{
    return {fields[0].toInt(),
            fields[1].toText(),
            fields[2].toText(),
            fields[3].toText(),
            fields[4].toText(),
            fields[5].toText(),
            fields[6].toText(),
            fields[7].kind == JsonField::Kind::Number ? fields[7].toReal() : 0.0,
            fields[8].toVariantInteger()};
}

Episode episodeFrom(const JsonFields &fields)
{
    return {fields[0].toText(), fields[1].toText(), fields[2].toInt(),
            fields[3].toInt(),  fields[4].toText(), fields[5].toText()};
}

/// The time stamp in a JSON text, 0 when it holds none.
qint64 stampFrom(const QByteArray &json)
{
    return QJsonDocument::fromJson('[' + json + ']').array().at(0).toVariant().toLongLong();
}

} // namespace

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
    const JsonObjectText root = readRoot(sourceName);
    const bool complete = std::all_of(sections.begin(), sections.end(),
                                      [&root](const QString &name) { return root.contains(name); });
    if (!complete) {
        return false;
    }
    out.clear();
    for (const QString &name : sections) {
        const JsonObjectText object = JsonObjectText::read(root.value(name));
        out.append({readJsonRecords(object.value(categoriesKey), categoryKeys, &categoryFrom),
                    readJsonRecords(object.value(itemsKey), itemKeys, &itemFrom)});
    }
    return true;
}

void CatalogCache::save(const QString &sourceName, const QString &section, const Section &data)
{
    QDir().mkpath(cacheDir());
    JsonObjectText object;
    object.insert(categoriesKey, arrayText(data.categories));
    object.insert(itemsKey, arrayText(data.items));
    JsonObjectText root = readRoot(sourceName);
    root.insert(section, object.toJson());
    writeRoot(sourceName, root);
}

bool CatalogCache::loadEpisodes(const QString &sourceName, const QString &seriesId,
                                long long maxAgeSeconds, QList<Episode> &out)
{
    const JsonObjectText store = JsonObjectText::read(readRoot(sourceName).value(episodesKey));
    if (!store.contains(seriesId)) {
        return false;
    }
    const JsonObjectText entry = JsonObjectText::read(store.value(seriesId));
    if (secondsSince(stampFrom(entry.value(savedAtKey))) >= maxAgeSeconds) {
        return false;
    }
    out = readJsonRecords(entry.value(listKey), episodeKeys, &episodeFrom);
    return true;
}

void CatalogCache::saveEpisodes(const QString &sourceName, const QString &seriesId,
                                const QList<Episode> &episodes)
{
    QDir().mkpath(cacheDir());
    JsonObjectText entry;
    entry.insert(savedAtKey, QByteArray::number(QDateTime::currentSecsSinceEpoch()));
    entry.insert(listKey, arrayText(episodes));
    JsonObjectText root = readRoot(sourceName);
    JsonObjectText store = JsonObjectText::read(root.value(episodesKey));
    store.insert(seriesId, entry.toJson());
    root.insert(episodesKey, store.toJson());
    writeRoot(sourceName, root);
}
