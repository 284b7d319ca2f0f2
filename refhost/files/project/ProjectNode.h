#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlDom.h"

namespace refhost {

/// One element of a project file, where values are child elements and most are optional; what
/// nobody asks for is passed over. A view: node and path must outlive it.
class ProjectNode {
 public:
    ProjectNode(const kestrel::XmlNode& node, const std::string& path)
        : node_(&node), path_(&path) {}

    std::optional<ProjectNode> Child(std::string_view name) const;
    std::vector<ProjectNode> Children(std::string_view name) const;
    /// The children called `item` of the child called `list`: "Tasks", "Task".
    std::vector<ProjectNode> Items(std::string_view list, std::string_view item) const;

    /// The text of a child, exactly as it stands; empty when there is no such child.
    std::string Text(std::string_view child) const;
    /// The same without surrounding white space.
    std::string Word(std::string_view child) const;
    /// "1" or "true".
    bool Flag(std::string_view child) const;
    /// Whether some child of that name says anything: neither blank, nor zero, nor false.
    bool Says(std::string_view child) const;
    /// The child as a number; nothing when it is absent or blank. Raises kestrel::DataError,
    /// naming file and line, when it is something else.
    std::optional<std::int64_t> Integer(std::string_view child) const;
    std::optional<double> Number(std::string_view child) const;

    /// Raises kestrel::DataError: "<path>:<line>: <sentence>".
    [[noreturn]] void Fail(std::string_view sentence) const;
    /// The same for a child whose text cannot be read; `wanted` completes "write ...".
    [[noreturn]] void FailValue(std::string_view child, std::string_view wanted) const;

 private:
    bool IsChild(const kestrel::XmlNode& node, std::string_view name) const;

    const kestrel::XmlNode* node_;
    const std::string* path_;
};

}  // namespace refhost
