#include "ui/ScheduleItem.h"

#include <QCoreApplication>
#include <QListWidgetItem>
#include <QPainter>
#include <QPainterPath>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

enum Role
{
    PhaseRole = Qt::UserRole,
    ArchiveRole,
    ReminderRole
};

constexpr int markSize = 14;
constexpr int markMargin = 8;
constexpr int longestToolTip = 600;
constexpr int textMargin = 12; ///< at each end, at least what the theme leaves

const QColor archiveColor(0x3fb950);
const QColor outlineColor(0x16181d);
const QColor reminderColor(0xf5c518);

/// What a screen reader says beside the text.
QString describeRow(const ScheduleRow &row, bool hasReminder)
{
    QStringList parts;
    if (row.phase == ScheduleRow::Phase::Running) {
        parts << QCoreApplication::translate("ScheduleItem", "On Now");
    }
    if (row.inArchive) {
        parts << QCoreApplication::translate("ScheduleItem", "In the Archive");
    }
    if (hasReminder) {
        parts << QCoreApplication::translate("ScheduleItem", "Reminder Set");
    }
    return parts.join(", "_L1);
}

/// A triangle as on a button that plays.
void paintArchiveMark(QPainter &painter, const QRectF &area)
{
    painter.setBrush(archiveColor);
    painter.drawPolygon(
        QPolygonF{{area.topLeft(), QPointF(area.right(), area.center().y()), area.bottomLeft()}});
}

/// A bell.
void paintReminderMark(QPainter &painter, const QRectF &area)
{
    constexpr double clapperShare = 0.2;
    const double clapper = area.height() * clapperShare;
    QPainterPath bell;
    const QRectF body = area.adjusted(clapper, 0, -clapper, -clapper);
    bell.moveTo(area.left(), body.bottom());
    bell.quadTo(body.bottomLeft(), QPointF(body.left(), body.center().y()));
    bell.arcTo(QRectF(body.topLeft(), QSizeF(body.width(), body.height())), 180, -180);
    bell.quadTo(body.bottomRight(), QPointF(area.right(), body.bottom()));
    bell.closeSubpath();
    painter.setBrush(reminderColor);
    painter.drawPath(bell);
    painter.drawEllipse(QPointF(area.center().x(), area.bottom() - clapper / 2), clapper,
                        clapper / 2);
}

} // namespace

void showRow(QListWidgetItem &item, const QString &text, const ScheduleRow &row, bool hasReminder)
{
    item.setText(text);
    item.setData(PhaseRole, static_cast<int>(row.phase));
    item.setData(ArchiveRole, row.inArchive);
    item.setData(ReminderRole, hasReminder);
    item.setData(Qt::AccessibleDescriptionRole, describeRow(row, hasReminder));
    // A click acts, so that the pointer has no other way to the text.
    const QString &description = row.programme.description;
    item.setToolTip(description.isEmpty()
                        ? QString()
                        : Qt::convertFromPlainText(description.left(longestToolTip)));
}

void ScheduleDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const auto phase = static_cast<ScheduleRow::Phase>(index.data(PhaseRole).toInt());
    option->font.setBold(phase == ScheduleRow::Phase::Running);
    const int marks =
        (index.data(ArchiveRole).toBool() ? 1 : 0) + (index.data(ReminderRole).toBool() ? 1 : 0);
    if (option->rect.isValid() && marks > 0) {
        // So that it does not run below the marks.
        const int width = option->rect.width() - 2 * textMargin - marks * (markSize + markMargin);
        option->text = QFontMetrics(option->font).elidedText(option->text, Qt::ElideRight, width);
    }
}

void ScheduleDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    QRect area = option.rect.adjusted(markMargin, 0, -markMargin, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(outlineColor, 1)); // shows on a selected row as well
    const auto next = [&] {
        const QRect mark = QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                                               QSize(markSize, markSize), area);
        const int taken = markSize + markMargin;
        area.adjust(option.direction == Qt::RightToLeft ? taken : 0, 0,
                    option.direction == Qt::RightToLeft ? 0 : -taken, 0);
        return QRectF(mark);
    };
    if (index.data(ArchiveRole).toBool()) {
        paintArchiveMark(*painter, next());
    }
    if (index.data(ReminderRole).toBool()) {
        paintReminderMark(*painter, next());
    }
    painter->restore();
}
