#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

/// What the desktop is told of what plays.
struct MediaStatus
{
    enum class Playback
    {
        Stopped,
        Playing,
        Paused,
    };

    Playback playback = Playback::Stopped;
    qint64 entry = 0;     ///< another number for each entry that plays; 0 for none
    QString title;        ///< as the desktop shows it: without credentials
    QString posterFile;   ///< a local picture; empty for none
    qint64 lengthMs = 0;  ///< 0 when it is unknown
    bool canPlay = false; ///< now, or when it is paused or over
    bool canSeek = false;
    bool canGoNext = false;
    bool canGoPrevious = false;
    int volumePercent = 100;

    bool operator==(const MediaStatus &) const = default;
};

/// What plays, as told to the desktop's player controls, and what these ask for. On Linux that is
/// MPRIS on the session bus, if there is one. The media keys of a keyboard ask through it as well.
///
/// Who owns it does what the signals ask for. For the GUI thread.
class MediaControls final : public QObject
{
    Q_OBJECT

public:
    explicit MediaControls(QObject *parent);

    const MediaStatus &status() const { return current; }
    /// Tells the desktop what has changed.
    void setStatus(const MediaStatus &status);
    qint64 positionMs() const { return position; }
    /// To be called at least every second while something plays. A place that playing alone does
    /// not lead to is reported as a jump.
    void setPosition(qint64 ms);

Q_SIGNALS:
    void statusChanged(const MediaStatus &before, const MediaStatus &now);
    void jumped(qint64 positionMs);

    /// @name What the user asks for
    /// @{
    void playRequested();
    void pauseRequested();
    void playPauseRequested();
    void stopRequested();
    void nextRequested();
    void previousRequested();
    void seekRelativeRequested(qint64 deltaMs);
    /// Within the length.
    void seekRequested(qint64 ms);
    /// From 0 to 100.
    void volumeRequested(int percent);
    void raiseRequested();
    void quitRequested();
    /// @}

private:
    MediaStatus current;
    qint64 position = 0;
    QElapsedTimer sincePosition; ///< since `position` was set
};
