#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QStringList>

/// The entries with these ids in the order of the ids, as indices into `items`. An id that no entry
/// has is left out; of several entries with one id the first counts.
QList<int> rowsOfIds(const QList<MediaItem> &items, const QStringList &ids);
