#include "ui/MainWindow.h"

#include "model/SourceManager.h"
#include "providers/CatalogLoader.h"
#include "ui/BrowseTab.h"
#include "ui/LoadingOverlay.h"
#include "ui/PlainMessageBox.h"
#include "ui/PosterStore.h"
#include "ui/SourceGuide.h"

#include <QUrl>

void MainWindow::createCatalogLoader(const QString &subscriptionBaseUrl)
{
    catalogLoader = new CatalogLoader(subscriptionBaseUrl, this);
    connect(catalogLoader, &CatalogLoader::resolved, this, [this](const SourceConfig &source) {
        currentSource = source;
        sourceGuide->setSource(source);
        posterStore->setUserAgent(source.userAgent, QUrl(source.url).host());
    });
    connect(catalogLoader, &CatalogLoader::stamped, this, [this](const SourceConfig &source) {
        currentSource = source;
        sourceManager->saveSource(source);
    });
    connect(catalogLoader, &CatalogLoader::stepsBegun, loadingOverlay,
            &LoadingOverlay::beginCatalogFetch);
    connect(catalogLoader, &CatalogLoader::stepDone, loadingOverlay,
            &LoadingOverlay::catalogFetchStepDone);
    connect(catalogLoader, &CatalogLoader::categoriesLoaded, this,
            [this](CatalogSection section, const QList<Category> &categories) {
                browseTab(section).setCategories(categories);
            });
    connect(catalogLoader, &CatalogLoader::itemsLoaded, this,
            [this](CatalogSection section, const ItemIndex &items) {
                if (section == CatalogSection::Channel) {
                    followPlaylist(items.items());
                }
                browseTab(section).setItems(items);
                playingList->follow(currentOrigin(), section, items.items());
                watchWhenLoaded();
            });
    connect(catalogLoader, &CatalogLoader::failed, this, &MainWindow::reportLoadFailure);
}

void MainWindow::reportLoadFailure(const LoadFailure &failure)
{
    switch (failure.step) {
    case LoadFailure::Step::KeyExchange:
        PlainMessageBox::warnOnce(this, tr("Zevrino"),
                                  tr("Failed to load subscription: %1").arg(failure.detail));
        break;
    case LoadFailure::Step::PlaylistFile:
        PlainMessageBox::warnOnce(this, tr("Load Playlist"),
                                  tr("Failed to open file: %1").arg(failure.detail));
        break;
    case LoadFailure::Step::PlaylistDownload:
        PlainMessageBox::warnOnce(this, tr("Load Playlist"),
                                  tr("Failed to download playlist: %1").arg(failure.detail));
        break;
    case LoadFailure::Step::Categories:
    case LoadFailure::Step::Items:
        // Only traced: the tab is empty.
        break;
    }
}
