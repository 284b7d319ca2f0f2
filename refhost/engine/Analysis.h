#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "refhost/engine/ReferenceHost.h"

namespace refhost {

/// The limit of every window and command.
inline constexpr std::int32_t kMostIterations = 10'000'000;

/// What an analysis found: one element per iteration.
struct AnalysisResults {
    Minute deterministicFinish = 0;
    double deterministicCost = 0;
    std::vector<double> finish;  ///< day serials
    std::vector<double> cost;    ///< plan currency
    bool cancelled = false;
};

/// Looks on while an analysis runs.
class AnalysisWatcher {
 public:
    virtual ~AnalysisWatcher() = default;
    /// After the events of iteration `number` (from 1). `drawn` holds the durations as drawn,
    /// one per task; the plan shows what the add-in made of them. False cancels the analysis.
    virtual bool AfterIteration(std::int32_t number, std::span<const std::int32_t> drawn,
                                const AnalysisResults& soFar) = 0;
};

/// Runs a Monte Carlo analysis of the host's open plan:
/// 1. raise PlanBeforeRiskAnalysis;
/// 2. for each iteration put durations and costs back, draw the tasks' durations and then the
///    groups' members, raise PlanAfterRiskIteration, read finish and cost;
/// 3. put durations and costs back and raise PlanAfterRiskAnalysis.
/// The same plan, settings and add-in give the same bits everywhere. Whatever a listener throws
/// ends the analysis, durations and costs put back. A listener that starts another one gets a
/// kestrel::HostError.
AnalysisResults RunAnalysis(ReferenceHost& application, const AnalysisSettings& settings,
                            AnalysisWatcher* watcher = nullptr);

}  // namespace refhost
