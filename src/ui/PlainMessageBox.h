#pragma once

#include <QMessageBox>

class QWidget;

/// A message box that shows its text literally, even if it looks like markup. For texts that may
/// come from a server.
class PlainMessageBox final : public QMessageBox
{
public:
    PlainMessageBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                    QWidget *parent);

    /// Shows a modal warning with an OK button and returns when it is closed.
    static void warn(QWidget *parent, const QString &title, const QString &text);

    /// As warn(), for failures that can repeat without the user: does nothing while `parent` has a
    /// visible box of that title.
    static void warnOnce(QWidget *parent, const QString &title, const QString &text);
};
