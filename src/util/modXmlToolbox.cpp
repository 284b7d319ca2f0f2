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

}  // namespace

bool LoadXmlFromString(Desktop& desktop, XmlDocument& document, std::string_view text) {
    document = XmlDocument();
    try {
        document = desktop.ParseXml(text);
    } catch (const DataError&) {
        return false;
    }
    DropBlankText(document.root);
    return true;
}

bool LoadXmlFromFile(Desktop& desktop, XmlDocument& document, const std::string& path) {
    document = XmlDocument();
    std::string bytes;
    try {
        bytes = desktop.ReadFile(path);
    } catch (const DataError&) {
        return false;
    }
    return LoadXmlFromString(desktop, document, bytes);
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
