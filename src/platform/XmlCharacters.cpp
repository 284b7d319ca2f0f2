#include "platform/XmlCharacters.h"

#include "base/Text.h"

namespace kestrel {

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

}  // namespace kestrel
