#include "ui/win32/OwnWindow.h"

namespace kestrel::ui::win32 {
namespace {

WNDCLASSEXW ClassOf(HINSTANCE module, const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.style = CS_DBLCLKS;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = module;
    wanted.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wanted.lpszClassName = name;
    return wanted;
}

}  // namespace

OwnWindow::OwnWindow(ViewContext& context, const wchar_t* className, DWORD style)
    : context_(context),
      class_(ClassOf(context.module, className, Procedure)),
      window_(CreateWindowExW(0, className, L"", style | WS_CHILD, 0, 0, 0, 0, context.formWindow,
                              nullptr, context.module, nullptr)) {
    if (!window_) RaiseWindowError("cannot create a control's window");
}

OwnWindow::~OwnWindow() {
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);  // nobody is left to handle messages
    DestroyWindow(window_);
}

RECT OwnWindow::Client() const {
    RECT client{};
    GetClientRect(window_, &client);  // fails only for a window that is gone
    return client;
}

LRESULT CALLBACK OwnWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept {
    auto* const self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        self->window_ = nullptr;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    ViewContext& context = self->context_;  // outlives the view
    try {
        if (const auto answer = self->Handle(message, wParam, lParam)) return *answer;
    } catch (...) {
        context.MessageFailed(window, message);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace kestrel::ui::win32
