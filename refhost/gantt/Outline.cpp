#include "refhost/gantt/Outline.h"

namespace refhost {

Outline::Outline(const std::vector<TaskData>& tasks) : nodes_(tasks.size()) {
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        nodes_[i].parent = tasks[i].parent;
        if (tasks[i].parent < 0) continue;
        Node& parent = nodes_[static_cast<std::size_t>(tasks[i].parent)];
        parent.hasChildren = true;
        nodes_[i].level = parent.level + 1;
    }
    ListRows();
}

void Outline::ListRows() {
    rows_.clear();
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        Node& node = nodes_[i];
        node.row = -1;
        if (node.parent >= 0) {
            const Node& parent = nodes_[static_cast<std::size_t>(node.parent)];
            if (parent.row < 0 || !parent.expanded) continue;
        }
        node.row = static_cast<std::ptrdiff_t>(rows_.size());
        rows_.push_back(i);
    }
}

std::optional<std::size_t> Outline::RowOf(std::size_t task) const {
    const std::ptrdiff_t row = nodes_[task].row;
    return row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
}

std::optional<std::size_t> Outline::Parent(std::size_t task) const {
    const std::ptrdiff_t parent = nodes_[task].parent;
    return parent < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(parent));
}

void Outline::SetExpanded(std::size_t task, bool expanded) {
    nodes_[task].expanded = expanded;
    ListRows();
}

void Outline::SetAllExpanded(bool expanded) {
    for (Node& node : nodes_) node.expanded = expanded;
    ListRows();
}

void Outline::Reveal(std::size_t task) {
    for (auto above = Parent(task); above; above = Parent(*above)) nodes_[*above].expanded = true;
    ListRows();
}

}  // namespace refhost
