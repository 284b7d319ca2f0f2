#pragma once

#include <string>

#include "refhost/results/ReportPage.h"

namespace refhost {

/// The sections of the report that say what the analysis was told, as far as they are asked for.
std::string AssumptionTables(const PlanData& plan, const FactorTracker::Factors& factors,
                             const ReportAssumptions& assumptions);

}  // namespace refhost
