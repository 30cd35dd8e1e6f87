#pragma once

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QTest>

/// The context menu of a list, as the user opens it.
namespace RowMenus {

using namespace Qt::StringLiterals;

/// The menu that is open; null when none is.
inline QMenu *open(const QAbstractItemView &list)
{
    const QList<QMenu *> menus = list.findChildren<QMenu *>(u"rowMenu"_s);
    for (QMenu *menu : menus) {
        if (menu->isVisible())
            return menu;
    }
    return nullptr;
}

/// Opens the menu of a row by the right mouse button; -1 stands for the space below the rows.
inline QMenu *openByMouse(QAbstractItemView &list, int row)
{
    QWidget &viewport = *list.viewport();
    const QPoint place = row >= 0 ? list.visualRect(list.model()->index(row, 0)).center()
                                  : viewport.rect().bottomRight() - QPoint(2, 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport.mapToGlobal(place));
    QCoreApplication::sendEvent(&viewport, &event);
    return open(list);
}

/// Opens the menu of the current row by the menu key.
inline QMenu *openByKey(QAbstractItemView &list)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, list.mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(&list, &event);
    return open(list);
}

/// The texts of a menu's actions, separators left out.
inline QStringList texts(const QMenu *menu)
{
    QStringList result;
    if (menu == nullptr)
        return result;
    for (const QAction *action : menu->actions()) {
        if (!action->isSeparator())
            result << action->text();
    }
    return result;
}

/// Chooses an action, and closes the menu. False when there is none of that text.
inline bool choose(QMenu *menu, const QString &text)
{
    if (menu == nullptr)
        return false;
    bool found = false;
    for (QAction *action : menu->actions()) {
        if (action->text() == text && action->isEnabled()) {
            menu->close();
            action->trigger();
            found = true;
            break;
        }
    }
    return found;
}

} // namespace RowMenus
