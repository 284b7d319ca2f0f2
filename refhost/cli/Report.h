#pragma once

#include <string>

#include "refhost/cli/FactorTracker.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/Statistics.h"

namespace refhost {

/// What an analysis tells of one factor beside its sensitivities.
struct FactorFigures {
    std::int64_t occurrences = 0;
    double meanDurationImpact = 1;  ///< mean multiplier over all iterations, 1 where not occurring
    double meanCostImpact = 1;
    /// Correlations with finish and cost of one value per iteration. DurSens and CostSens go by
    /// one value per visit of a task, so a factor on many tasks shows near 0 there.
    double alignedDurSens = 0;
    double alignedCostSens = 0;
};

/// The figures of every factor, in register order.
std::vector<FactorFigures> FiguresOf(const FactorTracker& factors, const AnalysisResults& results);

/// Everything that a report of one analysis shows.
struct Report {
    std::string planName;
    AnalysisSettings settings;
    Minute deterministicFinish = 0;
    double deterministicCost = 0;
    Summary finish;  ///< day serials
    Summary cost;
    FactorTracker::Factors factors;      ///< in register order, with their sensitivities
    std::vector<FactorFigures> figures;  ///< per factor
};

/// For people: finish and cost, then the factors ranked by how strongly they drive the finish.
std::string ReportText(const Report& report);

/// For programs: one JSON object.
std::string ReportJson(const Report& report);

/// The register as a table, in its order.
std::string RegisterTable(const FactorTracker::Factors& factors);

}  // namespace refhost
