#include "platform/win32/SystemMessage.h"

#include <array>
#include <cstdio>

#include "base/Text.h"
#include "platform/win32/WideText.h"

namespace kestrel::win32 {

std::string SystemMessage(DWORD error) {
    std::array<wchar_t, 1024> buffer;
    // Without IGNORE_INSERTS a message with "%1" would read arguments that nobody gave. Line breaks
    // in the system's table stand for blanks of a sentence.
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    const std::string text = Utf8({buffer.data(), length});
    if (const auto message = TrimmedEnd(text, kSentenceEnd); !message.empty())
        return std::string(message);
    std::array<char, 32> number;
    std::snprintf(number.data(), number.size(), "error 0x%08lX", error);
    return number.data();
}

}  // namespace kestrel::win32
