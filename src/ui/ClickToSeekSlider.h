#pragma once

#include <QSlider>

/// A slider that jumps to where it is clicked and follows a drag, instead of stepping by pages.
/// sliderPressed() and sliderReleased() come once each per click or drag, with the left button.
class ClickToSeekSlider final : public QSlider
{
    Q_OBJECT

public:
    using QSlider::QSlider;

    /// The value whose handle would begin at `point`, in widget coordinates.
    int valueFromPos(const QPoint &point) const;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void takeValueFrom(QMouseEvent *event);
};
