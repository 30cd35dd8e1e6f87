#pragma once

#include "model/CatalogRecords.h"

#include <QByteArray>
#include <QList>

/// The conversions of XtreamCatalog.h by way of QJsonDocument, value by value and without a thought
/// for speed: what the quick ones are compared with.
namespace PlainXtreamCatalog {
QList<Category> parseCategories(const QByteArray &body);
QList<MediaItem> parseLiveStreams(const QByteArray &body);
QList<MediaItem> parseVodStreams(const QByteArray &body);
QList<MediaItem> parseSeries(const QByteArray &body);
QList<Episode> parseSeriesEpisodes(const QByteArray &body);
} // namespace PlainXtreamCatalog
