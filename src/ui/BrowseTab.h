#pragma once

#include "model/CatalogRecords.h"

#include <QList>
#include <QString>

#include <functional>

class QComboBox;
class QIcon;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QObject;
class QStackedWidget;
class QTableWidget;
class QWidget;

/// @file
/// The pieces that the four browse tabs share: their widgets, how the lists are filled, and the
/// search over all categories.

/// Item data roles of the poster grid.
namespace PosterRole {
inline constexpr int IconUrl = 0x0100 + 1; ///< Qt::UserRole + 1: the poster's URL
inline constexpr int Requested =
    0x0100 + 2; ///< Qt::UserRole + 2: true once the poster was asked for
} // namespace PosterRole

/// The pages of a tab's stack.
namespace BrowsePage {
inline constexpr int Categories = 0;
inline constexpr int Items = 1;
inline constexpr int Episodes = 2; ///< TV Shows only
} // namespace BrowsePage

/// Builds a tab that shows its entries in a table, stores its widgets through the pointers, and
/// returns its root. `kindWord` heads the table ("Channel").
QWidget *buildTabSkeleton(QWidget *parent, QStackedWidget **stack, QListWidget **categoryList,
                          QLineEdit **allSearch, QLabel **titleLabel, QLineEdit **itemSearch,
                          QTableWidget **table, const QString &kindWord);

/// The same for a tab that shows its entries as a grid of posters with a sort box.
QWidget *buildPosterTabSkeleton(QWidget *parent, QStackedWidget **stack, QListWidget **categoryList,
                                QLineEdit **allSearch, QLabel **titleLabel, QLineEdit **itemSearch,
                                QComboBox **sortCombo, QListWidget **posterList,
                                const QString &kindWord);

/// Fills a category list with "All Categories" (empty id) and the given ones, ids in Qt::UserRole.
void fillCategoryList(QListWidget *list, const QList<Category> &categories);

/// Fills column 0 of a table with the names of the entries.
void fillTable(QTableWidget *table, const QList<MediaItem> &items);

/// Fills a poster grid with one item per entry, each showing `placeholder`.
void fillPosterGrid(QListWidget *list, const QList<MediaItem> &items, const QIcon &placeholder);

/// Connects the search-all field to a tab's state: it empties the category id, sets the title,
/// copies the text into the item search without a signal, and refilters once. The stack is not
/// used.
void wireCategorySearch(QLineEdit *allSearch, QString *categoryId, QLabel *titleLabel,
                        QLineEdit *itemSearch, QStackedWidget *stack,
                        const std::function<void()> &refilter);

/// Puts a tab's category choice and searches back to their start. Clearing a field that held text
/// runs its handlers.
void resetTabFilterState(QString &categoryId, QListWidget *categoryList, QLabel *titleLabel,
                         QLineEdit *allSearch, QLineEdit *itemSearch);

/// Makes Return and Enter on `widget` and its children run `action`, as long as `context` lives.
void addActivateKeyShortcuts(QWidget *widget, QObject *context,
                             const std::function<void()> &action);
