#pragma once

#include <string>
#include <vector>

#include "platform/Desktop.h"
#include "refhost/engine/PlanData.h"

namespace refhost {

/// Everything that is wrong or doubtful in a plan: register, assignments, durations, network.
/// One sentence each, in that order; empty when all is well.
std::vector<std::string> CheckPlan(kestrel::Desktop& desktop, PlanData plan);

}  // namespace refhost
