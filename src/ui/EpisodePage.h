#pragma once

#include "model/CatalogRecords.h"
#include "providers/XtreamAccount.h"

#include <QList>
#include <QString>
#include <QWidget>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

/// The page of one show: its name, and a tree of its seasons and episodes.
class EpisodePage final : public QWidget
{
    Q_OBJECT

public:
    explicit EpisodePage(QWidget *parent = nullptr);

    /// The show whose page this is.
    const QString &seriesName() const { return currentSeriesName; }
    /// Its episodes in the order of the provider, which the indexes of episodeChosen() count.
    const QList<Episode> &episodes() const { return shownEpisodes; }
    /// The account that the episodes come from.
    const XtreamAccount &account() const { return shownAccount; }

    /// Shows the name of a show above an empty tree.
    void open(const QString &seriesName);
    /// Fills the tree. Seasons stand in the order in which they first occur.
    void showEpisodes(const QList<Episode> &episodes, const XtreamAccount &account);
    /// Emits episodeChosen() for a row of the tree. A season's row, a row that is not among the
    /// episodes, and null do nothing.
    void playEpisodeTreeItem(const QTreeWidgetItem *item);

Q_SIGNALS:
    /// The user chose the episode of that index.
    void episodeChosen(int index);
    /// The user asked for the list of shows.
    void backRequested();

private:
    QTreeWidgetItem *addSeasonRow(qint32 season);

    QLabel *episodeTitleLabel = nullptr;
    QTreeWidget *episodeTree = nullptr;
    QString currentSeriesName;
    QList<Episode> shownEpisodes;
    XtreamAccount shownAccount;
};
