#include "ui/EpisodePage.h"

#include "ui/ActivateKeys.h"
#include "ui/ElidedLabel.h"
#include "ui/EntryMarks.h"
#include "ui/EpisodeDelegate.h"
#include "ui/RowMenu.h"

#include <QBoxLayout>
#include <QHash>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

/// Changes nothing, and so repaints nothing, where the value stands already.
void setRowData(QTreeWidgetItem &row, int role, const QVariant &value)
{
    if (row.data(0, role) != value) {
        row.setData(0, role, value);
    }
}

/// Gives the tree the look of the lists: the theme's style sheet, which is fixed, knows no trees.
/// The style draws its frame in a shade of the window's colour.
void matchLists(QTreeWidget &tree)
{
    const QColor background(0x23252d);
    const QColor frame(0x33353f);
    constexpr int frameShade = 130; ///< percents, by which Fusion darkens it
    QPalette palette = tree.palette();
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Window, frame.lighter(frameShade));
    tree.setPalette(palette);
}

/// The row itself, or the episodes of a season's row.
QList<const QTreeWidgetItem *> episodeRowsOf(const QTreeWidgetItem &row)
{
    if (row.parent() != nullptr) {
        return {&row};
    }
    QList<const QTreeWidgetItem *> rows;
    for (int child = 0; child < row.childCount(); ++child) {
        rows << row.child(child);
    }
    return rows;
}

} // namespace

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
    matchLists(*episodeTree);
    episodeTree->setItemDelegate(new EpisodeDelegate(episodeTree));
    addRowMenu(episodeTree, [this](QMenu &menu, const QModelIndex &index) {
        if (const QTreeWidgetItem *row = episodeTree->itemFromIndex(index)) {
            fillRowMenu(menu, *row);
        }
    });
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
    shownShow.name = seriesName;
    episodeTitleLabel->setText(seriesName);
    clear();
}

void EpisodePage::clear()
{
    showEpisodes({}, {}, {}, {});
}

void EpisodePage::showEpisodes(const QString &source, const QString &showId,
                               const QList<Episode> &episodes, const XtreamAccount &account)
{
    shownShow.source = source;
    shownShow.kind = EntryKind::Show;
    shownShow.id = showId;
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

void EpisodePage::showProgress(const LibraryList<Progress> &progress)
{
    for (int top = 0; top < episodeTree->topLevelItemCount(); ++top) {
        const QTreeWidgetItem &season = *episodeTree->topLevelItem(top);
        for (int child = 0; child < season.childCount(); ++child) {
            QTreeWidgetItem &row = *season.child(child);
            const int index = row.data(0, Qt::UserRole).toInt();
            markRow(row, progress.value(shownEpisodes.at(index).id));
        }
    }
}

void EpisodePage::markRow(QTreeWidgetItem &row, const Progress &progress)
{
    const EntryMark mark{.watched = progress.watched, .percent = percentOf(progress)};
    setRowData(row, EpisodeDelegate::PercentRole, mark.percent > 0 ? mark.percent : QVariant());
    setRowData(row, EpisodeDelegate::WatchedRole, mark.watched ? QVariant(true) : QVariant());
    setRowData(row, Qt::AccessibleDescriptionRole,
               mark.isEmpty() ? QVariant() : describeMark(mark));
}

Progress EpisodePage::episodeOf(const QTreeWidgetItem &row) const
{
    const int index = row.data(0, Qt::UserRole).toInt();
    return progressOf(shownShow.source, shownShow.id, shownEpisodes.at(index),
                      index + 1 == shownEpisodes.size());
}

void EpisodePage::fillRowMenu(QMenu &menu, const QTreeWidgetItem &row)
{
    QList<Progress> episodes;
    bool allWatched = true;
    bool anyMarked = false;
    for (const QTreeWidgetItem *episodeRow : episodeRowsOf(row)) {
        episodes << episodeOf(*episodeRow);
        allWatched = allWatched && episodeRow->data(0, EpisodeDelegate::WatchedRole).toBool();
        anyMarked = anyMarked || episodeRow->data(0, Qt::AccessibleDescriptionRole).isValid();
    }
    if (!allWatched) {
        menu.addAction(tr("Mark as Watched"), this,
                       [this, episodes] { Q_EMIT markRequested(episodes, true); });
    }
    if (anyMarked) {
        menu.addAction(tr("Mark as Unwatched"), this,
                       [this, episodes] { Q_EMIT markRequested(episodes, false); });
    }
}

void EpisodePage::playEpisodeTreeItem(const QTreeWidgetItem *item)
{
    const QVariant index = item != nullptr ? item->data(0, Qt::UserRole) : QVariant();
    if (index.isValid() && index.toInt() >= 0 && index.toInt() < shownEpisodes.size()) {
        Q_EMIT episodeChosen(index.toInt());
    }
}
