#include "refhost/files/project/ProjectNode.h"

#include "base/Text.h"
#include "refhost/files/StrictElement.h"
#include "refhost/files/ValueText.h"
#include "refhost/files/project/ProjectText.h"

namespace refhost {
namespace {

/// Blank, "false", a number of zero or a duration of no length.
bool IsNothing(std::string_view word) {
    if (word.empty() || word == "false") return true;
    if (const auto number = ReadNumber(word)) return *number == 0;
    const auto duration = ReadProjectDuration(word, DurationUnits{});
    return duration && duration->minutes == 0 && duration->exact;
}

}  // namespace

bool ProjectNode::IsChild(const kestrel::XmlNode& node, std::string_view name) const {
    return node.LocalName() == name && node.uri == node_->uri;
}

std::optional<ProjectNode> ProjectNode::Child(std::string_view name) const {
    for (const kestrel::XmlNode& child : node_->children)
        if (IsChild(child, name)) return ProjectNode(child, *path_);
    return std::nullopt;
}

std::vector<ProjectNode> ProjectNode::Children(std::string_view name) const {
    std::vector<ProjectNode> children;
    for (const kestrel::XmlNode& child : node_->children)
        if (IsChild(child, name)) children.emplace_back(child, *path_);
    return children;
}

std::vector<ProjectNode> ProjectNode::Items(std::string_view list, std::string_view item) const {
    const auto child = Child(list);
    return child ? child->Children(item) : std::vector<ProjectNode>();
}

std::string ProjectNode::Text(std::string_view child) const {
    const auto found = Child(child);
    return found ? found->node_->TextContent() : std::string();
}

std::string ProjectNode::Word(std::string_view child) const {
    const std::string text = Text(child);
    return std::string(kestrel::Trimmed(text));
}

bool ProjectNode::Flag(std::string_view child) const {
    const std::string word = Word(child);
    return word == "1" || word == "true";
}

bool ProjectNode::Says(std::string_view child) const {
    for (const ProjectNode& found : Children(child)) {
        const std::string text = found.node_->TextContent();
        if (!IsNothing(kestrel::Trimmed(text))) return true;
    }
    return false;
}

std::optional<std::int64_t> ProjectNode::Integer(std::string_view child) const {
    const std::string word = Word(child);
    if (word.empty()) return std::nullopt;
    const auto value = ReadInteger<std::int64_t>(word);
    if (!value) FailValue(child, "a whole number");
    return value;
}

std::optional<double> ProjectNode::Number(std::string_view child) const {
    const std::string word = Word(child);
    if (word.empty()) return std::nullopt;
    const auto value = ReadNumber(word);
    if (!value) FailValue(child, "a number like 12000.5");
    return value;
}

void ProjectNode::Fail(std::string_view sentence) const { FailAt(*path_, node_->line, sentence); }

void ProjectNode::FailValue(std::string_view child, std::string_view wanted) const {
    const auto found = Child(child);
    (found ? *found : *this)
        .Fail(std::string(child) + " of " + std::string(node_->LocalName()) + " is " +
              Quoted(Word(child)) + "; write " + std::string(wanted) + ".");
}

}  // namespace refhost
