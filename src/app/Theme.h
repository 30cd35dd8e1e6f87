#pragma once

class QApplication;

/// The dark look of the whole application.
class Theme final
{
public:
    /// Sets the Fusion style, the palette and the application style sheet. Call it before the first
    /// widget is created.
    static void apply(QApplication &app);
};
