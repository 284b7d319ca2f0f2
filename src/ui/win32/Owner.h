#pragma once

#include <windows.h>
#include <vector>

/// Whose window a form belongs to, and who waits while it is open.
namespace kestrel::ui::win32 {

/// The window that the user works with on this thread: the active one or, while another program
/// is active, the foremost that could be. Nothing for a host without windows.
HWND OwnerForNewWindow();

/// The user cannot work the thread's other windows while it lives: commands must not overlap, and
/// a host may have several windows. At the end exactly those that could be worked before can be
/// again. Ends before the form's window is destroyed: the system activates a window that is
/// enabled by then, else one of another program.
class OtherWindowsDisabled {
 public:
    /// All but `except` and what belongs to it.
    explicit OtherWindowsDisabled(HWND except);
    ~OtherWindowsDisabled();
    OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
    OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
    std::vector<HWND> disabled_;
};

/// The control that has the keyboard when it is made has it again when it ends, once the windows
/// that came in between have gone. The system brings back the window, not always the control in
/// it.
class KeyboardReturn {
 public:
    KeyboardReturn() : control_(GetFocus()) {}
    ~KeyboardReturn();
    KeyboardReturn(const KeyboardReturn&) = delete;
    KeyboardReturn& operator=(const KeyboardReturn&) = delete;

 private:
    HWND control_;  ///< none while another program is active
};

}  // namespace kestrel::ui::win32
