#pragma once

#include <windows.h>
#include "ui/controls/Form.h"

/// Where on the screen a form's window stands.
namespace kestrel::ui::win32 {

/// Points to pixels and back. They count at the system's own scale, not the window's: a stored
/// place must lead to the same pixels before it is known which monitor they are on.
POINT PixelsOf(const ScreenPosition& position);
ScreenPosition PositionOf(POINT pixels);

/// The upper left corner for a window of this size: at the form's own position or, when it has
/// none, centred on the owner or in the middle of the screen; moved as little as brings the whole
/// window onto a monitor. A window larger than the monitor starts at its upper left corner.
POINT PlaceFor(const Form& form, HWND owner, SIZE size);

}  // namespace kestrel::ui::win32
