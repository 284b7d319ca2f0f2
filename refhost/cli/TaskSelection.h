#pragma once

#include <string>
#include <vector>

#include "refhost/engine/HostPlan.h"

namespace refhost {

/// Positions, in plan order, of the tasks that a word names: IDs parted by commas, ranges of plan
/// order ("1100-1190"), a summary with all tasks below it. An ID that itself holds such a sign is
/// taken as it is. Raises kestrel::DataError for a task that the plan lacks.
std::vector<std::size_t> SelectedTasks(HostPlan& plan, const std::string& words);

}  // namespace refhost
