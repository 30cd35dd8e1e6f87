#include "ui/DesktopControls.h"

#include "app/TraceSecrets.h"
#include "desktop/MediaControls.h"
#include "model/CatalogRecords.h"
#include "player/VlcPlayer.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/PosterImage.h"

#include <QFileInfo>
#include <QShortcut>
#include <QWidget>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 skipMs = 10000;

/// The desktop shows titles on its lock screen and hands them to every program of the user.
QString withoutCredentials(const QString &title)
{
    return title.contains("://"_L1) ? traceSafeUrl(title) : traceSafe(title);
}

QString posterFile(const QString &url)
{
    const QString path = url.isEmpty() ? QString() : posterCachePath(url);
    return QFileInfo::exists(path) ? path : QString();
}

} // namespace

DesktopControls::DesktopControls(VlcPlayer *vlcPlayer, PlaybackSession *playbackSession,
                                 PlayerPanel *playerPanel, QWidget *mainWindow)
    : QObject(mainWindow)
    , player(vlcPlayer)
    , session(playbackSession)
    , panel(playerPanel)
    , window(mainWindow)
    , windowTitle(mainWindow->windowTitle())
    , controls(new MediaControls(this))
{
    followPlayback();
    followRequests();
    addMediaKeys();
    update();
}

void DesktopControls::setPosterUrl(const QString &url)
{
    posterUrl = url;
    update();
}

void DesktopControls::setNeighbours(bool next, bool previous)
{
    hasNext = next;
    hasPrevious = previous;
    update();
}

void DesktopControls::followPlayback()
{
    connect(session, &PlaybackSession::entryChanged, this, [this] { ++entry; });
    connect(session, &PlaybackSession::starting, this, [this] {
        lengthMs = 0;
        isPaused = false;
        isOver = false;
        update();
    });
    connect(session, &PlaybackSession::interrupted, this, &DesktopControls::update);
    connect(session, &PlaybackSession::stopped, this, &DesktopControls::update);
    connect(session, &PlaybackSession::positionChanged, this,
            [this](qint64 currentMs, qint64 totalMs) {
                if (StreamKind::isSeekable(session->kind()) && totalMs > 0) {
                    lengthMs = totalMs;
                    update();
                    controls->setPosition(currentMs);
                }
            });
    connect(player, &VlcPlayer::pausedChanged, this, [this](bool paused) {
        isPaused = paused;
        update();
    });
    connect(player, &VlcPlayer::finished, this, [this] {
        isOver = true;
        update();
    });
    connect(panel, &PlayerPanel::volumeChanged, this, &DesktopControls::update);
}

void DesktopControls::followRequests()
{
    using Playback = MediaStatus::Playback;
    connect(controls, &MediaControls::playRequested, this, [this] {
        if (controls->status().playback != Playback::Playing) {
            togglePlayPause();
        }
    });
    connect(controls, &MediaControls::pauseRequested, this, [this] {
        if (controls->status().playback == Playback::Playing) {
            panel->togglePlayPause();
        }
    });
    connect(controls, &MediaControls::playPauseRequested, this, &DesktopControls::togglePlayPause);
    connect(controls, &MediaControls::stopRequested, this, [this] {
        if (session->hasMedia()) {
            session->stop();
        }
    });
    connect(controls, &MediaControls::nextRequested, this, &DesktopControls::nextRequested);
    connect(controls, &MediaControls::previousRequested, this, &DesktopControls::previousRequested);
    connect(controls, &MediaControls::seekRelativeRequested, session,
            &PlaybackSession::seekRelative);
    connect(controls, &MediaControls::seekRequested, session, &PlaybackSession::seek);
    connect(controls, &MediaControls::volumeRequested, panel, &PlayerPanel::changeVolume);
    connect(controls, &MediaControls::raiseRequested, this, &DesktopControls::raiseWindow);
    connect(controls, &MediaControls::quitRequested, window, &QWidget::close);
}

/// The volume keys are the desktop's.
void DesktopControls::addMediaKeys()
{
    const auto add = [this](Qt::Key key, const std::function<void()> &action) {
        auto *shortcut = new QShortcut(QKeySequence(key), window);
        shortcut->setContext(Qt::ApplicationShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, action);
        return shortcut;
    };
    const auto skip = [this](qint64 ms) {
        if (controls->status().canSeek) {
            session->seekRelative(ms);
        }
    };
    // Keyboards with one key for both send the key for playing.
    add(Qt::Key_MediaPlay, [this] { togglePlayPause(); });
    add(Qt::Key_MediaTogglePlayPause, [this] { togglePlayPause(); });
    add(Qt::Key_MediaPause, [this] { Q_EMIT controls->pauseRequested(); });
    add(Qt::Key_MediaStop, [this] { Q_EMIT controls->stopRequested(); });
    add(Qt::Key_MediaNext, [this] { Q_EMIT nextRequested(); });
    add(Qt::Key_MediaPrevious, [this] { Q_EMIT previousRequested(); });
    add(Qt::Key_AudioRewind, [skip] { skip(-skipMs); })->setAutoRepeat(true);
    add(Qt::Key_AudioForward, [skip] { skip(skipMs); })->setAutoRepeat(true);
}

/// What is over, or was given up, plays again.
void DesktopControls::togglePlayPause()
{
    if (session->hasMedia() && !isOver) {
        panel->togglePlayPause();
    } else {
        session->replay();
    }
}

void DesktopControls::raiseWindow()
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

void DesktopControls::update()
{
    MediaStatus status;
    status.volumePercent = panel->volume();
    status.canPlay = session->canReplay();
    if (session->hasMedia()) {
        using Playback = MediaStatus::Playback;
        status.playback = isPaused ? Playback::Paused : Playback::Playing;
        if (isOver) {
            status.playback = Playback::Stopped;
        }
        status.entry = entry;
        status.title = withoutCredentials(session->title());
        status.posterFile = posterFile(posterUrl);
        status.lengthMs = lengthMs;
        status.canSeek = lengthMs > 0 && !isOver;
        status.canGoNext = hasNext;
        status.canGoPrevious = hasPrevious;
    }
    controls->setStatus(status);
    // In a title "[*]" would be Qt's mark of a changed document.
    const QString title = status.title.replace("[*]"_L1, "[*][*]"_L1);
    window->setWindowTitle(title.isEmpty() ? windowTitle : title + " - "_L1 + windowTitle);
}
