#pragma once

#include "model/CatalogRecords.h"

#include <QJsonDocument>
#include <QList>

/// @file
/// How the catalog replies of an Xtream Codes server become records.
///
/// Servers are read leniently: a root of the wrong kind gives an empty list, a missing key or a
/// value of the wrong type an empty text or 0. Every element of the root gives one record, in the
/// order of the reply.

/// "category_id" and "category_name"; an id sent as a number gives an empty id.
QList<Category> parseCategories(const QJsonDocument &document);

QList<MediaItem> parseLiveStreams(const QJsonDocument &document);
QList<MediaItem> parseVodStreams(const QJsonDocument &document);
QList<MediaItem> parseSeries(const QJsonDocument &document);

/// The episodes of all seasons. Seasons come in ascending text order of their keys (1, 10, 2), the
/// episodes of a season in the order of the reply.
QList<Episode> parseSeriesEpisodes(const QJsonDocument &document);
