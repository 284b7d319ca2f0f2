#include "platform/XmlMarkupText.h"

#include <algorithm>

#include "base/Text.h"

namespace kestrel {
namespace {

/// In lower case; empty when the document declares none.
std::string DeclaredEncoding(std::string_view text) {
    const std::string_view declaration =
        text.starts_with("<?xml") ? text.substr(0, text.find("?>")) : std::string_view();
    const std::size_t at = declaration.find_first_of("'\"", declaration.find("encoding"));
    if (at == declaration.npos) return {};
    const std::size_t end = declaration.find(declaration[at], at + 1);
    std::string name(declaration.substr(at + 1, end - at - 1));
    for (char& c : name)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return name;
}

}  // namespace

XmlMarkupText::XmlMarkupText(std::string_view bytes) {
    const XmlEncodingMark mark = EncodingMarkOf(bytes);
    const bool isWide = mark.width > 1;
    if (isWide) Convert(bytes, mark);
    text_ = isWide ? std::string_view(converted_) : bytes.substr(mark.skipped);
    const std::string declared = DeclaredEncoding(text_);
    isUtf8_ = isWide || declared.empty() || declared == "utf-8";
}

void XmlMarkupText::Convert(std::string_view bytes, const XmlEncodingMark& mark) {
    for (std::size_t at = mark.skipped; at < bytes.size(); at += mark.width) {
        std::uint32_t character = XmlUnitAt(bytes, at, mark);
        if (mark.width == 2 && character >> 10 == 0xD800 >> 10) {
            const std::uint32_t low = XmlUnitAt(bytes, at + 2, mark);
            if (low >> 10 == 0xDC00 >> 10) {
                character = 0x10000 + ((character & 0x3FF) << 10 | (low & 0x3FF));
                at += 2;
            }
        }
        // What is no character becomes bytes that are none either, to be refused with their line.
        AppendUtf8(converted_, std::min<std::uint32_t>(character, 0x1FFFFF));
    }
}

}  // namespace kestrel
