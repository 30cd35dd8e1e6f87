#include "ui/WrappedLabel.h"

#include <QResizeEvent>

WrappedLabel::WrappedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QSize WrappedLabel::sizeHint() const
{
    return withWholeText(QLabel::sizeHint());
}

QSize WrappedLabel::minimumSizeHint() const
{
    return withWholeText(QLabel::minimumSizeHint());
}

QSize WrappedLabel::withWholeText(const QSize &hint) const
{
    return {hint.width(), qMax(hint.height(), heightForWidth(width()))};
}

void WrappedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
}
