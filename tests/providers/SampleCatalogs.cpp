#include "providers/SampleCatalogs.h"

#include "support/PrivateProfile.h"
#include "support/TestFiles.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

/// In the order of the parts.
const QStringList sections{u"live"_s, u"movie"_s, u"series"_s};

SourceConfig source(qint32 type, const QString &name, const QString &url, qint64 ageSeconds)
{
    SourceConfig config = defaultSourceConfig();
    config.type = type;
    config.name = name;
    config.url = url;
    config.lastUpdated =
        ageSeconds == neverLoaded ? 0 : QDateTime::currentSecsSinceEpoch() - ageSeconds;
    return config;
}

QString cacheFile(const QString &source)
{
    return PrivateProfile::current().appDataDir() + "/catalog_cache/"_L1 + source + ".json"_L1;
}

template <typename Record>
QStringList names(const QList<Record> &records)
{
    QStringList result;
    result.reserve(records.size());
    for (const Record &record : records) {
        result << record.name;
    }
    return result;
}

} // namespace

SourceConfig playlistSource(const QString &name, const QString &url, qint64 ageSeconds)
{
    return source(SourceType::Playlist, name, url, ageSeconds);
}

SourceConfig accountSource(const QString &name, const QString &url, qint64 ageSeconds)
{
    SourceConfig config = source(SourceType::Xtream, name, url, ageSeconds);
    config.username = u"u"_s;
    config.password = u"p"_s;
    return config;
}

SourceConfig sourceFor(const XtreamProvider &provider, const QString &name, qint64 ageSeconds)
{
    SourceConfig config = source(SourceType::Xtream, name, provider.url(), ageSeconds);
    config.username = provider.user();
    config.password = provider.password();
    return config;
}

SourceConfig subscriptionSource(const QString &name, const QString &key, qint64 ageSeconds)
{
    SourceConfig config = source(SourceType::Zevrino, name, {}, ageSeconds);
    config.subscriptionKey = key;
    return config;
}

MediaItem entry(qint32 type, const QString &name, const QString &categoryId)
{
    MediaItem item;
    item.type = type;
    item.id = name;
    item.name = name;
    item.categoryId = categoryId;
    return item;
}

MediaItem channel(const QString &name, const QString &url, const QString &group)
{
    MediaItem item = entry(StreamKind::Live, name, group);
    item.id = url;
    item.streamUrl = url;
    return item;
}

QByteArray oneChannel(const QString &name)
{
    return "#EXTINF:-1,"_ba + name.toUtf8() + "\nhttp://127.0.0.1:9/1\n";
}

AccountCatalog madeUpCatalog(const QString &tag)
{
    AccountCatalog catalog;
    for (const QString &kind : {u"channel"_s, u"film"_s, u"show"_s}) {
        catalog << QStringList{tag + u" all about "_s + kind, tag + u" more "_s + kind};
        catalog << QStringList{tag + u' ' + kind + u" 1"_s, tag + u' ' + kind + u" 2"_s,
                               tag + u' ' + kind + u" 3"_s};
    }
    return catalog;
}

void serve(XtreamProvider &provider, const AccountCatalog &catalog)
{
    const QStringList actions = XtreamAction::catalog();
    for (int part = 0; part < accountParts; ++part) {
        provider.setNames(actions.at(part), catalog.at(part));
    }
}

void releaseCatalog(XtreamProvider &provider)
{
    for (const QString &action : XtreamAction::catalog()) {
        provider.release(action);
    }
}

QStringList namesOf(const QList<Category> &categories)
{
    return names(categories);
}

QStringList namesOf(const QList<MediaItem> &items)
{
    return names(items);
}

AccountCatalog cachedCatalog(const QString &source)
{
    AccountCatalog catalog;
    for (const QString &name : sections) {
        CatalogCache::Section section;
        if (CatalogCache::load(source, name, section)) {
            catalog << names(section.categories) << names(section.items);
        } else {
            catalog << notCached << notCached;
        }
    }
    return catalog;
}

void cacheCatalog(const QString &source, const AccountCatalog &catalog)
{
    for (qint32 kind = 0; kind < sections.size(); ++kind) {
        CatalogCache::Section section;
        for (const QString &name : catalog.at(qsizetype{2} * kind)) {
            section.categories.append({QString::number(section.categories.size() + 1), name});
        }
        for (const QString &name : catalog.at(qsizetype{2} * kind + 1)) {
            MediaItem item = entry(kind, name, u"1"_s);
            item.id = QString::number(section.items.size() + 1);
            section.items.append(item);
        }
        CatalogCache::save(source, sections.at(kind), section);
    }
}

QStringList cachedChannels(const QString &source)
{
    CatalogCache::Section section;
    return CatalogCache::load(source, u"channel"_s, section) ? names(section.items) : notCached;
}

void cacheOneChannel(const QString &source, const QString &name)
{
    CatalogCache::save(source, u"channel"_s,
                       {{{u"Cached"_s, u"Cached"_s}}, {channel(name, u"x"_s, u"Cached"_s)}});
}

void writeCacheFile(const QString &source, const QByteArray &content)
{
    writeFile(cacheFile(source), content);
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}
