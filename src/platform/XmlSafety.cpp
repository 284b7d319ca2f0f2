#include <algorithm>
#include <string>

#include "base/Errors.h"
#include "platform/XmlDom.h"
#include "platform/XmlErrors.h"
#include "platform/XmlMarkup.h"

namespace kestrel {
namespace {

/// Beginnings of the names of encodings in which markup has the bytes of ASCII, whatever stands
/// before it, or two or four bytes a unit. In others (UTF-7, EBCDIC, ISO-2022) a parser may find
/// what cannot be seen here.
constexpr std::string_view kPlainEncodings[] = {
    "utf-8",   "utf8",  "utf-16",  "utf16",  "utf-32",    "ucs-",      "iso-10646-ucs-",
    "us-asci", "ascii", "iso-885", "iso885", "iso_885",   "latin",     "windows-",
    "cp125",   "cp437", "cp8",     "ibm437", "ibm8",      "koi8-",     "macintosh",
    "euc-",    "gb",    "big5",    "sjis",   "shift_jis", "shift-jis", "tis-620"};

void RefuseOtherEncodings(std::string_view text, const std::string& name) {
    const auto refuse = [](const std::string& shown) {
        throw XmlErrorAtLine(1, "the document is in the encoding " + shown +
                                    ", which is not read; save it as UTF-8");
    };
    if (text.starts_with("\x4C\x6F\xA7\x94")) refuse("EBCDIC");
    const auto begins = [&](std::string_view plain) { return name.starts_with(plain); };
    if (!name.empty() && std::ranges::none_of(kPlainEncodings, begins))
        refuse("'" + name.substr(0, 40) + "'");
}

/// Values in quotes that stand in a tag.
std::size_t CountValues(std::string_view tag) {
    std::size_t values = 0;
    for (auto quote = tag.find_first_of("'\""); quote < tag.size();
         quote = tag.find_first_of("'\"", quote + 1)) {
        ++values;
        quote = std::min(tag.find(tag[quote], quote + 1), tag.size());
    }
    return values;
}

}  // namespace

void RefuseUnsafeXml(std::string_view bytes) {
    if (bytes.size() > kXmlMaximumBytes)
        throw DataError("The document is larger than 256 MB; split it into smaller ones.");
    const XmlMarkupText markup(bytes);
    const std::string_view text = markup.Text();
    RefuseOtherEncodings(text, markup.Encoding());
    const auto lineAt = [text](const char* place) {
        return 1 + static_cast<int>(std::count(text.data(), place, '\n'));
    };
    // Some parsers take it for the end of the document.
    if (const auto zero = text.find('\0'); zero != text.npos)
        throw XmlErrorAtLine(lineAt(text.data() + zero), "there is a zero byte; remove it");
    XmlMarkupReader reader(text);
    for (XmlMarkup piece = reader.Next(); !piece.text.empty(); piece = reader.Next()) {
        if (piece.kind == XmlMarkup::Kind::Declaration)
            throw XmlTypeDeclaredAtLine(lineAt(piece.text.data()));
        if (piece.kind == XmlMarkup::Kind::StartTag &&
            CountValues(piece.text) > kXmlMaximumAttributes)
            throw XmlErrorAtLine(lineAt(piece.text.data()),
                                 "a tag has more than " + std::to_string(kXmlMaximumAttributes) +
                                     " attributes; remove those that are not needed");
    }
}

}  // namespace kestrel
