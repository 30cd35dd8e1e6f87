#pragma once

#include "ui/ScheduleModel.h"

#include <QStyledItemDelegate>

class QListWidgetItem;

/// Makes the item of a schedule's list show a row.
void showRow(QListWidgetItem &item, const QString &text, const ScheduleRow &row, bool hasReminder);

/// Paints the items of a schedule's list: their texts, and at their ends the marks of what the
/// archive holds and of reminders.
class ScheduleDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
