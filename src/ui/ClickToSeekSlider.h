#pragma once

#include <QSlider>

/// A slider that jumps to where it is clicked and follows a drag, instead of stepping by pages.
/// sliderPressed() and sliderReleased() come once each per click or drag, with the left button;
/// after letGo() there is no sliderReleased().
class ClickToSeekSlider final : public QSlider
{
    Q_OBJECT

public:
    using QSlider::QSlider;

    /// The value whose handle would begin at `point`, in widget coordinates.
    int valueFromPos(const QPoint &point) const;

    /// Ends a click or drag without a signal; what the mouse does until its next press is ignored.
    void letGo();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void takeValueFrom(QMouseEvent *event);
};
