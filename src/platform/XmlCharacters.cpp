#include "platform/XmlCharacters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/Text.h"

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
    const Utf8Character first = FirstCharacter(text);
    return IsXmlCharacter(first.code) ? first.length : 0;
}

std::size_t XmlTextLength(std::string_view text) {
    std::size_t read = 0;
    while (const std::size_t length = XmlCharacterLength(text.substr(read))) read += length;
    return read;
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
