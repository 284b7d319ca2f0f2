#include "platform/XmlOutline.h"

#include <algorithm>
#include <string>

#include "base/Text.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlErrors.h"
#include "platform/XmlMarkupText.h"

namespace kestrel {
namespace {

constexpr std::string_view kTagEnds = "/><";  // of a tag that is complete or broken off

std::string_view PrefixOf(std::string_view name) {
    const auto colon = name.find(':');
    return colon == name.npos ? std::string_view() : name.substr(0, colon);
}

class Outliner {
 public:
    explicit Outliner(const XmlMarkupText& markup) : text_(markup.Text()) {
        CheckCharacters(markup.IsUtf8());
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
                close < end ? XmlReferredCharacter(reference) : kNoXmlCharacter;
            if (character == kNoXmlCharacter)
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
            const std::size_t sectionEnd = text_.substr(0, end).find("]]>", at_);
            static_cast<void>(ReadReferences(std::min(sectionEnd, end)));  // for its faults only
            if (at_ < end) Fail("\"]]>\" stands outside a CDATA section; write \"]]&gt;\"");
        }
    }

    void ReadMarkup() {
        if (IsAt("<!--"))
            ReadComment();
        else if (IsAt("<![CDATA["))
            MovePast("]]>", "a CDATA section");
        else if (IsAt("<!"))
            throw XmlTypeDeclaredAtLine(line_);
        else if (IsAt("<?xml") && at_ > 0 && IsBlankAt(at_ + 5))
            Fail("the XML declaration must be the very first thing in the document");
        else if (IsAt("<?"))
            MovePast("?>", "a processing instruction");
        else if (IsAt("</"))
            ReadEndTag();
        else
            ReadStartTag();
    }

    void ReadComment() {
        MoveTo(at_ + 4);
        MovePast("--", "a comment");
        if (!IsAt(">")) Fail("\"--\" stands within a comment");
        MoveTo(at_ + 1);
    }

    bool IsBlankAt(std::size_t position) const {
        return position < text_.size() && kBlanks.find(text_[position]) != kBlanks.npos;
    }

    std::string_view ReadName() {
        const std::size_t end = std::min(text_.find_first_of(" \t\r\n=/<>'\"", at_), text_.size());
        const std::string_view name = text_.substr(at_, end - at_);
        if (name.empty()) Fail("a name is missing in a tag");
        if (!IsXmlName(name)) Fail("\"" + std::string(name.substr(0, 40)) + "\" is no name");
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
            const bool separated = IsBlankAt(at_);
            SkipBlanks();
            if (at_ == text_.size() || kTagEnds.find(text_[at_]) != kTagEnds.npos) return;
            if (!separated) Fail("a blank is missing before an attribute");
            const std::string_view name = ReadName();
            std::string value = ReadValue(name);
            attributeNames_.push_back(name);
            if (name == "xmlns" || PrefixOf(name) == "xmlns") Declare(name, std::move(value));
        }
    }

    std::string ReadValue(std::string_view name) {
        const auto fail = [&](const char* what) {
            Fail("the attribute \"" + std::string(name.substr(0, 40)) + "\" " + what);
        };
        SkipBlanks();
        const bool assigned = IsAt("=");
        if (assigned) MoveTo(at_ + 1);
        SkipBlanks();
        const std::size_t end =
            assigned && (IsAt("'") || IsAt("\"")) ? text_.find(text_[at_], at_ + 1) : text_.npos;
        if (end == text_.npos) fail("has no value in quotes");
        MoveTo(at_ + 1);
        if (text_.substr(at_, end - at_).find('<') != text_.npos)
            fail("has a \"<\" in its value, or no quote at its end; write \"&lt;\"");
        std::string value = ReadReferences(end);
        MoveTo(end + 1);
        return value;
    }

    void Declare(std::string_view name, std::string value) {
        for (char& c : value)
            if (kBlanks.find(c) != kBlanks.npos) c = ' ';  // as in every attribute
        if (name != "xmlns") {
            if (value.empty())
                Fail("the prefix of \"" + std::string(name) + "\" gets no namespace");
            if (prefixes_.size() == kXmlMaximumPrefixes) throw XmlTooManyPrefixesAtLine(line_);
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
    const XmlMarkupText markup(bytes);
    return Outliner(markup).Outline();
}

}  // namespace kestrel
