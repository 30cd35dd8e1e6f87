#include "ui/MainWindow.h"

#include "desktop/SleepKeeper.h"
#include "ui/BrowseTab.h"
#include "ui/DesktopControls.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"

#include <QSplitter>
#include <QTabWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// How long the window stays as it is before that is stored.
constexpr int rememberDelayMs = 1000;

} // namespace

void MainWindow::createDesktop()
{
    desktopControls = new DesktopControls(player, session, playerPanel, this);
    connect(session, &PlaybackSession::entryChanged, this, [this] {
        // The picture of a recording's channel is none of the programme.
        const bool hasPoster = session->kind() == StreamKind::Movie;
        desktopControls->setPosterUrl(hasPoster ? QString(playingChannel.iconUrl) : QString());
    });
    const auto tellNeighbours = [this] {
        desktopControls->setNeighbours(hasNextEntry(), hasPreviousEntry());
    };
    connect(session, &PlaybackSession::entryChanged, this, tellNeighbours);
    connect(playingList, &PlayingList::changed, this, tellNeighbours);
    connect(desktopControls, &DesktopControls::nextRequested, this, &MainWindow::playNextEntry);
    connect(desktopControls, &DesktopControls::previousRequested, this,
            &MainWindow::playPreviousEntry);
    new SleepKeeper(player, this);
}

/// Arranges the window as the user has left it.
void MainWindow::restoreWindow()
{
    const WindowState &stored = windowMemory.state();
    if (windowMemory.hasStored()) {
        // Refused when the screen is a very different one now.
        if (!restoreGeometry(stored.geometry) && stored.isMaximized) {
            setWindowState(Qt::WindowMaximized);
        }
        setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMinimized));
        if (!stored.splitterSizes.isEmpty()) {
            splitter->setSizes(stored.splitterSizes);
        }
        playerPanel->restoreVolume(stored.volume, stored.volumeBeforeMute);
        for (BrowseTab *tab : std::as_const(browseTabs)) {
            tab->setSortOrder(stored.sortOrders.value(tab->objectName()));
        }
    }

    rememberTimer = new QTimer(this);
    rememberTimer->setObjectName(u"rememberTimer"_s);
    rememberTimer->setSingleShot(true);
    rememberTimer->setInterval(rememberDelayMs);
    connect(rememberTimer, &QTimer::timeout, this, &MainWindow::rememberWindow);
    const auto rememberLater = [this] { rememberTimer->start(); };
    connect(splitter, &QSplitter::splitterMoved, this, rememberLater);
    connect(playerPanel, &PlayerPanel::volumeChanged, this, rememberLater);
    for (const BrowseTab *tab : std::as_const(browseTabs)) {
        connect(tab, &BrowseTab::sortOrderChanged, this, rememberLater);
    }
}

void MainWindow::rememberWindow()
{
    rememberTimer->stop();
    WindowState state = windowMemory.state();
    // Without the tabs the window has a size that is not meant to stay.
    if (isVisible() && !isFullScreen() && !tabs->isHidden()) {
        state.geometry = saveGeometry();
        state.isMaximized = isMaximized();
        state.splitterSizes = splitter->sizes();
    }
    state.volume = playerPanel->volume();
    state.volumeBeforeMute = playerPanel->volumeBeforeMute();
    for (const BrowseTab *tab : std::as_const(browseTabs)) {
        if (!tab->sortOrder().isEmpty()) {
            state.sortOrders.insert(tab->objectName(), tab->sortOrder());
        }
    }
    windowMemory.store(state);
}
