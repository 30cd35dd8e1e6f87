#include "ui/ClickToSeekSlider.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>

int ClickToSeekSlider::valueFromPos(const QPoint &point) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);

    const bool horizontal = orientation() == Qt::Horizontal;
    const int sliderMin = horizontal ? groove.left() : groove.top();
    const int sliderMax =
        horizontal ? groove.right() - handle.width() + 1 : groove.bottom() - handle.height() + 1;
    const int position = horizontal ? point.x() : point.y();
    return QStyle::sliderValueFromPosition(minimum(), maximum(), position - sliderMin,
                                           sliderMax - sliderMin, option.upsideDown);
}

void ClickToSeekSlider::letGo()
{
    const QSignalBlocker blocker(this);
    setSliderDown(false);
}

void ClickToSeekSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QSlider::mousePressEvent(event);
        return;
    }
    setSliderDown(true);
    takeValueFrom(event);
}

void ClickToSeekSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (!isSliderDown()) {
        QSlider::mouseMoveEvent(event);
        return;
    }
    takeValueFrom(event);
}

void ClickToSeekSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown()) {
        QSlider::mouseReleaseEvent(event);
        return;
    }
    takeValueFrom(event);
    setSliderDown(false);
}

void ClickToSeekSlider::takeValueFrom(QMouseEvent *event)
{
    setValue(valueFromPos(event->position().toPoint()));
    event->accept();
}
