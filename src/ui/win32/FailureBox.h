#pragma once

#include <windows.h>

#include <exception>

namespace kestrel::ui::win32 {

/// Tells a failure in a message box of the owner, which may be none: an error's own sentence, and
/// for a fault of the program that it is one. Falls back to a sound where there is no memory for a
/// box.
void ShowFailure(HWND owner, const std::exception_ptr& failure) noexcept;

}  // namespace kestrel::ui::win32
