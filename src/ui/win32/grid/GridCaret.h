#pragma once

#include <windows.h>

namespace kestrel::ui::win32 {

/// The blinking caret of a window. There is one for all windows of the system's user, so it is
/// made when the window needs it and given up when the keyboard goes elsewhere.
class GridCaret {
 public:
    explicit GridCaret(HWND window) : window_(window) {}
    GridCaret(const GridCaret&) = delete;
    GridCaret& operator=(const GridCaret&) = delete;
    ~GridCaret() { Hide(); }

    /// An empty place hides the caret.
    void Show(const RECT& place);
    void Hide();

 private:
    HWND window_;
    SIZE size_{};  ///< of the caret that exists; 0 for none
};

}  // namespace kestrel::ui::win32
