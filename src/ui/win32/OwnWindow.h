#pragma once

#include <windows.h>

#include <optional>

#include "ui/win32/ControlView.h"
#include "ui/win32/WindowHandle.h"

namespace kestrel::ui::win32 {

/// A child window of the form's that the program itself paints and works, for controls that the
/// system has no window for. What a message raises goes to the context.
class OwnWindow : public ControlView {
 public:
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;
    /// Destroys the window, unless its parent has done so.
    ~OwnWindow() override;

    HWND Window() const override { return window_; }

 protected:
    /// Without size or text, and without messages yet. `className` names the kind of window.
    OwnWindow(ViewContext& context, const wchar_t* className, DWORD style);
    /// From here on messages come to Handle, for whose class this is the constructor's last call.
    void Begin() { SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this)); }

    /// Answers nothing where the system's own handling is wanted as well. The view may be gone
    /// afterwards.
    virtual std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    RECT Client() const;

    ViewContext& context_;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;

    WindowClass class_;
    HWND window_;  ///< none once its parent has taken it along
};

}  // namespace kestrel::ui::win32
