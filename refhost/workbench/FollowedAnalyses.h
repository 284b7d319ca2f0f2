#pragma once

#include <optional>

#include "refhost/workbench/Workbench.h"

namespace refhost {

/// @name Analyses that the user follows in a progress form and may cancel there
/// An analysis of the open plan, in which the add-in takes part; cancelled, it holds what was done.
///@{
PlanResults AnalyseOpenPlan(const Workbench::Parts& parts, const AnalysisSettings& settings);
/// The same analysis in which no factor occurs; nothing when cancelled.
std::optional<AnalysisResults> AnalyseWithout(const Workbench::Parts& parts,
                                              const PlanResults& with);
/// What each factor of the plan that was analysed costs; nothing when cancelled.
std::optional<Priorities> PrioritiseFactors(const Workbench::Parts& parts,
                                            const PlanResults& analysed, Outcome outcome);
///@}

}  // namespace refhost
