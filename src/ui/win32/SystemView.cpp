#include "ui/win32/SystemView.h"

#include "platform/win32/WideText.h"
#include "ui/win32/WindowHandle.h"

namespace kestrel::ui::win32 {

SystemView::SystemView(ViewContext& context, Control& control, const wchar_t* windowClass,
                       DWORD style, DWORD extendedStyle)
    : context_(context),
      control_(control),
      window_(CreateWindowExW(extendedStyle, windowClass, L"",
                              WS_CHILD | (control.Visible() ? WS_VISIBLE : 0u) | style, 0, 0, 0, 0,
                              context.formWindow, nullptr, context.module, nullptr)) {
    if (!window_) RaiseWindowError("cannot create a control");
    SystemView::ScaleChanged();
}

void SystemView::Update() {
    if (shown_ == control_.Changes()) return;
    shown_ = control_.Changes();
    Show();
}

void SystemView::ScaleChanged() { Tell(WM_SETFONT, reinterpret_cast<WPARAM>(context_.font), TRUE); }

void SystemView::ShowText(const std::string& utf8) {
    const std::wstring text = kestrel::win32::Wide(utf8);
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
    GetWindowTextW(window_, shown.data(), static_cast<int>(shown.size()) + 1);
    if (shown != text) SetWindowTextW(window_, text.c_str());
}

}  // namespace kestrel::ui::win32
