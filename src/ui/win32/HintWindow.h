#pragma once

#include <windows.h>

#include <string>

#include "ui/win32/ControlView.h"

namespace kestrel::ui::win32 {

/// The little window with hints over a control's window: the system shows one where the mouse
/// rests, or the program at a place of its choice. Places are pixels of that window.
class HintWindow {
 public:
    /// For a window of the form's, which may be gone when this ends.
    HintWindow(const ViewContext& context, HWND owner);
    HintWindow(const HintWindow&) = delete;
    HintWindow& operator=(const HintWindow&) = delete;
    ~HintWindow();

    HWND Window() const { return window_; }

    void SetFont(HFONT font);
    /// Takes all hints away.
    void Clear();
    void Add(const RECT& area, const std::string& text);

    /// Shows a text below an area until Hide.
    void Show(const RECT& area, const std::string& text);
    void Hide();

 private:
    HWND owner_;
    HWND window_;
    UINT_PTR count_ = 0;  ///< of hints that the system shows; they are numbered from 1
    bool shown_ = false;  ///< by the program
};

}  // namespace kestrel::ui::win32
