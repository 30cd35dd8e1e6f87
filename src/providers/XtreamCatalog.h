#pragma once

#include "model/CatalogRecords.h"

#include <QByteArray>
#include <QList>

/// @file
/// Turns the catalog replies of an Xtream Codes server into records.
///
/// Replies are read leniently: a body that is not JSON or has a root of the wrong type gives an
/// empty list; a missing key or a value of the wrong type gives an empty text or 0. Every element
/// of the root gives one record, in the order of the reply.

/// "category_id" and "category_name"; an id sent as a number gives an empty id.
QList<Category> parseCategories(const QByteArray &body);

QList<MediaItem> parseLiveStreams(const QByteArray &body);
QList<MediaItem> parseVodStreams(const QByteArray &body);
QList<MediaItem> parseSeries(const QByteArray &body);

/// The episodes of all seasons. Seasons come in ascending text order of their keys (1, 10, 2), the
/// episodes of a season in the order of the reply.
QList<Episode> parseSeriesEpisodes(const QByteArray &body);
