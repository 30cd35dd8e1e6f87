#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>

#include <functional>

/// The entries of the category (of all categories if `categoryId` is empty) whose names contain
/// `query` literally, ignoring case. With a query the best matches come first; without one the
/// order is kept.
QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query);

/// The same entries as indices into `items`.
QList<int> filteredRows(const QList<MediaItem> &items, const QString &categoryId,
                        const QString &query);
/// The same for entries that are taken in this order.
QList<int> filteredRows(const QList<MediaItem> &items, const QList<int> &order,
                        const QString &categoryId, const QString &query);

/// Stably sorts `items` by how well their names match `query`: equal, prefix, start of a word,
/// anything else. Among equal scores, `tieBreak(a, b, scores)` decides whether the entry at index
/// `a` of the old order comes before the one at `b`. With an empty query all scores are equal.
void sortByRelevance(QList<MediaItem> &items, const QString &query,
                     const std::function<bool(int, int, const QList<int> &)> &tieBreak);

/// Sorts by relevance, then by `sortKey`: "added" newest first, "rating" highest first, anything
/// else by name ignoring case. A rating that is not finite counts as 0.
void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey);

/// The order of sortItems() without a query, as indices into `items`.
QList<int> sortedOrder(const QList<MediaItem> &items, const QString &sortKey);
