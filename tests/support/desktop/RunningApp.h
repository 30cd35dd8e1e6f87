#pragma once

#include "support/desktop/Accessible.h"
#include "support/desktop/NativeWindow.h"

#include <QProcess>
#include <QString>

namespace desktop {

/// A program under test in a process of its own, used as a user does: through its window, with
/// mouse and keyboard, by what stands on the screen.
///
/// The test runs through tests/support/with-display and has a QGuiApplication. When it fails, the
/// program's controls, its standard error and a screenshot are kept on destruction.
class RunningApp final
{
public:
    explicit RunningApp(const QString &program);
    /// Closes the program politely; kills it if it does not go.
    ~RunningApp();
    RunningApp(const RunningApp &) = delete;
    RunningApp &operator=(const RunningApp &) = delete;

    /// Starts the program and waits until the window with this title shows and has the keyboard,
    /// itself or through a dialog in front of it. Can be called again once the program has ended.
    [[nodiscard]] bool start(const QString &windowTitle, const QStringList &arguments = {});
    /// Closes the windows one after the other until the program has ended of itself.
    [[nodiscard]] bool close();
    [[nodiscard]] bool waitUntilEnded();

    bool isRunning() const;
    qint64 processId() const;
    /// Of the program that has ended; -1 while it runs or after a crash.
    int exitCode() const;
    /// All that the program has written to standard error, in all of its runs.
    QString standardError() const { return errors; }
    /// The whole lines of it, which standardError() then no longer holds.
    QString takeStandardError();

    /// The open menus, the latest first, then the windows, dialogs and message boxes.
    QList<Accessible> windows() const;
    /// The window, dialog or message box with this title; null if none shows.
    Accessible window(const QString &title) const;
    Accessible waitForWindow(const QString &title) const;
    /// The menu that opened last.
    Accessible waitForMenu() const;
    NativeWindow nativeWindow(const QString &title) const;

private:
    Accessible menu() const;
    /// All controls of all windows, for messages.
    QString describe() const;
    void keepTraces() const;

    QProcess process;
    QString errors;
};

} // namespace desktop
