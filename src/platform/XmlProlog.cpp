#include <array>
#include <cstdint>

#include "platform/XmlDom.h"
#include "util/Errors.h"

namespace kestrel {
namespace {

/// How the first bytes of a document show the width and order of its characters. Encodings
/// that extend ASCII need no entry.
struct Signature {
    std::string_view bytes;
    std::size_t skipped;  ///< bytes of a byte order mark
    std::size_t width;
    bool bigEndian;
};

using namespace std::string_view_literals;
constexpr std::array<Signature, 9> kSignatures{{
    {"\xFF\xFE\0\0"sv, 4, 4, false},  // before the 16-bit mark, which it starts with
    {"\0\0\xFE\xFF"sv, 4, 4, true},
    {"<\0\0\0"sv, 0, 4, false},
    {"\0\0\0<"sv, 0, 4, true},
    {"\xFF\xFE"sv, 2, 2, false},
    {"\xFE\xFF"sv, 2, 2, true},
    {"<\0"sv, 0, 2, false},
    {"\0<"sv, 0, 2, true},
    {"\xEF\xBB\xBF"sv, 3, 1, false},
}};

/// Reads ASCII markup in any of those encodings.
class PrologReader {
 public:
    explicit PrologReader(std::string_view bytes) : bytes_(bytes) {
        for (const Signature& signature : kSignatures) {
            if (!bytes.starts_with(signature.bytes)) continue;
            position_ = signature.skipped;
            width_ = signature.width;
            bigEndian_ = signature.bigEndian;
            return;
        }
    }

    bool AtEnd() const { return position_ + width_ > bytes_.size(); }

    bool IsAt(std::string_view text) const {
        for (std::size_t i = 0; i < text.size(); ++i)
            if (CharacterAt(position_ + i * width_) != static_cast<unsigned char>(text[i]))
                return false;
        return true;
    }

    bool IsAtBlank() const { return IsAt(" ") || IsAt("\t") || IsAt("\r") || IsAt("\n"); }

    void Skip() { position_ += width_; }

    void SkipPast(std::string_view text) {
        while (!AtEnd() && !IsAt(text)) Skip();
        position_ += text.size() * width_;
    }

 private:
    std::uint32_t CharacterAt(std::size_t offset) const {
        if (offset + width_ > bytes_.size()) return 0;
        std::uint32_t character = 0;
        for (std::size_t i = 0; i < width_; ++i) {
            const std::size_t at = bigEndian_ ? offset + i : offset + width_ - 1 - i;
            character = character << 8 | static_cast<unsigned char>(bytes_[at]);
        }
        return character;
    }

    std::string_view bytes_;
    std::size_t position_ = 0;
    std::size_t width_ = 1;
    bool bigEndian_ = false;
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

}  // namespace

void RefuseUnsafeXml(std::string_view bytes) {
    if (bytes.size() > kXmlMaximumBytes)
        throw DataError("The document is larger than 256 MB; split it into smaller ones.");
    if (DeclaresType(bytes))
        throw DataError("The document has a document type declaration (DOCTYPE); remove it.");
}

}  // namespace kestrel
