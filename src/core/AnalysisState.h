#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/HostModel.h"

namespace kestrel {

/// One task that carries factors, with everything that an iteration needs of it. Fetched once,
/// when the analysis is prepared: a host call costs far more than the arithmetic.
struct FactorTask {
    host::TaskPtr task;
    bool ordinary = true;              ///< impacts are applied to ordinary tasks only
    std::vector<std::int32_t> series;    ///< factor IDs of the series group, in field order
    std::vector<std::int32_t> parallel;  ///< factor IDs of the parallel group, in field order
    std::vector<std::shared_ptr<host::CostItem>> costItems;
    std::string label;                 ///< "20 - Drawings", for messages
};

/// The state of one analysis, rebuilt by every preparation.
struct AnalysisState {
    bool active = false;         ///< an analysis of a plan that holds factors is under way
    bool logIterations = false;  ///< write each task's factors into "Risk Factors Iterations"

    host::PlanPtr plan;  ///< the plan that the event delivered
    std::shared_ptr<host::RiskAnalysis> riskAnalysis;
    std::shared_ptr<host::AnalysisOptions> options;
    std::shared_ptr<host::SummaryTask> summary;

    std::vector<FactorTask> factorTasks;     ///< tasks with at least one factor, in plan order
    std::vector<double> baseCosts;           ///< costs before the analysis; see PrepareAnalysis
    std::vector<std::int32_t> visits;        ///< per factor: visits by tasks in one iteration
    std::vector<double> ProjectFinishSamples;  ///< plan finish of each iteration, day serials
    std::vector<double> ProjectCostSamples;    ///< plan cost of each iteration
};

}  // namespace kestrel
