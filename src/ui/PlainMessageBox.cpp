#include "ui/PlainMessageBox.h"

#include <algorithm>

PlainMessageBox::PlainMessageBox(Icon icon, const QString &title, const QString &text,
                                 StandardButtons buttons, QWidget *parent)
    : QMessageBox(icon, title, {}, buttons, parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

void PlainMessageBox::warn(QWidget *parent, const QString &title, const QString &text)
{
    PlainMessageBox(Warning, title, text, Ok, parent).exec();
}

void PlainMessageBox::warnOnce(QWidget *parent, const QString &title, const QString &text)
{
    const auto boxes = parent->findChildren<QMessageBox *>(Qt::FindDirectChildrenOnly);
    const bool open = std::any_of(boxes.begin(), boxes.end(), [&title](const QMessageBox *box) {
        return box->isVisible() && box->windowTitle() == title;
    });
    if (!open) {
        warn(parent, title, text);
    }
}
