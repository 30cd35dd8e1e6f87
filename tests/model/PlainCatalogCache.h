#pragma once

#include "model/CatalogCache.h"

/// The catalog cache by way of QJsonDocument, without a thought for speed, over the same files:
/// what CatalogCache is compared with.
class PlainCatalogCache final
{
public:
    PlainCatalogCache() = delete;

    static bool load(const QString &sourceName, const QString &section, CatalogCache::Section &out);
    static void save(const QString &sourceName, const QString &section,
                     const CatalogCache::Section &data);
    static bool loadEpisodes(const QString &sourceName, const QString &seriesId,
                             long long maxAgeSeconds, QList<Episode> &out);
    static void saveEpisodes(const QString &sourceName, const QString &seriesId,
                             const QList<Episode> &episodes);
};
