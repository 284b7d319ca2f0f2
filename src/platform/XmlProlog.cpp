#include "base/Errors.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlDom.h"
#include "platform/XmlTags.h"

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

}  // namespace

void RefuseUnsafeXml(std::string_view bytes) {
    if (bytes.size() > kXmlMaximumBytes)
        throw DataError("The document is larger than 256 MB; split it into smaller ones.");
    if (DeclaresType(bytes))
        throw DataError("The document has a document type declaration (DOCTYPE); remove it.");
    RefuseCrowdedTags(bytes);
}

}  // namespace kestrel
