#pragma once

#include <QRect>
#include <QString>

#include <optional>

/// A window of any process, found through Windows itself, and a user's input to it. Rectangles are
/// in pixels of the screen.
class NativeWindow
{
public:
    /// Waits for a visible top-level window of that process with that title.
    static std::optional<NativeWindow> waitFor(qint64 processId, const QString &title,
                                               int timeoutMs = 60000);

    /// The window without its frame.
    QRect clientRect() const;
    /// The last visible native child of at least that size; empty if there is none.
    QRect childRect(const QSize &minimum) const;
    bool isVisible() const;
    [[nodiscard]] bool waitUntilGone(int timeoutMs = 30000) const;

    /// Asks the window to close, as its close button does.
    void close() const;
    /// Clicks at a place within the window, from the top left corner of its client area.
    void click(const QPoint &place) const;
    void moveMouse(const QPoint &place) const;

private:
    explicit NativeWindow(quintptr windowHandle)
        : handle(windowHandle)
    {}
    quintptr handle;
};

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
