#include "platform/win32/WideText.h"

#include <windows.h>

namespace kestrel::win32 {
namespace {

std::wstring Widen(UINT codePage, std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(UINT codePage, std::wstring_view wide) {
    const int length = static_cast<int>(wide.size());
    std::string text(static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, wide.data(), length,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(),
                        static_cast<int>(text.size()), nullptr, nullptr);
    return text;
}

}  // namespace

std::wstring Wide(std::string_view utf8) { return Widen(CP_UTF8, utf8); }
std::string Utf8(std::wstring_view wide) { return Narrow(CP_UTF8, wide); }
std::string Ansi(std::string_view utf8) { return Narrow(CP_ACP, Wide(utf8)); }
std::string FromAnsi(std::string_view ansi) { return Utf8(Widen(CP_ACP, ansi)); }

}  // namespace kestrel::win32
