#include "ui/win32/OwnWindow.h"

#include "ui/win32/KeyInput.h"

namespace kestrel::ui::win32 {
namespace {

using kestrel::win32::MemoryPicture;
using kestrel::win32::PaintScope;
using kestrel::win32::SavedState;

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

bool HighContrast() {
    HIGHCONTRASTW settings{};
    settings.cbSize = sizeof settings;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof settings, &settings, 0) &&
           (settings.dwFlags & HCF_HIGHCONTRASTON);
}

OwnWindow::OwnWindow(ViewContext& context, const wchar_t* className, DWORD style)
    : context_(context),
      class_(ClassOf(context.module, className, Procedure)),
      window_(CreateWindowExW(0, className, L"", style | WS_CHILD, 0, 0, 0, 0, context.formWindow,
                              nullptr, context.module, nullptr)) {
    if (!window_) RaiseWindowError("cannot create a control's window");
}

OwnWindow::~OwnWindow() {
    End();
    if (window_) DestroyWindow(window_);
}

void OwnWindow::End() noexcept {
    if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    Disconnect();
}

void OwnWindow::Disconnect() noexcept {
    if (accessible_) accessible_->Disconnect();
    accessible_.Reset();
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
        if (const auto answer = self->Receive(message, wParam, lParam)) return *answer;
    } catch (...) {
        context.MessageFailed(window, message);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

std::optional<LRESULT> OwnWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;  // painting covers everything at once
        case WM_PAINT:
            Paint();
            return 0;
        case WM_PRINTCLIENT:
            PaintInto(reinterpret_cast<HDC>(wParam), Client());
            return 0;
        case WM_GETOBJECT:
            if (!accessible_)
                accessible_ = kestrel::win32::MakeCom<AccessibleParts>(window_, Parts());
            return accessible_->Respond(wParam, lParam);
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (TakeKey(message, wParam, lParam)) return 0;
            return {};
        case WM_DESTROY:
            Disconnect();
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_ENABLE:
        case WM_UPDATEUISTATE:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
            break;
        default:
            break;
    }
    return Handle(message, wParam, lParam);
}

bool OwnWindow::TakeKey(UINT, WPARAM virtualKey, LPARAM details) {
    const auto event = KeyEventOf(virtualKey, details);
    return event && (AnswersAgain(*event) || KeyDown(*event));
}

void OwnWindow::Paint() {
    const PaintScope paint(window_);
    const RECT client = Client();
    if (!picture_ || pictureSize_.cx != client.right || pictureSize_.cy != client.bottom) {
        picture_.reset();
        picture_ = std::make_unique<MemoryPicture>(paint.Dc(), client.right, client.bottom);
        pictureSize_ = {client.right, client.bottom};
    }
    {
        const SavedState state(picture_->Dc());
        PaintInto(picture_->Dc(), paint.Dirty());
    }
    picture_->CopyTo(paint.Dc(), paint.Dirty());
}

}  // namespace kestrel::ui::win32
