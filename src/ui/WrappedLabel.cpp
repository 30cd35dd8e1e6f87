#include "ui/WrappedLabel.h"

#include <QResizeEvent>

WrappedLabel::WrappedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QSize WrappedLabel::minimumSizeHint() const
{
    const QSize hint = QLabel::minimumSizeHint();
    return {hint.width(), qMax(hint.height(), heightForWidth(width()))};
}

void WrappedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
}
