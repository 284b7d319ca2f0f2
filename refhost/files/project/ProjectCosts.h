#pragma once

#include "refhost/engine/PlanData.h"
#include "refhost/files/ImportReport.h"
#include "refhost/files/project/ProjectAssignments.h"

namespace refhost {

/// Gives each task its cost items in plan currency: fixed cost, a cost an assignment and, where
/// an ordinary task's own Cost is another, the difference. Raises kestrel::DataError, naming file
/// and line, for a cost that is no number.
MoneyReading ReadCosts(const ProjectOutline& outline, const ProjectAssignments& assignments,
                       const ImportOptions& options, std::vector<TaskData>& tasks);

}  // namespace refhost
