#include "ui/ElidedComboBox.h"

#include <QHelpEvent>
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
}

QString ElidedComboBox::shownText() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, field.width());
}
