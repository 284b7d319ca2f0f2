#include "platform/XmlCharacters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace kestrel {
namespace {

using namespace std::string_view_literals;
constexpr std::array<XmlEncodingMark, 9> kMarks{{
    {"\xFF\xFE\0\0"sv, 4, 4, false},  // before the 16-bit mark, which it starts with
    {"\0\0\xFE\xFF"sv, 4, 4, true},
    {"<\0\0\0"sv, 0, 4, false},
    {"\0\0\0<"sv, 0, 4, true},
    {"\xFF\xFE"sv, 2, 2, false},
    {"\xFE\xFF"sv, 2, 2, true},
    {"<\0"sv, 0, 2, false},
    {"\0<"sv, 0, 2, true},
    {"\xEF\xBB\xBF"sv, 3, 1, false},
}};

}  // namespace

bool IsXmlCharacter(std::uint32_t character) {
    if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
    return character <= 0x10FFFF && !(character >= 0xD800 && character <= 0xDFFF) &&
           character != 0xFFFE && character != 0xFFFF;
}

std::size_t XmlCharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : std::uint32_t{0};
    };
    const std::uint32_t lead = byte(0);
    if (lead < 0x80) return IsXmlCharacter(lead) ? 1 : 0;

    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    std::uint32_t character = lead & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        character = character << 6 | (byte(i) & 0x3F);
    }
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool wellFormed = lead >= 0xC2 && lead <= 0xF4 && character >= kSmallest[length];
    return wellFormed && IsXmlCharacter(character) ? length : 0;
}

std::uint32_t XmlReferredCharacter(std::string_view reference) {
    constexpr std::pair<std::string_view, char> kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [name, character] : kNamed)
        if (reference == name) return static_cast<std::uint32_t>(character);

    if (!reference.starts_with('#')) return kNoXmlCharacter;
    reference.remove_prefix(1);
    const int base = reference.starts_with('x') ? 16 : 10;
    if (base == 16) reference.remove_prefix(1);
    std::uint32_t character = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stopped, error] = std::from_chars(reference.data(), end, character, base);
    const bool read = error == std::errc() && stopped == end;
    return read && IsXmlCharacter(character) ? character : kNoXmlCharacter;
}

bool IsXmlName(std::string_view text) {
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
               static_cast<unsigned char>(c) >= 0x80;
    };
    const auto mayFollow = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
    };
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), mayFollow);
}

void AppendUtf8(std::string& text, std::uint32_t character) {
    const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto trail = [&](int shift) { append(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        trail(0);
    } else if (character < 0x10000) {
        append(0xE0 | character >> 12);
        trail(6);
        trail(0);
    } else {
        append(0xF0 | character >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

XmlEncodingMark EncodingMarkOf(std::string_view bytes) {
    for (const XmlEncodingMark& mark : kMarks)
        if (bytes.starts_with(mark.bytes)) return mark;
    return {};
}

std::uint32_t XmlUnitAt(std::string_view bytes, std::size_t offset, const XmlEncodingMark& mark) {
    if (offset + mark.width > bytes.size()) return 0;
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < mark.width; ++i) {
        const std::size_t at = mark.bigEndian ? offset + i : offset + mark.width - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(bytes[at]);
    }
    return unit;
}

}  // namespace kestrel
