#include "ui/PlayerPanel.h"

#include "player/VlcPlayer.h"
#include "ui/ClickToSeekSlider.h"
#include "ui/ElidedLabel.h"
#include "ui/FormatMs.h"
#include "ui/PlaybackSession.h"
#include "ui/StreamInfoDialog.h"
#include "ui/TrackMenus.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 skipMs = 10000;
constexpr int volumeStep = 5;

int rememberedVolume = 100; // when muted

/// A time as a slider value; a slider ends at 24 days.
int sliderValue(qint64 ms)
{
    return static_cast<int>(std::clamp<qint64>(ms, 0, std::numeric_limits<int>::max()));
}

QPushButton *makeButton(const QString &text, const QString &objectName = {})
{
    auto *button = new QPushButton(text);
    button->setObjectName(objectName);
    // Space belongs to the panel; Return and Enter press the button.
    button->setAutoDefault(true);
    return button;
}

} // namespace

PlayerPanel::PlayerPanel(QWidget *parent)
    : QWidget(parent)
    , playerLayout(new QVBoxLayout(this))
    , videoSurface(new QWidget)
    , nowPlayingLabel(new ElidedLabel(tr("Nothing playing")))
    , onNowLabel(new ElidedLabel)
{
    setObjectName(u"playerPanel"_s);
    setMouseTracking(true);
    setAccessibleName(tr("Player"));
    setFocusPolicy(Qt::StrongFocus);
    setMargin(normalMargin);

    videoSurface->setObjectName(u"videoSurface"_s);
    videoSurface->setAccessibleName(tr("Video"));
    videoSurface->setMinimumSize(480, 270);
    videoSurface->setStyleSheet(u"background-color: black;"_s);
    videoSurface->setMouseTracking(true);
    nowPlayingLabel->setObjectName(u"mutedLabel"_s);
    nowPlayingLabel->hide();
    onNowLabel->setObjectName(u"mutedLabel"_s);
    onNowLabel->hide();

    playerLayout->addWidget(videoSurface, 1);
    playerLayout->addWidget(nowPlayingLabel);
    playerLayout->addWidget(onNowLabel);
    playerLayout->addWidget(buildSeekRow());
    playerLayout->addWidget(buildControlsRow());
    resetPosition();
    addPlayerShortcuts();
}

QWidget *PlayerPanel::buildSeekRow()
{
    seekRow = new QWidget;
    seekRow->setObjectName(u"seekRow"_s);
    // The time of a stream runs from left to right in every script.
    seekRow->setLayoutDirection(Qt::LeftToRight);
    QPushButton *back = makeButton(tr("<< 10s"));
    QPushButton *forward = makeButton(tr("10s >>"));
    seekSlider = new ClickToSeekSlider(Qt::Horizontal);
    seekSlider->setObjectName(u"seekSlider"_s);
    seekSlider->setAccessibleName(tr("Position"));
    continueButton = makeButton({}, u"continueButton"_s);
    continueButton->hide();
    timeLabel = new QLabel;
    timeLabel->setObjectName(u"timeLabel"_s);

    auto *layout = new QHBoxLayout(seekRow);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(back);
    layout->addWidget(seekSlider, 1);
    layout->addWidget(continueButton);
    layout->addWidget(forward);
    layout->addWidget(timeLabel);
    seekRow->hide();

    connect(back, &QPushButton::clicked, this, [this] { session->seekRelative(-skipMs); });
    connect(continueButton, &QPushButton::clicked, this, &PlayerPanel::continueRequested);
    connect(forward, &QPushButton::clicked, this, [this] { session->seekRelative(skipMs); });
    connect(seekSlider, &QSlider::sliderPressed, this, &PlayerPanel::beginSeek);
    connect(seekSlider, &QSlider::sliderReleased, this, &PlayerPanel::finishSeek);
    return seekRow;
}

