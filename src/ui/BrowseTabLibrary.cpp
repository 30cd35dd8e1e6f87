#include "model/ItemFilter.h"
#include "ui/BrowseTab.h"
#include "ui/CategoryList.h"
#include "ui/EntryTable.h"
#include "ui/GuideGrid.h"
#include "ui/GuideView.h"
#include "ui/PosterGrid.h"
#include "ui/RowMenu.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QSet>

#include <algorithm>

// The part of BrowseTab that shows what the user keeps.

void BrowseTab::setLibrary(TabLibrary *library)
{
    kept = library;
    connect(kept, &TabLibrary::collectionChanged, this, &BrowseTab::showCollections);
    connect(kept, &TabLibrary::marksChanged, view->viewport(), qOverload<>(&QWidget::update));
    connect(kept, &TabLibrary::hiddenCategoriesChanged, this, &BrowseTab::showHiddenCategories);
    connect(categoryList, &CategoryList::hideRequested, kept, &TabLibrary::hideCategory);
    connect(categoryList, &CategoryList::unhideRequested, kept, &TabLibrary::unhideCategory);
    const MarkOfEntry marks = [this](const MediaItem &item) { return kept->markOf(item); };
    if (table != nullptr) {
        table->setMarks(marks);
        connect(table, &EntryTable::rowMoved, this, &BrowseTab::moveFavorite);
    } else {
        posterGrid->setMarks(marks);
    }
    addRowMenu(view, [this](QMenu &menu, const QModelIndex &index) { fillEntryMenu(menu, index); });
}

bool BrowseTab::viewHasFocus() const
{
    return view->hasFocus() || (showsGuide() && guideView->grid().hasFocus());
}

int BrowseTab::currentRow() const
{
    return showsGuide() ? guideView->grid().currentRow() : view->currentIndex().row();
}

void BrowseTab::toggleFavorite()
{
    const int row = currentRow();
    if (row >= 0 && row < shown.count()) {
        const MediaItem item = shown.at(row);
        kept->setFavorite(item, !kept->isFavorite(item));
    }
}

/// The entries of the list that shows, in its order; favorites in a grid in that of the sort box.
QList<int> BrowseTab::collectionRows()
{
    const QString query = search->text();
    const QList<int> rows = kept->rowsOf(collection, entries.items());
    if (table != nullptr || collection != Collection::Favorites) {
        return filteredRows(entries.items(), rows, {}, query);
    }
    const QSet<int> chosen(rows.begin(), rows.end());
    QList<int> sorted = entries.select({}, query, sortCombo->currentData().toString());
    sorted.removeIf([&chosen](int row) { return !chosen.contains(row); });
    return sorted;
}

void BrowseTab::showCollections(Collection changed)
{
    categoryList->setCollections(kept->collections());
    if (changed != Collection::None && changed == collection &&
        filteredEntries() != shown.shownRows()) {
        refilter();
    }
}

void BrowseTab::showHiddenCategories()
{
    // A change of source mostly changes nothing here, and the entries may be many.
    if (!categoryList->setHidden(kept->hiddenCategories())) {
        return;
    }
    noteHiddenRows();
    if (categoryId.isEmpty() && collection == Collection::None &&
        filteredEntries() != shown.shownRows()) {
        refilter();
    }
}

/// Once for each catalog, in the order of the entries: a keystroke looks at them in another order,
/// in which each look at a category takes longer.
void BrowseTab::noteHiddenRows()
{
    isHiddenRow.clear();
    const QSet<QString> hidden = kept != nullptr ? kept->hiddenCategories() : QSet<QString>();
    if (hidden.isEmpty()) {
        return;
    }
    const QSet<CatalogText> ids(hidden.begin(), hidden.end());
    const QList<MediaItem> &items = entries.items();
    isHiddenRow.resize(static_cast<size_t>(items.size()));
    std::transform(items.begin(), items.end(), isHiddenRow.begin(),
                   [&ids](const MediaItem &item) { return ids.contains(item.categoryId); });
}

void BrowseTab::dropHidden(QList<int> &rows) const
{
    if (!isHiddenRow.empty()) {
        rows.removeIf([this](int row) { return isHiddenRow[static_cast<size_t>(row)]; });
    }
}

/// Lists with an order of their own have no use for the sort box; only the favorites of a table can
/// be moved, while all of them show.
void BrowseTab::updateOrdering()
{
    if (table != nullptr) {
        table->setMovable(collection == Collection::Favorites && search->text().isEmpty());
    } else {
        sortCombo->setEnabled(collection == Collection::None ||
                              collection == Collection::Favorites);
    }
}

void BrowseTab::moveFavorite(int from, int to)
{
    QStringList ids;
    for (int row = 0; row < shown.count(); ++row) {
        ids.append(shown.at(row).id);
    }
    const int place = to > from ? to - 1 : to;
    ids.move(from, place);
    kept->setFavoriteOrder(ids);
    table->setCurrentCell(place, 0);
}

void BrowseTab::fillEntryMenu(QMenu &menu, const QModelIndex &index)
{
    if (!index.isValid() || index.row() >= shown.count()) {
        return;
    }
    const MediaItem item = shown.at(index.row());
    const bool isFavorite = kept->isFavorite(item);
    QAction *favorite =
        menu.addAction(isFavorite ? tr("Remove from Favorites") : tr("Add to Favorites"), this,
                       [this, item, isFavorite] { kept->setFavorite(item, !isFavorite); });
    favorite->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    if (table != nullptr && collection == Collection::Favorites) {
        menu.addActions(table->moveActions());
    }
    if (collection == Collection::RecentlyWatched) {
        menu.addAction(tr("Remove from List"), this,
                       [this, item] { kept->removeFromRecentlyWatched(item); });
    }
    if (extendMenu) {
        extendMenu(menu, item);
    }
    if (!kept->hasWatchedMarks()) {
        return;
    }
    menu.addSeparator();
    const EntryMark mark = kept->markOf(item);
    if (!mark.watched) {
        menu.addAction(tr("Mark as Watched"), this, [this, item] { kept->setWatched(item, true); });
    }
    if (mark.watched || mark.percent > 0) {
        menu.addAction(tr("Mark as Unwatched"), this,
                       [this, item] { kept->setWatched(item, false); });
    }
}
