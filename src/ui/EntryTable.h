#pragma once

#include "ui/EntryMarks.h"
#include "ui/ShownEntries.h"

#include <QTableWidget>

#include <optional>

class Guide;
class OnNowLines;

class QAction;
class QTimer;

struct OnNow;

/// Shows the names of entries as the rows of a table with one column; with a guide, what runs on
/// each below its name.
class EntryTable final : public QTableWidget
{
    Q_OBJECT

public:
    explicit EntryTable(const QString &heading, QWidget *parent = nullptr);

    /// Replaces the rows: row r shows entry r. The entries must outlive them.
    void fill(const ShownEntries &entries);

    /// Without it, no entry has a mark. To be called before the table is filled.
    void setMarks(const MarkOfEntry &marks) { markOf = marks; }
    /// Of an entry that shows.
    EntryMark mark(const MediaItem &entry) const { return markOf ? markOf(entry) : EntryMark(); }

    /// Shows what runs on the entries by this guide, which is not owned; without one (null) the
    /// rows have their names only, as at first.
    void setGuide(Guide *guide);
    /// What is known to run on an entry that shows; nothing without a guide.
    std::optional<OnNow> onNow(const MediaItem &entry) const;

    /// Whether the user may move rows, by dragging and by key. Not at first.
    void setMovable(bool movable);
    /// What moves the current row; disabled when the rows cannot be moved.
    QList<QAction *> moveActions() const { return {moveUp, moveDown}; }

Q_SIGNALS:
    /// The user moved a row to where row `to` is now; `to` is the number of rows for the end.
    void rowMoved(int from, int to);

protected:
    void dropEvent(QDropEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void noteVisibleRows();
    QAction *addMoveAction(const QString &text, const QKeySequence &keys, int distance);

    MarkOfEntry markOf;
    ShownEntries shown;
    OnNowLines *onNowLines = nullptr;
    QTimer *visibleRowsTimer = nullptr; ///< together with `onNowLines`
    int plainRowHeight = 0;
    QAction *moveUp;
    QAction *moveDown;
};
