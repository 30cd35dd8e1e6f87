#include "ui/GuideGrid.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

// The part of GuideGrid that takes keys and the mouse.

void GuideGrid::keyPressEvent(QKeyEvent *event)
{
    if (!moveByKey(*event)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

bool GuideGrid::moveByKey(const QKeyEvent &event)
{
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const int page = gridLayout().rowsOfPage();
    switch (event.key()) {
    case Qt::Key_Up:
        moveRows(-1);
        return true;
    case Qt::Key_Down:
        moveRows(1);
        return true;
    case Qt::Key_PageUp:
        moveRows(-page);
        return true;
    case Qt::Key_PageDown:
        moveRows(page);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const bool forwards = (event.key() == Qt::Key_Right) != isRightToLeft();
        if (control) {
            moveDays(forwards ? 1 : -1);
        } else {
            moveTime(forwards);
        }
        return true;
    }
    case Qt::Key_Home:
        showNow();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activateCurrent();
        return true;
    default:
        return false;
    }
}

QPoint GuideGrid::unmirrored(const QPoint &place) const
{
    return isRightToLeft() ? QPoint(viewport()->width() - 1 - place.x(), place.y()) : place;
}

/// What shows at the place becomes current; of a channel's name, the channel at the same time.
bool GuideGrid::makeCurrentAt(const QPoint &place)
{
    const GuideGridLayout layout = gridLayout();
    const QPoint point = unmirrored(place);
    const int newRow = layout.rowAt(point.y());
    if (newRow < 0) {
        return false;
    }
    makeCurrent(newRow, point.x() < layout.namesWidth ? time : layout.timeAt(point.x()));
    return true;
}

void GuideGrid::mousePressEvent(QMouseEvent *event)
{
    makeCurrentAt(event->position().toPoint());
}

void GuideGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint place = event->position().toPoint();
    if (event->button() != Qt::LeftButton || !makeCurrentAt(place)) {
        return;
    }
    if (unmirrored(place).x() < gridLayout().namesWidth) {
        const MediaItem item = entries.at(row);
        Q_EMIT activated(item);
    } else {
        activateCurrent();
    }
}

void GuideGrid::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        if (row >= 0) {
            const GuideGridLayout layout = gridLayout();
            const QRect name = layout.nameOf(row);
            const QRect shown = isRightToLeft() ? layout.mirrored(name) : name;
            Q_EMIT contextMenuRequested(viewport()->mapToGlobal(shown.center()));
        }
    } else if (makeCurrentAt(event->pos())) {
        Q_EMIT contextMenuRequested(event->globalPos());
    }
}

void GuideGrid::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ShiftModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    constexpr int deltaOfAStep = 120;
    constexpr int ticksPerStep = 3;
    // Some systems turn the direction themselves while Shift is held.
    const QPoint delta = event->angleDelta();
    const int turned = delta.y() != 0 ? delta.y() : delta.x();
    QScrollBar &bar = *horizontalScrollBar();
    bar.setValue(bar.value() - turned * ticksPerStep * bar.singleStep() / deltaOfAStep);
    event->accept();
}
