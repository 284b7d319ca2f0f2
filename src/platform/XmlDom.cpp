#include "platform/XmlDom.h"

#include <utility>

#include "base/Text.h"

namespace kestrel {
namespace {

bool IsBlankText(const XmlNode& node) { return !node.IsElement() && Trimmed(node.text).empty(); }

void AppendText(const XmlNode& node, std::string& text) {
    text += node.text;
    for (const XmlNode& child : node.children) AppendText(child, text);
}

template <typename Node>
void Select(Node& node, std::string_view name, std::vector<Node*>& selected) {
    if (node.name == name && node.uri.empty()) selected.push_back(&node);
    for (Node& child : node.children)
        if (child.IsElement()) Select(child, name, selected);
}

}  // namespace

XmlNode XmlNode::Element(std::string name) {
    XmlNode node;
    node.name = std::move(name);
    return node;
}

XmlNode XmlNode::Text(std::string text) {
    XmlNode node;
    node.text = std::move(text);
    return node;
}

std::string_view XmlNode::LocalName() const {
    const std::string_view qualified = name;
    const auto colon = qualified.find(':');
    return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

std::string XmlNode::TextContent() const {
    std::string content;
    AppendText(*this, content);
    return content;
}

const std::string* XmlNode::Attribute(std::string_view attribute) const {
    for (const XmlAttribute& candidate : attributes)
        if (candidate.name == attribute) return &candidate.value;
    return nullptr;
}

void XmlNode::SetAttribute(std::string_view attribute, std::string value) {
    for (XmlAttribute& candidate : attributes) {
        if (candidate.name != attribute) continue;
        candidate.value = std::move(value);
        return;
    }
    attributes.push_back({std::string(attribute), std::move(value)});
}

XmlNode& XmlNode::Append(XmlNode child) {
    children.push_back(std::move(child));
    return children.back();
}

std::vector<const XmlNode*> SelectElements(const XmlDocument& document, std::string_view name) {
    std::vector<const XmlNode*> selected;
    if (!document.IsEmpty()) Select(document.root, name, selected);
    return selected;
}

std::vector<XmlNode*> SelectElements(XmlDocument& document, std::string_view name) {
    std::vector<XmlNode*> selected;
    if (!document.IsEmpty()) Select(document.root, name, selected);
    return selected;
}

void DropBlankText(XmlNode& element) {
    std::erase_if(element.children, IsBlankText);
    for (XmlNode& child : element.children) DropBlankText(child);
}

}  // namespace kestrel
