#include "ui/PosterGrid.h"

#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QEvent>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTimer>

namespace {

/// Posters this far above and below the visible part are requested too, in pixels.
constexpr int prefetchMargin = 400;
/// A list view waits 100 ms for further changes of its size before it lays out its items.
constexpr int relayoutDelayMs = 150;

void setUpList(QListWidget *list)
{
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setWrapping(true);
    list->setUniformItemSizes(true);
    list->setIconSize(posterSize);
    list->setSpacing(10);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setFrameShape(QFrame::NoFrame);
    list->setWordWrap(true);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

} // namespace

/// Shows an entry, which must outlive it, with the icon of its URL.
class PosterItem final : public QListWidgetItem
{
public:
    PosterItem(const MediaItem &shownEntry, const PosterGrid &posterGrid)
        : entry(&shownEntry)
        , grid(&posterGrid)
    {}

    void show(const MediaItem &shownEntry)
    {
        entry = &shownEntry;
        isRequested = false;
    }
    QString url() const { return entry->iconUrl; }
    EntryMark mark() const { return grid->mark(*entry); }

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return entry->name.toString();
        case Qt::DecorationRole:
            return grid->icon(entry->iconUrl);
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(Qt::AlignHCenter | Qt::AlignTop);
        case Qt::AccessibleDescriptionRole:
            return describeMark(mark());
        case PosterRole::IconUrl:
            return entry->iconUrl.toString();
        case PosterRole::Requested:
            return isRequested ? QVariant(true) : QVariant();
        default:
            return QListWidgetItem::data(role);
        }
    }

    bool isRequested = false;

private:
    const MediaItem *entry;
    const PosterGrid *grid;
};

namespace {

/// Reserves the space of a whole poster for each entry, whatever the size of its picture. The grid
/// takes the size of one item for all. Marks lie over the poster.
class PosterDelegate final : public QStyledItemDelegate
{
public:
    explicit PosterDelegate(QListWidget *posterList)
        : QStyledItemDelegate(posterList)
        , list(posterList)
    {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const auto *item = static_cast<const PosterItem *>(list->item(index.row()));
        const EntryMark mark = item != nullptr ? item->mark() : EntryMark();
        if (!mark.isEmpty()) {
            QStyleOptionViewItem withPoster = option;
            initStyleOption(&withPoster, index);
            paintMark(
                *painter,
                list->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &withPoster, list),
                mark);
        }
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationSize = posterSize;
    }

private:
    static void paintMark(QPainter &painter, const QRect &poster, const EntryMark &mark)
    {
        constexpr int margin = 4;
        const QRect corners = poster.adjusted(margin, margin, -margin, -margin);
        const QSize size(entryMarkSize, entryMarkSize);
        if (mark.favorite) {
            paintStar(painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignRight | Qt::AlignTop,
                                                   size, corners));
        }
        if (mark.watched) {
            paintCheckMark(
                painter,
                QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft | Qt::AlignTop, size, corners));
        }
        if (mark.percent > 0) {
            paintProgressBar(painter, poster, mark.percent);
        }
    }

    QListWidget *list;
};

} // namespace

RowRange rowsInBand(const QListWidget &grid, const QRect &band)
{
    const auto rectOf = [&grid](int row) { return grid.visualItemRect(grid.item(row)); };
    // The first row for which isPast() holds; it holds for every row after it.
    const auto firstRow = [&grid](const auto &isPast) {
        int low = 0;
        int high = grid.count();
        while (low < high) {
            const int middle = low + (high - low) / 2;
            if (isPast(middle)) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return low;
    };
    RowRange range;
    range.first = firstRow([&](int row) { return rectOf(row).bottom() >= band.top(); });
    range.last = firstRow([&](int row) { return rectOf(row).top() > band.bottom(); }) - 1;
    return range;
}

PosterGrid::PosterGrid(QListWidget *widget, PosterStore *store)
    : QObject(widget)
    , list(widget)
    , posters(store)
{
    setUpList(list);
    list->setItemDelegate(new PosterDelegate(list));
    list->viewport()->installEventFilter(this);
    connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &PosterGrid::requestVisible);
    connect(posters, &PosterStore::posterReady, this, &PosterGrid::showPoster);
    connect(posters, &PosterStore::posterEvicted, this, &PosterGrid::dropPoster);
    connect(posters, &PosterStore::requestAbandoned, this, &PosterGrid::retry);
    connect(posters, &PosterStore::idle, this, &PosterGrid::requestVisible);
}

