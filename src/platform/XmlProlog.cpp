#include <algorithm>
#include <string>

#include "base/Errors.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlDom.h"
#include "platform/XmlErrors.h"

namespace kestrel {
namespace {

/// Reads ASCII markup in characters of any width.
class PrologReader {
 public:
    explicit PrologReader(std::string_view bytes)
        : bytes_(bytes), encoding_(EncodingMarkOf(bytes)), position_(encoding_.skipped) {}

    bool AtEnd() const { return position_ + encoding_.width > bytes_.size(); }

    bool IsAt(std::string_view text) const {
        for (std::size_t i = 0; i < text.size(); ++i)
            if (XmlUnitAt(bytes_, position_ + i * encoding_.width, encoding_) !=
                static_cast<unsigned char>(text[i]))
                return false;
        return true;
    }

    /// What stands before `end`, without its blanks, in small letters; anything but ASCII as "?".
    std::string Until(std::string_view end) const {
        std::string text;
        for (PrologReader ahead = *this; !ahead.AtEnd() && !ahead.IsAt(end); ahead.Skip()) {
            if (ahead.IsAtBlank()) continue;
            const std::uint32_t unit = XmlUnitAt(bytes_, ahead.position_, encoding_);
            const auto c = static_cast<char>(unit < 0x80 ? unit : '?');
            text += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        return text;
    }

    bool IsAtBlank() const { return IsAt(" ") || IsAt("\t") || IsAt("\r") || IsAt("\n"); }

    void Skip() { position_ += encoding_.width; }

    void SkipPast(std::string_view text) {
        while (!AtEnd() && !IsAt(text)) Skip();
        position_ += text.size() * encoding_.width;
    }

 private:
    std::string_view bytes_;
    XmlEncodingMark encoding_;
    std::size_t position_;
};

/// Whether a document type declaration stands before the root element, the only place for one.
bool DeclaresType(std::string_view bytes) {
    PrologReader reader(bytes);
    while (!reader.AtEnd()) {
        if (reader.IsAtBlank())
            reader.Skip();
        else if (reader.IsAt("<?"))
            reader.SkipPast("?>");
        else if (reader.IsAt("<!--"))
            reader.SkipPast("-->");
        else
            return reader.IsAt("<!DOCTYPE");
    }
    return false;
}

/// Beginnings of the names of encodings in which markup has the bytes of ASCII, whatever stands
/// before it, or two or four bytes a unit. In others (UTF-7, EBCDIC, ISO-2022) a parser may find
/// what cannot be seen here.
constexpr std::string_view kPlainEncodings[] = {
    "utf-8",   "utf8",  "utf-16",  "utf16",  "utf-32",    "ucs-",      "iso-10646-ucs-",
    "us-asci", "ascii", "iso-885", "iso885", "iso_885",   "latin",     "windows-",
    "cp125",   "cp437", "cp8",     "ibm437", "ibm8",      "koi8-",     "macintosh",
    "euc-",    "gb",    "big5",    "sjis",   "shift_jis", "shift-jis", "tis-620"};

void RefuseOtherEncodings(std::string_view bytes) {
    const auto refuse = [](const std::string& name) {
        throw XmlErrorAtLine(
            1, "the document is in the encoding " + name + ", which is not read; save it as UTF-8");
    };
    if (bytes.starts_with("\x4C\x6F\xA7\x94")) refuse("EBCDIC");
    const PrologReader reader(bytes);
    if (!reader.IsAt("<?xml")) return;
    const std::string declaration = reader.Until("?>");
    const auto value = declaration.find("encoding=");
    if (value == std::string::npos) return;
    const auto start = std::min(value + std::string_view("encoding='").size(), declaration.size());
    const std::string name =
        declaration.substr(start, declaration.find_first_of("'\"", start) - start);
    if (std::none_of(std::begin(kPlainEncodings), std::end(kPlainEncodings),
                     [&](std::string_view plain) { return name.starts_with(plain); }))
        refuse("'" + name.substr(0, 40) + "'");
}

}  // namespace

void RefuseUnsafeXml(std::string_view bytes) {
    if (bytes.size() > kXmlMaximumBytes)
        throw DataError("The document is larger than 256 MB; split it into smaller ones.");
    if (DeclaresType(bytes))
        throw DataError("The document has a document type declaration (DOCTYPE); remove it.");
    RefuseOtherEncodings(bytes);
}

}  // namespace kestrel
