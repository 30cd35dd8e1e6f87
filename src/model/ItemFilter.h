#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>

#include <functional>

/// The entries of the category (all, when `categoryId` is empty) whose name contains `query` as it
/// stands, ignoring case. With a query the best matches come first, otherwise the order stays.
QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query);

/// Reorders `items` stably by how well their names match `query`: equal, beginning with it, holding
/// it at a word start, anything else. Among equals, `tieBreak(a, b, scores)` says whether the entry
/// at index `a` of the old order comes before the one at `b`. An empty query makes all equal.
void sortByRelevance(QList<MediaItem> &items, const QString &query,
                     const std::function<bool(int, int, const QList<int> &)> &tieBreak);

/// Sorts by relevance, then by `sortKey`: "added" newest first, "rating" highest first, any other
/// by name ignoring case. A rating that is not finite counts as 0.
void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey);

/// The order into which sortItems() puts the entries without a query, as their indices.
QList<int> sortedOrder(const QList<MediaItem> &items, const QString &sortKey);
