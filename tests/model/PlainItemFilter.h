#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>

/// The rules of searching and sorting, written down as plainly as they can be said and without a
/// thought for speed. The real functions must give the very same lists.
namespace PlainItemFilter {

QList<MediaItem> applyFilter(const QList<MediaItem> &items, const QString &categoryId,
                             const QString &query);
void sortItems(QList<MediaItem> &items, const QString &query, const QString &sortKey);

/// 0 equal, 1 at the start, 2 at the start of a word, 3 anything else; 0 for an empty query.
int score(const QString &name, const QString &query);

} // namespace PlainItemFilter
