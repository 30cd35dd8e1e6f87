// The steps between bytes and lists, each beside the same by the obvious means of Qt, and beside
// the floor: finding the lines and decoding the text.

#include "Results.h"
#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogCache.h"
#include "model/ItemIndex.h"
#include "providers/M3uParser.h"
#include "providers/XtreamCatalog.h"
#include "support/PrivateProfile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int categories = 200;
const QString source = u"bench"_s;

/// What a step leaves behind, so that the compiler keeps it.
qsizetype sink = 0;

/// The shortest of three runs in ms.
double timeOf(const std::function<qsizetype()> &step)
{
    double shortest = 0;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer clock;
        clock.start();
        sink += step();
        const auto ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        shortest = run == 0 ? ms : std::min(shortest, ms);
    }
    return shortest;
}

void report(const char *row, const char *column, const std::function<qsizetype()> &step)
{
    reportFigure(row, column, timeOf(step), "ms");
}

qsizetype linesAndText(const QByteArray &bytes)
{
    return bytes.count('\n') + QString::fromUtf8(bytes).size();
}

qsizetype plainPlaylist(const QByteArray &bytes)
{
    static const QRegularExpression group(u"group-title=\"([^\"]*)\""_s);
    static const QRegularExpression logo(u"tvg-logo=\"([^\"]*)\""_s);
    QList<MediaItem> items;
    MediaItem item;
    for (const QString &line : QString::fromUtf8(bytes).split(u'\n')) {
        if (line.startsWith("#EXTINF"_L1, Qt::CaseInsensitive)) {
            item.name = line.section(u',', -1).trimmed();
            item.categoryId = group.match(line).captured(1);
            item.iconUrl = logo.match(line).captured(1);
        } else if (!line.isEmpty() && !line.startsWith(u'#')) {
            item.id = line;
            item.streamUrl = line;
            items.append(item);
        }
    }
    return items.size();
}

MediaItem itemFrom(const QJsonObject &object)
{
    MediaItem item;
    item.id = QString::number(object.value("stream_id"_L1).toVariant().toLongLong());
    item.name = object.value("name"_L1).toString();
    item.categoryId = object.value("category_id"_L1).toString();
    item.iconUrl = object.value("stream_icon"_L1).toString();
    item.containerExtension = object.value("container_extension"_L1).toString();
    item.rating = object.value("rating"_L1).toVariant().toDouble();
    item.addedAt = object.value("added"_L1).toVariant().toLongLong();
    return item;
}

qsizetype plainReply(const QByteArray &body)
{
    QList<MediaItem> items;
    const QJsonArray elements = QJsonDocument::fromJson(body).array();
    for (const QJsonValueConstRef element : elements) {
        items.append(itemFrom(element.toObject()));
    }
    return items.size();
}

QList<QString> namesOf(const QList<MediaItem> &items)
{
    QList<QString> names;
    for (const MediaItem &item : items) {
        names.append(item.name);
    }
    return names;
}

qsizetype plainSearch(const QList<QString> &names, const QString &query)
{
    QList<QString> found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found),
                 [&](const QString &name) { return name.contains(query, Qt::CaseInsensitive); });
    std::stable_sort(found.begin(), found.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return found.size();
}

void measurePlaylist(int entries)
{
    CatalogGenerator generator;
    generator.setIconBase(u"http://127.0.0.1/logos/"_s);
    const QByteArray bytes = generator.playlist(entries, categories, u"http://127.0.0.1/live/"_s);
    constexpr auto row = "playlist to entries";
    report(row, "now", [&] { return M3uParser::parseUtf8(bytes).items.size(); });
    report(row, "plain", [&] { return plainPlaylist(bytes); });
    report(row, "floor", [&] { return linesAndText(bytes); });
}

void measureReply(const QByteArray &body)
{
    constexpr auto row = "film reply to records";
    report(row, "now", [&] { return parseVodStreams(body).size(); });
    report(row, "plain", [&] { return plainReply(body); });
    report(row, "floor", [&] { return linesAndText(body); });
}

void measureLists(const QList<MediaItem> &films)
{
    const QList<QString> names = namesOf(films);
    report("films in the order of their names", "now", [&] {
        ItemIndex index(films);
        index.prepareOrder(u"name"_s);
        return index.items().size();
    });
    report("films in the order of their names", "plain", [&] { return plainSearch(names, {}); });
    ItemIndex index(films);
    report("films that hold a letter, in order", "now",
           [&] { return index.select({}, u"e"_s, u"name"_s).size(); });
    report("films that hold a letter, in order", "plain",
           [&] { return plainSearch(names, u"e"_s); });
}

void measureCache(const QList<CatalogCache::Section> &account)
{
    const QStringList names{u"live"_s, u"movie"_s, u"series"_s};
    report("six cache saves", "now", [&] {
        for (qsizetype index = 0; index < names.size(); ++index) {
            CatalogCache::save(source, names.at(index), {account.at(index).categories, {}});
            CatalogCache::save(source, names.at(index), account.at(index));
        }
        return names.size();
    });
    const QString path = PrivateProfile::current().appDataDir() + "/catalog_cache/bench.json"_L1;
    QFile file(path);
    const QByteArray json = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    report("six cache saves", "floor", [&] {
        QTemporaryFile copy;
        return copy.open() ? copy.write(json) : 0;
    });
    constexpr auto row = "account from its cache to records";
    report(row, "now", [&] {
        QList<CatalogCache::Section> loaded;
        return CatalogCache::load(source, names, loaded) ? loaded.size() : 0;
    });
    report(row, "plain", [&] {
        const QJsonObject root = QJsonDocument::fromJson(json).object();
        qsizetype records = 0;
        for (const QString &name : names) {
            const QJsonArray items = root.value(name).toObject().value("items"_L1).toArray();
            for (const QJsonValueConstRef item : items) {
                records += itemFrom(item.toObject()).name.isEmpty() ? 0 : 1;
            }
        }
        return records;
    });
    report(row, "floor", [&] { return linesAndText(json); });
}

} // namespace

int main(int argc, char **argv)
{
    PrivateProfile profile;
    QCoreApplication app(argc, argv);
    const int divisor = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 1;
    measurePlaylist(300000 / divisor);
    const QByteArray filmReply = CatalogGenerator().vodReply(150000 / divisor, categories);
    measureReply(filmReply);
    const QList<MediaItem> films = parseVodStreams(filmReply);
    measureLists(films);
    CatalogGenerator generator;
    measureCache({{{}, parseLiveStreams(generator.liveReply(45000 / divisor, categories))},
                  {{}, films},
                  {{}, parseSeries(generator.seriesReply(30000 / divisor, categories))}});
    return sink > 0 ? 0 : 1;
}
