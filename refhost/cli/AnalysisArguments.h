#pragma once

#include <cstddef>

#include "refhost/cli/Arguments.h"
#include "refhost/engine/PlanData.h"

namespace refhost {

/// What --iterations and --seed say, and otherwise the plan. Raises kestrel::DataError for more
/// iterations than kMostIterations or than this machine has memory for, with the memory that a
/// register of so many factors would take.
AnalysisSettings SettingsOf(const Arguments& arguments, const PlanData& plan, std::size_t factors);

}  // namespace refhost
