#include "ui/win32/grid/CharacterInput.h"

#include <utility>

namespace kestrel::ui::win32 {

std::optional<char32_t> CharacterInput::Take(WPARAM unit) {
    const auto code = static_cast<char32_t>(unit & 0xFFFF);
    const char32_t first = std::exchange(first_, 0);
    // AltGr counts as both keys; what it yields is typed.
    if (GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0) return std::nullopt;
    if (IS_HIGH_SURROGATE(code)) {
        first_ = code;
        return std::nullopt;
    }
    if (!IS_LOW_SURROGATE(code)) return code;
    if (first == 0) return std::nullopt;
    return 0x10000 + ((first - 0xD800) << 10) + (code - 0xDC00);
}

}  // namespace kestrel::ui::win32
