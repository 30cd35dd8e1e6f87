#include "ui/MainWindow.h"

#include "player/VlcPlayer.h"
#include "ui/BrowseTab.h"
#include "ui/ClickToSeekSlider.h"
#include "ui/ElidedLabel.h"
#include "ui/FormatMs.h"
#include "ui/PlaybackSession.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 skipMs = 10000;
constexpr int volumeStep = 5;
constexpr int normalCentralMargin = 6;
constexpr int normalPanelMargin = 4;

void setAllMargins(QLayout *layout, int margin)
{
    layout->setContentsMargins(margin, margin, margin, margin);
}

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

QWidget *MainWindow::buildPlayerPanel()
{
    playerPanel = new QWidget;
    playerPanel->setObjectName(u"playerPanel"_s);
    playerPanel->setMouseTracking(true);
    playerPanel->setAccessibleName(tr("Player"));
    playerLayout = new QVBoxLayout(playerPanel);
    setAllMargins(playerLayout, normalPanelMargin);

    videoSurface = new QWidget;
    videoSurface->setObjectName(u"videoSurface"_s);
    videoSurface->setAccessibleName(tr("Video"));
    videoSurface->setMinimumSize(480, 270);
    videoSurface->setStyleSheet(u"background-color: black;"_s);
    videoSurface->setMouseTracking(true);
    nowPlayingLabel = new ElidedLabel(tr("Nothing playing"));
    nowPlayingLabel->setObjectName(u"mutedLabel"_s);
    nowPlayingLabel->hide();

    playerLayout->addWidget(videoSurface, 1);
    playerLayout->addWidget(nowPlayingLabel);
    playerLayout->addWidget(buildSeekRow());
    playerLayout->addWidget(buildControlsRow());
    return playerPanel;
}

QWidget *MainWindow::buildSeekRow()
{
    seekRow = new QWidget;
    seekRow->setObjectName(u"seekRow"_s);
    auto *layout = new QHBoxLayout(seekRow);
    setAllMargins(layout, 0);
    QPushButton *back = makeButton(tr("<< 10s"));
    QPushButton *forward = makeButton(tr("10s >>"));
    seekSlider = new ClickToSeekSlider(Qt::Horizontal);
    seekSlider->setObjectName(u"seekSlider"_s);
    seekSlider->setAccessibleName(tr("Position"));
    seekSlider->setRange(0, 0);
    timeLabel = new QLabel(formatMs(0) + " / "_L1 + formatMs(0));
    timeLabel->setObjectName(u"timeLabel"_s);
    layout->addWidget(back);
    layout->addWidget(seekSlider, 1);
    layout->addWidget(forward);
    layout->addWidget(timeLabel);
    seekRow->hide();

    connect(back, &QPushButton::clicked, this, [this] { player->seekRelative(-skipMs); });
    connect(forward, &QPushButton::clicked, this, [this] { player->seekRelative(skipMs); });
    connect(seekSlider, &QSlider::sliderPressed, this, &MainWindow::onSeekSliderPressed);
    connect(seekSlider, &QSlider::sliderReleased, this, &MainWindow::onSeekSliderReleased);
    return seekRow;
}

QWidget *MainWindow::buildControlsRow()
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

    auto *layout = new QHBoxLayout(controlsRow);
    setAllMargins(layout, 0);
    for (QPushButton *button : {playPauseButton, nextEpisodeButton, fullscreenButton, infoButton,
                                audioButton, subtitlesButton}) {
        layout->addWidget(button);
    }
    layout->addWidget(new QLabel(tr("Vol:")));
    layout->addWidget(volumeSlider);
    controlsRow->hide();

    connect(playPauseButton, &QPushButton::clicked, this, &MainWindow::togglePlayPause);
    connect(nextEpisodeButton, &QPushButton::clicked, this, &MainWindow::playNextEpisode);
    connect(fullscreenButton, &QPushButton::clicked, this, &MainWindow::toggleFullscreen);
    connect(infoButton, &QPushButton::clicked, this, &MainWindow::showStreamInfo);
    connect(audioButton, &QPushButton::clicked, this, &MainWindow::showAudioMenu);
    connect(subtitlesButton, &QPushButton::clicked, this, &MainWindow::showSubtitleMenu);
    connect(volumeSlider, &QSlider::valueChanged, this, &MainWindow::onVolumeChanged);
    return controlsRow;
}

