#include "ui/EntryTable.h"

#include "ui/EntryRowDelegate.h"
#include "ui/OnNowLines.h"

#include <QAction>
#include <QDropEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// While the user scrolls, the rows are asked for this often.
constexpr int visibleRowsMs = 60;

/// A cell that shows the name of an entry, which must outlive it.
class NameCell final : public QTableWidgetItem
{
public:
    explicit NameCell(const MediaItem &entryToShow)
        : entry(&entryToShow)
    {}

    void show(const MediaItem &entryToShow) { entry = &entryToShow; }

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return entry->name.toString();
        case Qt::AccessibleDescriptionRole:
            return description();
        case Qt::ToolTipRole:
            return onNow() ? onNowToolTip(*onNow()) : QVariant();
        default:
            return QTableWidgetItem::data(role);
        }
    }

private:
    const EntryTable *table() const { return static_cast<const EntryTable *>(tableWidget()); }
    std::optional<OnNow> onNow() const { return table()->onNow(*entry); }
    QString description() const
    {
        const QString mark = describeMark(table()->mark(*entry));
        const QString running = onNow() ? onNowText(*onNow()) : QString();
        return mark.isEmpty() || running.isEmpty() ? mark + running : mark + u", "_s + running;
    }

    const MediaItem *entry;
};

} // namespace

EntryTable::EntryTable(const QString &heading, QWidget *parent)
    : QTableWidget(parent)
    , moveUp(addMoveAction(tr("Move Up"), QKeySequence(Qt::ALT | Qt::Key_Up), -1))
    , moveDown(addMoveAction(tr("Move Down"), QKeySequence(Qt::ALT | Qt::Key_Down), 1))
{
    setColumnCount(1);
    setHorizontalHeaderLabels({heading});
    horizontalHeader()->setStretchLastSection(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    verticalHeader()->hide();
    // Tab leaves the table instead of moving from cell to cell.
    setTabKeyNavigation(false);
    setItemDelegate(new EntryRowDelegate(this, [this](int row) {
        const MediaItem &entry = shown.at(row);
        return EntryRow{mark(entry), onNow(entry), onNowLines != nullptr};
    }));
    plainRowHeight = verticalHeader()->defaultSectionSize();
    setMovable(false);
}

void EntryTable::fill(const ShownEntries &entries)
{
    shown = entries;
    setRowCount(entries.count());
    {
        // One update of the view for all rows instead of one for each.
        const QSignalBlocker blocker(model());
        for (int row = 0; row < entries.count(); ++row) {
            if (auto *cell = static_cast<NameCell *>(item(row, 0)); cell != nullptr) {
                cell->show(entries.at(row));
            } else {
                setItem(row, 0, new NameCell(entries.at(row)));
            }
        }
    }
    viewport()->update();
    noteVisibleRows();
}

// ---- what runs ----

void EntryTable::setGuide(Guide *guide)
{
    delete std::exchange(onNowLines, nullptr);
    delete std::exchange(visibleRowsTimer, nullptr);
    verticalHeader()->setDefaultSectionSize(
        guide != nullptr ? EntryRowDelegate::heightWithGuide(*this) : plainRowHeight);
    viewport()->update();
    if (guide == nullptr) {
        return;
    }
    onNowLines = new OnNowLines(guide, this);
    connect(onNowLines, &OnNowLines::changed, viewport(), qOverload<>(&QWidget::update));
    visibleRowsTimer = new QTimer(this);
    visibleRowsTimer->setSingleShot(true);
    visibleRowsTimer->setInterval(visibleRowsMs);
    connect(visibleRowsTimer, &QTimer::timeout, this, [this] {
        QStringList ids;
        const int first = std::max(0, rowAt(0));
        const int last = rowAt(viewport()->height() - 1);
        for (int row = first; isVisible() && row <= (last < 0 ? shown.count() - 1 : last); ++row) {
            ids << shown.at(row).id.toString();
        }
        onNowLines->setVisible(ids);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, visibleRowsTimer,
            [this] { noteVisibleRows(); });
    noteVisibleRows();
}

std::optional<OnNow> EntryTable::onNow(const MediaItem &entry) const
{
    return onNowLines != nullptr ? onNowLines->find(entry.id) : std::nullopt;
}

/// Asks for the rows that are visible once scrolling pauses.
void EntryTable::noteVisibleRows()
{
    if (visibleRowsTimer != nullptr && !visibleRowsTimer->isActive()) {
        visibleRowsTimer->start();
    }
}

void EntryTable::resizeEvent(QResizeEvent *event)
{
    QTableWidget::resizeEvent(event);
    noteVisibleRows();
}

void EntryTable::showEvent(QShowEvent *event)
{
    QTableWidget::showEvent(event);
    noteVisibleRows();
}

QAction *EntryTable::addMoveAction(const QString &text, const QKeySequence &keys, int distance)
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, distance] {
        const int from = currentRow();
        if (from >= 0 && from + distance >= 0 && from + distance < rowCount()) {
            Q_EMIT rowMoved(from, distance > 0 ? from + distance + 1 : from + distance);
        }
    });
    return action;
}

void EntryTable::setMovable(bool movable)
{
    setDragEnabled(movable);
    setDragDropMode(movable ? QAbstractItemView::InternalMove : QAbstractItemView::NoDragDrop);
    setDropIndicatorShown(movable);
    setDragDropOverwriteMode(false); // the mark is a line between two rows
    for (QAction *action : moveActions()) {
        action->setEnabled(movable);
    }
}

void EntryTable::dropEvent(QDropEvent *event)
{
    const int from = currentRow();
    const QModelIndex target = indexAt(event->position().toPoint());
    int to = target.isValid() ? target.row() : rowCount();
    if (target.isValid() && dropIndicatorPosition() == QAbstractItemView::BelowItem) {
        ++to;
    }
    // The view would remove the row that a move leaves behind.
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    if (event->source() == this && from >= 0 && to != from && to != from + 1) {
        Q_EMIT rowMoved(from, to);
    }
}
