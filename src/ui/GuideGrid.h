#pragma once

#include "ui/EntryMarks.h"
#include "ui/GuideGridLayout.h"
#include "ui/ShownEntries.h"

#include <QAbstractScrollArea>
#include <QDate>
#include <QList>
#include <QTimeZone>
#include <QTimer>

#include <optional>

class Guide;
class GuideTitles;

/// Shows what runs on the channels of a list: channels from top to bottom, time from left to right,
/// and a line for now. Names and half hours stay where they are while the programmes scroll.
///
/// There is a current channel and a current time, and with them a current programme as soon as the
/// guide has told of it. Only what is visible is painted and asked for.
class GuideGrid final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit GuideGrid(QWidget *parent = nullptr);

    /// Not owned; null for none. Scrolls to now.
    void setGuide(Guide *guide);
    /// Row r shows the channel of entry r. The current row and the scrolling stay.
    void setEntries(const ShownEntries &entries);
    /// Without it, no entry has a mark.
    void setMarks(const MarkOfEntry &marks) { markOf = marks; }

    /// -1 when there is no row.
    int currentRow() const { return row; }
    /// Of the current row's entry.
    QString currentId() const;
    /// Nothing in a gap of the guide, and before the guide has answered.
    std::optional<GuideProgramme> currentProgramme() const;
    /// Whether the archive holds the current programme, which is over.
    bool isCurrentInArchive() const;
    void setCurrentRow(int newRow);

    /// Scrolls to now, and makes what runs on the current channel current.
    void showNow();
    /// The days that can be scrolled to: from the oldest one of an archive that is known so far to
    /// the last one that a guide keeps.
    QList<QDate> days() const;
    /// Scrolls to the same time on that day.
    void showDay(const QDate &day);
    /// The day on which the visible part begins.
    QDate shownDay() const;

Q_SIGNALS:
    /// The user chose what runs now, or a channel.
    void activated(const MediaItem &item);
    /// The user chose another programme.
    void programmeActivated(const MediaItem &item, const GuideProgramme &programme);
    /// For the current row.
    void contextMenuRequested(const QPoint &globalPlace);
    /// Another cell is current, or more is known of it.
    void currentChanged();
    /// shownDay() or days() may be others.
    void daysChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    struct Span
    {
        qint64 start = 0;
        qint64 stop = 0;
    };

    GuideGridLayout gridLayout() const;
    void takeTitles();
    void followClock();
    void updateDays();
    void updateScrollBars();
    void describeCurrent();

    void moveRows(int distance);
    void moveTime(bool forwards);
    void moveDays(int days);
    void makeCurrent(int newRow, qint64 newTime);
    void scrollToCurrent();
    void activateCurrent();
    GuideSchedule currentSchedule(qint64 around) const;
    Span currentSpan() const;

    // ---- GuideGridInput.cpp ----
    bool moveByKey(const QKeyEvent &event);
    bool makeCurrentAt(const QPoint &place);
    QPoint unmirrored(const QPoint &place) const;

    // ---- GuideGridPaint.cpp ----
    void wantVisible(const GuideGridLayout &layout);
    void paintCells(QPainter &painter, const GuideGridLayout &layout, int first, int last);
    void paintRow(QPainter &painter, const GuideGridLayout &layout, int ofRow);
    void paintCell(QPainter &painter, const GuideGridLayout &layout, int ofRow,
                   const GuideProgramme &programme, bool inArchive) const;
    void paintNow(QPainter &painter, const GuideGridLayout &layout) const;
    void paintNames(QPainter &painter, const GuideGridLayout &layout, int first, int last) const;
    void paintHeader(QPainter &painter, const GuideGridLayout &layout) const;

    GuideTitles *titles;
    ShownEntries entries;
    MarkOfEntry markOf;
    QTimeZone zone = QTimeZone::systemTimeZone();
    bool awaitsTitles = false; ///< of rows that were painted without them
    QTimer clock;              ///< runs while the grid is on screen
    qint64 begin = 0;          ///< of the first day
    qint64 end = 0;
    int row = -1;    ///< the current one
    qint64 time = 0; ///< the current one
};
