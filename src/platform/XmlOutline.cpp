#include "platform/XmlOutline.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "base/Text.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlErrors.h"
#include "platform/XmlMarkup.h"

namespace kestrel {
namespace {

std::string_view PrefixOf(std::string_view name) {
    const auto colon = name.find(':');
    return colon == name.npos ? std::string_view() : name.substr(0, colon);
}

/// The character that a reference ("amp", "#233", "#xE9") stands for; 0 for none.
char32_t ReferredCharacter(std::string_view reference) {
    constexpr std::pair<std::string_view, char> kNamed[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [name, character] : kNamed)
        if (reference == name) return static_cast<unsigned char>(character);
    if (!reference.starts_with('#')) return 0;
    const bool hexadecimal = reference.starts_with("#x");
    reference.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t character = 0;
    std::from_chars(reference.data(), reference.data() + reference.size(), character,
                    hexadecimal ? 16 : 10);
    return IsXmlCharacter(character) ? character : 0;
}

/// An attribute's value as it is meant. What refers to nothing stays: the parser refuses it.
std::string Resolved(std::string_view written) {
    std::string value;
    while (!written.empty()) {
        const std::size_t end = written.front() == '&' ? written.find(';') : written.npos;
        const char32_t referred =
            end == written.npos ? 0 : ReferredCharacter(written.substr(1, end - 1));
        if (referred != 0)
            AppendUtf8(value, referred);
        else
            value += kBlanks.find(written.front()) == kBlanks.npos ? written.front() : ' ';
        written.remove_prefix(referred != 0 ? end + 1 : 1);
    }
    return value;
}

class Outliner {
 public:
    XmlOutline Outline(std::string_view text) {
        XmlMarkupReader reader(text);
        for (XmlMarkup piece = reader.Next(); !piece.text.empty(); piece = reader.Next()) {
            if (!piece.closed) Fail("what begins with \"" + Shown(piece.text) + "\" is not closed");
            if (piece.kind == XmlMarkup::Kind::StartTag) ReadStartTag(piece.text);
            if (piece.kind == XmlMarkup::Kind::EndTag) ReadEndTag(piece.text);
            line_ += static_cast<int>(std::ranges::count(piece.text, '\n'));
        }
        if (!open_.empty())
            Fail("the document ends before <" + Shown(open_.back().name) + "> of line " +
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

    static std::string Shown(std::string_view text) {
        const std::string_view firstLine = text.substr(0, text.find_first_of("\r\n"));
        return std::string(firstLine.substr(0, WholeCharacterAt(firstLine, 40)));
    }

    void ReadStartTag(std::string_view tag) {
        if (open_.size() == static_cast<std::size_t>(kXmlMaximumDepth))
            throw XmlTooDeepAtLine(line_);
        outline_.lines.push_back(line_);
        const bool empty = tag.ends_with("/>");
        const std::string_view inside = tag.substr(1, tag.size() - (empty ? 3 : 2));
        const std::string_view name = inside.substr(0, inside.find_first_of(kBlanks));
        open_.push_back({name, line_, prefixes_.size()});
        used_.assign({name});
        ReadAttributes(inside.substr(name.size()));
        for (const std::string_view used : used_) CheckPrefix(used);
        if (empty) CloseElement();
    }

    void ReadEndTag(std::string_view tag) {
        const std::string_view name = Trimmed(tag.substr(2, tag.size() - 3));
        if (open_.empty()) Fail("</" + Shown(name) + "> closes nothing");
        if (open_.back().name != name)
            Fail("</" + Shown(name) + "> stands where <" + Shown(open_.back().name) + "> of line " +
                 std::to_string(open_.back().line) + " should be closed");
        CloseElement();
    }

    void CloseElement() {
        prefixes_.resize(open_.back().outerPrefixes);
        open_.pop_back();
    }

    /// Ends at the first that is malformed: the parser refuses it.
    void ReadAttributes(std::string_view text) {
        for (;;) {
            const std::size_t equals = text.find('=');
            const std::size_t quote = text.find_first_of("'\"");
            if (quote == text.npos || equals > quote) return;
            const std::size_t end = text.find(text[quote], quote + 1);
            if (end == text.npos) return;
            const std::string_view name = Trimmed(text.substr(0, equals));
            if (name == "xmlns" || PrefixOf(name) == "xmlns")
                Declare(name, Resolved(text.substr(quote + 1, end - quote - 1)));
            else
                used_.push_back(name);
            text.remove_prefix(end + 1);
        }
    }

    void Declare(std::string_view name, std::string value) {
        if (name != "xmlns") {
            if (value.empty()) Fail("the prefix of \"" + Shown(name) + "\" gets no namespace");
            if (prefixes_.size() == kXmlMaximumPrefixes) throw XmlTooManyPrefixesAtLine(line_);
            prefixes_.push_back(name.substr(6));
        }
        outline_.namespaces.push_back(
            {outline_.lines.size() - 1, {std::string(name), std::move(value)}});
    }

    void CheckPrefix(std::string_view name) const {
        const std::string_view prefix = PrefixOf(name);
        if (prefix.empty() || prefix == "xml") return;
        if (std::ranges::find(prefixes_, prefix) == prefixes_.end())
            Fail("the prefix of \"" + Shown(name) + "\" is not declared");
    }

    int line_ = 1;
    std::vector<OpenElement> open_;
    std::vector<std::string_view> prefixes_;  ///< declared and in scope, innermost last
    std::vector<std::string_view> used_;      ///< the names in a tag
    XmlOutline outline_;
};

}  // namespace

XmlOutline OutlineXml(std::string_view bytes) {
    return Outliner().Outline(XmlMarkupText(bytes).Text());
}

}  // namespace kestrel
