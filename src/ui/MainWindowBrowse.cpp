#include "ui/MainWindow.h"

#include "model/ItemFilter.h"
#include "ui/BrowseTab.h"

#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Gives the widgets that every tab has their members' names: `prefix` is "live", "movie" and so
/// on.
void nameTabWidgets(const QString &prefix, QStackedWidget *stack, QListWidget *categoryList,
                    QLineEdit *allSearch, QLabel *titleLabel, QLineEdit *itemSearch, QWidget *view,
                    const QString &viewSuffix)
{
    stack->setObjectName(prefix + "Stack"_L1);
    categoryList->setObjectName(prefix + "CategoryList"_L1);
    allSearch->setObjectName(prefix + "AllSearch"_L1);
    titleLabel->setObjectName(prefix + "TitleLabel"_L1);
    itemSearch->setObjectName(prefix + "Search"_L1);
    view->setObjectName(prefix + viewSuffix);
}

/// What choosing a category does on every tab.
void selectCategory(const QListWidgetItem *item, QString &categoryId, QLabel *titleLabel,
                    QStackedWidget *stack, const std::function<void()> &refilter)
{
    if (item == nullptr) {
        return;
    }
    categoryId = item->data(Qt::UserRole).toString();
    titleLabel->setText(item->text());
    refilter();
    stack->setCurrentIndex(BrowsePage::Items);
}

} // namespace

QWidget *MainWindow::buildLiveTab()
{
    QWidget *tab = buildTabSkeleton(nullptr, &liveStack, &liveCategoryList, &liveAllSearch,
                                    &liveTitleLabel, &liveSearch, &liveTable, tr("Channel"));
    nameTabWidgets(u"live"_s, liveStack, liveCategoryList, liveAllSearch, liveTitleLabel,
                   liveSearch, liveTable, u"Table"_s);
    connect(liveCategoryList, &QListWidget::itemClicked, this, &MainWindow::selectLiveCategory);
    connect(liveSearch, &QLineEdit::textChanged, this, &MainWindow::filterLive);
    connect(liveTable, &QTableWidget::cellClicked, this, &MainWindow::playLiveRow);
    addActivateKeyShortcuts(liveCategoryList, this,
                            [this] { selectLiveCategory(liveCategoryList->currentItem()); });
    addActivateKeyShortcuts(liveTable, this, [this] { playLiveRow(liveTable->currentRow(), 0); });
    wireCategorySearch(liveAllSearch, &liveCategoryId, liveTitleLabel, liveSearch, nullptr,
                       [this] { filterLive(); });
    return tab;
}

QWidget *MainWindow::buildChannelsTab()
{
    QWidget *tab =
        buildTabSkeleton(nullptr, &channelStack, &channelCategoryList, &channelAllSearch,
                         &channelTitleLabel, &channelSearch, &channelTable, tr("Channel"));
    nameTabWidgets(u"channel"_s, channelStack, channelCategoryList, channelAllSearch,
                   channelTitleLabel, channelSearch, channelTable, u"Table"_s);
    connect(channelCategoryList, &QListWidget::itemClicked, this,
            &MainWindow::selectChannelCategory);
    connect(channelSearch, &QLineEdit::textChanged, this, &MainWindow::filterChannels);
    connect(channelTable, &QTableWidget::cellClicked, this, &MainWindow::playChannelRow);
    addActivateKeyShortcuts(channelCategoryList, this,
                            [this] { selectChannelCategory(channelCategoryList->currentItem()); });
    addActivateKeyShortcuts(channelTable, this,
                            [this] { playChannelRow(channelTable->currentRow(), 0); });
    wireCategorySearch(channelAllSearch, &channelCategoryId, channelTitleLabel, channelSearch,
                       nullptr, [this] { filterChannels(); });
    return tab;
}

QWidget *MainWindow::buildMoviesTab()
{
    QWidget *tab = buildPosterTabSkeleton(nullptr, &movieStack, &movieCategoryList, &movieAllSearch,
                                          &movieTitleLabel, &movieSearch, &movieSortCombo,
                                          &moviePosterList, tr("Movie"));
    nameTabWidgets(u"movie"_s, movieStack, movieCategoryList, movieAllSearch, movieTitleLabel,
                   movieSearch, moviePosterList, u"PosterList"_s);
    movieSortCombo->setObjectName(u"movieSortCombo"_s);
    connect(movieCategoryList, &QListWidget::itemClicked, this, &MainWindow::selectMovieCategory);
    connect(movieSearch, &QLineEdit::textChanged, this, &MainWindow::filterMovies);
    connect(movieSortCombo, &QComboBox::currentIndexChanged, this, &MainWindow::filterMovies);
    connect(moviePosterList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { playRow(movieFiltered, moviePosterList->row(item)); });
    connect(moviePosterList->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { loadVisibleThumbnails(moviePosterList); });
    addActivateKeyShortcuts(movieCategoryList, this,
                            [this] { selectMovieCategory(movieCategoryList->currentItem()); });
    addActivateKeyShortcuts(moviePosterList, this,
                            [this] { playMovieRow(moviePosterList->currentRow(), 0); });
    wireCategorySearch(movieAllSearch, &movieCategoryId, movieTitleLabel, movieSearch, nullptr,
                       [this] { filterMovies(); });
    return tab;
}

