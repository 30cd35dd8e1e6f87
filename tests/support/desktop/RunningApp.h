#pragma once

#include "support/desktop/Accessible.h"
#include "support/desktop/NativeWindow.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace desktop {

/// A program under test in a process of its own, used as a user does: through its window, with
/// mouse and keyboard, by what stands on the screen.
///
///     RunningApp app(playerPath, {}, environment);           // the test's environment by default
///     QVERIFY(app.start(u"Vantiro Player"_s));               // its window is on the screen
///     const Accessible dialog = app.waitForWindow(u"Add Source"_s);
///     QVERIFY(Keyboard::fill(dialog.waitFor(Role::Edit, u"Name:"_s), u"Home"_s));
///     QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)));
///     QVERIFY(dialog.waitUntilGone());
///     const Accessible window = app.waitForWindow(u"Vantiro Player"_s);
///     QVERIFY(Mouse::click(window.waitFor(Role::ListItem, u"All Categories"_s)));
///     const Accessible table = window.waitFor(Role::Table);
///     QTRY_COMPARE(table.rowCount(), 3);
///     QVERIFY(Mouse::click(table.cell(1)));                  // the second channel plays
///     QVERIFY(Screen::waitUntilMoving(videoRect));
///     QVERIFY(Mouse::click(window.waitFor(Role::Button, u"Audio"_s)));
///     QVERIFY(Mouse::click(app.waitForMenu().waitFor(Role::MenuItem, u"No audio tracks"_s)));
///     QVERIFY(app.close());
///     QCOMPARE(app.exitCode(), 0);
///
/// The test runs through tests/support/with-display and has a QGuiApplication. When it fails, the
/// program's controls, its standard error and a screenshot are kept on destruction.
class RunningApp final
{
public:
    static constexpr int defaultTimeoutMs = 20000;

    explicit RunningApp(const QString &program, const QStringList &arguments = {},
                        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment());
    /// Closes the program politely; kills it if it does not go.
    ~RunningApp();
    RunningApp(const RunningApp &) = delete;
    RunningApp &operator=(const RunningApp &) = delete;

    /// Starts the program and waits until the window with this title shows and has the keyboard,
    /// itself or through a dialog in front of it. Can be called again once the program has ended.
    [[nodiscard]] bool start(const QString &windowTitle, int timeoutMs = defaultTimeoutMs);
    /// Closes the windows one after the other until the program has ended of itself.
    [[nodiscard]] bool close(int timeoutMs = defaultTimeoutMs);
    [[nodiscard]] bool waitUntilEnded(int timeoutMs = defaultTimeoutMs);

    bool isRunning() const;
    qint64 processId() const;
    /// Of the program that has ended; -1 while it runs or after a crash.
    int exitCode() const;
    /// All that the program has written to standard error since it was started.
    QString standardError() const { return errors; }
    [[nodiscard]] bool waitForStandardError(const QString &text, int timeoutMs = defaultTimeoutMs);

    /// The open menus, the latest first, then the windows, dialogs and message boxes.
    QList<Accessible> windows() const;
    /// The window, dialog or message box with this title; null if none shows.
    Accessible window(const QString &title) const;
    Accessible waitForWindow(const QString &title, int timeoutMs = defaultTimeoutMs) const;
    /// The menu that opened last; null if none is open.
    Accessible menu() const;
    Accessible waitForMenu(int timeoutMs = defaultTimeoutMs) const;
    NativeWindow nativeWindow(const QString &title) const;

    /// All controls of all windows, for messages.
    QString describe() const;

private:
    void keepTraces() const;

    QProcess process;
    QString errors;
};

} // namespace desktop
