#include "ui/EpisodePage.h"

#include "ui/ActivateKeys.h"
#include "ui/ElidedLabel.h"

#include <QBoxLayout>
#include <QHash>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

EpisodePage::EpisodePage(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"episodePage"_s);
    auto *back = new QPushButton(tr("< Back to Shows"));
    connect(back, &QPushButton::clicked, this, &EpisodePage::backRequested);
    episodeTitleLabel = new ElidedLabel;
    episodeTitleLabel->setObjectName(u"episodeTitleLabel"_s);
    QFont font = episodeTitleLabel->font();
    font.setWeight(QFont::Bold);
    episodeTitleLabel->setFont(font);
    episodeTree = new QTreeWidget;
    episodeTree->setObjectName(u"episodeTree"_s);
    episodeTree->setAccessibleName(tr("Episodes"));
    episodeTree->setHeaderHidden(true);
    connect(episodeTree, &QTreeWidget::itemClicked, this, &EpisodePage::playEpisodeTreeItem);
    addActivateKeyShortcuts(episodeTree, this,
                            [this] { playEpisodeTreeItem(episodeTree->currentItem()); });

    auto *titleRow = new QHBoxLayout;
    titleRow->addWidget(back, 0);
    titleRow->addWidget(episodeTitleLabel, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(titleRow);
    layout->addWidget(episodeTree, 1);
}

void EpisodePage::open(const QString &seriesName)
{
    currentSeriesName = seriesName;
    episodeTitleLabel->setText(seriesName);
    showEpisodes({}, {});
}

void EpisodePage::showEpisodes(const QList<Episode> &episodes, const XtreamAccount &account)
{
    shownEpisodes = episodes;
    shownAccount = account;
    episodeTree->clear();
    QHash<qint32, QTreeWidgetItem *> seasonRows;
    for (int index = 0; index < shownEpisodes.size(); ++index) {
        const Episode &episode = shownEpisodes.at(index);
        QTreeWidgetItem *&seasonRow = seasonRows[episode.season];
        if (seasonRow == nullptr) {
            seasonRow = addSeasonRow(episode.season);
        }
        const QString number = u"%1"_s.arg(episode.episodeNumber, 2, 10, QLatin1Char('0'));
        auto *row = new QTreeWidgetItem(seasonRow, {tr("E%1 - %2").arg(number, episode.title)});
        row->setData(0, Qt::UserRole, index);
    }
    episodeTree->expandAll();
}

QTreeWidgetItem *EpisodePage::addSeasonRow(qint32 season)
{
    auto *row = new QTreeWidgetItem(episodeTree, {tr("Season %1").arg(season)});
    QFont font = row->font(0);
    font.setWeight(QFont::Bold);
    row->setFont(0, font);
    row->setFlags(Qt::ItemIsEnabled);
    return row;
}

void EpisodePage::playEpisodeTreeItem(const QTreeWidgetItem *item)
{
    const QVariant index = item != nullptr ? item->data(0, Qt::UserRole) : QVariant();
    if (index.isValid() && index.toInt() >= 0 && index.toInt() < shownEpisodes.size()) {
        Q_EMIT episodeChosen(index.toInt());
    }
}
