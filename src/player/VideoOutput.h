#pragma once

#include "player/PlayerStop.h"

#include <QObject>

#include <vector>

class QWidget;

/// The window that libVLC draws into: the video surface, or a substitute above it while a hanging
/// media player still draws into the surface.
///
/// If another media player still uses the given window, libVLC opens a window of its own on the
/// screen. All calls are for the GUI thread.
class VideoOutput final : public QObject
{
public:
    /// The surface is not owned, may be null, and must outlive this object. Substitutes are its
    /// children.
    VideoOutput(QWidget *surface, QObject *parent);

    /// Makes the current window native and gives it to the media player. Does nothing without a
    /// surface or a media player.
    void attach(libvlc_media_player_t *mediaPlayer) const;
    /// Leaves the current window to a hanging media player until `stop` is done, and covers it with
    /// a substitute, which becomes the current window.
    void abandonWindow(const PlayerStop &stop);
    /// Returns to the surface once no abandoned media player uses it, and deletes unused
    /// substitutes. To be called only while nothing draws into the current window.
    void reclaimSurface();
    /// Repaints the current window. Without it the last picture stays until something else paints.
    void clear() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A window that an abandoned media player draws into until `stop` is done.
    struct AbandonedWindow
    {
        QWidget *window = nullptr;
        PlayerStop stop;
    };

    bool isAbandoned(const QWidget *window) const;
    QWidget *createSubstitute();

    QWidget *surface = nullptr;
    /// The surface or one of the substitutes.
    QWidget *current = nullptr;
    std::vector<QWidget *> substitutes;
    std::vector<AbandonedWindow> abandonedWindows;
};
