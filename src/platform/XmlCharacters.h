#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Characters and encodings of XML documents.
namespace kestrel {

/// Whether an XML document can hold the character: no control characters but tab and line
/// breaks, no surrogates, no U+FFFE, U+FFFF.
bool IsXmlCharacter(std::uint32_t character);

/// Length of the UTF-8 character at the start of `text`, or 0 when there is none that an XML
/// document can hold, or ill-formed bytes.
std::size_t XmlCharacterLength(std::string_view text);
/// Bytes at the beginning of `text` that an XML document can hold.
std::size_t XmlTextLength(std::string_view text);

/// The character that a reference ("amp", "#233", "#xE9") stands for, or kNoXmlCharacter.
inline constexpr std::uint32_t kNoXmlCharacter = 0xFFFF;
std::uint32_t XmlReferredCharacter(std::string_view reference);

/// Whether the text may be the name of an element or attribute, as far as ASCII goes.
bool IsXmlName(std::string_view text);

/// How the first bytes of a document show the width and order of its characters.
struct XmlEncodingMark {
    std::string_view bytes;
    std::size_t skipped = 0;  ///< bytes of a byte order mark
    std::size_t width = 1;    ///< bytes a unit; 1 for UTF-8 and every other extension of ASCII
    bool bigEndian = false;
};
XmlEncodingMark EncodingMarkOf(std::string_view bytes);

/// The unit of `mark.width` bytes at `offset`; 0 beyond the end.
std::uint32_t XmlUnitAt(std::string_view bytes, std::size_t offset, const XmlEncodingMark& mark);

}  // namespace kestrel
