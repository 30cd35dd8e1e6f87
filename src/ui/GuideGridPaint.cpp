#include "guide/CatchUp.h"
#include "ui/ElidedText.h"
#include "ui/GuideGrid.h"
#include "ui/GuideTexts.h"
#include "ui/GuideTitles.h"

#include <QDateTime>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

// The part of GuideGrid that paints.

namespace {

constexpr int padding = 6;
const QColor nowColor(0xef4444);

/// A small arrow in a circle: it can be played again.
void paintArchiveMark(QPainter &painter, const QRect &area, const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5));
    const QPointF middle = QRectF(area).center();
    const double size = area.width() / 4.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{middle + QPointF(-size * 0.7, -size), middle + QPointF(size, 0),
                                  middle + QPointF(-size * 0.7, size)});
    painter.restore();
}

} // namespace

void GuideGrid::paintEvent(QPaintEvent *event)
{
    const GuideGridLayout layout = gridLayout();
    wantVisible(layout);
    QPainter painter(viewport());
    painter.setLayoutDirection(layoutDirection());
    const QRect damaged = event->rect();
    painter.fillRect(damaged, palette().base());
    // A scroll step damages the rows that have come into view.
    const int top = layout.rowAt(damaged.top());
    const int bottom = layout.rowAt(damaged.bottom());
    const int first = top >= 0 ? top : layout.firstRow();
    const int last = bottom >= 0 ? bottom : layout.lastRow();
    paintCells(painter, layout, first, last);
    paintNames(painter, layout, first, last);
    paintHeader(painter, layout);
}

/// Asks also for a page more in both directions and for the next hour, so that slow scrolling finds
/// the titles there.
void GuideGrid::wantVisible(const GuideGridLayout &layout)
{
    constexpr qint64 ahead = 3600;
    const int page = layout.rowsOfPage();
    QStringList ids;
    for (int wanted = std::max(0, layout.firstRow() - page);
         wanted <= std::min(layout.rows - 1, layout.lastRow() + page); ++wanted) {
        ids.append(entries.at(wanted).id);
    }
    titles->want(ids, layout.firstTime() - ahead, layout.lastTime() + ahead);
}

void GuideGrid::paintCells(QPainter &painter, const GuideGridLayout &layout, int first, int last)
{
    const QRect cells = layout.cells();
    painter.save();
    painter.setClipRect(isRightToLeft() ? layout.mirrored(cells) : cells);
    for (int shown = first; shown <= last; ++shown) {
        paintRow(painter, layout, shown);
    }
    if (row >= 0) {
        const Span span = currentSpan();
        QRect cell = layout.cellOf(row, span.start, span.stop);
        cell = (isRightToLeft() ? layout.mirrored(cell) : cell).adjusted(1, 1, -2, -2);
        painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Text), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(cell);
    }
    painter.restore();
    paintNow(painter, layout);
}

void GuideGrid::paintRow(QPainter &painter, const GuideGridLayout &layout, int ofRow)
{
    const QString id = entries.at(ofRow).id;
    const GuideSchedule schedule = titles->schedule(id, layout.firstTime(), layout.lastTime());
    const bool isHere = titles->isHere(id, layout.firstTime(), layout.lastTime());
    awaitsTitles = awaitsTitles || !isHere;
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    bool isEmpty = isHere;
    for (const GuideProgramme &programme : schedule.programmes) {
        if (programme.stop > layout.firstTime() && programme.start < layout.lastTime()) {
            const bool inArchive = programme.stop <= now &&
                                   archiveHolds(schedule.entry.catchUp,
                                                {programme.start, programme.stop, QString(), now});
            paintCell(painter, layout, ofRow, programme, inArchive);
            isEmpty = false;
        }
    }
    if (isEmpty) {
        QRect area = layout.cellOf(ofRow, layout.firstTime(), layout.lastTime());
        area = isRightToLeft() ? layout.mirrored(area) : area;
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(area.adjusted(padding, 0, -padding, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         tr("No information"));
    }
}

void GuideGrid::paintCell(QPainter &painter, const GuideGridLayout &layout, int ofRow,
                          const GuideProgramme &programme, bool inArchive) const
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const bool runs = programme.start <= now && now < programme.stop;
    const bool isOver = programme.stop <= now;
    QRect cell = layout.cellOf(ofRow, programme.start, programme.stop);
    // The title begins at the visible edge.
    QRect text =
        cell.intersected(layout.cells().adjusted(0, -layout.rowHeight, 0, layout.rowHeight));
    if (isRightToLeft()) {
        cell = layout.mirrored(cell);
        text = layout.mirrored(text);
    }
    constexpr int lighter = 150;
    const QColor usual = palette().color(QPalette::AlternateBase);
    const QColor color = runs     ? usual.lighter(lighter)
                         : isOver ? palette().color(QPalette::Window)
                                  : usual;
    painter.fillRect(cell.adjusted(0, 0, -1, -1), color);
    text.adjust(padding, 0, -padding, 0);
    const QColor textColor = palette().color(isOver ? QPalette::PlaceholderText : QPalette::Text);
    constexpr int markSize = 14;
    if (inArchive && text.width() > 2 * markSize) {
        const QRect mark = QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter,
                                               QSize(markSize, markSize), text);
        paintArchiveMark(painter, mark, textColor);
        const int taken = markSize + padding;
        text.adjust(isRightToLeft() ? taken : 0, 0, isRightToLeft() ? 0 : -taken, 0);
    }
    // Where nothing of a title fits, a scroll step saves the time to find that out.
    if (text.width() > padding) {
        painter.setPen(textColor);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         elidedText(fontMetrics(), programme.title, text.width()));
    }
}

