#pragma once

#include <QList>
#include <QRect>
#include <QString>

#include <cstdint>

namespace desktop {

/// A window as the window system knows it: what the user drags, resizes and closes. Its rectangle
/// is that of the content, without title bar and borders, in pixels of the screen.
///
/// A null window, and one that is gone, answer with empty values. Needs a QGuiApplication on the
/// same screen.
class NativeWindow final
{
public:
    NativeWindow() = default;

    /// The visible windows of a program, open menus among them.
    static QList<NativeWindow> ofProcess(qint64 processId);
    /// The visible window with exactly this title; null if there is none.
    static NativeWindow find(qint64 processId, const QString &title);
    /// The window that has the keyboard; null if no window has it.
    static NativeWindow active();

    bool isNull() const { return id == 0; }
    bool operator==(const NativeWindow &other) const = default;

    QString title() const;
    QRect geometry() const;
    bool isVisible() const;
    bool isFullScreen() const;
    bool isAlwaysOnTop() const;
    bool isMaximized() const;

    /// Returns once the window system has done it; false if it does not.
    [[nodiscard]] bool activate() const;
    /// As a panel or the title bar does it. Each returns once the window system has done it; false
    /// if it does not.
    /// @{
    [[nodiscard]] bool minimize() const;
    [[nodiscard]] bool setMaximized(bool maximized) const;
    [[nodiscard]] bool setGeometry(const QRect &rect) const;
    /// @}
    /// As the user closes it, with Alt+F4. Does not wait for the window to go.
    [[nodiscard]] bool requestClose() const;
    /// As a panel closes it, whoever has the keyboard. Does not wait either.
    void closeFromPanel() const;

private:
    explicit NativeWindow(std::uint32_t windowId)
        : id(windowId)
    {}

    std::uint32_t id = 0;
};

} // namespace desktop
