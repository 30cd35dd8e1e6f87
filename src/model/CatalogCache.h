#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The catalogs of all sources on disk: one JSON file per source, named after it, under
/// "/catalog_cache" in the application-data directory.
///
/// Each call reads or rewrites one file; no catalog is kept in memory. For any thread; calls wait
/// for each other. A file that is damaged or cannot be read counts as absent, and the next save
/// replaces it. A failed write is not reported.
class CatalogCache final
{
public:
    /// The catalog of one stream kind of one source.
    struct Section
    {
        QList<Category> categories;
        QList<MediaItem> items;

        bool operator==(const Section &) const = default;
    };

    CatalogCache() = delete;

    /// The size of a source's file in bytes; 0 when there is none.
    static qint64 fileSize(const QString &sourceName);

    /// Reads one section. False when there is none; `out` is then unchanged.
    static bool load(const QString &sourceName, const QString &section, Section &out);

    /// Reads several sections at once, in the order of `sections`. False when one of them is
    /// missing; `out` is then unchanged.
    static bool load(const QString &sourceName, const QStringList &sections, QList<Section> &out);

    /// Writes one section and keeps the rest of the source's file.
    static void save(const QString &sourceName, const QString &section, const Section &data);

    /// Reads the episodes of one show if they were saved less than `maxAgeSeconds` seconds ago.
    /// False otherwise; `out` is then unchanged.
    static bool loadEpisodes(const QString &sourceName, const QString &seriesId,
                             long long maxAgeSeconds, QList<Episode> &out);

    /// Stores the episodes of one show with the current time.
    static void saveEpisodes(const QString &sourceName, const QString &seriesId,
                             const QList<Episode> &episodes);
};
