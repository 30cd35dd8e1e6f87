#pragma once

class QApplication;

/// The dark look of the whole application.
class Theme final
{
public:
    /// Sets the Fusion style, the palette and the application style sheet. Call it once, before the
    /// first widget is made.
    static void apply(QApplication &app);
};