QWidget *PlayerPanel::buildControlsRow()
{
    controlsRow = new QWidget;
    controlsRow->setObjectName(u"controlsRow"_s);
    playPauseButton = makeButton(tr("Pause"), u"accentButton"_s);
    nextEpisodeButton = makeButton(tr("Next Episode"), u"nextEpisodeButton"_s);
    nextEpisodeButton->hide();
    QPushButton *fullscreenButton = makeButton(tr("Fullscreen"));
    QPushButton *infoButton = makeButton(tr("Info"));
    audioButton = makeButton(tr("Audio"), u"audioButton"_s);
    subtitlesButton = makeButton(tr("Subtitles"), u"subtitlesButton"_s);
    volumeSlider = new QSlider(Qt::Horizontal);
    volumeSlider->setObjectName(u"volumeSlider"_s);
    volumeSlider->setAccessibleName(tr("Volume"));
    volumeSlider->setRange(0, 100);
    volumeSlider->setValue(100);
    volumeSlider->setMaximumWidth(80);
    volumeSlider->setLayoutDirection(Qt::LeftToRight);

    auto *layout = new QHBoxLayout(controlsRow);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *button : {playPauseButton, nextEpisodeButton, fullscreenButton, infoButton,
                                audioButton, subtitlesButton}) {
        layout->addWidget(button);
    }
    layout->addWidget(new QLabel(tr("Vol:")));
    layout->addWidget(volumeSlider);
    controlsRow->hide();

    connect(playPauseButton, &QPushButton::clicked, this, &PlayerPanel::togglePlayPause);
    connect(nextEpisodeButton, &QPushButton::clicked, this, &PlayerPanel::nextEpisodeRequested);
    connect(fullscreenButton, &QPushButton::clicked, this, &PlayerPanel::fullscreenToggled);
    connect(infoButton, &QPushButton::clicked, this, &PlayerPanel::showStreamInfo);
    connect(audioButton, &QPushButton::clicked, this, &PlayerPanel::showAudioMenu);
    connect(subtitlesButton, &QPushButton::clicked, this, &PlayerPanel::showSubtitleMenu);
    connect(volumeSlider, &QSlider::valueChanged, this, &PlayerPanel::setVolume);
    connect(volumeSlider, &QSlider::valueChanged, this, &PlayerPanel::volumeChanged);
    return controlsRow;
}

