#pragma once

#include <windows.h>

#include <string>

namespace kestrel::win32 {

/// The system's own words for an error of GetLastError or an HRESULT, on one line and without the
/// full stop at its end; "error 0x80040154" when it has none.
std::string SystemMessage(DWORD error);
inline std::string SystemMessage(HRESULT result) {
    return SystemMessage(static_cast<DWORD>(result));
}

inline std::string LastErrorMessage() { return SystemMessage(GetLastError()); }

}  // namespace kestrel::win32
