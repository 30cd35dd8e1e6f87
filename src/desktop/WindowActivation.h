#pragma once

#include <QString>

class QWindow;

/// What the desktop calls this start of the program; empty without a desktop that says. To be
/// called before the application object is made, which takes it from the environment.
QString activationToken();

/// Asks the desktop for the foreground and the keyboard for a window that shows. `token` is that
/// of the start that the window comes forward for: without one, desktops that guard the foreground
/// only mark the window. The desktop learns that this start has led to the window.
void activateWindow(QWindow *window, const QString &token);
