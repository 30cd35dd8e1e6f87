#pragma once

namespace desktop {

/// Whether the mouse pointer is invisible where it stands.
bool pointerIsHidden();

/// Has the window manager end the full screen of the window that has the keyboard, as a user does
/// with a key of the desktop: the program is not asked.
[[nodiscard]] bool endFullScreen();

} // namespace desktop
