#pragma once

#include <QList>

/// What came of a catalog request. A failed one has no records; a server that has none to offer
/// has not failed.
template <typename Record>
struct CatalogReply
{
    QList<Record> records;
    bool failed = false;

    /// For callers to whom failed and empty are one.
    operator const QList<Record> &() const { return records; }
};
