#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/model/Occurrence.h"
#include "core/model/clsRiskFactor.h"
#include "host/HostModel.h"

namespace kestrel {

/// One task that carries factors. Its groups and cost items are ranges of the flat lists of
/// AnalysisState; each range starts where the one before it ends.
struct FactorTask {
    host::TaskPtr task;
    bool ordinary = true;           ///< impacts are applied to ordinary tasks only
    std::uint32_t seriesEnd = 0;    ///< in groupFactors: end of the series group
    std::uint32_t parallelEnd = 0;  ///< in groupFactors: end of the parallel group
    std::uint32_t costEnd = 0;      ///< in costItems
};

/// This iteration's multipliers of one factor: 1 and 1 when it does not occur.
struct Impact {
    double duration = 1.0;
    double cost = 1.0;
};

/// Where the impacts of a task's factors stand: two in series and two in parallel, with neutral
/// impacts in the places that it leaves free, so that all tasks are reckoned alike.
struct ImpactSlots {
    std::uint32_t series[2];
    std::uint32_t parallel[2];
};

/// The state of one analysis, made anew by every preparation. What an iteration needs of the host
/// is fetched once and kept flat: a host call costs far more than the arithmetic, and a host that
/// answers otherwise the second time is not heard. The register is the analysis's own: commands
/// that run between two iterations work on the plan's.
struct AnalysisState {
    bool active = false;         ///< an analysis of a plan that holds factors is under way
    bool broken = false;         ///< a handler failed: no further figures of this analysis count
    bool logIterations = false;  ///< write each task's factors into "Risk Factors Iterations"

    host::PlanPtr plan;        ///< the plan that the event delivered
    std::string registerText;  ///< the plan's register as it was read
    RiskRegister factors;      ///< what it held
    std::shared_ptr<host::RiskAnalysis> riskAnalysis;
    std::shared_ptr<host::AnalysisOptions> options;

    std::vector<FactorTask> factorTasks;      ///< tasks with at least one factor, in plan order
    std::vector<std::uint32_t> groupFactors;  ///< register indices, series then parallel group
    std::vector<std::shared_ptr<host::CostItem>> costItems;  ///< of the factor tasks
    std::vector<std::int32_t> visits;  ///< per factor: visits by tasks in one iteration

    /// Costs before the analysis of every task whose field text is not empty. A text without any
    /// ID makes this list longer than costItems, never shorter; they are paired by running
    /// position all the same.
    std::vector<double> baseCosts;

    std::vector<ImpactSlots> slots;      ///< per factor task
    std::vector<std::uint32_t> crowded;  ///< factor tasks with more than two factors in a group
    std::optional<NumberSharing> sharing;

    std::vector<double> randomNumbers;  ///< per factor: the number drawn in this iteration
    std::vector<Impact> impacts;        ///< per factor: its impact in this iteration; two neutral
    std::vector<Impact> combined;       ///< per factor task: what its factors make together

    std::vector<double> ProjectFinishSamples;  ///< plan finish of each iteration, day serials
    std::vector<double> ProjectCostSamples;    ///< plan cost of each iteration
};

}  // namespace kestrel
