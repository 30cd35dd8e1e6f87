#pragma once

#include "model/CatalogRecords.h"
#include "ui/TabLibrary.h"

#include <QList>
#include <QListWidget>
#include <QSet>

/// The categories of a tab: "All Categories", then the lists of the library that are not empty,
/// then the categories that are not hidden. Qt::UserRole of a row is the id of its category.
///
/// Hidden categories show greyed when the user asks for them, until the window closes.
class CategoryList final : public QListWidget
{
    Q_OBJECT

public:
    explicit CategoryList(QWidget *parent = nullptr);

    void setCategories(const QList<Category> &newCategories);
    /// Empties the list, as before the first setCategories().
    void clearCategories();
    void setCollections(const QList<Collection> &newCollections);
    /// False when nothing changed.
    bool setHidden(const QSet<QString> &categoryIds);
    /// None for the row of a category.
    static Collection collectionOf(const QListWidgetItem &item);

Q_SIGNALS:
    void hideRequested(const Category &category);
    void unhideRequested(const QString &categoryId);

private:
    void fill();
    /// Fills the list again, with the same row current and the same part in view.
    void refill();
    QListWidgetItem *addRow(const QString &name, const QString &id,
                            Collection collection = Collection::None);
    void fillMenu(QMenu &menu, const QModelIndex &index);

    QList<Category> categories;
    QList<Collection> collections;
    QSet<QString> hidden;
    bool isFilled = false;
    bool showsHidden = false;
};
