#include "base/OneLine.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "base/Text.h"

namespace kestrel {
namespace {

constexpr std::size_t kMost = 600;  ///< bytes of a message, about five lines of a terminal
constexpr std::size_t kTail = 200;  ///< of them after the cut: what to do about it

/// C0, DEL, C1, the separators of lines and paragraphs, and the marks of direction.
bool Moves(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void AppendEscape(std::string& text, char32_t code) {
    if (code == '\n' || code == '\r' || code == '\t') {
        text += code == '\n' ? "\\n" : code == '\r' ? "\\r" : "\\t";
        return;
    }
    std::array<char, 12> escape{};
    std::snprintf(escape.data(), escape.size(), code < 0x100 ? "\\x%02X" : "\\u%04X",
                  static_cast<unsigned>(code));
    text += escape.data();
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character first = FirstCharacter(text);
        const bool shown = first.length > 0 && !Moves(first.code);
        const std::string_view character = text.substr(0, std::max<std::size_t>(first.length, 1));
        if (shown)
            printable += character;
        else
            AppendEscape(printable, CharacterOrByte(text).code);
        text.remove_prefix(character.size());
    }
    return printable;
}

std::string OneLine(std::string_view text) {
    if (text.size() > kMost) {
        const std::size_t head = WholeCharacterAt(text, kMost - kTail);
        std::size_t tail = text.size() - kTail;
        while (WholeCharacterAt(text, tail) < tail) ++tail;
        return Printable(text.substr(0, head)) + " [...] " + Printable(text.substr(tail));
    }
    return Printable(text);
}

}  // namespace kestrel
