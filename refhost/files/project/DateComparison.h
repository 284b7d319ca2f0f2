#pragma once

#include <vector>

#include "refhost/engine/PlanData.h"
#include "refhost/files/ImportReport.h"
#include "refhost/files/project/ProjectDates.h"
#include "refhost/files/project/ProjectLinks.h"

namespace refhost {

/// Schedules the plan and lays its dates beside those of the file that it came from, row by row;
/// of a task of another project, the date at which it stands.
DateComparison CompareDates(const PlanData& plan, const ProjectOutline& outline,
                            const ProjectDates& dates, const std::vector<RowLinks>& links);

}  // namespace refhost
