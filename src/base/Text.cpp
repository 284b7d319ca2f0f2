#include "base/Text.h"

#include <algorithm>

namespace kestrel {
namespace {

std::uint32_t ByteOf(char c) { return static_cast<unsigned char>(c); }

bool Continues(char c) { return (ByteOf(c) & 0xC0) == 0x80; }

}  // namespace

Utf8Character FirstCharacter(std::string_view text) {
    if (text.empty()) return {};
    const std::uint32_t lead = ByteOf(text.front());
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || length > text.size()) return {};
    std::uint32_t code = lead & (0xFFu >> (length + 1));
    for (const char c : text.substr(1, length - 1)) {
        if (!Continues(c)) return {};
        code = code << 6 | (ByteOf(c) & 0x3F);
    }
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < kSmallest[length] || code > 0x10FFFF || surrogate) return {};
    return {code, length};
}

Utf8Character CharacterOrByte(std::string_view text) {
    const Utf8Character first = FirstCharacter(text);
    return first.length > 0 ? first : Utf8Character{ByteOf(text.front()), 1};
}

std::size_t WholeCharacterAt(std::string_view text, std::size_t offset) {
    offset = std::min(offset, text.size());
    while (offset > 0 && offset < text.size() && Continues(text[offset])) --offset;
    return offset;
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) return append(character);
    int shift = character < 0x800 ? 6 : character < 0x10000 ? 12 : 18;
    constexpr char32_t kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    append(kLeads[shift / 6] | character >> shift);
    while ((shift -= 6) >= 0) append(0x80 | (character >> shift & 0x3F));
}

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return TrimmedEnd(text, blanks);
}

std::string_view TrimmedEnd(std::string_view text, std::string_view blanks) {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == text.npos; }

std::string Lowered(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lowered;
}

}  // namespace kestrel
