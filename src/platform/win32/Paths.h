#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kestrel::win32 {

/// The UTF-8 path as the system's functions take it: absolute, with "\" for "/". A path near the
/// system's classic limit of 260 characters gets the prefix that lifts it. Empty for an empty path
/// and for one that the system cannot make sense of.
std::wstring SystemPath(std::string_view path);

/// Full path of a loaded program or DLL, of any length; nullptr stands for the running program.
std::wstring ModulePath(HMODULE module = nullptr);

}  // namespace kestrel::win32
