#pragma once

#include <cstdint>
#include <vector>

#include "refhost/engine/Analysis.h"
#include "refhost/results/FactorTracker.h"

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

/// Positions of the factors, the strongest correlation (by its square) first; equals by position.
std::vector<std::size_t> RankedBy(const std::vector<FactorFigures>& figures,
                                  double FactorFigures::*correlation);

/// Copies of the factors whose sensitivities are the correlations of one impact per iteration, for
/// charts: what only rounding has left is 0.
FactorTracker::Factors WithAlignedSensitivities(const FactorTracker::Factors& factors,
                                                const std::vector<FactorFigures>& figures);

}  // namespace refhost
