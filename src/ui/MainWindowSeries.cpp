#include "ui/MainWindow.h"

#include "providers/XtreamClient.h"
#include "ui/BrowseTab.h"
#include "ui/ElidedLabel.h"
#include "ui/PlaybackSession.h"

#include <QBoxLayout>
#include <QHash>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

QWidget *MainWindow::buildEpisodePage()
{
    auto *page = new QWidget;
    auto *back = new QPushButton(tr("< Back to Shows"));
    connect(back, &QPushButton::clicked, this,
            [this] { seriesStack->setCurrentIndex(BrowsePage::Items); });
    episodeTitleLabel = new ElidedLabel;
    episodeTitleLabel->setObjectName(u"episodeTitleLabel"_s);
    QFont font = episodeTitleLabel->font();
    font.setWeight(QFont::Bold);
    episodeTitleLabel->setFont(font);
    episodeTree = new QTreeWidget;
    episodeTree->setObjectName(u"episodeTree"_s);
    episodeTree->setAccessibleName(tr("Episodes"));
    episodeTree->setHeaderHidden(true);
    connect(episodeTree, &QTreeWidget::itemClicked, this, &MainWindow::playEpisodeTreeItem);
    addActivateKeyShortcuts(episodeTree, this,
                            [this] { playEpisodeTreeItem(episodeTree->currentItem()); });

    auto *titleRow = new QHBoxLayout;
    titleRow->addWidget(back, 0);
    titleRow->addWidget(episodeTitleLabel, 1);
    auto *layout = new QVBoxLayout(page);
    layout->addLayout(titleRow);
    layout->addWidget(episodeTree, 1);
    return page;
}

void MainWindow::showEpisodesInline(const QString &seriesId, const QString &seriesName)
{
    if (xtream == nullptr) {
        return;
    }
    currentSeriesName = seriesName;
    shownEpisodes.clear();
    episodeTitleLabel->setText(seriesName);
    episodeTree->clear();
    seriesStack->setCurrentIndex(BrowsePage::Episodes);

    const XtreamAccount account = xtream->account();
    QList<Episode> cached;
    if (CatalogCache::loadEpisodes(currentSource.name, seriesId, catalogMaxAgeSeconds, cached)) {
        showEpisodes(cached, account);
        return;
    }
    xtream->fetchSeriesEpisodes(seriesId, [this, sourceName = currentSource.name, seriesId,
                                           account](const QList<Episode> &episodes) {
        if (seriesStack->currentIndex() != BrowsePage::Episodes) {
            return;
        }
        CatalogCache::saveEpisodes(sourceName, seriesId, episodes);
        showEpisodes(episodes, account);
    });
}

void MainWindow::showEpisodes(const QList<Episode> &episodes, const XtreamAccount &account)
{
    shownEpisodes = episodes;
    shownAccount = account;
    // A late reply may find the rows of another one.
    episodeTree->clear();
    QHash<qint32, QTreeWidgetItem *> seasonRows;
    for (int index = 0; index < shownEpisodes.size(); ++index) {
        const Episode &episode = shownEpisodes.at(index);
        QTreeWidgetItem *&seasonRow = seasonRows[episode.season];
        if (seasonRow == nullptr) {
            seasonRow = new QTreeWidgetItem(episodeTree, {tr("Season %1").arg(episode.season)});
            QFont font = seasonRow->font(0);
            font.setWeight(QFont::Bold);
            seasonRow->setFont(0, font);
            seasonRow->setFlags(Qt::ItemIsEnabled);
        }
        const QString number = u"%1"_s.arg(episode.episodeNumber, 2, 10, QLatin1Char('0'));
        auto *row = new QTreeWidgetItem(seasonRow, {tr("E%1 - %2").arg(number, episode.title)});
        row->setData(0, Qt::UserRole, index);
    }
    episodeTree->expandAll();
}

void MainWindow::playEpisodeTreeItem(QTreeWidgetItem *item)
{
    if (item == nullptr) {
        return;
    }
    const QVariant episodeIndex = item->data(0, Qt::UserRole);
    if (!episodeIndex.isValid()) {
        return;
    }
    const int index = episodeIndex.toInt();
    if (index < 0 || index >= shownEpisodes.size()) {
        return;
    }
    episodeQueue.start(currentSeriesName, shownEpisodes, shownAccount, index);
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
    nextEpisodeButton->setVisible(episodePlays);
    nextEpisodeButton->setEnabled(episodePlays && episodeQueue.hasNext());
}
