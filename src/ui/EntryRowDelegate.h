#pragma once

#include "guide/GuideRecords.h"
#include "ui/EntryMarks.h"

#include <QStyledItemDelegate>

#include <functional>
#include <optional>

/// What a row of an EntryTable shows beside the name.
struct EntryRow
{
    EntryMark mark;
    std::optional<OnNow> onNow;
    bool hasGuide = false; ///< the row has a second line, even if nothing is known to run
};

/// Paints the rows of an EntryTable: the name, the star of a favorite at the end of the row, and
/// with a guide what runs, with a thin bar that tells how much of it is over.
class EntryRowDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using RowContents = std::function<EntryRow(int row)>;

    /// `contents` is called for rows that show.
    EntryRowDelegate(QWidget *table, RowContents contents);

    /// The height of a row with two lines, in pixels.
    static int heightWithGuide(const QWidget &table);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void paintWithGuide(QPainter *painter, const QStyleOptionViewItem &option,
                        const QModelIndex &index, const EntryRow &row) const;

    RowContents contentsOf;
};
