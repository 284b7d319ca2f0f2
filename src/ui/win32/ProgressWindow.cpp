#include "ui/win32/ProgressWindow.h"

#include "ui/win32/CommonControls.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/FormWindow.h"
#include "ui/win32/Owner.h"

namespace kestrel::ui::win32 {
namespace {

/// A window that never validates itself would be asked to paint for ever.
constexpr int kMostPaintings = 50;

}  // namespace

ProgressWindow::ProgressWindow(HINSTANCE module, Form& form) : module_(module), form_(form) {
    const CommonControlsScope controls(module_);
    const DpiScope scale;
    const HWND owner = OwnerForNewWindow();
    form_.Open();
    if (!form_.IsOpen()) return;
    try {
        window_ = std::make_unique<FormWindow>(module, form, owner);
        others_ = std::make_unique<OtherWindowsDisabled>(window_->Handle());
    } catch (...) {
        form_.Close();
        throw;
    }
    window_->Show();
    Refresh();
}

ProgressWindow::~ProgressWindow() { form_.Close(); }

/// The next message that waits for the window and its children (for any, without one), of one kind
/// or, with 0, of every kind.
bool ProgressWindow::Take(MSG& message, HWND window, UINT kind) {
    if (!PeekMessageW(&message, window, kind, kind, PM_REMOVE)) return false;
    if (message.message != WM_QUIT) return true;
    // It comes whatever is asked for. Whoever waits outside has to end, too.
    form_.Close();
    PostQuitMessage(static_cast<int>(message.wParam));
    return false;
}

void ProgressWindow::Refresh() {
    if (!window_) return;
    if (form_.IsOpen()) window_->Update();
    MSG message{};
    while (form_.IsOpen() && Take(message, window_->Handle(), 0)) {
        if (window_->Translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    for (int i = 0; i < kMostPaintings && Take(message, nullptr, WM_PAINT); ++i)
        DispatchMessageW(&message);
    if (!form_.IsOpen()) {
        others_.reset();
        window_->Hide();
    }
}

}  // namespace kestrel::ui::win32
