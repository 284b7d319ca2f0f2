#pragma once

#include <string>
#include <vector>

namespace kestrel {

/// One assigned factor: its ID (position in the register, from 1) as it is written, and whether it
/// works in series with the task's other factors or in parallel.
struct AssignedRiskFactor {
    std::string ID;
    bool InSeries = true;
};

/// The factors assigned to one task, as assignments files carry them.
struct RisksAssignedToTask {
    std::string TaskID;
    std::vector<AssignedRiskFactor> Assigned;
};

}  // namespace kestrel
