#include "ui/MainWindow.h"

#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"
#include "ui/PosterStore.h"

#include <QListWidget>
#include <QTabWidget>

using namespace Qt::StringLiterals;

void MainWindow::buildTabs()
{
    tabs = new QTabWidget;
    tabs->setObjectName(u"tabs"_s);
    posterStore = new PosterStore(this);
    for (const BrowseTabSpec &spec : browseTabSpecs()) {
        auto *tab = new BrowseTab(spec, posterStore);
        browseTabs.append(tab);
    }
    for (const CatalogSection section :
         {CatalogSection::Live, CatalogSection::Movie, CatalogSection::Channel}) {
        connect(&browseTab(section), &BrowseTab::activated, this,
                [this, section](const MediaItem &item) { playEntry(section, item); });
    }
    connect(&browseTab(CatalogSection::Series), &BrowseTab::activated, this, &MainWindow::openShow);
    addEpisodePage();
    // Complete tabs only: the order in which widgets are added is that of the Tab key.
    for (BrowseTab *tab : std::as_const(browseTabs)) {
        tabs->addTab(tab, tab->title());
    }
}

void MainWindow::addEpisodePage()
{
    BrowseTab &shows = browseTab(CatalogSection::Series);
    episodePage = new EpisodePage;
    shows.addPage(episodePage);
    connect(episodePage, &EpisodePage::backRequested, &shows,
            [&shows] { shows.showPage(BrowsePage::Items); });
    connect(episodePage, &EpisodePage::episodeChosen, this, &MainWindow::playEpisode);
}

BrowseTab &MainWindow::browseTab(CatalogSection section) const
{
    return *browseTabs.at(static_cast<int>(section));
}

void MainWindow::selectLiveCategory(QListWidgetItem *item)
{
    browseTab(CatalogSection::Live).selectCategory(item);
}

void MainWindow::selectMovieCategory(QListWidgetItem *item)
{
    browseTab(CatalogSection::Movie).selectCategory(item);
}

void MainWindow::selectSeriesCategory(QListWidgetItem *item)
{
    browseTab(CatalogSection::Series).selectCategory(item);
}

void MainWindow::selectChannelCategory(QListWidgetItem *item)
{
    browseTab(CatalogSection::Channel).selectCategory(item);
}

void MainWindow::filterLive()
{
    browseTab(CatalogSection::Live).refilter();
}

void MainWindow::filterMovies()
{
    browseTab(CatalogSection::Movie).refilter();
}

void MainWindow::filterSeries()
{
    browseTab(CatalogSection::Series).refilter();
}

void MainWindow::filterChannels()
{
    browseTab(CatalogSection::Channel).refilter();
}

void MainWindow::playLiveRow(int row, int /*column*/)
{
    browseTab(CatalogSection::Live).activateRow(row);
}

void MainWindow::playMovieRow(int row, int /*column*/)
{
    browseTab(CatalogSection::Movie).activateRow(row);
}

void MainWindow::openSeriesRow(int row, int /*column*/)
{
    browseTab(CatalogSection::Series).activateRow(row);
}

void MainWindow::playChannelRow(int row, int /*column*/)
{
    browseTab(CatalogSection::Channel).activateRow(row);
}

void MainWindow::playEntry(CatalogSection section, const MediaItem &item)
{
    if (const std::optional<PlayingPlace> place = placeOf(section, item)) {
        playPlace(place);
    } else {
        episodeQueue.clear();
        startPlaying(item, libraryEntry(currentSource.name, entryKind(section), item),
                     currentOrigin());
        playingList->clear();
    }
}

void MainWindow::openShow(const MediaItem &show)
{
    showEpisodesInline(show.id, show.name);
}
