#pragma once

#include <QStyledItemDelegate>

/// Paints a row with the marks of what was watched: a bar below the text, and a check mark at the
/// right end. A row without the roles is painted as ever.
class EpisodeDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// How far the episode was watched; nothing where there is nothing to continue.
    static constexpr int PercentRole = Qt::UserRole + 1;
    /// True on a row with a check mark.
    static constexpr int WatchedRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
