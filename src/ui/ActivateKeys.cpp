#include "ui/ActivateKeys.h"

#include <QShortcut>
#include <QWidget>

void addActivateKeyShortcuts(QWidget *widget, QObject *context, const std::function<void()> &action)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(QKeySequence(key), widget);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, context, action);
    }
}
