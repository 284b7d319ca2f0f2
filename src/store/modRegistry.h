#pragma once

#include <string>

#include "platform/Desktop.h"

namespace kestrel {

/// Key and value below HKEY_CURRENT_USER that hold the host's plan folder.
inline constexpr const char* kHostOptionsKey = "Software\\Schedulon Software\\Schedulon8x\\Options";
inline constexpr const char* kPlanPathValue = "PlanPath";

/// A value below HKEY_CURRENT_USER as text; `fallback` when it is absent or longer than 2048
/// bytes.
///  - A string: all but its last byte, the terminating NUL. Bytes are the system's, before they
///    are decoded.
///  - A number (REG_DWORD): at least three digits, then cut to three, as the cut that drops a
///    string's NUL is made here too: 7 -> "007", 1234 -> "123".
///  - Binary: two upper-case hexadecimal digits a byte.
std::string GetRegValue(Desktop& desktop, const std::string& key, const std::string& name,
                        const std::string& fallback);

}  // namespace kestrel
