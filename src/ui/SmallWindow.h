#pragma once

#include <QObject>
#include <QRect>

class PlayerPanel;

/// The small window: only the picture is left, without the rows and without a frame. The window is
/// not made anew, so that the picture goes on. It is moved by dragging the picture.
class SmallWindow final : public QObject
{
    Q_OBJECT

public:
    /// Of the window that the panel is in; closing leaves it.
    SmallWindow(PlayerPanel *panel, QWidget *window);

    bool isActive() const { return active; }
    void toggle();
    /// Brings the window back to what it was; does nothing when it is not small.
    void leave();

Q_SIGNALS:
    /// Comes before the window's size changes: what else it shows is to be hidden or shown now.
    void changed(bool active);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void enter();
    QRect firstGeometry() const;

    PlayerPanel *panel;
    QWidget *window;
    bool active = false;
    bool wasMaximized = false;
    QRect geometryBefore;
    QRect smallGeometry; ///< where it was left last
};
