#include "ui/win32/KeyInput.h"

#include <utility>

namespace kestrel::ui::win32 {
namespace {

struct KeyName {
    WPARAM virtualKey;
    Key key;
};

constexpr KeyName kKeys[] = {
    {VK_BACK, Key::Back},     {VK_TAB, Key::Tab},       {VK_RETURN, Key::Enter},
    {VK_ESCAPE, Key::Escape}, {VK_SPACE, Key::Space},   {VK_PRIOR, Key::PageUp},
    {VK_NEXT, Key::PageDown}, {VK_END, Key::End},       {VK_HOME, Key::Home},
    {VK_LEFT, Key::Left},     {VK_UP, Key::Up},         {VK_RIGHT, Key::Right},
    {VK_DOWN, Key::Down},     {VK_DELETE, Key::Delete}, {VK_F2, Key::F2},
};

bool IsLetterOrDigit(WPARAM key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

}  // namespace

bool IsDown(int virtualKey) { return GetKeyState(virtualKey) < 0; }

bool IsAltGr() { return IsDown(VK_CONTROL) && IsDown(VK_MENU); }

std::optional<KeyEvent> KeyEventOf(WPARAM virtualKey, LPARAM details) {
    constexpr LPARAM kWasDown = 0x40000000;
    KeyEvent event;
    event.repeated = (details & kWasDown) != 0;
    event.shift = IsDown(VK_SHIFT);
    event.ctrl = IsDown(VK_CONTROL);
    event.alt = IsDown(VK_MENU);
    if (IsLetterOrDigit(virtualKey)) {
        if (event.ctrl && event.alt) return std::nullopt;
        event.letter = static_cast<char32_t>(virtualKey);
        return event;
    }
    for (const KeyName& name : kKeys) {
        if (name.virtualKey != virtualKey) continue;
        event.key = name.key;
        return event;
    }
    return std::nullopt;
}

std::optional<char32_t> CharacterInput::Take(WPARAM unit) {
    const auto code = static_cast<char32_t>(unit & 0xFFFF);
    const char32_t first = std::exchange(first_, 0);
    if (IsDown(VK_CONTROL) && !IsDown(VK_MENU)) return std::nullopt;
    if (IS_HIGH_SURROGATE(code)) {
        first_ = code;
        return std::nullopt;
    }
    if (!IS_LOW_SURROGATE(code)) return code;
    if (first == 0) return std::nullopt;
    return 0x10000 + ((first - 0xD800) << 10) + (code - 0xDC00);
}

}  // namespace kestrel::ui::win32
