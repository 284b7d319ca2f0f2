#include "ui/win32/TextBoxView.h"

#include "platform/win32/WideText.h"

namespace kestrel::ui::win32 {
namespace {

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return kestrel::win32::Utf8(text);
}

}  // namespace

void TextBoxView::Commanded(WORD code) {
    if (code != EN_CHANGE) return;
    const std::string text = TextOf(Window());
    if (text != box_.Text()) box_.SetText(text);
}

void TextBoxView::After(UINT message, WPARAM, LPARAM) {
    // As in the system's dialogs, who comes by keyboard replaces the text by typing. Who clicks
    // has the mouse's button down.
    if (message == WM_SETFOCUS && GetKeyState(VK_LBUTTON) >= 0 && !box_.ReadOnly())
        Tell(EM_SETSEL, 0, -1);
}

void TextBoxView::Show() {
    const bool readOnly = (GetWindowLongPtrW(Window(), GWL_STYLE) & ES_READONLY) != 0;
    if (readOnly != box_.ReadOnly()) Tell(EM_SETREADONLY, box_.ReadOnly());
    ShowText(box_.Text());
}

}  // namespace kestrel::ui::win32
