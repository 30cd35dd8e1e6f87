#pragma once

#include <QWidget>

class PlayerPanel;

class QTimer;
class QVBoxLayout;

/// The fullscreen mode of the player: the rows of the panel move over the picture, show with the
/// pointer while the mouse moves, and hide three seconds after it has stopped.
///
/// A native child of the panel, so that it stacks above the picture that libVLC draws.
class FullscreenChrome final : public QWidget
{
    Q_OBJECT

public:
    explicit FullscreenChrome(PlayerPanel *playerPanel);

    bool isFullscreen() const { return fullscreen; }
    /// Moves the rows and switches the panel's window to fullscreen, or back.
    void toggle();
    /// Does nothing outside fullscreen.
    void leave();

    /// In fullscreen, shows the rows and the pointer for the next three seconds.
    void showFullscreenControls();

Q_SIGNALS:
    /// Comes before the window is switched: what else it shows is to be hidden or shown now.
    void fullscreenChanged(bool fullscreen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void moveRowsHere();
    void moveRowsBack();
    void followRows(bool shown);
    void hideFullscreenControls();
    /// In fullscreen, places the rows along the panel's bottom edge.
    void repositionFullscreenChrome();

    PlayerPanel *panel;
    QVBoxLayout *fullscreenChromeLayout;
    QTimer *controlsHideTimer;
    /// Measured when fullscreen begins.
    int fullscreenChromeHeight = 0;
    bool fullscreen = false;
};
