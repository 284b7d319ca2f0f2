#pragma once

#include <cstdint>
#include <functional>

#include "refhost/engine/Priorities.h"
#include "refhost/results/LaboratoryPool.h"

/// What each risk factor costs: the analysis again, with the same seed and draws, in which factors
/// never occur.
namespace refhost {

/// Hears how many analyses are done of how many there are at most; false cancels.
using PriorityProgress = std::function<bool(std::int32_t done, std::int32_t atMost)>;

/// Answers the question for the plan. Warnings about the plan are told once, to `desktop`. The
/// figures do not depend on the number of threads. Raises what an analysis raises.
Priorities Prioritise(const PlanData& plan, const PriorityQuestion& question,
                      kestrel::Desktop& desktop, const DesktopMaker& desktops,
                      const PriorityProgress& progress);

/// The analysis in which no factor that some task carries ever occurs.
AnalysisResults AnalyseWithoutFactors(const PlanData& plan, const AnalysisSettings& settings,
                                      kestrel::Desktop& desktop,
                                      AnalysisWatcher* watcher = nullptr);

}  // namespace refhost
