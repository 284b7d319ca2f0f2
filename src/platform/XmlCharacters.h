#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Characters of XML documents.
namespace kestrel {

/// Whether an XML document can hold the character: no control characters but tab and line
/// breaks, no surrogates, no U+FFFE, U+FFFF.
bool IsXmlCharacter(std::uint32_t character);

/// Length of the UTF-8 character at the start of `text`, or 0 when there is none that an XML
/// document can hold, or ill-formed bytes.
std::size_t XmlCharacterLength(std::string_view text);
/// Bytes at the beginning of `text` that an XML document can hold.
std::size_t XmlTextLength(std::string_view text);

}  // namespace kestrel
