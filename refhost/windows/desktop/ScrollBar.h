#pragma once

#include <windows.h>

namespace refhost::win32 {

/// A scroll bar of its own, a child window; its parent gets WM_HSCROLL or WM_VSCROLL.
class ScrollBar {
 public:
    ScrollBar(HWND parent, HINSTANCE module, bool vertical);

    HWND Window() const { return window_; }
    /// Positions from 0 to `total` less `page`. Nothing to scroll greys it.
    void Set(int total, int page, int position);
    /// Where the user wants to go; `line` is one press of an arrow.
    int Wanted(WORD code, int line) const;
    void Place(const RECT& place) const;

 private:
    HWND window_;  ///< destroyed with its parent
};

}  // namespace refhost::win32
