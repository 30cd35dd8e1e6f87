#include "ui/MainWindow.h"

#include "library/Library.h"
#include "model/Age.h"
#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "providers/SubscriptionAddress.h"
#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"
#include "ui/FullscreenChrome.h"
#include "ui/LoadingOverlay.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"
#include "ui/PosterStore.h"
#include "ui/ResumeKeeper.h"
#include "ui/SourceBar.h"
#include "ui/SourceGuide.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int autoRefreshIntervalMs = 1800000;

} // namespace

MainWindow::MainWindow()
    : MainWindow(configuredSubscriptionUrl())
{}

MainWindow::MainWindow(const QString &subscriptionBaseUrl)
    : sourceManager(new SourceManager(this))
{
    setWindowTitle(tr("Vantiro Player"));
    resize(1200, 750);

    auto *central = new QWidget;
    centralLayout = new QVBoxLayout(central);
    centralLayout->setContentsMargins(centralMargin, centralMargin, centralMargin, centralMargin);
    setCentralWidget(central);
    createSourceBar();
    centralLayout->addWidget(sourceBar);

    autoRefreshTimer = new QTimer(this);
    autoRefreshTimer->setObjectName(u"autoRefreshTimer"_s);
    autoRefreshTimer->setInterval(autoRefreshIntervalMs);
    connect(autoRefreshTimer, &QTimer::timeout, this, &MainWindow::checkAutoRefresh);
    autoRefreshTimer->start();

    setMouseTracking(true);

    buildTabs();
    splitter = new QSplitter(Qt::Horizontal);
    splitter->setObjectName(u"splitter"_s);
    splitter->addWidget(tabs);
    playerPanel = new PlayerPanel;
    splitter->addWidget(playerPanel);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 2);
    // The factors only share out what a resize adds. The start is shared out alike, and in pixels:
    // sizes far from the later ones would give way to what the pages ask for.
    splitter->setSizes({width() / 3, width() - width() / 3});
    centralLayout->addWidget(splitter, 1);

    fullscreenChrome = new FullscreenChrome(playerPanel);
    loadingOverlay = new LoadingOverlay(tabs);
    createLibrary();
    createCatalogLoader(subscriptionBaseUrl);
    createPlayer();
    createHistory();
    createGuide();
    createMoreMenu();
    createOpening();
    createDesktop();
    restoreWindow();
    restoreSources();
}

MainWindow::~MainWindow()
{
    // The stream stops before the surface that it draws into goes.
    delete player;
}

bool MainWindow::endPlayback()
{
    resumeKeeper->keepPlace();
    const bool finished = player->finish();
    if (!finished) {
        // Its destructor, which writes the last changes, will not run.
        library->flush();
    }
    return finished;
}

/// Closing destroys the surface's window, which libVLC must not draw into any more.
void MainWindow::closeEvent(QCloseEvent *event)
{
    rememberWindow();
    if (endPlayback()) {
        QMainWindow::closeEvent(event);
        return;
    }
    event->ignore();
    hide();
    QCoreApplication::exit();
}

void MainWindow::createSourceBar()
{
    sourceBar = new SourceBar;
    sourceBar->setObjectName(u"sourceBar"_s);
    connect(sourceBar, &SourceBar::addRequested, this, &MainWindow::addSource);
    connect(sourceBar, &SourceBar::editRequested, this, &MainWindow::editSource);
    connect(sourceBar, &SourceBar::refreshRequested, this, &MainWindow::refreshActiveSource);
    connect(sourceBar, &SourceBar::currentChanged, this, &MainWindow::onSourceSelected);
}

void MainWindow::fillSourceBar()
{
    QStringList names;
    for (const SourceConfig &source : sourceManager->sources()) {
        names << source.name;
    }
    sourceBar->setNames(names);
}

void MainWindow::restoreSources()
{
    fillSourceBar();
    if (sourceBar->isEmpty()) {
        // Through the event queue: the dialog must not open before the window is on screen.
        QMetaObject::invokeMethod(this, &MainWindow::askForFirstSource, Qt::QueuedConnection);
        return;
    }
    const int lastActive = sourceBar->indexOf(sourceManager->lastActiveSourceName());
    // The first load begins before the window has its layout.
    QMetaObject::invokeMethod(loadingOverlay, &LoadingOverlay::fit, Qt::QueuedConnection);
    const int index = std::max(lastActive, 0);
    if (index == sourceBar->currentIndex()) {
        onSourceSelected(index);
    } else {
        sourceBar->setCurrentIndex(index);
    }
}

void MainWindow::onSourceSelected(int index)
{
    if (index < 0) {
        return;
    }
    if (const auto source = storedSource(sourceBar->nameAt(index))) {
        loadSource(*source, false);
    }
}

std::optional<SourceConfig> MainWindow::storedSource(const QString &name) const
{
    const QList<SourceConfig> sources = sourceManager->sources();
    const auto found =
        std::find_if(sources.begin(), sources.end(),
                     [&name](const SourceConfig &source) { return source.name == name; });
    return found != sources.end() ? std::optional(*found) : std::nullopt;
}

void MainWindow::loadSource(const SourceConfig &config, bool force)
{
    // A copy: the caller may hand in currentSource itself.
    const SourceConfig source = config;
    currentSource = source;
    sourceManager->setLastActiveSourceName(source.name);
    showLibraryOf(source.name);
    showTabsFor(source.type);
    resetBrowseTabs();
    const bool account = SourceType::isAccount(source.type);
    sourceGuide->setSource(source);
    posterStore->setUserAgent(source.userAgent, QUrl(source.url).host());
    tabs->setCurrentWidget(&browseTab(account ? CatalogSection::Live : CatalogSection::Channel));
    catalogLoader->load(source, force);
}

void MainWindow::showTabsFor(qint32 sourceType)
{
    const bool account = SourceType::isAccount(sourceType);
    for (BrowseTab *tab : std::as_const(browseTabs)) {
        tabs->setTabVisible(tabs->indexOf(tab), tab->isForAccounts() == account);
    }
}

void MainWindow::resetBrowseTabs()
{
    for (BrowseTab *tab : std::as_const(browseTabs)) {
        tab->reset();
    }
}

void MainWindow::emptyBrowseTabs()
{
    for (BrowseTab *tab : std::as_const(browseTabs)) {
        tab->clear();
    }
    episodePage->clear();
    episodeQueue.clear();
}

void MainWindow::refreshActiveSource()
{
    if (!currentSource.name.isEmpty()) {
        loadSource(currentSource, true);
    }
}

void MainWindow::checkAutoRefresh()
{
    if (currentSource.name.isEmpty()) {
        return;
    }
    if (secondsSince(currentSource.lastUpdated) >= catalogMaxAgeSeconds) {
        loadSource(currentSource, true);
    }
}
