#pragma once

#include <windows.h>
#include "platform/win32/Gdi.h"

/// Scaling of windows. The functions for it came with different editions of the system, so they
/// are looked up while running.
namespace kestrel::ui::win32 {

/// Windows made by this thread while it lives are drawn by us at each monitor's own scale, however
/// the host stands to scaling. Systems that know none of this leave the host's way.
class DpiScope {
 public:
    DpiScope();
    ~DpiScope();
    DpiScope(const DpiScope&) = delete;
    DpiScope& operator=(const DpiScope&) = delete;

 private:
    DPI_AWARENESS_CONTEXT former_ = nullptr;
};

/// Dots per inch that the window is drawn at.
UINT DpiOf(HWND window);
/// The one that stays the same while the user is logged on.
UINT SystemDpi();

/// The font that the system's own messages have.
kestrel::win32::Font MessageFont(UINT dpi);

/// The size of a window whose inner size is given, both in pixels.
SIZE WindowSize(SIZE inner, DWORD style, DWORD extendedStyle, UINT dpi);

}  // namespace kestrel::ui::win32
