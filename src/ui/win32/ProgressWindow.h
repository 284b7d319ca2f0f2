#pragma once

#include <windows.h>
#include <memory>

#include "ui/controls/Form.h"

namespace kestrel::ui::win32 {

class FormWindow;
class OtherWindowsDisabled;

/// Shows a form beside work that goes on on the same thread, for as long as it lives. The thread's
/// other windows wait meanwhile.
///
///     frmProgress progress([&] { if (window) window->Refresh(); });
class ProgressWindow {
 public:
    /// Opens the form and shows it. Raises what opening does, and std::system_error.
    ProgressWindow(HINSTANCE module, Form& form);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    /// Paints at once what has changed, and lets in what the user has done to this window: moved
    /// or closed it, pressed a button. Windows behind it paint what has been uncovered. A window
    /// whose form has closed is hidden. Raises what a handler of the form raised.
    void Refresh();

 private:
    bool Take(MSG& message, HWND window, UINT kind);

    HINSTANCE module_;
    Form& form_;
    std::unique_ptr<FormWindow> window_;  ///< nothing for a form that closed while it loaded
    std::unique_ptr<OtherWindowsDisabled> others_;
};

}  // namespace kestrel::ui::win32
