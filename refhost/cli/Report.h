#pragma once

#include <string>

#include "refhost/cli/FactorTracker.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/Statistics.h"

namespace refhost {

/// Everything that a report of one analysis shows.
struct Report {
    std::string planName;
    AnalysisSettings settings;
    Minute deterministicFinish = 0;
    double deterministicCost = 0;
    Summary finish;  ///< day serials
    Summary cost;
    FactorTracker::Factors factors;         ///< in register order, with their sensitivities
    std::vector<std::int64_t> occurrences;  ///< per factor
};

/// For people: finish and cost, then the factors ranked by how strongly they drive the finish.
std::string ReportText(const Report& report);

/// For programs: one JSON object.
std::string ReportJson(const Report& report);

/// The register as a table, in its order.
std::string RegisterTable(const FactorTracker::Factors& factors);

}  // namespace refhost
