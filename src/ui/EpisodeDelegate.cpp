#include "ui/EpisodeDelegate.h"

#include "ui/EntryMarks.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

void EpisodeDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(WatchedRole).toBool()) {
        // Keeps the text away from the check mark, which takes the place of an icon.
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationPosition = QStyleOptionViewItem::Right;
        option->decorationSize = QSize(entryMarkSize, entryMarkSize);
    }
}

void EpisodeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const int percent = index.data(PercentRole).toInt();
    if (percent > 0) {
        paintProgressBar(*painter, option.rect, percent);
    }
    if (index.data(WatchedRole).toBool()) {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QStyle *style = row.widget != nullptr ? row.widget->style() : QApplication::style();
        paintCheckMark(*painter,
                       style->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget));
    }
}
