#pragma once

#include <windows.h>
#include <commctrl.h>

#include <optional>
#include <string>

#include "ui/win32/ControlView.h"

namespace kestrel::ui::win32 {

/// A control shown by a window of the system's own kinds ("BUTTON", "EDIT", ...), which draws
/// itself and knows its users' habits. It belongs to the form's window, which destroys it.
class SystemView : public ControlView {
 public:
    HWND Window() const override { return window_; }
    void Update() override;
    void ScaleChanged() override;

    /// What the window tells its parent.
    virtual void Commanded(WORD) {}
    virtual LRESULT Notified(NMHDR&) { return 0; }
    /// Whether the window makes use of a key itself, ahead of the form.
    virtual bool KeepsKey(WPARAM) const { return false; }
    /// A message on its way to the window; nothing leaves it to the window alone.
    virtual std::optional<LRESULT> Before(UINT, WPARAM, LPARAM) { return {}; }
    /// The window has dealt with the message.
    virtual void After(UINT, WPARAM, LPARAM) {}

    /// The window's height where its control is `height` pixels high.
    virtual int WindowHeight(int height) const { return height; }
    /// Pixels by which the control's text is higher than the window.
    virtual int MissingHeight() const { return 0; }

 protected:
    /// A visible child of the form's window, without a place yet. Raises std::system_error.
    SystemView(ViewContext& context, Control& control, const wchar_t* windowClass, DWORD style,
               DWORD extendedStyle = 0);

    /// Called when the model has changed.
    virtual void Show() = 0;

    LRESULT Tell(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_, message, wParam, lParam);
    }
    void ShowText(const std::string& utf8);

    ViewContext& context_;

 private:
    Control& control_;
    HWND window_;
    std::optional<std::uint64_t> shown_;  ///< Control::Changes() when last shown
};

}  // namespace kestrel::ui::win32