void PosterGrid::fill(const ShownEntries &newEntries)
{
    {
        // One reset of the view instead of an update for each item.
        const QSignalBlocker blocker(list->model());
        for (int row = list->count(); row > newEntries.count(); --row) {
            delete list->takeItem(row - 1);
        }
        for (int row = 0; row < list->count(); ++row) {
            itemAt(row)->show(newEntries.at(row));
        }
        for (int row = list->count(); row < newEntries.count(); ++row) {
            list->addItem(new PosterItem(newEntries.at(row), *this));
        }
    }
    entries = newEntries;
    icons.clear();
    lost.clear();
    if (!posters->isBusy()) {
        awaited.clear(); // those failed
    }
    list->reset();
    QTimer::singleShot(0, this, &PosterGrid::requestVisible);
}

QIcon PosterGrid::icon(const QString &url) const
{
    return icons.value(url, posters->placeholder());
}

QRect PosterGrid::nearBand() const
{
    return list->viewport()->rect().adjusted(0, -prefetchMargin, 0, prefetchMargin);
}

PosterItem *PosterGrid::itemAt(int row) const
{
    return static_cast<PosterItem *>(list->item(row));
}

void PosterGrid::requestVisible()
{
    const QRect band = nearBand();
    const RowRange rows = rowsInBand(*list, band);
    for (int row = rows.first; row <= rows.last; ++row) {
        PosterItem *item = itemAt(row);
        const bool isWanted = !item->isRequested || lost.contains(item->url());
        // A view may be narrower than the space before its items.
        if (isWanted && list->visualItemRect(item).intersects(band)) {
            item->isRequested = true;
            requestPoster(item->url());
        }
    }
}

void PosterGrid::requestPoster(const QString &url)
{
    lost.remove(url);
    if (const QIcon known = posters->find(url); !known.isNull()) {
        icons.insert(url, known);
        repaint(url);
    } else if (posters->request(url)) {
        awaited.insert(url);
    } else {
        lost.insert(url);
    }
}

void PosterGrid::showPoster(const QString &url, const QIcon &poster)
{
    if (awaited.remove(url)) {
        lost.remove(url);
        icons.insert(url, poster);
        repaint(url);
    }
    keepVisible();
}

void PosterGrid::dropPoster(const QString &url)
{
    if (icons.remove(url)) {
        lost.insert(url);
        repaint(url);
    }
}

void PosterGrid::retry(const QString &url)
{
    if (awaited.remove(url)) {
        lost.insert(url);
        requestVisible();
    }
}

/// What is near the visible part stays in memory.
void PosterGrid::keepVisible()
{
    const RowRange rows = rowsInBand(*list, nearBand());
    for (int row = rows.first; row <= rows.last; ++row) {
        posters->find(itemAt(row)->url());
    }
}

/// Paints the items of that URL that are on screen.
void PosterGrid::repaint(const QString &url)
{
    const RowRange rows = rowsInBand(*list, list->viewport()->rect());
    for (int row = rows.first; row <= rows.last; ++row) {
        if (const PosterItem *item = itemAt(row); item->url() == url) {
            list->viewport()->update(list->visualItemRect(item));
        }
    }
}

bool PosterGrid::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == list->viewport()) {
        requestAfterResize();
    }
    return QObject::eventFilter(watched, event);
}

void PosterGrid::requestAfterResize()
{
    requestVisible();
    QTimer::singleShot(relayoutDelayMs, this, &PosterGrid::requestVisible);
}
