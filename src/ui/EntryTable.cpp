#include "ui/EntryTable.h"

#include <QAction>
#include <QDropEvent>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace {

/// A cell that shows the name of an entry, which must outlive it.
class NameCell final : public QTableWidgetItem
{
public:
    explicit NameCell(const MediaItem &shownEntry)
        : entry(&shownEntry)
    {}

    void show(const MediaItem &shownEntry) { entry = &shownEntry; }
    EntryMark mark() const { return static_cast<const EntryTable *>(tableWidget())->mark(*entry); }

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return entry->name.toString();
        case Qt::AccessibleDescriptionRole:
            return describeMark(mark());
        default:
            return QTableWidgetItem::data(role);
        }
    }

private:
    const MediaItem *entry;
};

/// Paints the star of a favorite at the end of its row.
class StarDelegate final : public QStyledItemDelegate
{
public:
    explicit StarDelegate(EntryTable *entryTable)
        : QStyledItemDelegate(entryTable)
        , table(entryTable)
    {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        const auto *cell = static_cast<const NameCell *>(table->item(index.row(), index.column()));
        if (cell == nullptr || !cell->mark().favorite) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        constexpr int margin = 4;
        const QRect star = QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                                               QSize(entryMarkSize, entryMarkSize),
                                               option.rect.adjusted(margin, 0, -margin, 0));
        QStyledItemDelegate::paint(painter, option, index);
        paintStar(*painter, star);
    }

private:
    EntryTable *table;
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
    setItemDelegate(new StarDelegate(this));
    setMovable(false);
}

void EntryTable::fill(const ShownEntries &entries)
{
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
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (event->source() == this && from >= 0 && to != from && to != from + 1) {
        Q_EMIT rowMoved(from, to);
    }
}
