#include "ui/win32/FormKeys.h"

#include <optional>

#include "ui/win32/KeyInput.h"

namespace kestrel::ui::win32 {
namespace {

bool IsLetterOrDigit(WPARAM key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

UINT DialogCode(const MSG& message) {
    return static_cast<UINT>(SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                                          reinterpret_cast<LPARAM>(&message)));
}

/// Whoever works by keyboard sees access keys and focus marks from now on.
void ShowKeyboardMarks(HWND window) {
    SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
                 0);
}

bool GiveToForm(ViewContext& context, const KeyEvent& event) {
    bool used = false;
    context.Deliver([&] { used = context.form->KeyDown(event); });
    return used;
}

bool KeyDown(ViewContext& context, const MSG& message) {
    if (DialogCode(message) & DLGC_WANTALLKEYS) return false;
    const std::optional<KeyEvent> event = KeyEventOf(message.wParam, message.lParam);
    if (!event) return false;
    ShowKeyboardMarks(context.formWindow);
    return GiveToForm(context, *event);
}

bool IsTyped(ViewContext& context, const MSG& message) {
    const KeyEvent key = AccessKey(static_cast<char32_t>(message.wParam));
    if (message.message == WM_SYSCHAR) return GiveToForm(context, key);
    constexpr UINT kTypes = DLGC_WANTCHARS | DLGC_WANTALLKEYS;
    return key.letter > ' ' && !(DialogCode(message) & kTypes) && GiveToForm(context, key);
}

}  // namespace

KeyEvent AccessKey(char32_t letter) {
    KeyEvent event;
    event.letter = letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter;
    event.alt = true;
    return event;
}

bool TranslateFormKey(ViewContext& context, const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
            return KeyDown(context, message);
        case WM_SYSKEYDOWN:
            if (!IsLetterOrDigit(message.wParam)) return false;
            // Only the character counts; no window may take the key for an access key too. But the
            // system has to know of it, or it opens the window's menu when Alt is released.
            TranslateMessage(&message);
            DefWindowProcW(message.hwnd, message.message, message.wParam, message.lParam);
            return true;
        case WM_CHAR:
        case WM_SYSCHAR:
            return IsTyped(context, message);
        default:
            return false;
    }
}

}  // namespace kestrel::ui::win32
