#pragma once

#include <string>
#include <string_view>

/// The markup of documents, as far as it can be seen without knowing what the document is about.
namespace kestrel {

/// A document as text whose markup is ASCII, without byte order mark: UTF-16 and UTF-32 as UTF-8,
/// any other encoding as it stands. Refers to `bytes`.
class XmlMarkupText {
 public:
    explicit XmlMarkupText(std::string_view bytes);
    XmlMarkupText(const XmlMarkupText&) = delete;
    XmlMarkupText& operator=(const XmlMarkupText&) = delete;

    std::string_view Text() const { return text_; }
    /// The encoding that the document declares, in lower case; empty for none.
    std::string Encoding() const;

 private:
    std::string converted_;
    std::string_view text_;
};

/// A piece of a document. Its text holds its delimiters too; it is empty behind the last piece.
struct XmlMarkup {
    enum class Kind { Text, Comment, Section, Instruction, Declaration, StartTag, EndTag };

    Kind kind = Kind::Text;
    std::string_view text;
    bool closed = true;  ///< false: the document, or in a tag the next "<", comes before its end
};

/// Takes a document apart, in time that grows with its bytes only.
class XmlMarkupReader {
 public:
    explicit XmlMarkupReader(std::string_view text) : rest_(text) {}

    XmlMarkup Next();

 private:
    std::string_view rest_;
};

}  // namespace kestrel
