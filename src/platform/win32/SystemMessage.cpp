#include "platform/win32/SystemMessage.h"

#include <array>

#include "platform/win32/WideText.h"

namespace kestrel::win32 {

std::string SystemMessage(DWORD error) {
    std::array<wchar_t, 1024> buffer;
    // Without IGNORE_INSERTS a message with "%1" would read arguments that nobody gave.
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::string message = Utf8({buffer.data(), length});
    message.erase(message.find_last_not_of(" .\r\n") + 1);
    return message.empty() ? "system error " + std::to_string(error) : message;
}

}  // namespace kestrel::win32
