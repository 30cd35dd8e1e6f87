#include "ui/PosterGrid.h"

#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QEvent>
#include <QListWidget>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

namespace {

/// Posters this far above and below the visible part are requested too, in pixels.
constexpr int prefetchMargin = 400;
/// A list view waits 100 ms for further changes of its size before it lays out its items.
constexpr int relayoutDelayMs = 150;

/// Reserves the space of a whole poster for each entry, whatever the size of its picture. The grid
/// takes the size of one item for all.
class PosterDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationSize = posterSize;
    }
};

void setUpList(QListWidget *list)
{
    list->setViewMode(QListView::IconMode);
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setWrapping(true);
    list->setUniformItemSizes(true);
    list->setIconSize(posterSize);
    list->setItemDelegate(new PosterDelegate(list));
    list->setSpacing(10);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setFrameShape(QFrame::NoFrame);
    list->setWordWrap(true);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

/// A change of an item repaints it, so the same icon is not set again.
void setIcon(QListWidgetItem *item, const QIcon &icon)
{
    if (item->icon().cacheKey() != icon.cacheKey()) {
        item->setIcon(icon);
    }
}

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
    list->viewport()->installEventFilter(this);
    connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &PosterGrid::requestVisible);
    connect(posters, &PosterStore::posterReady, this, &PosterGrid::showPoster);
    connect(posters, &PosterStore::posterEvicted, this, &PosterGrid::dropPoster);
    connect(posters, &PosterStore::requestAbandoned, this, &PosterGrid::retry);
    connect(posters, &PosterStore::idle, this, &PosterGrid::requestLost);
}

void PosterGrid::fill(const QList<MediaItem> &entries)
{
    list->clear();
    rowsOfUrl.clear();
    shown.clear();
    lost.clear();
    if (!posters->isBusy()) {
        awaited.clear(); // those failed
    }
    for (const MediaItem &entry : entries) {
        // Given to the list only when complete: a change of an item in a list is costly.
        auto *item = new QListWidgetItem(posters->placeholder(), entry.name);
        item->setTextAlignment(Qt::AlignHCenter | Qt::AlignTop);
        item->setData(PosterRole::IconUrl, entry.iconUrl);
        list->addItem(item);
    }
    QTimer::singleShot(0, this, &PosterGrid::requestVisible);
}

QRect PosterGrid::nearBand() const
{
    return list->viewport()->rect().adjusted(0, -prefetchMargin, 0, prefetchMargin);
}

QString PosterGrid::urlOf(int row) const
{
    return list->item(row)->data(PosterRole::IconUrl).toString();
}

void PosterGrid::requestVisible()
{
    const QRect band = nearBand();
    const RowRange rows = rowsInBand(*list, band);
    for (int row = rows.first; row <= rows.last; ++row) {
        QListWidgetItem *item = list->item(row);
        const bool requested = item->data(PosterRole::Requested).toBool();
        if ((requested && lost.isEmpty()) || !list->visualItemRect(item).intersects(band)) {
            continue;
        }
        const QString url = urlOf(row);
        if (!requested) {
            item->setData(PosterRole::Requested, true);
            requestPoster(item, url);
        } else if (lost.contains(url)) {
            requestPoster(item, url);
        }
    }
}

void PosterGrid::requestPoster(QListWidgetItem *item, const QString &url)
{
    lost.remove(url);
    if (const QIcon known = posters->find(url); !known.isNull()) {
        shown.insert(url);
        setIcon(item, known);
    } else if (posters->request(url)) {
        awaited.insert(url);
    } else {
        lost.insert(url);
    }
}

void PosterGrid::showPoster(const QString &url, const QIcon &poster)
{
    if (awaited.remove(url) && setIcons(url, poster)) {
        lost.remove(url);
        shown.insert(url);
    }
    keepVisible();
}

void PosterGrid::dropPoster(const QString &url)
{
    if (shown.remove(url)) {
        setIcons(url, posters->placeholder());
        lost.insert(url);
    }
}

void PosterGrid::retry(const QString &url)
{
    if (awaited.remove(url)) {
        lost.insert(url);
        requestVisible();
    }
}

void PosterGrid::requestLost()
{
    if (!lost.isEmpty()) {
        requestVisible();
    }
}

/// What is near the visible part stays in memory.
void PosterGrid::keepVisible()
{
    const RowRange rows = rowsInBand(*list, nearBand());
    for (int row = rows.first; row <= rows.last; ++row) {
        posters->find(urlOf(row));
    }
}

bool PosterGrid::setIcons(const QString &url, const QIcon &icon)
{
    if (rowsOfUrl.isEmpty()) {
        rowsOfUrl.reserve(list->count());
        for (int row = 0; row < list->count(); ++row) {
            rowsOfUrl.insert(urlOf(row), row);
        }
    }
    const auto [first, last] = std::as_const(rowsOfUrl).equal_range(url);
    for (auto row = first; row != last; ++row) {
        setIcon(list->item(row.value()), icon);
    }
    return first != last;
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
