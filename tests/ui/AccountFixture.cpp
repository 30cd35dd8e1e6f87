#include "AccountFixture.h"

#include <QListWidget>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// In the order of the parts.
const QStringList sections{u"live"_s, u"movie"_s, u"series"_s};

QStringList categoryNames(const QListWidget &list)
{
    QStringList names;
    for (int row = 0; row < list.count(); ++row) {
        names << list.item(row)->text();
    }
    if (!names.isEmpty() && names.first() == "All Categories"_L1) {
        names.removeFirst();
    }
    return names;
}

QStringList posterNames(const QListWidget &list)
{
    QStringList names;
    for (int row = 0; row < list.count(); ++row) {
        names << list.item(row)->text();
    }
    return names;
}

} // namespace

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

SourceConfig sourceFor(const XtreamProvider &provider, const QString &name, qint64 ageSeconds)
{
    SourceConfig source = accountSource(name, provider.url(), ageSeconds);
    source.username = provider.user();
    source.password = provider.password();
    return source;
}

SourceConfig subscriptionSource(const QString &name, const QString &key, qint64 ageSeconds)
{
    SourceConfig source = playlistSource(name, {}, ageSeconds);
    source.type = SourceType::Zevrino;
    source.subscriptionKey = key;
    return source;
}

AccountCatalog shownCatalog(const WindowFixture &fixture)
{
    return {categoryNames(fixture.find<QListWidget>(u"liveCategoryList"_s)),
            rowTexts(fixture.find<QTableWidget>(u"liveTable"_s)),
            categoryNames(fixture.find<QListWidget>(u"movieCategoryList"_s)),
            posterNames(fixture.find<QListWidget>(u"moviePosterList"_s)),
            categoryNames(fixture.find<QListWidget>(u"seriesCategoryList"_s)),
            posterNames(fixture.find<QListWidget>(u"seriesPosterList"_s))};
}

AccountCatalog cachedCatalog(const QString &source)
{
    AccountCatalog catalog;
    for (const QString &name : sections) {
        CatalogCache::Section section;
        if (!CatalogCache::load(source, name, section)) {
            catalog << notCached << notCached;
            continue;
        }
        QStringList categories;
        for (const Category &category : section.categories) {
            categories << category.name;
        }
        QStringList items;
        for (const MediaItem &item : section.items) {
            items << item.name;
        }
        catalog << categories << items;
    }
    return catalog;
}

void cacheCatalog(const QString &source, const AccountCatalog &catalog)
{
    for (qint32 kind = 0; kind < sections.size(); ++kind) {
        CatalogCache::Section section;
        for (const QString &name : catalog.at(2 * kind)) {
            section.categories.append({QString::number(section.categories.size() + 1), name});
        }
        for (const QString &name : catalog.at(2 * kind + 1)) {
            MediaItem item = entry(kind, name, u"1"_s);
            item.id = QString::number(section.items.size() + 1);
            section.items.append(item);
        }
        CatalogCache::save(source, sections.at(kind), section);
    }
}

bool waitUntilShown(const WindowFixture &fixture, const AccountCatalog &catalog)
{
    // Finer steps than those of QTRY_COMPARE, for tests that wait often.
    return QTest::qWaitFor([&] { return shownCatalog(fixture) == catalog; });
}
