#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

/// How the user has arranged the window.
struct WindowState
{
    QByteArray geometry; ///< as QWidget::saveGeometry() makes it
    bool isMaximized = false;
    QList<int> splitterSizes;
    int volume = 100;                  ///< percent
    int volumeBeforeMute = 100;        ///< percent, at least 1
    QMap<QString, QString> sortOrders; ///< by the object name of the tab

    bool operator==(const WindowState &) const = default;
};

/// The arrangement of the window from one run to the next, in settings of its own. What does not
/// read as such is left at its default. Failures to write are silent.
class WindowMemory final
{
public:
    /// Reads the settings.
    WindowMemory();

    /// False on the first start, and until the user changes something.
    bool hasStored() const { return isStored; }
    /// Whether state() is that of the window.
    bool hasState() const { return isKnown; }
    const WindowState &state() const { return current; }
    /// Writes what has changed. The first state after the first start counts as unchanged, so that
    /// who changes nothing stores nothing.
    void store(const WindowState &state);

private:
    bool isStored = false;
    bool isKnown = false;
    WindowState current;
};
