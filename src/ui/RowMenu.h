#pragma once

#include <functional>

class QAbstractItemView;
class QMenu;
class QModelIndex;

/// Fills a menu for a row of a list; for an invalid index, for the list itself.
using RowMenuBuilder = std::function<void(QMenu &menu, const QModelIndex &index)>;

/// Gives a list a context menu: for the row under the pointer, or for the current row when the menu
/// key opens it. `build` is called each time; a menu that it leaves empty does not open.
void addRowMenu(QAbstractItemView *view, const RowMenuBuilder &build);
