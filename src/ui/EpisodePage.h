#pragma once

#include "library/LibraryRecords.h"
#include "library/LibraryState.h"
#include "model/CatalogRecords.h"
#include "providers/XtreamAccount.h"

#include <QList>
#include <QString>
#include <QWidget>

class QLabel;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

/// The page of one show: its name, and a tree of its seasons and episodes. Marks show how far
/// episodes were watched.
class EpisodePage final : public QWidget
{
    Q_OBJECT

public:
    explicit EpisodePage(QWidget *parent = nullptr);

    /// The show whose page this is, as the library knows it. Source and id belong to the episodes,
    /// and are empty without any.
    const LibraryEntry &currentShow() const { return shownShow; }
    /// Its episodes in the order of the provider, which the indexes of episodeChosen() count.
    const QList<Episode> &episodes() const { return shownEpisodes; }
    /// The account that the episodes come from.
    const XtreamAccount &account() const { return shownAccount; }

    /// Shows the name of a show above an empty tree.
    void open(const QString &seriesName);
    /// Empties the tree; the name stays.
    void clear();
    /// Fills the tree with the episodes of the show with that id, from that source. Seasons stand
    /// in the order in which they first occur. Nothing is marked.
    void showEpisodes(const QString &source, const QString &showId, const QList<Episode> &episodes,
                      const XtreamAccount &account);
    /// Marks the episodes: a bar as long as the part that was watched, a check mark on the watched.
    void showProgress(const LibraryList<Progress> &progress);
    /// Emits episodeChosen() for a row of the tree. A season's row, a row that is not among the
    /// episodes, and null do nothing.
    void playEpisodeTreeItem(const QTreeWidgetItem *item);

Q_SIGNALS:
    /// The user chose the episode of that index.
    void episodeChosen(int index);
    /// The user asked to mark these episodes of the show.
    void markRequested(const QList<Progress> &episodes, bool watched);
    /// The user asked for the list of shows.
    void backRequested();

private:
    QTreeWidgetItem *addSeasonRow(qint32 season);
    static void markRow(QTreeWidgetItem &row, const Progress &progress);
    Progress episodeOf(const QTreeWidgetItem &row) const;
    void fillRowMenu(QMenu &menu, const QTreeWidgetItem &row);

    QLabel *episodeTitleLabel = nullptr;
    QTreeWidget *episodeTree = nullptr;
    LibraryEntry shownShow;
    QList<Episode> shownEpisodes;
    XtreamAccount shownAccount;
};
