#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "refhost/engine/PlanData.h"

namespace refhost {

/// Which tasks of a plan are on show: those with no collapsed summary above them, in plan order,
/// one a row. Tasks and rows count from 0.
class Outline {
 public:
    /// Everything expanded.
    explicit Outline(const std::vector<TaskData>& tasks);

    std::size_t RowCount() const { return rows_.size(); }
    std::size_t TaskAt(std::size_t row) const { return rows_[row]; }
    /// Nothing while the task is hidden.
    std::optional<std::size_t> RowOf(std::size_t task) const;

    std::size_t TaskCount() const { return nodes_.size(); }
    /// Summaries above the task.
    int Level(std::size_t task) const { return nodes_[task].level; }
    bool HasChildren(std::size_t task) const { return nodes_[task].hasChildren; }
    bool IsExpanded(std::size_t task) const { return nodes_[task].expanded; }
    /// The summary that holds the task; nothing at the top.
    std::optional<std::size_t> Parent(std::size_t task) const;

    void SetExpanded(std::size_t task, bool expanded);
    void SetAllExpanded(bool expanded);
    /// Expands what hides the task.
    void Reveal(std::size_t task);

 private:
    struct Node {
        std::ptrdiff_t parent = -1;
        std::ptrdiff_t row = -1;  ///< -1 while hidden
        int level = 0;
        bool hasChildren = false;
        bool expanded = true;
    };
    void ListRows();

    std::vector<Node> nodes_;
    std::vector<std::size_t> rows_;
};

}  // namespace refhost
