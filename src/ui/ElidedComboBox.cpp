#include "ui/ElidedComboBox.h"

#include <QHelpEvent>
#include <QPolygonF>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

bool ElidedComboBox::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) {
        return QComboBox::event(event);
    }
    if (shownText() == currentText()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        // Converted: a tool tip renders what looks like markup.
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           Qt::convertFromPlainText(currentText()), this);
    }
    return true;
}

void ElidedComboBox::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = shownText();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    paintArrow(painter, style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                QStyle::SC_ComboBoxArrow, this));
}

void ElidedComboBox::paintArrow(QPainter &painter, const QRect &area) const
{
    constexpr double halfWidth = 4;
    constexpr double halfHeight = 2;
    constexpr double lineWidth = 1.5;
    constexpr double disabledOpacity = 0.4;
    const QPointF middle = QRectF(area).center();
    QPolygonF arrow;
    arrow << middle + QPointF(-halfWidth, -halfHeight) << middle + QPointF(0, halfHeight)
          << middle + QPointF(halfWidth, -halfHeight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(QPen(palette().color(QPalette::Text), lineWidth, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPolyline(arrow);
}

QString ElidedComboBox::shownText() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, field.width());
}
