#include "ui/EntryMarks.h"

#include "library/LibraryRecords.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPolygonF>
#include <QRect>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr int barHeight = 4;

const QColor starColor(0xf5c518);
const QColor checkColor(0x3fb950);
const QColor outlineColor(0x16181d);
const QColor barColor(0x3b82f6);

/// Five points on a circle of radius 1 and five between them, from the top.
QPolygonF starOfRadius(double radius)
{
    constexpr int corners = 10;
    constexpr double innerShare = 0.45;
    QPolygonF star;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = 2 * std::numbers::pi * corner / corners;
        const double distance = corner % 2 == 0 ? radius : radius * innerShare;
        star << QPointF(distance * std::sin(angle), -distance * std::cos(angle));
    }
    return star;
}

} // namespace

int percentOf(const Progress &row)
{
    constexpr qint64 whole = 100;
    if (row.positionMs <= 0 || row.durationMs <= 0) {
        return 0;
    }
    // What was begun shows, however little it is.
    return static_cast<int>(std::clamp(row.positionMs * whole / row.durationMs, 1LL, whole));
}

QString describeMark(const EntryMark &mark)
{
    QStringList parts;
    if (mark.favorite) {
        parts << QCoreApplication::translate("EntryMarks", "Favorite");
    }
    if (mark.watched) {
        parts << QCoreApplication::translate("EntryMarks", "Watched");
    }
    if (mark.percent > 0) {
        parts << QCoreApplication::translate("EntryMarks", "%1 % watched").arg(mark.percent);
    }
    return parts.join(QLatin1String(", "));
}

void paintStar(QPainter &painter, const QRect &area)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(area).center());
    painter.setPen(QPen(outlineColor, 1));
    painter.setBrush(starColor);
    painter.drawPolygon(starOfRadius(std::min(area.width(), area.height()) / 2.0));
    painter.restore();
}

void paintCheckMark(QPainter &painter, const QRect &area)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(outlineColor);
    painter.drawEllipse(area);
    // In shares of the area.
    constexpr std::array<QPointF, 3> check{QPointF(0.25, 0.53), QPointF(0.43, 0.71),
                                           QPointF(0.76, 0.32)};
    QPolygonF line;
    for (const QPointF &point : check) {
        line << QPointF(area.left() + point.x() * area.width(),
                        area.top() + point.y() * area.height());
    }
    painter.setPen(QPen(checkColor, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
    painter.restore();
}

void paintProgressBar(QPainter &painter, const QRect &area, int percent)
{
    constexpr int whole = 100;
    const QRect bar(area.left(), area.bottom() + 1 - barHeight, area.width(), barHeight);
    painter.fillRect(bar, outlineColor);
    painter.fillRect(
        QRect(bar.topLeft(), QSize(bar.width() * std::clamp(percent, 0, whole) / whole, barHeight)),
        barColor);
}
