#include "refhost/files/StrictElement.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Text.h"

namespace refhost {
namespace {

constexpr const char* kRemoveOrCorrect = "; remove it or correct its name.";

bool Contains(StrictElement::Names names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

std::string Quoted(std::string_view text) {
    std::string quoted(1, '\'');
    quoted += text;
    quoted += '\'';
    return quoted;
}

void FailAt(const std::string& path, int line, std::string_view sentence) {
    const std::string place = line > 0 ? path + ":" + std::to_string(line) : path;
    throw kestrel::DataError(place + ": " + std::string(sentence));
}

void StrictElement::Fail(std::string_view sentence) const { FailAt(*path_, Line(), sentence); }

void StrictElement::AllowAttributes(Names attributes) const {
    for (const kestrel::XmlAttribute& attribute : node_->attributes)
        if (!Contains(attributes, attribute.name))
            Fail("unknown attribute " + Quoted(attribute.name) + " of " + node_->name +
                 kRemoveOrCorrect);
}

void StrictElement::Allow(Names attributes, Names children) const {
    AllowAttributes(attributes);
    for (const kestrel::XmlNode& child : node_->children) {
        if (child.IsElement()) {
            if (!Contains(children, child.name))
                StrictElement(child, *path_)
                    .Fail("unknown element " + Quoted(child.name) + " in " + node_->name +
                          kRemoveOrCorrect);
        } else if (const auto text = kestrel::Trimmed(child.text); !text.empty()) {
            Fail("text " + Quoted(text) + " in " + node_->name + ", which holds none; remove it.");
        }
    }
}

std::string StrictElement::OnlyText(Names attributes) const {
    AllowAttributes(attributes);
    for (const StrictElement& child : Children())
        child.Fail("element " + Quoted(child.Name()) + " in " + node_->name +
                   ", which holds text only; write '<' of a text as '&lt;'.");
    return node_->TextContent();
}

std::vector<StrictElement> StrictElement::Children() const {
    std::vector<StrictElement> children;
    for (const kestrel::XmlNode& child : node_->children)
        if (child.IsElement()) children.emplace_back(child, *path_);
    return children;
}

std::vector<StrictElement> StrictElement::Children(std::string_view name) const {
    std::vector<StrictElement> children;
    for (const kestrel::XmlNode& child : node_->children)
        if (child.name == name) children.emplace_back(child, *path_);
    return children;
}

std::optional<StrictElement> StrictElement::OnlyChild(std::string_view name) const {
    const std::vector<StrictElement> children = Children(name);
    if (children.empty()) return std::nullopt;
    if (children.size() > 1)
        children[1].Fail("second " + std::string(name) + " in " + node_->name +
                         "; keep only one of them.");
    return children.front();
}

const std::string& StrictElement::Required(std::string_view attribute) const {
    if (const std::string* value = node_->Attribute(attribute)) return *value;
    Fail("attribute " + Quoted(attribute) + " of " + node_->name + " is missing; add it.");
}

void StrictElement::FailValue(std::string_view attribute, std::string_view text,
                              std::string_view wanted) const {
    Fail("attribute " + Quoted(attribute) + " of " + node_->name + " is " + Quoted(text) +
         "; write " + std::string(wanted) + ".");
}

}  // namespace refhost
