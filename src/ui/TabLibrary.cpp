#include "ui/TabLibrary.h"

#include "library/Library.h"
#include "model/ItemIds.h"

namespace {

template <typename Rows>
QStringList idsOf(const Rows &rows)
{
    QStringList ids;
    for (const auto &row : rows) {
        ids.append(row.id);
    }
    return ids;
}

} // namespace

TabLibrary::TabLibrary(Library *theLibrary, CatalogSection section, QObject *parent)
    : QObject(parent)
    , library(theLibrary)
    , kind(entryKind(section))
{
    connect(library, &Library::changed, this, &TabLibrary::report);
}

void TabLibrary::setSource(const QString &name)
{
    if (source != name) {
        source = name;
        Q_EMIT hiddenCategoriesChanged();
        Q_EMIT collectionChanged(Collection::None);
    }
}

void TabLibrary::report(LibraryPart part, const QString &changedSource, EntryKind changedKind)
{
    if (changedSource != source || (changedKind != kind && changedKind != kindOfPositions())) {
        return;
    }
    switch (part) {
    case LibraryPart::Favorites:
        Q_EMIT marksChanged();
        Q_EMIT collectionChanged(Collection::Favorites);
        break;
    case LibraryPart::Progress:
        Q_EMIT marksChanged();
        Q_EMIT collectionChanged(Collection::ContinueWatching);
        break;
    case LibraryPart::History:
        Q_EMIT collectionChanged(Collection::RecentlyWatched);
        break;
    case LibraryPart::HiddenCategories:
        Q_EMIT hiddenCategoriesChanged();
        break;
    case LibraryPart::GuideSettings:
    case LibraryPart::GuideCorrections:
    case LibraryPart::Reminders:
    case LibraryPart::Languages:
        break;
    }
}

/// What the positions of this tab are kept of: of shows the episodes have them.
EntryKind TabLibrary::kindOfPositions() const
{
    return kind == EntryKind::Show ? EntryKind::Episode : kind;
}

bool TabLibrary::hasPositions() const
{
    return hasWatchedMarks() && library->hasContinueWatching(source, kindOfPositions());
}

QList<Collection> TabLibrary::collections() const
{
    QList<Collection> lists;
    if (!library->favorites(source, kind).isEmpty()) {
        lists.append(Collection::Favorites);
    }
    if (hasPositions()) {
        lists.append(Collection::ContinueWatching);
    }
    if (!library->recentlyWatched(source, kind).isEmpty()) {
        lists.append(Collection::RecentlyWatched);
    }
    return lists;
}

QList<int> TabLibrary::rowsOf(Collection collection, const QList<MediaItem> &items) const
{
    QStringList ids;
    switch (collection) {
    case Collection::None:
        break;
    case Collection::Favorites:
        ids = idsOf(library->favoritesInOrder(source, kind));
        break;
    case Collection::RecentlyWatched:
        ids = idsOf(library->recentlyWatched(source, kind));
        break;
    case Collection::ContinueWatching:
        for (const Progress &row : library->continueWatching(source, kindOfPositions())) {
            ids.append(kind == EntryKind::Show ? row.showId : row.id);
        }
        break;
    }
    return rowsOfIds(items, ids);
}

void TabLibrary::removeFromRecentlyWatched(const MediaItem &item)
{
    Q_EMIT undoOffered(tr("Removed from Recently Watched"),
                       library->removeFromRecentlyWatched(libraryEntry(source, kind, item)));
}

bool TabLibrary::isFavorite(const MediaItem &item) const
{
    const auto &favorites = library->favorites(source, kind);
    return !favorites.isEmpty() && favorites.contains(item.id);
}

void TabLibrary::setFavorite(const MediaItem &item, bool favorite)
{
    const LibraryEntry entry = libraryEntry(source, kind, item);
    if (favorite) {
        library->addFavorite(entry);
    } else {
        Q_EMIT undoOffered(tr("Removed from Favorites"), library->removeFavorite(entry));
    }
}

void TabLibrary::setFavoriteOrder(const QStringList &ids)
{
    library->setFavoriteOrder(source, kind, ids);
}

bool TabLibrary::hasWatchedMarks() const
{
    return kind == EntryKind::Movie || kind == EntryKind::Show;
}

EntryMark TabLibrary::markOf(const MediaItem &item) const
{
    EntryMark mark;
    mark.favorite = isFavorite(item);
    if (!hasWatchedMarks()) {
        return mark;
    }
    const auto &progress = library->progress(source, kind);
    if (progress.isEmpty()) {
        return mark;
    }
    if (const auto row = progress.constFind(item.id); row != progress.constEnd()) {
        mark.watched = row->watched;
        mark.percent = percentOf(*row);
    }
    return mark;
}

void TabLibrary::setWatched(const MediaItem &item, bool watched)
{
    if (kind == EntryKind::Show) {
        Q_EMIT showMarkRequested(item, watched);
        return;
    }
    const LibraryChange inverse =
        library->setWatched({progressOf(libraryEntry(source, kind, item))}, watched);
    Q_EMIT undoOffered(watched ? tr("Marked as Watched") : tr("Marked as Unwatched"), inverse);
}

QSet<QString> TabLibrary::hiddenCategories() const
{
    const auto &hidden = library->hiddenCategories(source, kind);
    return {hidden.keyBegin(), hidden.keyEnd()};
}

void TabLibrary::hideCategory(const Category &category)
{
    Q_EMIT undoOffered(tr("Category Hidden"), library->hideCategory(source, kind, category));
}

void TabLibrary::unhideCategory(const QString &categoryId)
{
    library->unhideCategory(source, kind, categoryId);
}
