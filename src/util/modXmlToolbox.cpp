#include "util/modXmlToolbox.h"

#include <string>
#include <utility>

#include "base/Errors.h"
#include "base/NumberText.h"

namespace kestrel {
namespace {

[[noreturn]] void FailNumber(std::string_view name, const XmlNode& element) {
    std::string message = std::string(name) + " is missing or not a number";
    if (element.line > 0) message += " (line " + std::to_string(element.line) + ")";
    throw DataError(message + ".");
}

const XmlNode* FindChild(std::string_view name, const XmlNode& element) {
    for (const XmlNode& child : element.children)
        if (child.IsElement() && child.name == name) return &child;
    return nullptr;
}

XmlDocument ParsedWithoutBlanks(Desktop& desktop, std::string_view bytes) {
    XmlDocument document = desktop.ParseXml(bytes);
    DropBlankText(document.root);
    return document;
}

/// The text with blanks in place of the encoding that its declaration names.
std::string WithoutEncoding(std::string_view text) {
    std::string plain(text);
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(kMark) ? kMark.size() : 0;
    if (!text.substr(start).starts_with("<?xml")) return plain;
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const std::size_t name = declaration.find("encoding");
    const std::size_t quote = declaration.find_first_of("'\"", name);
    if (name == text.npos || quote == text.npos) return plain;
    const std::size_t end = declaration.find(declaration[quote], quote + 1);
    if (end != text.npos) plain.replace(name, end + 1 - name, end + 1 - name, ' ');
    return plain;
}

}  // namespace

XmlDocument ParseXmlString(Desktop& desktop, std::string_view text) {
    return ParsedWithoutBlanks(desktop, WithoutEncoding(text));
}

bool LoadXmlFromString(Desktop& desktop, XmlDocument& document, std::string_view text) {
    document = XmlDocument();
    try {
        document = ParseXmlString(desktop, text);
        return true;
    } catch (const DataError&) {
        return false;
    }
}

bool LoadXmlFromFile(Desktop& desktop, XmlDocument& document, const std::string& path) {
    document = XmlDocument();
    try {
        document = ParsedWithoutBlanks(desktop, desktop.ReadFile(path));
        return true;
    } catch (const DataError&) {
        return false;
    }
}

XmlNode CreateXmlElement(const std::string& name, const std::string& text,
                         const std::string& attribute, const std::string& value,
                         const std::string& uri) {
    XmlNode element = XmlNode::Element(name);
    element.uri = uri;
    if (!attribute.empty() && !value.empty()) AddXmlAttribute(element, attribute, value);
    if (!text.empty()) element.Append(XmlNode::Text(text));
    return element;
}

void AddXmlAttribute(XmlNode& element, const std::string& name, const std::string& value) {
    element.SetAttribute(name, value);
}

std::string GetChildText(std::string_view name, const XmlNode& element) {
    const XmlNode* child = FindChild(name, element);
    return child ? child->TextContent() : std::string();
}

double GetChildNumber(std::string_view name, const XmlNode& element) {
    const XmlNode* child = FindChild(name, element);
    if (!child) FailNumber(name, element);
    std::string text = child->TextContent();
    std::erase(text, '%');
    try {
        return ParseNumber(text);
    } catch (const DataError&) {
        FailNumber(name, *child);
    }
}

}  // namespace kestrel
