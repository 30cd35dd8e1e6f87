#pragma once

#include <QFontMetrics>
#include <QGuiApplication>
#include <QString>

/// The text, with an ellipsis where it is too wide. The ellipsis stands at the end as one reads the
/// text, also where the layout has the other direction.
inline QString elidedText(const QFontMetrics &metrics, const QString &text, int width)
{
    QString shown = metrics.elidedText(text, Qt::ElideRight, width);
    if (shown == text || text.isRightToLeft() == QGuiApplication::isRightToLeft()) {
        return shown;
    }
    constexpr QChar leftToRightMark(0x200E);
    constexpr QChar rightToLeftMark(0x200F);
    return shown + (text.isRightToLeft() ? rightToLeftMark : leftToRightMark);
}
