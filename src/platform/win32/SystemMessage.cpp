#include "platform/win32/SystemMessage.h"

#include <cstdint>
#include <cstdio>

#include "platform/win32/WideText.h"

namespace kestrel::win32 {

std::string SystemMessage(HRESULT code) {
    wchar_t text[512];
    // Line breaks in the system's table stand for blanks of a sentence.
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(code), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring_view words(text, length);
    while (!words.empty() && (words.back() <= L' ' || words.back() == L'.')) words.remove_suffix(1);
    if (!words.empty()) return Utf8(words);
    char number[32];
    std::snprintf(number, sizeof number, "error 0x%08lX", static_cast<unsigned long>(code));
    return number;
}

}  // namespace kestrel::win32
