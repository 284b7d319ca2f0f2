#pragma once

#include <windows.h>

#include <string>

namespace kestrel::win32 {

/// The system's own words for an error of GetLastError or an HRESULT, without full stop and line
/// break: "The system cannot find the file specified".
std::string SystemMessage(DWORD error);

inline std::string LastErrorMessage() { return SystemMessage(GetLastError()); }

}  // namespace kestrel::win32
