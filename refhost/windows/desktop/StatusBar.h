#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace refhost::win32 {

/// The bar at the window's foot: a text, the plan's finish and its cost.
class StatusBar {
 public:
    /// A child of the window, destroyed with it.
    StatusBar(HWND parent, HINSTANCE module);

    HWND Window() const { return window_; }
    int Height() const;
    /// After the parent has taken another size; `dpi` decides how wide the figures are.
    void LayOut(UINT dpi) const;
    void SetFont(HFONT font) const;
    /// Repaints what differs.
    void Show(const std::string& text, const std::string& finish, const std::string& cost);

 private:
    HWND window_;
    std::array<std::wstring, 3> shown_;
};

}  // namespace refhost::win32
