#pragma once

#include "refhost/engine/PlanData.h"
#include "refhost/files/LeftOutList.h"
#include "refhost/files/ProjectOutline.h"
#include "refhost/files/ProjectText.h"

namespace refhost {

/// One row as a task of a plan, without assignment costs and user values. What the links,
/// duration and constraint lose on the way is counted. Raises kestrel::DataError, naming file and
/// line, for values that cannot be read.
TaskData ReadProjectTask(const OutlineRow& row, const ProjectOutline& outline,
                         const DurationUnits& units, LeftOutList& leftOut);

}  // namespace refhost
