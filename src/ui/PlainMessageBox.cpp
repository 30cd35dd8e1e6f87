#include "ui/PlainMessageBox.h"

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
