#pragma once

#include <windows.h>
// windows.h first
#include <optional>

namespace kestrel::ui::win32 {

/// Puts the characters of WM_CHAR together: those outside the basic plane come in two messages.
class CharacterInput {
 public:
    /// A whole character; nothing for half of one, and for what Ctrl makes of letters.
    std::optional<char32_t> Take(WPARAM unit);

 private:
    char32_t first_ = 0;  ///< half of a character, 0 for none
};

}  // namespace kestrel::ui::win32
