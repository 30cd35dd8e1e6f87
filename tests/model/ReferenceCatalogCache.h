#pragma once

#include "model/CatalogCache.h"

/// The reference implementation of CatalogCache: by QJsonDocument, regardless of speed, on files
/// given by their path. Its age limit is the largest one.
class ReferenceCatalogCache final
{
public:
    ReferenceCatalogCache() = delete;

    static bool load(const QString &path, const QString &section, CatalogCache::Section &out);
    static void save(const QString &path, const QString &section,
                     const CatalogCache::Section &data);
    static bool loadEpisodes(const QString &path, const QString &seriesId, QList<Episode> &out);
    static void saveEpisodes(const QString &path, const QString &seriesId,
                             const QList<Episode> &episodes);
};
