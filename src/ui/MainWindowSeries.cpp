#include "ui/MainWindow.h"

#include "model/CatalogCache.h"
#include "providers/CatalogLoader.h"
#include "providers/XtreamClient.h"
#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"
#include "ui/PlaybackSession.h"
#include "ui/PlayerPanel.h"

#include <QPushButton>

void MainWindow::showEpisodesInline(const QString &seriesId, const QString &seriesName)
{
    XtreamClient *xtream = catalogLoader->accountClient();
    if (xtream == nullptr) {
        return;
    }
    BrowseTab &shows = browseTab(CatalogSection::Series);
    episodePage->open(seriesName);
    shows.showPage(BrowsePage::Episodes);

    const XtreamAccount account = xtream->account();
    QList<Episode> cached;
    if (CatalogCache::loadEpisodes(currentSource.name, seriesId, catalogMaxAgeSeconds, cached)) {
        episodePage->showEpisodes(cached, account);
        return;
    }
    xtream->fetchSeriesEpisodes(seriesId, [this, &shows, sourceName = currentSource.name, seriesId,
                                           account](const QList<Episode> &episodes) {
        if (shows.currentPage() != BrowsePage::Episodes) {
            return;
        }
        CatalogCache::saveEpisodes(sourceName, seriesId, episodes);
        episodePage->showEpisodes(episodes, account);
    });
}

void MainWindow::playEpisode(int index)
{
    episodeQueue.start(episodePage->seriesName(), episodePage->episodes(), episodePage->account(),
                       index);
    playMediaItem(episodeQueue.current());
}

void MainWindow::playNextEpisode()
{
    if (episodeQueue.next()) {
        playMediaItem(episodeQueue.current());
    }
}

void MainWindow::updateNextEpisodeButton()
{
    const bool episodePlays = session->kind() == StreamKind::Episode;
    playerPanel->showNextEpisodeButton(episodePlays, episodePlays && episodeQueue.hasNext());
}