QWidget *MainWindow::buildSeriesTab()
{
    QWidget *tab = buildPosterTabSkeleton(nullptr, &seriesStack, &seriesCategoryList,
                                          &seriesAllSearch, &seriesTitleLabel, &seriesSearch,
                                          &seriesSortCombo, &seriesPosterList, tr("Show"));
    nameTabWidgets(u"series"_s, seriesStack, seriesCategoryList, seriesAllSearch, seriesTitleLabel,
                   seriesSearch, seriesPosterList, u"PosterList"_s);
    seriesSortCombo->setObjectName(u"seriesSortCombo"_s);
    connect(seriesCategoryList, &QListWidget::itemClicked, this, &MainWindow::selectSeriesCategory);
    connect(seriesSearch, &QLineEdit::textChanged, this, &MainWindow::filterSeries);
    connect(seriesSortCombo, &QComboBox::currentIndexChanged, this, &MainWindow::filterSeries);
    connect(seriesPosterList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { openSeriesAt(seriesPosterList->row(item)); });
    connect(seriesPosterList->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { loadVisibleThumbnails(seriesPosterList); });
    addActivateKeyShortcuts(seriesCategoryList, this,
                            [this] { selectSeriesCategory(seriesCategoryList->currentItem()); });
    addActivateKeyShortcuts(seriesPosterList, this,
                            [this] { openSeriesRow(seriesPosterList->currentRow(), 0); });
    wireCategorySearch(seriesAllSearch, &seriesCategoryId, seriesTitleLabel, seriesSearch, nullptr,
                       [this] { filterSeries(); });
    seriesStack->addWidget(buildEpisodePage());
    return tab;
}

void MainWindow::populateCategoryList(QListWidget *list, const QList<Category> &categories)
{
    fillCategoryList(list, categories);
}

void MainWindow::populateTable(QTableWidget *table, const QList<MediaItem> &items)
{
    fillTable(table, items);
}

void MainWindow::populatePosterGrid(QListWidget *list, const QList<MediaItem> &items)
{
    fillPosterGrid(list, items, placeholderPoster);
    posterRows[list].forget();
    // Later, when the grid has laid out its items.
    QTimer::singleShot(0, this, [this, list] { loadVisibleThumbnails(list); });
}

void MainWindow::selectLiveCategory(QListWidgetItem *item)
{
    selectCategory(item, liveCategoryId, liveTitleLabel, liveStack, [this] { filterLive(); });
}

void MainWindow::selectMovieCategory(QListWidgetItem *item)
{
    selectCategory(item, movieCategoryId, movieTitleLabel, movieStack, [this] { filterMovies(); });
}

void MainWindow::selectSeriesCategory(QListWidgetItem *item)
{
    selectCategory(item, seriesCategoryId, seriesTitleLabel, seriesStack,
                   [this] { filterSeries(); });
}

void MainWindow::selectChannelCategory(QListWidgetItem *item)
{
    selectCategory(item, channelCategoryId, channelTitleLabel, channelStack,
                   [this] { filterChannels(); });
}

void MainWindow::filterLive()
{
    liveFiltered = applyFilter(liveItems, liveCategoryId, liveSearch->text());
    populateTable(liveTable, liveFiltered);
}

void MainWindow::filterChannels()
{
    channelFiltered = applyFilter(channelItems, channelCategoryId, channelSearch->text());
    populateTable(channelTable, channelFiltered);
}

void MainWindow::filterMovies()
{
    movieFiltered = movieIndex.select(movieItems, movieCategoryId, movieSearch->text(),
                                      movieSortCombo->currentData().toString());
    populatePosterGrid(moviePosterList, movieFiltered);
}

void MainWindow::filterSeries()
{
    seriesFiltered = seriesIndex.select(seriesItems, seriesCategoryId, seriesSearch->text(),
                                        seriesSortCombo->currentData().toString());
    populatePosterGrid(seriesPosterList, seriesFiltered);
}

void MainWindow::playLiveRow(int row, int /*column*/)
{
    playRow(liveFiltered, row);
}

void MainWindow::playMovieRow(int row, int /*column*/)
{
    playRow(movieFiltered, row);
}

void MainWindow::playChannelRow(int row, int /*column*/)
{
    playRow(channelFiltered, row);
}

void MainWindow::openSeriesRow(int row, int /*column*/)
{
    openSeriesAt(row);
}

void MainWindow::playRow(const QList<MediaItem> &filtered, int row)
{
    if (row < 0 || row >= filtered.size()) {
        return;
    }
    episodeQueue.clear();
    // A copy: a box that playing may open runs the event loop, in which the list can change.
    playMediaItem(MediaItem(filtered.at(row)));
}

void MainWindow::openSeriesAt(int row)
{
    if (row < 0 || row >= seriesFiltered.size()) {
        return;
    }
    showEpisodesInline(seriesFiltered.at(row).id, seriesFiltered.at(row).name);
}
