#pragma once

#include <windows.h>
#include <string>
#include <system_error>
#include <utility>

namespace kestrel::ui::win32 {

/// A function of the window system answered no window or class.
[[noreturn]] inline void RaiseWindowError(const char* what) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

/// A window class of a module for as long as a window needs it. Scopes of one class may nest: the
/// system refuses to remove a class that has windows, so the last scope removes it and nothing is
/// left when the module is unloaded.
class WindowClass {
 public:
    /// Raises std::system_error; a class that is there already serves.
    explicit WindowClass(const WNDCLASSEXW& wanted)
        : module_(wanted.hInstance), name_(wanted.lpszClassName) {
        if (!RegisterClassExW(&wanted) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
            RaiseWindowError("cannot register a window class");
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(name_.c_str(), module_); }

    const wchar_t* Name() const { return name_.c_str(); }

 private:
    HINSTANCE module_;
    std::wstring name_;
};

/// Owns a window of this thread, with its children.
class WindowHandle {
 public:
    WindowHandle() = default;
    /// Takes over what CreateWindowEx answered; none raises std::system_error.
    explicit WindowHandle(HWND created) : window_(created) {
        if (!window_) RaiseWindowError("cannot create a window");
    }
    WindowHandle(WindowHandle&& other) noexcept : window_(std::exchange(other.window_, nullptr)) {}
    WindowHandle& operator=(WindowHandle&& other) noexcept {
        std::swap(window_, other.window_);
        return *this;
    }
    ~WindowHandle() {
        if (window_) DestroyWindow(window_);
    }
    HWND Get() const { return window_; }
    /// The window is gone: its owner has taken it along.
    void Forget() { window_ = nullptr; }

 private:
    HWND window_ = nullptr;
};

}  // namespace kestrel::ui::win32
