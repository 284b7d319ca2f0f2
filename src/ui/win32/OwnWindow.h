#pragma once

#include <windows.h>

#include "ui/win32/ControlView.h"

namespace kestrel::ui::win32 {

/// A child window of the form's that the program itself paints and works, for controls that the
/// system has no window for. What a handler raises is kept in the context.
class OwnWindow {
 public:
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;

 protected:
    /// `className` is the same for all windows of a kind, and must live as long.
    OwnWindow(ViewContext& context, const wchar_t* className);
    /// Destroys the window, unless its parent has been first; the last of a kind gives the class
    /// back, since the module that it points into may be unloaded.
    virtual ~OwnWindow();

    /// To be called by the constructor of the class that handles the messages. Raises
    /// std::system_error.
    void Create(DWORD style, DWORD extendedStyle = 0);

    /// A message of the window; those that it has no use for go to Default. The window may be
    /// gone after a call of the context's `afterEvent`.
    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) {
        return DefWindowProcW(window_, message, wParam, lParam);
    }

    ViewContext& context_;
    HWND window_ = nullptr;  ///< none before Create and after its destruction

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    const wchar_t* className_;
};

}  // namespace kestrel::ui::win32
