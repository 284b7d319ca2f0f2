#include "store/modRegistry.h"

#include <cstdint>

namespace kestrel {
namespace {

constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::size_t kBufferSize = 2048;

std::string NumberText(const std::string& bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4 && i < bytes.size(); ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    const std::string digits = std::to_string(number);
    return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

std::string HexText(const std::string& bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

}  // namespace

std::string GetRegValue(Desktop& desktop, const std::string& key, const std::string& name,
                        const std::string& fallback) {
    const auto value = desktop.UserRegistryValue(key, name);
    if (!value || value->bytes.size() > kBufferSize) return fallback;
    if (value->type == kBinary) return HexText(value->bytes);
    if (value->bytes.empty()) return {};
    const std::size_t kept = value->bytes.size() - 1;
    if (value->type == kNumber) return NumberText(value->bytes).substr(0, kept);
    return desktop.DecodeSystemText(value->bytes.substr(0, kept));
}

}  // namespace kestrel
