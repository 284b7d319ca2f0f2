#include <utility>

#include "base/Errors.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlDom.h"

namespace kestrel {
namespace {

/// What a character is written as, or null when it is written as it stands. In an attribute
/// white space is spelled out, or readers would turn it into blanks.
const char* Escape(char c, bool inAttribute) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";
        case '"':
            return inAttribute ? "&quot;" : nullptr;
        case '\t':
            return inAttribute ? "&#9;" : nullptr;
        case '\n':
            return inAttribute ? "&#10;" : nullptr;
        default:
            return nullptr;
    }
}

class Serialiser {
 public:
    explicit Serialiser(std::string& out) : out_(out) {}

    void Write(const XmlNode& node) {
        if (!node.IsElement()) {
            WriteText(node.text, node, false);
            return;
        }
        const std::size_t outerScope = scope_.size();
        out_ += '<';
        out_ += node.name;
        DeclareNamespaces(node);
        for (const XmlAttribute& attribute : node.attributes)
            WriteAttribute(attribute.name, attribute.value, node);
        if (node.children.empty()) {
            out_ += "/>";
        } else {
            out_ += '>';
            WriteChildren(node);
            out_ += "</";
            out_ += node.name;
            out_ += '>';
        }
        scope_.resize(outerScope);
    }

 private:
    void WriteChildren(const XmlNode& node) {
        for (const XmlNode& child : node.children) {
            if (child.IsElement())
                Write(child);
            else
                WriteText(child.text, node, false);
        }
    }

    void WriteAttribute(std::string_view name, std::string_view value, const XmlNode& element) {
        out_ += ' ';
        out_ += name;
        out_ += "=\"";
        WriteText(value, element, true);
        out_ += '"';
    }

    void WriteText(std::string_view text, const XmlNode& element, bool inAttribute) {
        while (!text.empty()) {
            const std::size_t length = XmlCharacterLength(text);
            if (length == 0)
                throw DataError("The text of the element \"" + element.name +
                                "\" holds a character that XML cannot hold; remove it.");
            if (const char* escape = Escape(text.front(), inAttribute))
                out_ += escape;
            else
                out_ += text.substr(0, length);
            text.remove_prefix(length);
        }
    }

    /// Adds the element's own declarations to the scope, and writes the one that an element
    /// built in memory lacks for its namespace. What the element declares itself stands.
    void DeclareNamespaces(const XmlNode& node) {
        for (const XmlAttribute& attribute : node.attributes) {
            const std::string_view name = attribute.name;
            if (name == "xmlns") scope_.emplace_back("", attribute.value);
            if (name.starts_with("xmlns:")) scope_.emplace_back(name.substr(6), attribute.value);
        }
        const std::string_view name = node.name;
        const auto colon = name.find(':');
        const auto prefix =
            colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
        if (prefix == "xml" || NamespaceOf(prefix) == node.uri) return;
        const std::string declaration = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
        if (node.Attribute(declaration)) return;
        scope_.emplace_back(prefix, node.uri);
        WriteAttribute(declaration, node.uri, node);
    }

    std::string_view NamespaceOf(std::string_view prefix) const {
        for (auto entry = scope_.rbegin(); entry != scope_.rend(); ++entry)
            if (entry->first == prefix) return entry->second;
        return "";
    }

    std::string& out_;
    std::vector<std::pair<std::string_view, std::string_view>> scope_;  ///< innermost last
};

}  // namespace

std::string SerialiseXml(const XmlNode& element) {
    std::string text;
    Serialiser(text).Write(element);
    return text;
}

std::string SerialiseXmlFile(const XmlNode& element) {
    return "<?xml version=\"1.0\"?>\r\n" + SerialiseXml(element) + "\r\n";
}

}  // namespace kestrel
