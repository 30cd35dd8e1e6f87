#pragma once

#include "library/LibraryRecords.h"
#include "model/CatalogSection.h"
#include "ui/EntryMarks.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

class Library;

/// The lists of the library that a tab shows beside its categories.
enum class Collection
{
    None,
    Favorites,
    ContinueWatching,
    RecentlyWatched
};

/// What the library keeps for one tab: the part of the active source and of the tab's kind.
///
/// It asks the library anew each time. What the user removes is reported with the change that takes
/// it back.
class TabLibrary final : public QObject
{
    Q_OBJECT

public:
    /// The library is not owned, and must outlive this.
    TabLibrary(Library *library, CatalogSection section, QObject *parent);

    /// The active source; an empty name means none.
    void setSource(const QString &name);

    // ---- lists ----

    /// The lists that are not empty, in the order in which they show.
    QList<Collection> collections() const;
    /// The entries of a list in its order, as indices into `items`. Those that the source does not
    /// have now are left out.
    QList<int> rowsOf(Collection collection, const QList<MediaItem> &items) const;
    void removeFromRecentlyWatched(const MediaItem &item);

    // ---- entries ----

    bool isFavorite(const MediaItem &item) const;
    void setFavorite(const MediaItem &item, bool favorite);
    /// Puts the favorites with these ids in this order, before all others.
    void setFavoriteOrder(const QStringList &ids);
    /// Whether entries can be marked as watched: films and shows.
    bool hasWatchedMarks() const;
    EntryMark markOf(const MediaItem &item) const;
    /// Marks a film. Of a show the episodes are needed: showMarkRequested() asks for them.
    void setWatched(const MediaItem &item, bool watched);

    // ---- hidden categories ----

    QSet<QString> hiddenCategories() const;
    void hideCategory(const Category &category);
    void unhideCategory(const QString &categoryId);

Q_SIGNALS:
    /// collections() may say something else now, and rowsOf() for that list.
    void collectionChanged(Collection collection);
    /// Marks of entries changed.
    void marksChanged();
    void hiddenCategoriesChanged();
    void showMarkRequested(const MediaItem &show, bool watched);
    /// What happened, and the change that takes it back.
    void undoOffered(const QString &text, const LibraryChange &inverse);

private:
    void report(LibraryPart part, const QString &changedSource, EntryKind changedKind);
    EntryKind kindOfPositions() const;
    bool hasPositions() const;

    Library *library;
    EntryKind kind;
    QString source;
};
