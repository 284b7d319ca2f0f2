#pragma once

#include <string>

#include "refhost/results/Report.h"

namespace refhost {

/// For people: finish and cost, then the factors ranked by how strongly they drive the finish
/// (one impact per iteration), then the tasks that are critical most often and the target.
std::string ReportText(const Report& report);

/// For programs: one JSON object.
std::string ReportJson(const Report& report);

/// The register as a table, in its order.
std::string RegisterTable(const FactorTracker::Factors& factors);

}  // namespace refhost
