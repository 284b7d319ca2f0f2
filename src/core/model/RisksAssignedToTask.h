#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kestrel {

/// One assigned factor: its ID (position in the register, from 1) and whether it works in
/// series with the task's other factors or in parallel.
struct AssignedRiskFactor {
    std::int32_t ID = 0;
    bool InSeries = true;
};

/// The factors assigned to one task, as the assignment dialog and the files carry them.
struct RisksAssignedToTask {
    std::string TaskID;
    std::vector<AssignedRiskFactor> Assigned;
};

}  // namespace kestrel
