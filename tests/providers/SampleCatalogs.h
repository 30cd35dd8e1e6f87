#pragma once

#include "fakeprovider/XtreamProvider.h"
#include "model/CatalogCache.h"
#include "model/CatalogRecords.h"
#include "model/SourceConfig.h"

#include <QList>
#include <QString>
#include <QStringList>

/// @file
/// Sources and catalogs that tests load.

/// The age of a source that was never loaded.
inline constexpr qint64 neverLoaded = -1;

/// A playlist source that was loaded `ageSeconds` ago.
SourceConfig playlistSource(const QString &name, const QString &url, qint64 ageSeconds = 0);
/// An account source (user "u", password "p") that was loaded `ageSeconds` ago.
SourceConfig accountSource(const QString &name, const QString &url, qint64 ageSeconds = 0);
/// A source for the provider's account that was loaded `ageSeconds` ago.
SourceConfig sourceFor(const XtreamProvider &provider, const QString &name,
                       qint64 ageSeconds = neverLoaded);
/// A subscription that was loaded `ageSeconds` ago, without an account as yet.
SourceConfig subscriptionSource(const QString &name, const QString &key,
                                qint64 ageSeconds = neverLoaded);

MediaItem entry(qint32 type, const QString &name, const QString &categoryId = {});
/// A live channel of a playlist.
MediaItem channel(const QString &name, const QString &url, const QString &group);

/// A playlist of the channels "One", in the group "News", and "Two", in "Sport".
inline const QByteArray twoChannels =
    QByteArrayLiteral("#EXTM3U\n"
                      "#EXTINF:-1 group-title=\"News\",One\nhttp://127.0.0.1:9/1\n"
                      "#EXTINF:-1 group-title=\"Sport\",Two\nhttp://127.0.0.1:9/2\n");
/// A playlist of one channel.
QByteArray oneChannel(const QString &name);

/// The names in the six parts of an account's catalog, in the order of XtreamAction::catalog():
/// live categories, channels, movie categories, movies, show categories, shows. Categories and
/// entries of one kind are neighbours: part ^ 1 is the other half.
using AccountCatalog = QList<QStringList>;

inline constexpr int accountParts = 6;
inline const AccountCatalog emptyCatalog(accountParts);

constexpr bool isCategoriesPart(int part)
{
    return part % 2 == 0;
}

/// Two categories and three entries of each kind, all with `tag` in their names, in the order in
/// which the tabs show them.
AccountCatalog madeUpCatalog(const QString &tag);
void serve(XtreamProvider &provider, const AccountCatalog &catalog);
/// Lets the held answers to all six requests go.
void releaseCatalog(XtreamProvider &provider);

QStringList namesOf(const QList<Category> &categories);
QStringList namesOf(const QList<MediaItem> &items);

/// What the cache holds for a source. Both halves of a section that is not there are `notCached`.
AccountCatalog cachedCatalog(const QString &source);
inline const QStringList notCached{QStringLiteral("(not cached)")};
inline const AccountCatalog nothingCached(accountParts, notCached);
/// Caches the catalog as an earlier load would have.
void cacheCatalog(const QString &source, const AccountCatalog &catalog);

/// The names of the channels cached for a playlist, or `notCached`.
QStringList cachedChannels(const QString &source);
/// Caches a playlist of one channel, in the group "Cached".
void cacheOneChannel(const QString &source, const QString &name);
/// Replaces the source's cache file.
void writeCacheFile(const QString &source, const QByteArray &content);

QStringList sorted(QStringList list);
