#pragma once

#include "ui/EntryMarks.h"
#include "ui/ShownEntries.h"

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>

class PosterItem;
class PosterStore;
class QListWidget;
class QListWidgetItem;
class QRect;

/// Item data roles of a poster grid.
namespace PosterRole {
inline constexpr int IconUrl = 0x0100 + 1; ///< Qt::UserRole + 1: the poster's URL
inline constexpr int Requested =
    0x0100 + 2; ///< Qt::UserRole + 2: true once the poster was requested
} // namespace PosterRole

/// The rows of a grid whose items reach into a band of the viewport, from `first` to `last`; none
/// when `last` is less than `first`. A binary search: the tops of a grid's items never fall from
/// row to row.
struct RowRange
{
    int first = 0;
    int last = -1;
};
RowRange rowsInBand(const QListWidget &grid, const QRect &band);

/// Shows entries in a list widget as a grid of posters.
///
/// Every item starts with the placeholder. Posters are requested for the items in and near the
/// visible part: after a fill, on each scroll step and after each resize. An item requests its
/// poster once per fill; a poster that has left the memory since is requested again when the item
/// comes near.
class PosterGrid final : public QObject
{
    Q_OBJECT

public:
    /// Sets up the widget, which becomes the parent. The store must outlive both.
    PosterGrid(QListWidget *widget, PosterStore *store);

    /// Replaces the items: row r shows entry r, whatever the event loop has painted. Requests
    /// follow from the event loop, when the items are laid out.
    void fill(const ShownEntries &entries);
    /// Requests the posters of the items in and near the visible part.
    void requestVisible();

    /// Without it, no entry has a mark. To be called before the grid is filled.
    void setMarks(const MarkOfEntry &marks) { markOf = marks; }
    /// Of an entry that shows.
    EntryMark mark(const MediaItem &entry) const { return markOf ? markOf(entry) : EntryMark(); }
    /// What an item of that URL shows.
    QIcon icon(const QString &url) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void requestAfterResize();
    void requestPoster(const QString &url);
    void showPoster(const QString &url, const QIcon &poster);
    void dropPoster(const QString &url);
    void retry(const QString &url);
    void keepVisible();
    void repaint(const QString &url);
    QRect nearBand() const;
    PosterItem *itemAt(int row) const;

    QListWidget *list;
    PosterStore *posters;
    QSet<QString> awaited; ///< requested and not arrived
    QSet<QString> lost;    ///< to be requested again when an item of theirs comes near
    MarkOfEntry markOf;
    ShownEntries entries;
    QHash<QString, QIcon> icons; ///< what the items of a URL show in place of the placeholder
};
