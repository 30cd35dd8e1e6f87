#pragma once

#include "WindowFixture.h"
#include "fakeprovider/XtreamProvider.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The names in the six parts of an account's catalog, in the order of XtreamAction::catalog():
/// live categories, channels, movie categories, movies, show categories, shows. Categories and
/// entries of one kind are neighbours: part ^ 1 is the other half.
using AccountCatalog = QList<QStringList>;

inline constexpr int accountParts = 6;

constexpr bool isCategoriesPart(int part)
{
    return part % 2 == 0;
}

/// Two categories and three entries of each kind, all with `tag` in their names, in the order in
/// which the tabs show them.
AccountCatalog madeUpCatalog(const QString &tag);
void serve(XtreamProvider &provider, const AccountCatalog &catalog);

/// A source for the provider's account that was loaded `ageSeconds` ago.
SourceConfig sourceFor(const XtreamProvider &provider, const QString &name,
                       qint64 ageSeconds = neverLoaded);

/// A subscription that was loaded `ageSeconds` ago, without an account as yet.
SourceConfig subscriptionSource(const QString &name, const QString &key,
                                qint64 ageSeconds = neverLoaded);

/// What the three tabs show now, categories without "All Categories".
AccountCatalog shownCatalog(const WindowFixture &fixture);

/// What the cache holds for a source. Both halves of a section that is not there are `notCached`.
AccountCatalog cachedCatalog(const QString &source);
inline const QStringList notCached{QStringLiteral("(not cached)")};
/// Caches the catalog as an earlier load would have.
void cacheCatalog(const QString &source, const AccountCatalog &catalog);

/// Waits until the tabs show this catalog.
[[nodiscard]] bool waitUntilShown(const WindowFixture &fixture, const AccountCatalog &catalog);
