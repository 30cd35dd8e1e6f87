#include "ui/UndoBar.h"

#include "ui/ElidedLabel.h"

#include <QBoxLayout>
#include <QEvent>
#include <QKeySequence>
#include <QPushButton>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownMs = 6000;

} // namespace

UndoBar::UndoBar(QWidget *parent)
    : QWidget(parent)
    , label(new ElidedLabel)
    , button(new QPushButton(tr("Undo")))
    , timer(new QTimer(this))
{
    setObjectName(u"undoBar"_s);
    label->setObjectName(u"undoLabel"_s);
    button->setObjectName(u"undoButton"_s);
    button->setShortcut(QKeySequence::Undo);
    timer->setSingleShot(true);
    timer->setInterval(shownMs);
    connect(timer, &QTimer::timeout, this, &UndoBar::dismissUnlessUsed);
    connect(button, &QPushButton::clicked, this, &UndoBar::takeBack);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(label, 1);
    layout->addWidget(button);
    parent->installEventFilter(this);
    hide();
}

void UndoBar::offer(const QString &text, std::function<void()> undo)
{
    takesBack = std::move(undo);
    label->setText(text);
    setAccessibleName(text);
    button->setAccessibleDescription(text);
    fit();
    raise();
    show();
    timer->start();
}

void UndoBar::dismiss()
{
    timer->stop();
    takesBack = nullptr;
    hide();
}

bool UndoBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize) {
        fit();
    }
    return QWidget::eventFilter(watched, event);
}

void UndoBar::fit()
{
    const QRect area = parentWidget()->rect();
    setGeometry(area.left(), area.bottom() + 1 - sizeHint().height(), area.width(),
                sizeHint().height());
}

void UndoBar::takeBack()
{
    const auto undo = std::exchange(takesBack, nullptr);
    dismiss();
    if (undo) {
        undo();
    }
}

void UndoBar::dismissUnlessUsed()
{
    if (underMouse() || button->hasFocus()) {
        timer->start();
    } else {
        dismiss();
    }
}
