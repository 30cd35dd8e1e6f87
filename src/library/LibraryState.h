#pragma once

#include "library/LibraryRecords.h"

#include <QHash>
#include <QString>

#include <tuple>

/// Whose rows a list holds: those of one source and kind.
struct LibraryListId
{
    QString source;
    EntryKind kind = EntryKind::Live;

    bool operator==(const LibraryListId &) const = default;
};

inline size_t qHash(const LibraryListId &id, size_t seed = 0)
{
    return qHashMulti(seed, id.source, static_cast<qint32>(id.kind));
}

/// The rows of one part, source and kind by the entry's id.
template <typename Row>
using LibraryList = QHash<QString, Row>;

/// The library in memory. A copy shares the rows.
class LibraryState final
{
public:
    template <typename Row>
    using Lists = QHash<LibraryListId, LibraryList<Row>>;

    LibraryState() = default;
    explicit LibraryState(const LibraryRows &rows);

    /// All lists of a part; none of them is empty.
    template <typename Row>
    const Lists<Row> &lists() const
    {
        return std::get<Lists<Row>>(parts);
    }

    /// The list of one source and kind. Valid until the next change.
    template <typename Row>
    const LibraryList<Row> &list(const LibraryListId &id) const
    {
        static const LibraryList<Row> none;
        const auto found = lists<Row>().constFind(id);
        return found == lists<Row>().constEnd() ? none : *found;
    }

    LibraryRows rows() const;

    /// Makes the change, and returns the change that takes it back exactly. Its rows are those
    /// that were touched; it is empty when nothing was.
    LibraryChange apply(const LibraryChange &change);

private:
    template <typename Row>
    void remove(const LibraryEntry &key, QList<Row> &before);
    template <typename Row>
    void put(const Row &row, QList<Row> &added, QList<Row> &before);

    std::tuple<Lists<Favorite>, Lists<WatchedEntry>, Lists<Progress>, Lists<HiddenCategory>,
               Lists<GuideSettings>, Lists<GuideCorrection>, Lists<Reminder>,
               Lists<PreferredLanguages>>
        parts;
};
