#include "ui/win32/WindowRunner.h"

#include "ui/win32/CommonControls.h"
#include "ui/win32/Dpi.h"
#include "ui/win32/FormWindow.h"
#include "ui/win32/Owner.h"

namespace kestrel::ui::win32 {
namespace {

void WorkUntilClosed(FormWindow& window, Form& form) {
    MSG message{};
    while (form.IsOpen()) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            form.Close();
            // Whoever waits outside has to end, too.
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        // The host's hooks see what its own dialogs get.
        if (CallMsgFilterW(&message, MSGF_DIALOGBOX)) continue;
        if (window.Translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Not noexcept: what makes the window may fail.
void Work(HINSTANCE module, Form& form, HWND owner) {
    FormWindow window(module, form, owner);
    const OtherWindowsDisabled others(window.Handle());
    window.Show();
    WorkUntilClosed(window, form);
}

}  // namespace

void WindowRunner::ShowModal(Form& form) {
    const CommonControlsScope controls(module_);
    const DpiScope scale;
    const HWND owner = OwnerForNewWindow();
    const KeyboardReturn keyboard;
    form.Open();
    try {
        if (form.IsOpen()) Work(module_, form, owner);
    } catch (...) {
        form.Close();
        throw;
    }
}

}  // namespace kestrel::ui::win32
