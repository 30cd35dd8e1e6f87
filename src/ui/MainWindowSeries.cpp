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
    showToContinue.clear();
    openEpisodes(seriesId, seriesName);
}

void MainWindow::openEpisodes(const QString &seriesId, const QString &seriesName)
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
        fillEpisodePage(currentSource.name, seriesId, cached, account);
        return;
    }
    xtream->fetchSeriesEpisodes(seriesId, [this, &shows, sourceName = currentSource.name, seriesId,
                                           account](const QList<Episode> &episodes) {
        if (shows.currentPage() != BrowsePage::Episodes) {
            return;
        }
        CatalogCache::saveEpisodes(sourceName, seriesId, episodes);
        fillEpisodePage(sourceName, seriesId, episodes, account);
    });
}

void MainWindow::fillEpisodePage(const QString &source, const QString &seriesId,
                                 const QList<Episode> &episodes, const XtreamAccount &account)
{
    episodePage->showEpisodes(source, seriesId, episodes, account);
    updateEpisodeMarks();
    if (!showToContinue.isEmpty() && showToContinue == seriesId) {
        showToContinue.clear();
        continueOpenShow();
    }
}

void MainWindow::playEpisode(int index)
{
    episodeQueue.start(episodePage->currentShow(), episodePage->episodes(), episodePage->account(),
                       index);
    startPlaying(episodeQueue.current(), episodeQueue.show(),
                 {currentSource, episodeQueue.account()});
    playingList->clear();
}

void MainWindow::playNextEpisode()
{
    if (episodeQueue.next()) {
        startPlaying(episodeQueue.current(), episodeQueue.show(), playingOrigin);
    }
}

void MainWindow::updateNextEpisodeButton()
{
    const bool episodePlays = session->kind() == StreamKind::Episode;
    playerPanel->showNextEpisodeButton(episodePlays, episodePlays && episodeQueue.hasNext());
}
