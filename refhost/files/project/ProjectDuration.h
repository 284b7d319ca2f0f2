#pragma once

#include "refhost/engine/PlanData.h"
#include "refhost/files/project/ProjectSource.h"

namespace refhost {

/// The duration of the row at `index` in working minutes of the plan. What does not follow from
/// working time alone (elapsed and missing durations, interrupted work, other calendars) is the
/// working time between the file's dates, where it has both. Raises kestrel::DataError, naming
/// file and line, for a duration that cannot be read.
std::int32_t ReadDuration(const ProjectSource& source, std::size_t index);

/// The duration that a percentage lag behind the row counts: for a summary the working time
/// between its dates, otherwise what the file says.
std::int32_t StatedDuration(const ProjectSource& source, std::size_t index);

}  // namespace refhost
