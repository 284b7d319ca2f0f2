#include "platform/XmlOutline.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "platform/XmlCharacters.h"
#include "platform/XmlErrors.h"

namespace kestrel {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kTagEnds = "/><";  // of a tag that is complete or broken off
constexpr std::uint32_t kNoCharacter = 0xFFFF;

/// The document's text with ASCII markup, without byte order mark.
struct MarkupText {
    explicit MarkupText(std::string_view bytes) {
        const XmlEncodingMark mark = EncodingMarkOf(bytes);
        if (mark.width > 1) Convert(bytes, mark);
        text = mark.width > 1 ? std::string_view(converted) : bytes.substr(mark.skipped);
        isUtf8 = mark.width > 1 || DeclaredEncoding().empty() || DeclaredEncoding() == "utf-8";
    }

    std::string converted;
    std::string_view text;
    bool isUtf8 = false;

 private:
    void Convert(std::string_view bytes, const XmlEncodingMark& mark) {
        for (std::size_t at = mark.skipped; at < bytes.size(); at += mark.width) {
            std::uint32_t character = XmlUnitAt(bytes, at, mark);
            if (mark.width == 2 && character >> 10 == 0xD800 >> 10) {
                const std::uint32_t low = XmlUnitAt(bytes, at + 2, mark);
                if (low >> 10 == 0xDC00 >> 10) {
                    character = 0x10000 + ((character & 0x3FF) << 10 | (low & 0x3FF));
                    at += 2;
                }
            }
            // What is no character becomes bytes that are refused with their line later on.
            AppendUtf8(converted, std::min<std::uint32_t>(character, 0x1FFFFF));
        }
    }

    /// In lower case.
    std::string DeclaredEncoding() const {
        const std::string_view declaration =
            text.starts_with("<?xml") ? text.substr(0, text.find("?>")) : std::string_view();
        std::size_t at = declaration.find("encoding");
        at = declaration.find_first_of("'\"", at);
        if (at == declaration.npos) return {};
        const std::size_t end = declaration.find(declaration[at], at + 1);
        std::string name(declaration.substr(at + 1, end - at - 1));
        for (char& c : name)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        return name;
    }
};

/// The character that a reference ("amp", "#233", "#xE9") stands for, or kNoCharacter.
std::uint32_t ReferredCharacter(std::string_view reference) {
    constexpr std::pair<std::string_view, char> kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [name, character] : kNamed)
        if (reference == name) return static_cast<std::uint32_t>(character);

    if (!reference.starts_with('#')) return kNoCharacter;
    reference.remove_prefix(1);
    const int base = reference.starts_with('x') ? 16 : 10;
    if (base == 16) reference.remove_prefix(1);
    std::uint32_t character = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stopped, error] = std::from_chars(reference.data(), end, character, base);
    const bool read = error == std::errc() && stopped == end;
    return read && IsXmlCharacter(character) ? character : kNoCharacter;
}

std::string_view PrefixOf(std::string_view name) {
    const auto colon = name.find(':');
    return colon == name.npos ? std::string_view() : name.substr(0, colon);
}

class Outliner {
 public:
    explicit Outliner(const MarkupText& markup) : text_(markup.text) {
        CheckCharacters(markup.isUtf8);
    }

    XmlOutline Outline() {
        while (at_ < text_.size()) {
            ReadText(std::min(text_.find('<', at_), text_.size()));
            if (at_ < text_.size()) ReadMarkup();
        }
        if (!open_.empty())
            Fail("the document ends before <" + std::string(open_.back().name) + "> of line " +
                 std::to_string(open_.back().line) + " is closed");
        if (outline_.lines.empty()) throw XmlEmpty();
        return std::move(outline_);
    }

 private:
    struct OpenElement {
        std::string_view name;
        int line;
        std::size_t outerPrefixes;
    };

    [[noreturn]] void Fail(const std::string& message) const {
        throw XmlErrorAtLine(line_, message);
    }

    /// Bytes above 0x7F mean characters of their own in encodings other than UTF-8.
    void CheckCharacters(bool isUtf8) {
        for (std::size_t at = 0; at < text_.size();) {
            const auto byte = static_cast<unsigned char>(text_[at]);
            const bool plain = byte < 0x80 ? IsXmlCharacter(byte) : !isUtf8;
            const std::size_t length = plain ? 1 : XmlCharacterLength(text_.substr(at, 4));
            if (length == 0) {
                MoveTo(at);
                Fail("a character is ill-formed or one that XML cannot hold");
            }
            at += length;
        }
    }

