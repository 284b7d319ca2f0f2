#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters and blanks of text, which is UTF-8 everywhere.
namespace kestrel {

/// A character of a text; of no length where the text begins with none.
struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0;  ///< bytes, up to 4
};

/// The character that the text begins with: none in an empty text and before bytes that are
/// broken off, longer than the character needs, a surrogate or beyond U+10FFFF.
Utf8Character FirstCharacter(std::string_view text);

/// The same for a text that is not empty, with a byte that begins no character as one of its own.
Utf8Character CharacterOrByte(std::string_view text);

/// The last place not behind `offset` where the text may be cut without breaking a character.
std::size_t WholeCharacterAt(std::string_view text, std::size_t offset);

/// What is beyond U+10FFFF is written like a character, and read as none.
void AppendUtf8(std::string& text, char32_t character);

/// What lays out a document, beside the space that stands in a line.
inline constexpr std::string_view kBlanks = " \t\r\n";

/// What follows a sentence that is to stand within another one.
inline constexpr std::string_view kSentenceEnd = " \t\r\n.";

/// The text without the blanks around it.
std::string_view Trimmed(std::string_view text, std::string_view blanks = kBlanks);
/// The text without the blanks at its end.
std::string_view TrimmedEnd(std::string_view text, std::string_view blanks = kBlanks);
/// Whether there is nothing but spaces.
bool IsBlank(std::string_view text);

/// Letters of ASCII in lower case, everything else as it stands.
std::string Lowered(std::string_view text);

}  // namespace kestrel
