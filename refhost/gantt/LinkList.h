#pragma once

#include <vector>

#include "refhost/engine/HostPlan.h"

namespace refhost {

/// A link between tasks by their position.
struct TaskLink {
    std::size_t from = 0;
    std::size_t to = 0;
    LinkType type = LinkType::FinishToStart;
};

/// All links of a plan, in plan order of the tasks that they lead to.
std::vector<TaskLink> LinksOf(HostPlan& plan);

}  // namespace refhost