    void MoveTo(std::size_t position) {
        line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                                             text_.begin() + static_cast<std::ptrdiff_t>(position),
                                             '\n'));
        at_ = position;
    }

    bool IsAt(std::string_view markup) const { return text_.substr(at_).starts_with(markup); }

    /// Moves past the next `end`; fails, naming what is not closed, when there is none.
    void MovePast(std::string_view end, const char* what) {
        const std::size_t found = text_.find(end, at_);
        if (found == text_.npos) Fail(std::string(what) + " is not closed");
        MoveTo(found + end.size());
    }

    void SkipBlanks() { MoveTo(std::min(text_.find_first_not_of(kBlanks, at_), text_.size())); }

    /// The text up to `end`, its references resolved. The position stays at the faulty one.
    std::string ReadReferences(std::size_t end) {
        std::string resolved;
        // Searches end here: each to the end of the document would take quadratic time.
        const std::string_view text = text_.substr(0, end);
        for (;;) {
            const std::size_t mark = std::min(text.find('&', at_), end);
            resolved += text.substr(at_, mark - at_);
            MoveTo(mark);
            if (mark == end) return resolved;
            const std::size_t close = std::min(text.find(';', mark), end);
            const std::string_view reference = text.substr(mark + 1, close - mark - 1);
            const std::uint32_t character =
                close < end ? ReferredCharacter(reference) : kNoCharacter;
            if (character == kNoCharacter)
                Fail("\"&" + std::string(reference.substr(0, 20)) +
                     "\" refers to nothing; write \"&amp;\" for an ampersand");
            AppendUtf8(resolved, character);
            MoveTo(close + 1);
        }
    }

    void ReadText(std::size_t end) {
        if (open_.empty()) {
            SkipBlanks();
            if (at_ < end) Fail("text stands outside the root element");
        } else {
            static_cast<void>(ReadReferences(end));  // read only for the faults in it
        }
    }

    void ReadMarkup() {
        if (IsAt("<!--"))
            MovePast("-->", "a comment");
        else if (IsAt("<![CDATA["))
            MovePast("]]>", "a CDATA section");
        else if (IsAt("<!"))
            throw XmlTypeDeclaredAtLine(line_);
        else if (IsAt("<?"))
            MovePast("?>", "a processing instruction");
        else if (IsAt("</"))
            ReadEndTag();
        else
            ReadStartTag();
    }

    std::string_view ReadName() {
        const std::size_t end = std::min(text_.find_first_of(" \t\r\n=/<>'\"", at_), text_.size());
        const std::string_view name = text_.substr(at_, end - at_);
        if (name.empty()) Fail("a name is missing in a tag");
        MoveTo(end);
        return name;
    }

    void ReadEndTag() {
        MoveTo(at_ + 2);
        const std::string name(ReadName());
        SkipBlanks();
        if (open_.empty()) Fail("</" + name + "> closes nothing");
        if (open_.back().name != name)
            Fail("</" + name + "> stands where <" + std::string(open_.back().name) + "> of line " +
                 std::to_string(open_.back().line) + " should be closed");
        if (!IsAt(">")) Fail("the end tag </" + name + "> is not closed");
        MoveTo(at_ + 1);
        CloseElement();
    }

    void CloseElement() {
        prefixes_.resize(open_.back().outerPrefixes);
        open_.pop_back();
    }

    void ReadStartTag() {
        if (open_.empty() && !outline_.lines.empty()) Fail("there is a second root element");
        if (open_.size() == static_cast<std::size_t>(kXmlMaximumDepth))
            throw XmlTooDeepAtLine(line_);
        OpenElement element{{}, line_, prefixes_.size()};
        outline_.lines.push_back(line_);
        MoveTo(at_ + 1);
        element.name = ReadName();
        open_.push_back(element);
        ReadAttributes();
        CheckPrefixes();
        const bool empty = IsAt("/");
        if (empty) MoveTo(at_ + 1);
        if (!IsAt(">"))
            Fail("the tag <" + std::string(element.name) + "> of line " +
                 std::to_string(element.line) + " is not closed");
        MoveTo(at_ + 1);
        if (empty) CloseElement();
    }

    void ReadAttributes() {
        attributeNames_.clear();
        for (;;) {
            SkipBlanks();
            if (at_ == text_.size() || kTagEnds.find(text_[at_]) != kTagEnds.npos) return;
            const std::string_view name = ReadName();
            SkipBlanks();
            const bool assigned = IsAt("=");
            if (assigned) MoveTo(at_ + 1);
            SkipBlanks();
            const std::size_t end = at_ < text_.size() && (IsAt("'") || IsAt("\""))
                                        ? text_.find(text_[at_], at_ + 1)
                                        : text_.npos;
            if (!assigned || end == text_.npos)
                Fail("the attribute \"" + std::string(name.substr(0, 40)) +
                     "\" has no value in quotes");
            MoveTo(at_ + 1);
            std::string value = ReadReferences(end);
            MoveTo(end + 1);
            attributeNames_.push_back(name);
            if (name == "xmlns" || PrefixOf(name) == "xmlns") Declare(name, std::move(value));
        }
    }

    void Declare(std::string_view name, std::string value) {
        for (char& c : value)
            if (kBlanks.find(c) != kBlanks.npos) c = ' ';  // as in every attribute
        if (name != "xmlns") {
            if (value.empty())
                Fail("the prefix of \"" + std::string(name) + "\" gets no namespace");
            prefixes_.push_back(name.substr(6));
        }
        outline_.namespaces.push_back(
            {outline_.lines.size() - 1, {std::string(name), std::move(value)}});
    }

    /// Of the innermost element and its attributes.
    void CheckPrefixes() {
        CheckPrefix(open_.back().name);
        for (const std::string_view name : attributeNames_)
            if (PrefixOf(name) != "xmlns") CheckPrefix(name);
        std::sort(attributeNames_.begin(), attributeNames_.end());
        const auto twice = std::adjacent_find(attributeNames_.begin(), attributeNames_.end());
        if (twice != attributeNames_.end())
            Fail("the attribute \"" + std::string(*twice) + "\" stands twice in a tag");
    }

    void CheckPrefix(std::string_view name) const {
        const std::string_view prefix = PrefixOf(name);
        if (prefix.empty() || prefix == "xml") return;
        if (std::find(prefixes_.begin(), prefixes_.end(), prefix) == prefixes_.end())
            Fail("the prefix of \"" + std::string(name) + "\" is not declared");
    }

    const std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<OpenElement> open_;
    std::vector<std::string_view> prefixes_;  ///< declared and in scope, innermost last
    std::vector<std::string_view> attributeNames_;
    XmlOutline outline_;
};

}  // namespace

XmlOutline OutlineXml(std::string_view bytes) {
    const MarkupText markup(bytes);
    return Outliner(markup).Outline();
}

}  // namespace kestrel
