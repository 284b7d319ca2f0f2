#include "ui/win32/KeyEvents.h"

namespace kestrel::ui::win32 {
namespace {

constexpr struct {
    WPARAM code;
    Key key;
} kKeys[] = {
    {VK_BACK, Key::Back},     {VK_TAB, Key::Tab},       {VK_RETURN, Key::Enter},
    {VK_ESCAPE, Key::Escape}, {VK_SPACE, Key::Space},   {VK_PRIOR, Key::PageUp},
    {VK_NEXT, Key::PageDown}, {VK_END, Key::End},       {VK_HOME, Key::Home},
    {VK_LEFT, Key::Left},     {VK_UP, Key::Up},         {VK_RIGHT, Key::Right},
    {VK_DOWN, Key::Down},     {VK_DELETE, Key::Delete}, {VK_F2, Key::F2},
};

bool IsDown(int virtualKey) { return GetKeyState(virtualKey) < 0; }

}  // namespace

std::optional<KeyEvent> KeyEventOf(WPARAM virtualKey) {
    KeyEvent event;
    event.shift = IsDown(VK_SHIFT);
    event.ctrl = IsDown(VK_CONTROL);
    event.alt = IsDown(VK_MENU);
    // Letters and digits are their own codes.
    if ((virtualKey >= 'A' && virtualKey <= 'Z') || (virtualKey >= '0' && virtualKey <= '9')) {
        event.letter = static_cast<char32_t>(virtualKey);
        return event;
    }
    for (const auto& known : kKeys)
        if (known.code == virtualKey) {
            event.key = known.key;
            return event;
        }
    return std::nullopt;
}

}  // namespace kestrel::ui::win32
