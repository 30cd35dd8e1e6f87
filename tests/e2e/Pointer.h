#pragma once

/// Whether the mouse pointer is invisible where it stands.
bool pointerIsHidden();
