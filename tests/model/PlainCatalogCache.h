#pragma once

#include "model/CatalogCache.h"

/// The catalog cache by way of QJsonDocument, without a thought for speed, over files given by
/// their path: what CatalogCache is compared with. Its age limit is the longest one.
class PlainCatalogCache final
{
public:
    PlainCatalogCache() = delete;

    static bool load(const QString &path, const QString &section, CatalogCache::Section &out);
    static void save(const QString &path, const QString &section,
                     const CatalogCache::Section &data);
    static bool loadEpisodes(const QString &path, const QString &seriesId, QList<Episode> &out);
    static void saveEpisodes(const QString &path, const QString &seriesId,
                             const QList<Episode> &episodes);
};
