#include "ui/FullscreenChrome.h"

#include "ui/PlayerPanel.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int controlsHideDelayMs = 3000;

} // namespace

FullscreenChrome::FullscreenChrome(PlayerPanel *playerPanel)
    : QWidget(playerPanel)
    , panel(playerPanel)
    , fullscreenChromeLayout(new QVBoxLayout(this))
    , controlsHideTimer(new QTimer(this))
{
    setObjectName(u"fullscreenChrome"_s);
    hide();
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    // Asked for now, so that the window exists when it must stack above the picture.
    winId();
    fullscreenChromeLayout->setContentsMargins(0, 0, 0, 0);

    controlsHideTimer->setObjectName(u"controlsHideTimer"_s);
    controlsHideTimer->setSingleShot(true);
    controlsHideTimer->setInterval(controlsHideDelayMs);
    connect(controlsHideTimer, &QTimer::timeout, this, &FullscreenChrome::hideFullscreenControls);
    connect(panel, &PlayerPanel::fullscreenToggled, this, &FullscreenChrome::toggle);
    connect(panel, &PlayerPanel::rowsUpdated, this, &FullscreenChrome::followRows);
    qApp->installEventFilter(this);
}

void FullscreenChrome::toggle()
{
    fullscreen = !fullscreen;
    controlsHideTimer->stop();
    panel->surface()->unsetCursor();
    // The rows change their parent, and would lose the focus to a widget outside the panel.
    panel->setFocus(Qt::OtherFocusReason);
    Q_EMIT fullscreenChanged(fullscreen);
    if (fullscreen) {
        moveRowsHere();
        window()->showFullScreen();
    } else {
        moveRowsBack();
        window()->showNormal();
    }
}

void FullscreenChrome::leave()
{
    if (fullscreen) {
        toggle();
    }
}

void FullscreenChrome::moveRowsHere()
{
    panel->setMargin(0);
    // Measured with all rows that are used: a film may start in fullscreen.
    for (QWidget *row : panel->rows()) {
        fullscreenChromeLayout->addWidget(row);
        row->setVisible(panel->isUsed(row));
    }
    fullscreenChromeHeight = sizeHint().height();
    repositionFullscreenChrome();
    panel->setRowsHidden(true);
}

void FullscreenChrome::moveRowsBack()
{
    panel->setMargin(PlayerPanel::normalMargin);
    hide();
    panel->takeRowsBack();
    panel->setRowsHidden(false);
}

void FullscreenChrome::followRows(bool shown)
{
    if (!fullscreen) {
        return;
    }
    if (!shown) {
        hide();
        return;
    }
    // The line of what runs may have come meanwhile.
    fullscreenChromeHeight = std::max(fullscreenChromeHeight, sizeHint().height());
    repositionFullscreenChrome();
    show();
    raise();
}

void FullscreenChrome::repositionFullscreenChrome()
{
    if (fullscreen) {
        setGeometry(0, panel->height() - fullscreenChromeHeight, panel->width(),
                    fullscreenChromeHeight);
    }
}

void FullscreenChrome::showFullscreenControls()
{
    if (!fullscreen) {
        return;
    }
    if (panel->areRowsHidden()) {
        panel->setRowsHidden(false);
    }
    panel->surface()->unsetCursor();
    controlsHideTimer->start();
}

void FullscreenChrome::hideFullscreenControls()
{
    panel->setRowsHidden(true);
    panel->surface()->setCursor(Qt::BlankCursor);
}

bool FullscreenChrome::eventFilter(QObject *watched, QEvent *event)
{
    // Sees every event of the application: judge by the type first, it is the cheapest question.
    switch (event->type()) {
    case QEvent::MouseMove:
        showFullscreenControls();
        break;
    case QEvent::MouseButtonDblClick:
        if (watched == panel->surface()) {
            toggle();
        }
        break;
    case QEvent::Resize:
        if (watched == panel) {
            repositionFullscreenChrome();
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
