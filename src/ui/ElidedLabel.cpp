#include "ui/ElidedLabel.h"

#include "ui/ElidedText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

ElidedLabel::ElidedLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) {
        return QLabel::event(event);
    }
    if (shownText() == text()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        // Converted: a tool tip renders what looks like markup.
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           Qt::convertFromPlainText(text(), Qt::WhiteSpaceNormal), this);
    }
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(),
                          static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                          palette(), isEnabled(), shownText(), foregroundRole());
}

QString ElidedLabel::shownText() const
{
    return elidedText(fontMetrics(), text(), contentsRect().width());
}
