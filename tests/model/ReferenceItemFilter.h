#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>

/// The reference implementation of searching and sorting, regardless of speed.
namespace ReferenceItemFilter {

QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query);
void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey);

/// 0 equal, 1 at the start, 2 at the start of a word, 3 anything else; 0 for an empty query.
int score(const QString &name, const QString &query);

} // namespace ReferenceItemFilter