void MainWindow::addPlayerShortcuts()
{
    playerPanel->setFocusPolicy(Qt::StrongFocus);
    const auto add = [this](Qt::Key key, bool repeats, const std::function<void()> &action) {
        auto *shortcut = new QShortcut(QKeySequence(key), playerPanel);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(repeats);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    add(Qt::Key_Space, false, [this] { togglePlayPause(); });
    add(Qt::Key_F, false, [this] { toggleFullscreen(); });
    add(Qt::Key_Up, true, [this] { changeVolumeBy(volumeStep); });
    add(Qt::Key_Down, true, [this] { changeVolumeBy(-volumeStep); });
    add(Qt::Key_M, false, [this] { toggleMute(); });
    add(Qt::Key_Left, true, [this] { seekByKey(-skipMs); });
    add(Qt::Key_Right, true, [this] { seekByKey(skipMs); });
}

// The slider's own range limits what comes out.
void MainWindow::changeVolumeBy(int delta)
{
    volumeSlider->setValue(volumeSlider->value() + delta);
}

void MainWindow::toggleMute()
{
    static int volumeBeforeMute = 100;
    if (volumeSlider->value() > 0) {
        volumeBeforeMute = volumeSlider->value();
        volumeSlider->setValue(0);
    } else {
        volumeSlider->setValue(volumeBeforeMute);
    }
}

void MainWindow::seekByKey(qint64 deltaMs)
{
    if (StreamKind::isSeekable(session->kind())) {
        player->seekRelative(deltaMs);
    }
}

void MainWindow::togglePlayPause()
{
    player->togglePause();
}

void MainWindow::onVolumeChanged(int value)
{
    player->setVolume(value);
}

void MainWindow::onSeekSliderPressed()
{
    seeking = true;
}

void MainWindow::onSeekSliderReleased()
{
    seeking = false;
    if (seekSlider->maximum() > 0) {
        player->seek(seekSlider->value());
    }
}

void MainWindow::endSeekHold()
{
    seeking = false;
    seekSlider->letGo();
}

void MainWindow::onPositionChanged(qint64 currentMs, qint64 totalMs)
{
    if (!StreamKind::isSeekable(session->kind()) || totalMs < 1) {
        return;
    }
    if (!seeking) {
        const QSignalBlocker blocker(seekSlider);
        seekSlider->setRange(0, sliderValue(totalMs));
        seekSlider->setValue(sliderValue(currentMs));
    }
    timeLabel->setText(formatMs(currentMs) + " / "_L1 + formatMs(totalMs));
}

void MainWindow::updatePlayerChrome()
{
    const bool shown = session->hasMedia() && (!fullscreen || fullscreenControlsVisible);
    const bool seekRowShown = shown && StreamKind::isSeekable(session->kind());
    if (!seekRowShown) {
        endSeekHold();
    }
    nowPlayingLabel->setVisible(shown);
    setRowVisible(seekRow, seekRowShown);
    setRowVisible(controlsRow, shown);
    if (!fullscreen) {
        return;
    }
    if (!shown) {
        fullscreenChrome->hide();
        return;
    }
    repositionFullscreenChrome();
    fullscreenChrome->show();
    fullscreenChrome->raise();
}

void MainWindow::setRowVisible(QWidget *row, bool visible)
{
    if (!visible && row->isAncestorOf(focusWidget())) {
        // The row would hand the focus to the next widget of the window, which is the source box.
        playerPanel->setFocus(Qt::OtherFocusReason);
    }
    row->setVisible(visible);
}

void MainWindow::repositionFullscreenChrome()
{
    if (fullscreen) {
        fullscreenChrome->setGeometry(0, playerPanel->height() - fullscreenChromeHeight,
                                      playerPanel->width(), fullscreenChromeHeight);
    }
}

void MainWindow::toggleFullscreen()
{
    fullscreen = !fullscreen;
    fullscreenControlsVisible = false;
    controlsHideTimer->stop();
    videoSurface->unsetCursor();
    // The rows change their parent, and would lose the focus to a widget outside the panel.
    playerPanel->setFocus(Qt::OtherFocusReason);
    sourceBar->setVisible(!fullscreen);
    tabs->setVisible(!fullscreen);
    setAllMargins(centralLayout, fullscreen ? 0 : normalCentralMargin);
    setAllMargins(playerLayout, fullscreen ? 0 : normalPanelMargin);
    if (fullscreen) {
        enterFullscreen();
    } else {
        leaveFullscreen();
    }
}

void MainWindow::enterFullscreen()
{
    const bool seekRowShown = !seekRow->isHidden();
    moveChromeInto(fullscreenChromeLayout);
    for (QWidget *row : {static_cast<QWidget *>(nowPlayingLabel), seekRow, controlsRow}) {
        row->show();
    }
    fullscreenChromeHeight = fullscreenChrome->sizeHint().height();
    seekRow->setVisible(seekRowShown);
    repositionFullscreenChrome();
    updatePlayerChrome();
    showFullScreen();
}

void MainWindow::leaveFullscreen()
{
    fullscreenChrome->hide();
    moveChromeInto(playerLayout);
    updatePlayerChrome();
    showNormal();
}

void MainWindow::moveChromeInto(QVBoxLayout *layout)
{
    // Adding a widget to a layout takes it out of the one that it was in.
    layout->addWidget(nowPlayingLabel);
    layout->addWidget(seekRow);
    layout->addWidget(controlsRow);
}

void MainWindow::showFullscreenControls()
{
    if (!fullscreen) {
        return;
    }
    if (!fullscreenControlsVisible) {
        fullscreenControlsVisible = true;
        updatePlayerChrome();
    }
    videoSurface->unsetCursor();
    controlsHideTimer->start();
}

void MainWindow::hideFullscreenControls()
{
    if (fullscreen) {
        fullscreenControlsVisible = false;
        updatePlayerChrome();
        videoSurface->setCursor(Qt::BlankCursor);
    }
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Sees every event of the application: tell by the type first, it is the cheapest question.
    switch (event->type()) {
    case QEvent::MouseMove:
        showFullscreenControls();
        break;
    case QEvent::MouseButtonDblClick:
        if (watched == videoSurface) {
            toggleFullscreen();
        }
        break;
    case QEvent::Resize:
        if (watched == playerPanel) {
            repositionFullscreenChrome();
        }
        for (const BrowseTab *tab : std::as_const(browseTabs)) {
            if (tab->posterGrid() != nullptr && watched == tab->posterGrid()->viewport()) {
                loadThumbnailsAfterResize(tab->posterGrid());
            }
        }
        break;
    case QEvent::WindowBlocked:
        if (watched == windowHandle()) {
            // A dialog opens, and the release of the mouse will not come through to here.
            endSeekHold();
        }
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(watched, event);
}
