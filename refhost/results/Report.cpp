#include "refhost/results/Report.h"

#include <algorithm>

namespace refhost {

std::vector<TaskShare> MostCritical(const std::vector<TaskShare>& tasks, std::size_t count) {
    std::vector<TaskShare> ranked;
    for (const TaskShare& task : tasks)
        if (task.criticality > 0) ranked.push_back(task);
    std::stable_sort(ranked.begin(), ranked.end(), [](const TaskShare& a, const TaskShare& b) {
        return a.criticality > b.criticality;
    });
    ranked.resize(std::min(count, ranked.size()));
    return ranked;
}

}  // namespace refhost
