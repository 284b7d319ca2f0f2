#pragma once

#include <windows.h>
#include <string>

namespace kestrel::test {

/// Writes what the window shows, frame included, as a bitmap file. Raises std::runtime_error.
void SavePicture(HWND window, const std::string& path);

}  // namespace kestrel::test
