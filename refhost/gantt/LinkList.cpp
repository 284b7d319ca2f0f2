#include "refhost/gantt/LinkList.h"

namespace refhost {

std::vector<TaskLink> LinksOf(HostPlan& plan) {
    std::vector<TaskLink> links;
    const std::vector<TaskData>& tasks = plan.Data().tasks;
    for (std::size_t to = 0; to < tasks.size(); ++to)
        for (const Link& link : tasks[to].links)
            if (const auto from = plan.Find(link.from)) links.push_back({*from, to, link.type});
    return links;
}

}  // namespace refhost
