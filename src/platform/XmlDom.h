#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A small document tree, the same on every platform: the platform's parser (libxml2, MSXML)
/// only fills it, so what is selected and what is written never depends on the parser.
namespace kestrel {

struct XmlAttribute {
    std::string name;  ///< as written, prefix included; namespace declarations stand here too
    std::string value;
};

/// An element or, when `name` is empty, a piece of text. Text is UTF-8.
struct XmlNode {
    std::string name;  ///< qualified name as written
    std::string uri;   ///< namespace; empty for none
    std::string text;  ///< of a text node
    std::vector<XmlAttribute> attributes;
    std::vector<XmlNode> children;
    int line = 0;  ///< where the element starts in the parsed text, from 1; 0 when built in memory

    static XmlNode Element(std::string name);
    static XmlNode Text(std::string text);

    bool IsElement() const { return !name.empty(); }
    /// The name without its prefix.
    std::string_view LocalName() const;
    /// The text of this node and of everything below it, in document order.
    std::string TextContent() const;
    /// The attribute's value, or nullptr.
    const std::string* Attribute(std::string_view attribute) const;
    /// Sets the attribute, replacing one of the same name.
    void SetAttribute(std::string_view attribute, std::string value);
    /// Appends a child and returns it; the reference holds until the next child is added.
    XmlNode& Append(XmlNode child);
};

/// A document: its root element, or nothing at all (root.name empty) after a failed load.
struct XmlDocument {
    XmlNode root;
    bool IsEmpty() const { return !root.IsElement(); }
};

/// Limits on documents from outside; a document beyond them is refused like a malformed one.
inline constexpr std::size_t kXmlMaximumBytes = 256u << 20;
inline constexpr int kXmlMaximumDepth = 200;
/// Of one tag; parsers compare each attribute with all the others.
inline constexpr std::size_t kXmlMaximumAttributes = 256;
/// Prefixes that are declared at one place; parsers look through all for every name.
inline constexpr std::size_t kXmlMaximumPrefixes = 256;

/// Elements that an XPath of the form "//Name" selects, in document order. Un-prefixed names
/// select elements of no namespace only.
std::vector<const XmlNode*> SelectElements(const XmlDocument& document, std::string_view name);
std::vector<XmlNode*> SelectElements(XmlDocument& document, std::string_view name);

/// The element as text: no declaration, no added white space. Characters that XML cannot hold
/// raise DataError.
std::string SerialiseXml(const XmlNode& element);

/// The element as a file: "<?xml version="1.0"?>", line break, the element, line break.
std::string SerialiseXmlFile(const XmlNode& element);

/// Portable part of every parser: refuses, with DataError, text beyond kXmlMaximumBytes, tags
/// beyond kXmlMaximumAttributes and any document type declaration (the only way to bring in
/// entities or outside files).
void RefuseUnsafeXml(std::string_view bytes);

/// Removes text nodes that hold nothing but white space, as the system's DOM does by default.
void DropBlankText(XmlNode& element);

}  // namespace kestrel
