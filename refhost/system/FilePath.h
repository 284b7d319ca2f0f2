#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace refhost {

/// A UTF-8 path as the library takes it: on Windows a plain string would be read in the user's
/// code page.
inline std::filesystem::path FilePath(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

inline std::string Utf8Path(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace refhost
