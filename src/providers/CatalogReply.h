#pragma once

#include "model/ItemIndex.h"

#include <QList>

/// The result of a catalog request. A failed request has no records; a request that returned no
/// records has not necessarily failed.
template <typename Record>
struct CatalogReply
{
    QList<Record> records;
    bool failed = false;

    /// For callers that treat failed and empty alike.
    operator const QList<Record> &() const { return records; }
};

/// The entries of a catalog arrive with the orders that were computed ahead.
template <>
struct CatalogReply<MediaItem>
{
    ItemIndex records;
    bool failed = false;

    operator const QList<MediaItem> &() const { return records.items(); }
};
