#include "library/Library.h"

#include <QDateTime>

#include <algorithm>
#include <tuple>
#include <utility>

// The part of Library that keeps how far films and episodes were watched.

namespace {

bool isFinished(const Progress &at)
{
    constexpr qint64 whole = 100;
    return at.durationMs > 0 && at.positionMs * whole > at.durationMs * Library::finishedPercent;
}

/// Whether `a` was watched after `b`; of episodes that were marked together the last is the latest.
bool isLater(const Progress &a, const Progress &b)
{
    const auto order = [](const Progress &row) {
        return std::tie(row.updatedAt, row.season, row.episodeNumber, row.id);
    };
    return order(a) > order(b);
}

/// Puts `row` unless it says what is known already.
void putIfNew(LibraryChange &change, const LibraryList<Progress> &known, Progress row)
{
    row.updatedAt = known.value(row.id).updatedAt;
    if (row != known.value(row.id)) {
        row.updatedAt = QDateTime::currentSecsSinceEpoch();
        change.put.progress.append(row);
    }
}

} // namespace

const LibraryList<Progress> &Library::progress(const QString &source, EntryKind kind) const
{
    return known().list<Progress>({source, kind});
}

LibraryChange Library::notePosition(const Progress &at)
{
    waitUntilLoaded();
    const bool finished = isFinished(at);
    LibraryChange change;
    if (finished || at.positionMs >= begunAfterMs) {
        const LibraryList<Progress> &known = progress(at.source, at.kind);
        Progress row = at;
        row.positionMs = finished ? 0 : at.positionMs;
        row.watched = finished || known.value(at.id).watched;
        putIfNew(change, known, row);
    }
    return apply(change);
}

LibraryChange Library::setWatched(const QList<Progress> &entries, bool watched)
{
    waitUntilLoaded();
    LibraryChange change;
    for (Progress row : entries) {
        if (watched) {
            row.positionMs = 0;
            row.watched = true;
            putIfNew(change, progress(row.source, row.kind), row);
        } else {
            change.removed.progress.append(row);
        }
    }
    return apply(change);
}

LibraryChange Library::noteEpisodes(const LibraryEntry &show, const QStringList &episodeIds)
{
    waitUntilLoaded();
    const LibraryList<Progress> &known = progress(show.source, EntryKind::Episode);
    const bool isMarked = progress(show.source, EntryKind::Show).contains(show.id);
    LibraryChange change;
    if (episodeIds.isEmpty() || (known.isEmpty() && !isMarked)) {
        return change;
    }
    bool allWatched = true;
    for (const QString &id : episodeIds) {
        const auto found = known.constFind(id);
        allWatched = allWatched && found != known.constEnd() && found->watched;
        const bool isLast = id == episodeIds.constLast();
        if (found != known.constEnd() && found->isLast != isLast) {
            Progress row = *found;
            row.isLast = isLast;
            change.put.progress.append(row);
        }
    }
    Progress mark = progressOf(show);
    mark.watched = true;
    mark.updatedAt = QDateTime::currentSecsSinceEpoch();
    if (allWatched && !isMarked) {
        change.put.progress.append(mark);
    } else if (!allWatched && isMarked) {
        change.removed.progress.append(mark);
    }
    return apply(change);
}

QList<Progress> Library::continueWatching(const QString &source, EntryKind kind) const
{
    QList<const Progress *> rows = unfinished(source, kind);
    std::sort(rows.begin(), rows.end(),
              [](const Progress *a, const Progress *b) { return isLater(*a, *b); });
    QList<Progress> ordered;
    for (const Progress *row : std::as_const(rows)) {
        ordered.append(*row);
    }
    return ordered;
}

bool Library::hasContinueWatching(const QString &source, EntryKind kind) const
{
    return !unfinished(source, kind).isEmpty();
}

/// The latest row of each film or show, where there is something to continue. In no order; valid
/// until the next change.
QList<const Progress *> Library::unfinished(const QString &source, EntryKind kind) const
{
    QList<const Progress *> rows;
    if (kind != EntryKind::Episode) {
        for (const Progress &row : progress(source, kind)) {
            if (row.positionMs > 0) {
                rows.append(&row);
            }
        }
        return rows;
    }
    QHash<QString, const Progress *> latestOfShow;
    for (const Progress &row : progress(source, kind)) {
        const Progress *&other = latestOfShow[row.showId];
        if (other == nullptr || isLater(row, *other)) {
            other = &row;
        }
    }
    const LibraryList<Progress> &wholeShows = progress(source, EntryKind::Show);
    for (const Progress *row : std::as_const(latestOfShow)) {
        if (row->positionMs > 0 || (!row->isLast && !wholeShows.contains(row->showId))) {
            rows.append(row);
        }
    }
    return rows;
}
