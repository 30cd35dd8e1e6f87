#pragma once

#include "player/PlayerStop.h"

#include <QObject>

#include <vector>

class QWidget;

/// Where the picture goes: the surface, or a window lent above it while a media player that hangs
/// still draws into the surface.
///
/// libVLC opens a window of its own, somewhere on the screen, when another media player still has
/// the one that it was given. All calls are for the GUI thread.
class VideoOutput final : public QObject
{
public:
    /// The surface is not owned, may be null, and must outlive this object. Lent windows are its
    /// children.
    VideoOutput(QWidget *surface, QObject *parent);

    /// Makes the window of the picture native and gives it to the media player. Does nothing
    /// without a surface or a media player.
    void attach(libvlc_media_player_t *mediaPlayer) const;
    /// Leaves the window in use to the media player of that stop until it is done, and lends
    /// another that covers it.
    void leaveTo(const PlayerStop &stop);
    /// Returns to the surface when no abandoned media player has it any more, and removes the lent
    /// windows that nobody uses. Call it only while nothing draws into the window in use.
    void takeBack();
    /// Paints the window in use. Otherwise the last picture stays until something else paints.
    void clear() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A window that an abandoned media player draws into until its stop is done.
    struct LeftWindow
    {
        QWidget *window = nullptr;
        PlayerStop stop;
    };

    bool isLeft(const QWidget *window) const;
    QWidget *lendWindow();

    QWidget *surface = nullptr;
    /// The surface, or one of the lent windows.
    QWidget *current = nullptr;
    std::vector<QWidget *> lentWindows;
    std::vector<LeftWindow> leftWindows;
};
