#include "ui/PictureLine.h"

#include <QAccessible>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownMs = 2000;
constexpr int distanceFromEdge = 16;

} // namespace

PictureLine::PictureLine(QWidget *videoSurface, QWidget *panel)
    : QLabel(panel)
    , surface(videoSurface)
    , hideTimer(new QTimer(this))
{
    setObjectName(u"pictureLine"_s);
    hide();
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setStyleSheet(u"background-color: black; color: white; padding: 6px 12px; font-size: 14pt;"_s);
    hideTimer->setObjectName(u"hideTimer"_s);
    hideTimer->setSingleShot(true);
    hideTimer->setInterval(shownMs);
    connect(hideTimer, &QTimer::timeout, this, &QLabel::hide);
}

void PictureLine::tell(const QString &text)
{
    const QRect area = surface->geometry().adjusted(distanceFromEdge, distanceFromEdge,
                                                    -distanceFromEdge, -distanceFromEdge);
    setText(text);
    const QSize wanted = sizeHint();
    if (wanted.width() > area.width()) {
        const int padding = wanted.width() - fontMetrics().horizontalAdvance(text);
        setText(fontMetrics().elidedText(text, Qt::ElideRight, area.width() - padding));
    }
    const int width = std::min(wanted.width(), area.width());
    const int left = layoutDirection() == Qt::RightToLeft ? area.right() + 1 - width : area.left();
    setGeometry(left, area.top(), width, wanted.height());
    setAccessibleName(text);
    show();
    raise();
    hideTimer->start();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
