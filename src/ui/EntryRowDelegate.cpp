#include "ui/EntryRowDelegate.h"

#include "ui/ElidedText.h"
#include "ui/OnNowLines.h"

#include <QApplication>
#include <QDateTime>
#include <QPainter>

#include <utility>

namespace {

constexpr int starMargin = 4;
constexpr int rowPadding = 10; ///< above, below and between the lines together
constexpr int barHeight = 3;
/// That of muted labels, and of what is selected.
const QColor secondLineColor(0x9498a3);
const QColor selectedSecondLineColor(0xe2e4e9);
const QColor barColor(0x3b82f6);
const QColor barBackground(0x16181d);

/// How much of a programme is over; what is left is nearer to the end of the line.
void paintBar(QPainter &painter, const QRect &bar, int percent, const QStyleOptionViewItem &option)
{
    constexpr int whole = 100;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    QRect over = bar;
    over.setWidth(bar.width() * percent / whole);
    painter.fillRect(bar, barBackground);
    // On the colour of the selection the usual one would not show.
    painter.fillRect(QStyle::visualRect(option.direction, bar, over),
                     isSelected ? QColor(Qt::white) : barColor);
}

} // namespace

EntryRowDelegate::EntryRowDelegate(QWidget *table, RowContents contents)
    : QStyledItemDelegate(table)
    , contentsOf(std::move(contents))
{}

int EntryRowDelegate::heightWithGuide(const QWidget &table)
{
    return 2 * table.fontMetrics().height() + barHeight + rowPadding;
}

void EntryRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    const EntryRow row = contentsOf(index.row());
    if (row.hasGuide) {
        paintWithGuide(painter, option, index, row);
    } else {
        QStyledItemDelegate::paint(painter, option, index);
    }
    if (row.mark.favorite) {
        paintStar(*painter,
                  QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                                      QSize(entryMarkSize, entryMarkSize),
                                      option.rect.adjusted(starMargin, 0, -starMargin, 0)));
    }
}

void EntryRowDelegate::paintWithGuide(QPainter *painter, const QStyleOptionViewItem &option,
                                      const QModelIndex &index, const EntryRow &row) const
{
    QStyleOptionViewItem withoutName = option;
    initStyleOption(&withoutName, index);
    const QString name = std::exchange(withoutName.text, QString());
    const QStyle *style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &withoutName, painter, option.widget);

    const int starWidth = row.mark.favorite ? entryMarkSize + starMargin : 0;
    const int margin =
        style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + starMargin;
    QRect area = option.rect.adjusted(margin, 0, -margin - starWidth, 0);
    if (option.direction == Qt::RightToLeft) {
        area.translate(starWidth, 0);
    }
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const int lineHeight = option.fontMetrics.height();
    const int top = option.rect.top() + (option.rect.height() - 2 * lineHeight - barHeight) / 2;
    const auto drawLine = [&](int y, const QString &text, const QColor &color) {
        const QRect line(area.left(), y, area.width(), lineHeight);
        painter->setPen(color);
        painter->drawText(
            line,
            static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft) |
                             Qt::AlignVCenter),
            elidedText(option.fontMetrics, text, line.width()));
    };
    painter->save();
    painter->setFont(option.font);
    drawLine(top, name,
             isSelected ? QColor(Qt::white) : option.widget->palette().color(QPalette::Text));
    if (row.onNow) {
        QFont font = option.font;
        font.setItalic(row.onNow->entry.match.rule == GuideMatch::Rule::Suggestion);
        painter->setFont(font);
        drawLine(top + lineHeight, onNowText(*row.onNow),
                 isSelected ? selectedSecondLineColor : secondLineColor);
        if (row.onNow->now) {
            paintBar(*painter, QRect(area.left(), top + 2 * lineHeight, area.width(), barHeight),
                     onNowPercent(*row.onNow, QDateTime::currentSecsSinceEpoch()), option);
        }
    }
    painter->restore();
}
