#pragma once

#include <QList>
#include <QWidget>

class ClickToSeekSlider;
class PlaybackSession;
class VlcPlayer;

class QLabel;
class QPushButton;
class QShortcut;
class QSlider;
class QVBoxLayout;

/// The video surface and the rows below it: what plays, the position, and the controls with their
/// menus and keys.
///
/// setPlayback() comes before anything plays. The keys act while the panel or a child has the
/// focus.
class PlayerPanel final : public QWidget
{
    Q_OBJECT

public:
    /// What setMargin() begins with.
    static constexpr int normalMargin = 4;

    explicit PlayerPanel(QWidget *parent = nullptr);

    /// What the controls act on and the rows follow; neither is owned.
    void setPlayback(VlcPlayer *player, PlaybackSession *session);

    /// The widget that the picture is drawn into.
    QWidget *surface() const { return videoSurface; }
    /// The rows below the surface, from top to bottom.
    QList<QWidget *> rows() const;
    /// Whether a row can show: the line of what runs only while it tells something.
    bool isUsed(const QWidget *row) const;
    /// Puts the rows back below the surface.
    void takeRowsBack();
    /// The space around the panel's contents, in pixels.
    void setMargin(int margin);
    /// Hides the rows even while something plays.
    void setRowsHidden(bool hidden);
    bool areRowsHidden() const { return rowsHidden; }

    /// A line under what plays: what runs there now, and what comes next. An empty text hides it.
    void showOnNow(const QString &text);
    /// Whether S asks for the schedule of the channel that plays. Not at first.
    void setScheduleAvailable(bool available);
    void showNextEpisodeButton(bool visible, bool enabled);
    /// Shows a button that continues at that time; C does the same while it is offered.
    void offerToContinue(qint64 positionMs);
    void withdrawOffer();

    void togglePlayPause();
    /// Percent.
    void setVolume(int percent);
    /// What the slider shows, from 0 to 100.
    int volume() const;
    /// As if the user had moved the slider there.
    void changeVolume(int percent);
    /// What M brings back; the same for all panels, 100 at first.
    int volumeBeforeMute() const;
    /// Brings back what volume() and volumeBeforeMute() told in an earlier run.
    void restoreVolume(int percent, int percentBeforeMute);
    void showPosition(qint64 currentMs, qint64 totalMs);
    /// The user holds the position slider: it does not follow the stream.
    void beginSeek();
    /// The user let go of it: the stream continues there.
    void finishSeek();
    /// Ends the hold without a seek, as when the release of the mouse goes elsewhere.
    void endSeekHold();

    /// Opens another dialog with what is known of the stream.
    void showStreamInfo();
    /// @name Menus and dialogs
    /// They return when the user has closed them.
    /// @{
    void loadSubtitleFile();
    void showSubtitleMenu();
    void showAudioMenu();
    /// @}

Q_SIGNALS:
    void fullscreenToggled();
    /// Of the slider.
    void volumeChanged(int percent);
    void nextEpisodeRequested();
    void continueRequested();
    /// The schedule of the channel that plays.
    void scheduleRequested();
    /// The rows were shown or hidden.
    void rowsUpdated(bool shown);

private:
    QWidget *buildSeekRow();
    QWidget *buildControlsRow();
    void addPlayerShortcuts();
    void followSession();
    void changeVolumeBy(int delta);
    void toggleMute();
    void seekByKey(qint64 deltaMs);
    void resetPosition();
    void updatePlayerChrome();
    void setRowVisible(QWidget *row, bool visible);

    VlcPlayer *player = nullptr;
    PlaybackSession *session = nullptr;
    QVBoxLayout *playerLayout = nullptr;
    QWidget *videoSurface = nullptr;
    QLabel *nowPlayingLabel = nullptr;
    QLabel *onNowLabel = nullptr;
    QWidget *seekRow = nullptr;
    ClickToSeekSlider *seekSlider = nullptr;
    QPushButton *continueButton = nullptr;
    QLabel *timeLabel = nullptr;
    QWidget *controlsRow = nullptr;
    QPushButton *playPauseButton = nullptr;
    QPushButton *nextEpisodeButton = nullptr;
    QPushButton *audioButton = nullptr;
    QPushButton *subtitlesButton = nullptr;
    QSlider *volumeSlider = nullptr;
    /// Enabled while the offer stands.
    QShortcut *continueShortcut = nullptr;
    QShortcut *scheduleShortcut = nullptr;
    /// The user holds the seek slider.
    bool seeking = false;
    bool rowsHidden = false;
};
