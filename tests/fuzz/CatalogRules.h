#pragma once

#include "model/CatalogCache.h"

/// @file
/// What holds for any catalog, whatever a provider sends.

/// Every order of the entries has each of them once, in its order.
void requireCompleteOrders(const QList<MediaItem> &items);

/// A search by an entry's own name, in its own category, finds it.
void requireFoundByName(const QList<MediaItem> &items);

/// The cache gives back what was saved.
void requireCached(const CatalogCache::Section &section);
