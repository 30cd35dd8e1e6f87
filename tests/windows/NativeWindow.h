#pragma once

#include <QRect>
#include <QString>

#include <optional>

/// A window of any process, found through Windows itself.
class NativeWindow
{
public:
    /// Waits for a visible top-level window of that process with that title.
    static std::optional<NativeWindow> waitFor(qint64 processId, const QString &title,
                                               int timeoutMs = 60000);

    /// The window without its frame, in pixels of the screen.
    QRect clientRect() const;
    /// Whether what is typed goes to it.
    bool isInFront() const;
    [[nodiscard]] bool waitUntilGone(int timeoutMs = 30000) const;

    /// Asks the window to close, as its close button does.
    void close() const;

private:
    explicit NativeWindow(quintptr windowHandle)
        : handle(windowHandle)
    {}
    quintptr handle;
};

/// The mouse of this desktop. Points are in pixels of the screen.
namespace NativeMouse {

void moveTo(const QPoint &point);
void click(const QPoint &point);

} // namespace NativeMouse

/// The keyboard of this desktop. Its input goes to the focused window.
namespace NativeKeyboard {

/// Windows' virtual key codes.
enum class Key : quint16
{
    Tab = 0x09,
    Return = 0x0D,
    Escape = 0x1B,
    F = 'F'
};
void press(Key key);
/// Presses Ctrl+A.
void selectAll();
void type(const QString &text);

} // namespace NativeKeyboard
