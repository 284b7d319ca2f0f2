#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/Analysis.h"
#include "refhost/engine/Priorities.h"

namespace refhost {

/// What an analysis found of one task.
struct TaskResult {
    std::string id;
    double criticality = 0;  ///< share of iterations, 0 to 1
    /// When an ordinary task finishes: percentiles over the iterations, to the nearest minute.
    std::optional<Minute> p50, p80;
};

/// The results of the last analysis of a plan, as they are saved with it.
struct StoredResults {
    AnalysisSettings settings;
    Minute when = 0;                         ///< the user's date and time
    AnalysisResults results;                 ///< at least one iteration
    std::optional<AnalysisResults> without;  ///< any risk factor
    std::vector<TaskResult> tasks;           ///< in plan order
    std::int32_t tasksEvery = 1;             ///< P50 and P80 are of each tasksEvery-th iteration
    /// What each factor costs, once that has been asked for.
    std::optional<Priorities> finishCosts, costCosts;
};

/// Results of more iterations make a file too large to be read back.
inline constexpr std::int32_t kMostStoredIterations = 1'000'000;

}  // namespace refhost
