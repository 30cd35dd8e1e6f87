#pragma once

#include "support/desktop/Accessible.h"

#include <QPoint>
#include <QString>
#include <QStringList>

namespace desktop {

/// Runs commands of the tool that makes the user's input, while the event loop goes on. False, with
/// a warning, if it cannot start, fails or does not end.
[[nodiscard]] bool xdotool(const QStringList &commands);

/// The user's mouse. Points are in pixels of the screen. Each function returns once the window
/// system has the events, not once the program has handled them; false, with a warning, on failure.
namespace Mouse {

/// Moves the pointer without a button.
[[nodiscard]] bool moveTo(const QPoint &point);
[[nodiscard]] bool click(const QPoint &point);
[[nodiscard]] bool rightClick(const QPoint &point);
[[nodiscard]] bool doubleClick(const QPoint &point);
/// Presses the left button, and holds it until release().
[[nodiscard]] bool press(const QPoint &point);
[[nodiscard]] bool release();
/// Presses the left button at `from`, moves to `to` in small steps and releases it there.
[[nodiscard]] bool drag(const QPoint &from, const QPoint &to);

/// At the middle of a control, once its window has come to rest on the screen.
[[nodiscard]] bool click(const Accessible &control);
/// The same with the right button.
[[nodiscard]] bool rightClick(const Accessible &control);
/// Opens a combo box and clicks the item with this text. Returns once the box shows it.
[[nodiscard]] bool choose(const Accessible &comboBox, const QString &text);

} // namespace Mouse

/// The user's keyboard: keys go to whatever has the focus.
namespace Keyboard {

/// Presses a key, so many times: "Return", "Escape", "space", "Left", "a", "ctrl+a", "alt+F4".
[[nodiscard]] bool press(const QString &keys, int times = 1);
/// Clicks into an edit, selects what it holds and types over it; an empty text empties the edit.
/// The text is printable ASCII. Returns once the edit holds the text.
[[nodiscard]] bool fill(const Accessible &edit, const QString &text);

} // namespace Keyboard

} // namespace desktop