void GuideGrid::paintNow(QPainter &painter, const GuideGridLayout &layout) const
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    if (now < layout.firstTime() || now >= layout.lastTime()) {
        return;
    }
    const QRect line(layout.xOf(now), layout.headerHeight, 2, layout.cells().height());
    painter.fillRect(isRightToLeft() ? layout.mirrored(line) : line, nowColor);
}

void GuideGrid::paintNames(QPainter &painter, const GuideGridLayout &layout, int first,
                           int last) const
{
    for (int shown = first; shown <= last; ++shown) {
        QRect area = layout.nameOf(shown);
        area = isRightToLeft() ? layout.mirrored(area) : area;
        const bool isCurrent = shown == row;
        painter.fillRect(area.adjusted(0, 0, -1, -1),
                         palette().color(isCurrent ? QPalette::Highlight : QPalette::Window));
        QRect text = area.adjusted(padding, 0, -padding, 0);
        if (markOf && markOf(entries.at(shown)).favorite) {
            paintStar(painter,
                      QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter,
                                          QSize(entryMarkSize, entryMarkSize), text));
            const int taken = entryMarkSize + padding;
            text.adjust(isRightToLeft() ? taken : 0, 0, isRightToLeft() ? 0 : -taken, 0);
        }
        painter.setPen(palette().color(isCurrent ? QPalette::HighlightedText : QPalette::Text));
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         elidedText(fontMetrics(), entries.at(shown).name, text.width()));
    }
}

void GuideGrid::paintHeader(QPainter &painter, const GuideGridLayout &layout) const
{
    const QRect header(0, 0, layout.viewport.width(), layout.headerHeight);
    const QColor ink = palette().color(QPalette::PlaceholderText);
    painter.fillRect(header, palette().color(QPalette::Window));
    painter.setPen(ink);
    const qint64 width = layout.xOf(layout.begin + 1800) - layout.xOf(layout.begin);
    const QList<qint64> times = halfHours(layout.firstTime() - 1800, layout.lastTime(), zone);
    for (const qint64 shown : times) {
        QRect area(layout.xOf(shown), 0, static_cast<int>(width), layout.headerHeight);
        area = isRightToLeft() ? layout.mirrored(area) : area;
        const int edge = isRightToLeft() ? area.right() : area.left();
        painter.fillRect(QRect(edge, layout.headerHeight / 2, 1, layout.headerHeight / 2), ink);
        painter.drawText(area.adjusted(padding, 0, -padding, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         clockText(shown, zone));
    }
    QRect corner(0, 0, layout.namesWidth, layout.headerHeight);
    corner = isRightToLeft() ? layout.mirrored(corner) : corner;
    painter.fillRect(corner, palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::Text));
    const QDate today = dayOf(QDateTime::currentSecsSinceEpoch(), zone);
    const QString date = dayText(shownDay(), today);
    painter.drawText(corner.adjusted(padding, 0, -padding, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(date, Qt::ElideRight, corner.width() - 2 * padding));
}
