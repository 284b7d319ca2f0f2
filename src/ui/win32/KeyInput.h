#pragma once

#include <windows.h>
#include <optional>

#include "ui/controls/Events.h"

/// The system's keyboard messages as events of the controls.
namespace kestrel::ui::win32 {

/// Whether the key is held down as of the message being handled.
bool IsDown(int virtualKey);
/// Both Ctrl and Alt: the key that reaches a keyboard's third level of characters counts as these.
bool IsAltGr();

/// The event of a WM_KEYDOWN or WM_SYSKEYDOWN with these parameters, with the modifiers held.
/// Nothing for keys that controls do not know. A letter with AltGr is nothing either: it must type
/// its character, not press the access key of its letter.
std::optional<KeyEvent> KeyEventOf(WPARAM virtualKey, LPARAM details);

/// Puts the characters of WM_CHAR together: those outside the basic plane come in two messages.
class CharacterInput {
 public:
    /// A whole character; nothing for half of one and for what Ctrl makes of letters.
    std::optional<char32_t> Take(WPARAM unit);

 private:
    char32_t first_ = 0;  ///< half of a character, 0 for none
};

}  // namespace kestrel::ui::win32
