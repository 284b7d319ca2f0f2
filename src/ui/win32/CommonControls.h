#pragma once

#include <windows.h>

namespace kestrel::ui::win32 {

/// Windows made by this thread while it lives get the system's present-day controls (version 6),
/// as the manifest asks that `module` carries as its resource 2. Without such a manifest the
/// host's choice stands. Scopes of one thread end in reverse order.
class CommonControlsScope {
 public:
    explicit CommonControlsScope(HINSTANCE module);
    ~CommonControlsScope();
    CommonControlsScope(const CommonControlsScope&) = delete;
    CommonControlsScope& operator=(const CommonControlsScope&) = delete;

 private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace kestrel::ui::win32
