#include "ui/SmallWindow.h"

#include "ui/PlayerPanel.h"

#include <QCoreApplication>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

namespace {

constexpr int distanceFromCorner = 24;

} // namespace

SmallWindow::SmallWindow(PlayerPanel *playerPanel, QWidget *mainWindow)
    : QObject(mainWindow)
    , panel(playerPanel)
    , window(mainWindow)
{
    window->installEventFilter(this);
    panel->surface()->installEventFilter(this);
}

void SmallWindow::toggle()
{
    if (active) {
        leave();
    } else {
        enter();
    }
}

void SmallWindow::enter()
{
    active = true;
    wasMaximized = window->isMaximized();
    geometryBefore = wasMaximized ? window->normalGeometry() : window->geometry();
    Q_EMIT changed(true);
    if (wasMaximized) {
        window->showNormal();
    }
    panel->setMargin(0);
    panel->setRowsHidden(true);
    // By the native window: QWidget would make another one, and the picture would stop.
    window->windowHandle()->setFlag(Qt::FramelessWindowHint, true);
    // Without what is hidden the window may be smaller.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    window->layout()->activate();
    window->setGeometry(smallGeometry.isValid() ? smallGeometry : firstGeometry());
}

/// As small as the picture may be, in the corner of the screen.
QRect SmallWindow::firstGeometry() const
{
    const QSize size = panel->surface()->minimumSize();
    const QRect screen = panel->screen()->availableGeometry();
    return {screen.right() + 1 - distanceFromCorner - size.width(),
            screen.bottom() + 1 - distanceFromCorner - size.height(), size.width(), size.height()};
}

void SmallWindow::leave()
{
    if (!active) {
        return;
    }
    active = false;
    smallGeometry = window->geometry();
    window->windowHandle()->setFlag(Qt::FramelessWindowHint, false);
    panel->setMargin(PlayerPanel::normalMargin);
    panel->setRowsHidden(false);
    Q_EMIT changed(false);
    window->setGeometry(geometryBefore);
    if (wasMaximized) {
        window->showMaximized();
    }
}

bool SmallWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == window) {
        if (event->type() == QEvent::Close) {
            leave();
        }
        return false;
    }
    if (active && event->type() == QEvent::MouseMove &&
        (static_cast<QMouseEvent *>(event)->buttons() & Qt::LeftButton) != 0) {
        window->windowHandle()->startSystemMove();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
