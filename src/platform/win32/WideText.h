#pragma once

#include <string>
#include <string_view>

/// The system's encodings. Inside the add-in text is UTF-8; what cannot be converted becomes the
/// replacement character, so these never fail.
namespace kestrel::win32 {

std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view wide);

/// The code page of the user's locale, for the system's "A" functions.
std::string Ansi(std::string_view utf8);
std::string FromAnsi(std::string_view ansi);

}  // namespace kestrel::win32
