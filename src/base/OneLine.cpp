#include "base/OneLine.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace kestrel {
namespace {

constexpr std::size_t kMost = 600;  ///< bytes of a message, about five lines of a terminal
constexpr std::size_t kTail = 200;  ///< of them after the cut: what to do about it

bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// Bytes of the UTF-8 character at the start of `text`; 0 where there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF5   ? 0
                               : lead >= 0xF0 ? 4
                               : lead >= 0xE0 ? 3
                               : lead >= 0xC2 ? 2
                                              : 0;
    if (length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!Continues(text[i])) return 0;
    return length;
}

std::uint32_t Code(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return lead;
    std::uint32_t code = lead & (0x7Fu >> character.size());
    for (const char c : character.substr(1))
        code = (code << 6) | (static_cast<unsigned char>(c) & 0x3Fu);
    return code;
}

/// C0, DEL, C1, the separators of lines and paragraphs, and the marks of direction.
bool Moves(std::uint32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void AppendEscape(std::string& text, std::uint32_t code) {
    if (code == '\n' || code == '\r' || code == '\t') {
        text += code == '\n' ? "\\n" : code == '\r' ? "\\r" : "\\t";
        return;
    }
    std::array<char, 12> escape{};
    std::snprintf(escape.data(), escape.size(), code < 0x100 ? "\\x%02X" : "\\u%04X", code);
    text += escape.data();
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = text.substr(0, length ? length : 1);
        const std::uint32_t code =
            length ? Code(character) : static_cast<unsigned char>(text.front());
        if (!length || Moves(code))
            AppendEscape(printable, code);
        else
            printable += character;
        text.remove_prefix(character.size());
    }
    return printable;
}

std::string OneLine(std::string_view text) {
    if (text.size() > kMost) {
        std::size_t head = kMost - kTail, tail = text.size() - kTail;
        while (head > 0 && Continues(text[head])) --head;
        while (tail < text.size() && Continues(text[tail])) ++tail;
        return Printable(text.substr(0, head)) + " [...] " + Printable(text.substr(tail));
    }
    return Printable(text);
}

}  // namespace kestrel
