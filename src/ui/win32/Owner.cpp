#include "ui/win32/Owner.h"

#include <algorithm>

namespace kestrel::ui::win32 {
namespace {

BOOL CALLBACK AddUsable(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window))
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

/// The thread's windows without a parent, as far as the user can see and work them.
std::vector<HWND> UsableWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), AddUsable, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// Not a tool tip, a floating tool bar or the like, which come and go.
bool CanOwn(HWND window) {
    constexpr LONG_PTR kPassing = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    return window && IsWindowVisible(window) && IsWindowEnabled(window) &&
           !(GetWindowLongPtrW(window, GWL_EXSTYLE) & kPassing);
}

}  // namespace

HWND OwnerForNewWindow() {
    const HWND active = GetActiveWindow();
    for (const HWND candidate : {active, active ? GetAncestor(active, GA_ROOTOWNER) : nullptr})
        if (CanOwn(candidate)) return candidate;
    const std::vector<HWND> windows = UsableWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), CanOwn);
    return found == windows.end() ? nullptr : *found;
}

OtherWindowsDisabled::OtherWindowsDisabled(HWND except) {
    for (const HWND window : UsableWindows()) {
        if (window == except || GetWindow(window, GW_OWNER) == except) continue;
        EnableWindow(window, FALSE);
        disabled_.push_back(window);
    }
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
    // One that the host has destroyed meanwhile is refused, which is as well.
    for (const HWND window : disabled_) static_cast<void>(EnableWindow(window, TRUE));
}

KeyboardReturn::~KeyboardReturn() {
    if (!control_ || !IsWindow(control_) || !IsWindowEnabled(control_) || GetFocus() == control_)
        return;
    // Where the user has gone to another window meanwhile, that keeps the keyboard.
    const HWND active = GetActiveWindow();
    if (!active || active == GetAncestor(control_, GA_ROOT)) SetFocus(control_);
}

}  // namespace kestrel::ui::win32
