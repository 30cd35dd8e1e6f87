#include "ui/CategoryList.h"

#include "ui/RowMenu.h"

#include <QMenu>
#include <QScrollBar>

namespace {

constexpr int collectionRole = Qt::UserRole + 1;

QString nameOf(Collection collection)
{
    switch (collection) {
    case Collection::Favorites:
        return CategoryList::tr("Favorites");
    case Collection::ContinueWatching:
        return CategoryList::tr("Continue Watching");
    case Collection::RecentlyWatched:
        return CategoryList::tr("Recently Watched");
    case Collection::None:
        break;
    }
    return {};
}

} // namespace

CategoryList::CategoryList(QWidget *parent)
    : QListWidget(parent)
{
    addRowMenu(this, [this](QMenu &menu, const QModelIndex &index) { fillMenu(menu, index); });
}

void CategoryList::setCategories(const QList<Category> &newCategories)
{
    categories = newCategories;
    isFilled = true;
    fill();
}

void CategoryList::clearCategories()
{
    categories.clear();
    isFilled = false;
    clear();
}

void CategoryList::setCollections(const QList<Collection> &newCollections)
{
    if (collections != newCollections) {
        collections = newCollections;
        refill();
    }
}

bool CategoryList::setHidden(const QSet<QString> &categoryIds)
{
    if (hidden == categoryIds) {
        return false;
    }
    hidden = categoryIds;
    showsHidden = showsHidden && !hidden.isEmpty();
    refill();
    return true;
}

Collection CategoryList::collectionOf(const QListWidgetItem &item)
{
    return static_cast<Collection>(item.data(collectionRole).toInt());
}

QListWidgetItem *CategoryList::addRow(const QString &name, const QString &id, Collection collection)
{
    auto *item = new QListWidgetItem(name);
    item->setData(Qt::UserRole, id);
    if (collection != Collection::None) {
        item->setData(collectionRole, static_cast<int>(collection));
    }
    addItem(item);
    return item;
}

void CategoryList::fill()
{
    clear();
    addRow(tr("All Categories"), QString::fromLatin1(""));
    for (const Collection collection : std::as_const(collections)) {
        addRow(nameOf(collection), QString::fromLatin1(""), collection);
    }
    for (const Category &category : std::as_const(categories)) {
        const bool isHidden = hidden.contains(category.id);
        if (isHidden && !showsHidden) {
            continue;
        }
        QListWidgetItem *row = addRow(category.name, category.id);
        if (isHidden) {
            row->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
            row->setData(Qt::AccessibleDescriptionRole, tr("Hidden"));
        }
    }
}

void CategoryList::refill()
{
    if (!isFilled) {
        return;
    }
    const QListWidgetItem *current = currentItem();
    const bool hasCurrent = current != nullptr;
    const bool isSelected = hasCurrent && current->isSelected();
    const QVariant id = hasCurrent ? current->data(Qt::UserRole) : QVariant();
    const QVariant collection = hasCurrent ? current->data(collectionRole) : QVariant();
    const int scrolled = verticalScrollBar()->value();
    fill();
    for (int row = 0; hasCurrent && row < count(); ++row) {
        if (item(row)->data(Qt::UserRole) == id && item(row)->data(collectionRole) == collection) {
            setCurrentRow(row, isSelected ? QItemSelectionModel::ClearAndSelect
                                          : QItemSelectionModel::NoUpdate);
            break;
        }
    }
    verticalScrollBar()->setValue(scrolled);
}

void CategoryList::fillMenu(QMenu &menu, const QModelIndex &index)
{
    const QString id = index.data(Qt::UserRole).toString();
    if (!id.isEmpty() && hidden.contains(id)) {
        menu.addAction(tr("Unhide Category"), this, [this, id] { Q_EMIT unhideRequested(id); });
    } else if (!id.isEmpty()) {
        const Category category{id, index.data().toString()};
        menu.addAction(tr("Hide Category"), this,
                       [this, category] { Q_EMIT hideRequested(category); });
    }
    if (!hidden.isEmpty()) {
        QAction *show = menu.addAction(tr("Show Hidden Categories"));
        show->setCheckable(true);
        show->setChecked(showsHidden);
        connect(show, &QAction::toggled, this, [this](bool shown) {
            showsHidden = shown;
            refill();
        });
    }
}
