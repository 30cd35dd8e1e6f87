#include "ui/MainWindow.h"

#include "model/Age.h"
#include "model/SourceManager.h"
#include "player/VlcPlayer.h"
#include "providers/CatalogLoader.h"
#include "providers/SubscriptionAddress.h"
#include "ui/BrowseTab.h"
#include "ui/ElidedComboBox.h"
#include "ui/EpisodePage.h"
#include "ui/FullscreenChrome.h"
#include "ui/LoadingOverlay.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int autoRefreshIntervalMs = 1800000;
/// A third of the window's width at the start.
constexpr int sourceComboMaxWidth = 400;

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
    centralLayout->addWidget(buildSourceBar());

    autoRefreshTimer = new QTimer(this);
    autoRefreshTimer->setObjectName(u"autoRefreshTimer"_s);
    autoRefreshTimer->setInterval(autoRefreshIntervalMs);
    connect(autoRefreshTimer, &QTimer::timeout, this, &MainWindow::checkAutoRefresh);
    autoRefreshTimer->start();

    setMouseTracking(true);

    buildTabs();
    auto *splitter = new QSplitter(Qt::Horizontal);
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
    createCatalogLoader(subscriptionBaseUrl);
    createPlayer();
    restoreSources();
}

MainWindow::~MainWindow()
{
    // The stream stops before the surface that it draws into goes.
    delete player;
}

bool MainWindow::endPlayback()
{
    return player->finish();
}

/// Closing destroys the surface's window, which libVLC must not draw into any more.
void MainWindow::closeEvent(QCloseEvent *event)
{
    if (endPlayback()) {
        QMainWindow::closeEvent(event);
        return;
    }
    event->ignore();
    hide();
    QCoreApplication::exit();
}

QWidget *MainWindow::buildSourceBar()
{
    sourceBar = new QWidget;
    sourceBar->setObjectName(u"sourceBar"_s);
    sourceBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    sourceCombo = new ElidedComboBox;
    sourceCombo->setObjectName(u"sourceCombo"_s);
    sourceCombo->setAccessibleName(tr("Source"));
    sourceCombo->setMinimumWidth(220);
    sourceCombo->setMaximumWidth(sourceComboMaxWidth);
    auto *add = new QPushButton(tr("Add Source..."));
    auto *edit = new QPushButton(tr("Edit Source..."));
    auto *refresh = new QPushButton(tr("Refresh Playlist"));

    auto *layout = new QHBoxLayout(sourceBar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(tr("Source:")));
    layout->addWidget(sourceCombo);
    layout->addWidget(add);
    layout->addWidget(edit);
    layout->addWidget(refresh);
    layout->addStretch();

    connect(add, &QPushButton::clicked, this, &MainWindow::addSource);
    connect(edit, &QPushButton::clicked, this, &MainWindow::editSource);
    connect(refresh, &QPushButton::clicked, this, &MainWindow::refreshActiveSource);
    connect(sourceCombo, &QComboBox::currentIndexChanged, this, &MainWindow::onSourceSelected);
    return sourceBar;
}

void MainWindow::restoreSources()
{
    const QList<SourceConfig> sources = sourceManager->sources();
    {
        const QSignalBlocker blocker(sourceCombo);
        for (const SourceConfig &source : sources) {
            sourceCombo->addItem(source.name, source.name);
        }
    }
    if (sources.isEmpty()) {
        // Through the event queue: the dialog must not open before the window is on screen.
        QMetaObject::invokeMethod(this, &MainWindow::addSource, Qt::QueuedConnection);
        return;
    }
    const int lastActive =
        sourceCombo->findData(sourceManager->lastActiveSourceName(), Qt::UserRole,
                              Qt::MatchExactly | Qt::MatchCaseSensitive);
    // The first load begins before the window has its layout.
    QMetaObject::invokeMethod(loadingOverlay, &LoadingOverlay::fit, Qt::QueuedConnection);
    const int index = std::max(lastActive, 0);
    if (index == sourceCombo->currentIndex()) {
        onSourceSelected(index);
    } else {
        sourceCombo->setCurrentIndex(index);
    }
}

void MainWindow::onSourceSelected(int index)
{
    if (index < 0) {
        return;
    }
    if (const auto source = storedSource(sourceCombo->itemData(index).toString())) {
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
    showTabsFor(source.type);
    resetBrowseTabs();
    const bool account = SourceType::isAccount(source.type);
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
    episodePage->showEpisodes({}, {});
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
