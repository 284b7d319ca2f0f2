#pragma once

#include <windows.h>

#include <string>

namespace kestrel::win32 {

/// The system's own words for an error code or HRESULT, on one line and without the full stop
/// at its end; "error 0x80040154" when it has none.
std::string SystemMessage(HRESULT code);

}  // namespace kestrel::win32
