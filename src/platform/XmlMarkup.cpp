#include "platform/XmlMarkup.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Text.h"

namespace kestrel {
namespace {

/// How the first bytes of a document show the width and order of its characters.
struct EncodingMark {
    std::string_view bytes;
    std::size_t skipped;  ///< bytes of a byte order mark
    std::size_t width;    ///< bytes a unit; 1 for UTF-8 and every other extension of ASCII
    bool bigEndian;
};

using namespace std::string_view_literals;
constexpr std::array<EncodingMark, 10> kMarks{{
    {"\xFF\xFE\0\0"sv, 4, 4, false},  // before the 16-bit mark, which it starts with
    {"\0\0\xFE\xFF"sv, 4, 4, true},
    {"<\0\0\0"sv, 0, 4, false},
    {"\0\0\0<"sv, 0, 4, true},
    {"\xFF\xFE"sv, 2, 2, false},
    {"\xFE\xFF"sv, 2, 2, true},
    {"<\0"sv, 0, 2, false},
    {"\0<"sv, 0, 2, true},
    {"\xEF\xBB\xBF"sv, 3, 1, false},
    {""sv, 0, 1, false},
}};

/// The unit at `offset`; 0 beyond the end.
std::uint32_t UnitAt(std::string_view bytes, std::size_t offset, const EncodingMark& mark) {
    if (offset + mark.width > bytes.size()) return 0;
    std::uint32_t unit = 0;
    for (std::size_t i = 0; i < mark.width; ++i) {
        const std::size_t at = mark.bigEndian ? offset + i : offset + mark.width - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(bytes[at]);
    }
    return unit;
}

std::string Converted(std::string_view bytes, const EncodingMark& mark) {
    std::string text;
    for (std::size_t at = mark.skipped; at < bytes.size(); at += mark.width) {
        std::uint32_t character = UnitAt(bytes, at, mark);
        if (mark.width == 2 && character >> 10 == 0xD800 >> 10) {
            const std::uint32_t low = UnitAt(bytes, at + 2, mark);
            if (low >> 10 == 0xDC00 >> 10) {
                character = 0x10000 + ((character & 0x3FF) << 10 | (low & 0x3FF));
                at += 2;
            }
        }
        // What is no character becomes bytes that are none either.
        AppendUtf8(text, std::min<std::uint32_t>(character, 0x1FFFFF));
    }
    return text;
}

/// Bytes up to the end of a tag: its ">" outside quotes, or a "<", which belongs to what follows.
std::size_t TagLength(std::string_view text, bool& closed) {
    char quote = 0;
    for (std::size_t at = 1; at < text.size(); ++at) {
        const char c = text[at];
        closed = c == '>' && !quote;
        if (closed) return at + 1;
        if (c == '<') return at;
        if (quote ? c == quote : c == '"' || c == '\'') quote = quote ? '\0' : c;
    }
    return text.size();
}

}  // namespace

XmlMarkupText::XmlMarkupText(std::string_view bytes) {
    const EncodingMark& mark =
        *std::ranges::find_if(kMarks, [&](const auto& m) { return bytes.starts_with(m.bytes); });
    if (mark.width > 1) converted_ = Converted(bytes, mark);
    text_ = mark.width > 1 ? std::string_view(converted_) : bytes.substr(mark.skipped);
}

std::string XmlMarkupText::Encoding() const {
    if (!text_.starts_with("<?xml")) return {};
    std::string declaration = Lowered(text_.substr(0, text_.find("?>")));
    std::erase_if(declaration, [](char c) { return kBlanks.find(c) != kBlanks.npos; });
    constexpr std::string_view kSays = "encoding=";
    const auto said = declaration.find(kSays);
    if (said == declaration.npos) return {};
    const auto name = std::min(said + kSays.size() + 1, declaration.size());
    return declaration.substr(name, declaration.find_first_of("'\"", name) - name);
}

XmlMarkup XmlMarkupReader::Next() {
    using Kind = XmlMarkup::Kind;
    constexpr struct {
        std::string_view begin, end;
        Kind kind;
    } kDelimited[] = {{"<!--", "-->", Kind::Comment},
                      {"<![CDATA[", "]]>", Kind::Section},
                      {"<!", ">", Kind::Declaration},
                      {"<?", "?>", Kind::Instruction}};
    XmlMarkup piece;
    std::size_t length = std::min(rest_.find('<'), rest_.size());
    if (length == 0 && !rest_.empty()) {
        const auto* delimited = std::ranges::find_if(
            kDelimited, [&](const auto& d) { return rest_.starts_with(d.begin); });
        if (delimited == std::end(kDelimited)) {
            piece.kind = rest_.starts_with("</") ? Kind::EndTag : Kind::StartTag;
            piece.closed = false;
            length = TagLength(rest_, piece.closed);
        } else {
            piece.kind = delimited->kind;
            const auto end = rest_.find(delimited->end, delimited->begin.size());
            piece.closed = end != rest_.npos;
            length = piece.closed ? end + delimited->end.size() : rest_.size();
        }
    }
    piece.text = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return piece;
}

}  // namespace kestrel
