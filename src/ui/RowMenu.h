#pragma once

#include <functional>

class QAbstractItemView;
class QMenu;
class QModelIndex;
class QPoint;
class QWidget;

/// Fills a menu for a row of a list; for an invalid index, for the list itself.
using RowMenuBuilder = std::function<void(QMenu &menu, const QModelIndex &index)>;

/// Gives a list a context menu: for the row under the pointer, or for the current row when the menu
/// key opens it. `build` is called each time; a menu that it leaves empty does not open.
void addRowMenu(QAbstractItemView *view, const RowMenuBuilder &build);

/// Opens a context menu of the widget at this place of the screen, unless `build` leaves it empty.
void openRowMenu(QWidget *widget, const QPoint &globalPlace,
                 const std::function<void(QMenu &menu)> &build);