void PlayerPanel::addPlayerShortcuts()
{
    const auto add = [this](Qt::Key key, bool repeats, const std::function<void()> &action) {
        auto *shortcut = new QShortcut(QKeySequence(key), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(repeats);
        connect(shortcut, &QShortcut::activated, this, action);
        return shortcut;
    };
    add(Qt::Key_Space, false, [this] { togglePlayPause(); });
    add(Qt::Key_F, false, [this] { Q_EMIT fullscreenToggled(); });
    add(Qt::Key_Up, true, [this] { changeVolumeBy(volumeStep); });
    add(Qt::Key_Down, true, [this] { changeVolumeBy(-volumeStep); });
    add(Qt::Key_M, false, [this] { toggleMute(); });
    add(Qt::Key_Left, true, [this] { seekByKey(-skipMs); });
    add(Qt::Key_Right, true, [this] { seekByKey(skipMs); });
    continueShortcut = add(Qt::Key_C, false, [this] { Q_EMIT continueRequested(); });
    continueShortcut->setEnabled(false);
    scheduleShortcut = add(Qt::Key_S, false, [this] { Q_EMIT scheduleRequested(); });
    scheduleShortcut->setEnabled(false);
}

void PlayerPanel::setScheduleAvailable(bool available)
{
    scheduleShortcut->setEnabled(available);
}

void PlayerPanel::setPlayback(VlcPlayer *newPlayer, PlaybackSession *newSession)
{
    player = newPlayer;
    session = newSession;
    connect(session, &PlaybackSession::positionChanged, this, &PlayerPanel::showPosition);
    connect(player, &VlcPlayer::pausedChanged, this,
            [this](bool paused) { playPauseButton->setText(paused ? tr("Play") : tr("Pause")); });
    followSession();
}

void PlayerPanel::followSession()
{
    connect(session, &PlaybackSession::entryChanged, this, &PlayerPanel::resetPosition);
    connect(session, &PlaybackSession::starting, this, [this] {
        // What the user drags to is a time of the stream before.
        endSeekHold();
        updatePlayerChrome();
        nowPlayingLabel->setText(tr("Playing: %1").arg(session->title()));
    });
    connect(session, &PlaybackSession::started, this,
            [this] { player->setVolume(volumeSlider->value()); });
    connect(session, &PlaybackSession::reconnectScheduled, this, [this](int attempt) {
        nowPlayingLabel->setText(tr("Reconnecting to %1... (attempt %2)")
                                     .arg(session->title(), QString::number(attempt)));
    });
    connect(session, &PlaybackSession::interrupted, this, &PlayerPanel::updatePlayerChrome);
    connect(session, &PlaybackSession::stopped, this, [this] {
        nowPlayingLabel->setText(tr("Nothing playing"));
        updatePlayerChrome();
    });
}

void PlayerPanel::togglePlayPause()
{
    player->togglePause();
}

void PlayerPanel::setVolume(int percent)
{
    player->setVolume(percent);
}

// The slider's range limits the result.
void PlayerPanel::changeVolumeBy(int delta)
{
    volumeSlider->setValue(volumeSlider->value() + delta);
}

int PlayerPanel::volume() const
{
    return volumeSlider->value();
}

void PlayerPanel::changeVolume(int percent)
{
    volumeSlider->setValue(percent);
}

int PlayerPanel::volumeBeforeMute() const
{
    return rememberedVolume;
}

void PlayerPanel::restoreVolume(int percent, int percentBeforeMute)
{
    rememberedVolume = percentBeforeMute;
    volumeSlider->setValue(percent);
}

void PlayerPanel::toggleMute()
{
    if (volumeSlider->value() > 0) {
        rememberedVolume = volumeSlider->value();
        volumeSlider->setValue(0);
    } else {
        volumeSlider->setValue(rememberedVolume);
    }
}

void PlayerPanel::seekByKey(qint64 deltaMs)
{
    if (StreamKind::isSeekable(session->kind())) {
        session->seekRelative(deltaMs);
    }
}

void PlayerPanel::beginSeek()
{
    seeking = true;
}

void PlayerPanel::finishSeek()
{
    seeking = false;
    if (seekSlider->maximum() > 0) {
        session->seek(seekSlider->value());
    }
}

void PlayerPanel::endSeekHold()
{
    seeking = false;
    seekSlider->letGo();
}

void PlayerPanel::resetPosition()
{
    seekSlider->setRange(0, 0);
    timeLabel->setText(tr("%1 / %2").arg(formatMs(0), formatMs(0)));
}

void PlayerPanel::showPosition(qint64 currentMs, qint64 totalMs)
{
    if (!StreamKind::isSeekable(session->kind()) || totalMs < 1) {
        return;
    }
    if (!seeking) {
        const QSignalBlocker blocker(seekSlider);
        seekSlider->setRange(0, sliderValue(totalMs));
        seekSlider->setValue(sliderValue(currentMs));
    }
    timeLabel->setText(tr("%1 / %2").arg(formatMs(currentMs), formatMs(totalMs)));
}

void PlayerPanel::showNextEpisodeButton(bool visible, bool enabled)
{
    nextEpisodeButton->setVisible(visible);
    nextEpisodeButton->setEnabled(enabled);
}

void PlayerPanel::offerToContinue(qint64 positionMs)
{
    continueButton->setText(tr("Continue at %1").arg(formatMs(positionMs)));
    continueButton->show();
    continueShortcut->setEnabled(true);
}

void PlayerPanel::withdrawOffer()
{
    setRowVisible(continueButton, false);
    continueShortcut->setEnabled(false);
}

void PlayerPanel::setMargin(int margin)
{
    playerLayout->setContentsMargins(margin, margin, margin, margin);
}

QList<QWidget *> PlayerPanel::rows() const
{
    return {nowPlayingLabel, onNowLabel, seekRow, controlsRow};
}

bool PlayerPanel::isUsed(const QWidget *row) const
{
    return row != onNowLabel || !onNowLabel->text().isEmpty();
}

void PlayerPanel::showOnNow(const QString &text)
{
    if (text != onNowLabel->text()) {
        onNowLabel->setText(text);
        updatePlayerChrome();
    }
}

void PlayerPanel::takeRowsBack()
{
    // Adding a widget to a layout takes it out of the one that it was in.
    for (QWidget *row : rows()) {
        playerLayout->addWidget(row);
    }
}

void PlayerPanel::setRowsHidden(bool hidden)
{
    rowsHidden = hidden;
    updatePlayerChrome();
}

void PlayerPanel::updatePlayerChrome()
{
    const bool shown = session->hasMedia() && !rowsHidden;
    const bool seekRowShown = shown && StreamKind::isSeekable(session->kind());
    if (!seekRowShown) {
        endSeekHold();
    }
    nowPlayingLabel->setVisible(shown);
    onNowLabel->setVisible(shown && isUsed(onNowLabel));
    setRowVisible(seekRow, seekRowShown);
    setRowVisible(controlsRow, shown);
    Q_EMIT rowsUpdated(shown);
}

void PlayerPanel::setRowVisible(QWidget *row, bool visible)
{
    if (!visible && row->isAncestorOf(window()->focusWidget())) {
        // It would hand the focus to the next widget of the window, outside the panel.
        setFocus(Qt::OtherFocusReason);
    }
    row->setVisible(visible);
}

void PlayerPanel::showStreamInfo()
{
    (new StreamInfoDialog(player, window()))->show();
}

void PlayerPanel::loadSubtitleFile()
{
    TrackMenus::loadSubtitleFile(player, window());
}

void PlayerPanel::showSubtitleMenu()
{
    TrackMenus::execSubtitleMenu(player, subtitlesButton);
}

void PlayerPanel::showAudioMenu()
{
    TrackMenus::execAudioMenu(player, audioButton);
}
