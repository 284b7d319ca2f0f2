#include "ui/win32/OwnWindow.h"

#include <system_error>

namespace kestrel::ui::win32 {

OwnWindow::OwnWindow(ViewContext& context, const wchar_t* className)
    : context_(context), className_(className) {}

OwnWindow::~OwnWindow() {
    if (window_) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);  // nobody is left to handle messages
        DestroyWindow(window_);
    }
    // Refused while another window of the kind is there.
    static_cast<void>(UnregisterClassW(className_, context_.module));
}

void OwnWindow::Create(DWORD style, DWORD extendedStyle) {
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.style = CS_DBLCLKS;
    kind.lpfnWndProc = Procedure;
    kind.hInstance = context_.module;
    kind.hCursor = LoadCursor(nullptr, IDC_ARROW);
    kind.lpszClassName = className_;
    if (!RegisterClassExW(&kind) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "cannot register a window class");
    CreateWindowExW(extendedStyle, className_, L"", style | WS_CHILD, 0, 0, 0, 0,
                    context_.formWindow, nullptr, context_.module, this);
    if (!window_)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "cannot create a window");
}

LRESULT CALLBACK OwnWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* created =
            static_cast<OwnWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        self->window_ = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    ViewContext& context = self->context_;  // outlives the window
    try {
        return self->Handle(message, wParam, lParam);
    } catch (...) {
        if (context.failed) context.failed(std::current_exception());
        return 0;
    }
}

}  // namespace kestrel::ui::win32
