#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class PictureLine;
class PlaybackSession;
class PlayerPanel;
class VlcPlayer;

class QAction;
class QTimer;

/// What a key and a line of the player's menu do. The digits have keys only.
enum class PlayerCommand
{
    NextEntry,
    PreviousEntry,
    LastChannel,
    Slower,
    Faster,
    NormalSpeed,
    SoundEarlier,
    SoundLater,
    SubtitlesEarlier,
    SubtitlesLater,
    NextAspectRatio,
    NextCrop,
    NextZoom,
    Deinterlace,
    NextAudioTrack,
    NextSubtitleTrack,
    Snapshot,
    AlwaysOnTop,
    SmallWindow
};

/// A way to show the picture, and what it is called.
struct PictureChoice
{
    QString value; ///< an aspect ratio, a crop, or a scale
    QString name;
};

/// The commands of the player besides those of its rows: their keys, which act while the panel or a
/// child has the focus, what they do, and the line over the picture that tells of it.
class PlayerCommands final : public QObject
{
    Q_OBJECT

public:
    /// None is owned; the panel gets the keys.
    PlayerCommands(PlayerPanel *panel, VlcPlayer *player, PlaybackSession *session);

    QAction *action(PlayerCommand command) const;
    /// Says for two seconds over the picture what happened.
    void tell(const QString &text);

    /// @name The choices of the menu, the first one being what there is at first
    /// @{
    QList<PictureChoice> aspectRatios() const;
    QList<PictureChoice> crops() const;
    QList<PictureChoice> zooms() const;
    void setAspectRatio(const PictureChoice &choice);
    void setCrop(const PictureChoice &choice);
    void setZoom(const PictureChoice &choice);
    QString currentZoom() const;
    /// @}

    /// The small window is on or off.
    void showSmallWindow(bool active);

Q_SIGNALS:
    void nextEntryRequested();
    void previousEntryRequested();
    void lastChannelRequested();
    void channelRequested(int number);
    void smallWindowToggled();

private:
    void addCommands();
    void addPictureCommands();
    QAction *add(PlayerCommand command, const QString &text, const QList<QKeyCombination> &keys,
                 const std::function<void()> &run);
    void addDigits();
    void typeDigit(int digit);
    void changeSpeed(float rate);
    void changeAudioDelay(qint64 ms);
    void changeSubtitleDelay(qint64 ms);
    void setDeinterlaced(bool on);
    void selectNextAudioTrack();
    void selectNextSubtitleTrack();
    void takeSnapshot();
    void setAlwaysOnTop(bool on);
    bool plays();

    PlayerPanel *panel;
    VlcPlayer *player;
    PlaybackSession *session;
    PictureLine *line = nullptr; ///< made when it first shows
    QList<QAction *> actions;    ///< in the order of PlayerCommand
    QString typedNumber;
    QTimer *numberTimer;
};
