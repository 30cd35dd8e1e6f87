#pragma once

#include <QMessageBox>

class QWidget;

/// A message box whose text is shown as it is, also when it comes from a server and looks like
/// markup.
class PlainMessageBox final : public QMessageBox
{
public:
    PlainMessageBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                    QWidget *parent);

    /// Shows a modal warning with an OK button and waits until it is closed.
    static void warn(QWidget *parent, const QString &title, const QString &text);

    /// The same for what may fail again by itself: does nothing while a box of that title is open
    /// over `parent`.
    static void warnOnce(QWidget *parent, const QString &title, const QString &text);
};
