#pragma once

#include <windows.h>

#include <optional>

#include "ui/controls/Events.h"

namespace kestrel::ui::win32 {

/// A key going down, as WM_KEYDOWN and WM_SYSKEYDOWN name it (VK_...), with Shift, Ctrl and Alt
/// as they are at that message. Nothing for keys that no form has a use for.
std::optional<KeyEvent> KeyEventOf(WPARAM virtualKey);

}  // namespace kestrel::ui::win32
