#pragma once

#include <QObject>
#include <QString>

class MediaControls;
class PlaybackSession;
class PlayerPanel;
class VlcPlayer;

class QWidget;

/// Tells the desktop what plays, by its player controls and the title of the window, and does what
/// the controls and the media keys of the keyboard ask for.
class DesktopControls final : public QObject
{
    Q_OBJECT

public:
    /// None of them is owned. The window is the parent.
    DesktopControls(VlcPlayer *vlcPlayer, PlaybackSession *playbackSession,
                    PlayerPanel *playerPanel, QWidget *mainWindow);

    /// The picture of the entry that starts next. Only one that is on disk is shown.
    void setPosterUrl(const QString &url);
    /// Whether the list of what plays has an entry after it, and before it.
    void setNeighbours(bool hasNext, bool hasPrevious);

Q_SIGNALS:
    void nextRequested();
    void previousRequested();

private:
    void followPlayback();
    void followRequests();
    void addMediaKeys();
    void togglePlayPause();
    void raiseWindow();
    /// Tells the desktop how things are now.
    void update();

    VlcPlayer *player;
    PlaybackSession *session;
    PlayerPanel *panel;
    QWidget *window;
    QString windowTitle; ///< while nothing plays
    MediaControls *controls;

    qint64 entry = 0; ///< the number of the entry that plays, or played last
    QString posterUrl;
    qint64 lengthMs = 0;
    bool isPaused = false;
    bool isOver = false; ///< it has played to its end
    bool hasNext = false;
    bool hasPrevious = false;
};
