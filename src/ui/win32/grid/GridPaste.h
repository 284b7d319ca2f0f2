#pragma once

#include <windows.h>
// windows.h first
#include <string>

namespace kestrel::ui::win32 {

/// What of the clipboard's text can be typed into one cell: its first line up to a tab, which in
/// texts copied from tables is the first cell, without blanks around it. Empty when there is no
/// text, or another program has the clipboard open.
std::u32string PastedCell(HWND window);

}  // namespace kestrel::ui::win32
