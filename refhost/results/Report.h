#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/Criticality.h"
#include "refhost/engine/Statistics.h"
#include "refhost/results/FactorFigures.h"
#include "refhost/results/Targets.h"

namespace refhost {

/// How often one task is critical.
struct TaskShare {
    std::string id;
    std::string name;
    double criticality = 0;  ///< share of iterations, 0 to 1
};

/// Everything that a report of one analysis shows.
struct Report {
    std::string planName;
    AnalysisSettings settings;
    Minute deterministicFinish = 0;
    double deterministicCost = 0;
    Summary finish;  ///< day serials
    Summary cost;
    FactorTracker::Factors factors;               ///< in register order, with their sensitivities
    std::vector<FactorFigures> figures;           ///< per factor
    std::optional<std::vector<TaskShare>> tasks;  ///< ordinary tasks in plan order, if asked for
    std::optional<Target> target;                 ///< if asked for
};

/// The report of an analysis of the host's open plan, without tasks and target.
Report MakeReport(ReferenceHost& host, kestrel::Desktop& desktop, const AnalysisSettings& settings,
                  const AnalysisResults& results, const FactorTracker& factors);

/// How often each ordinary task was critical, in plan order.
std::vector<TaskShare> SharesOf(const PlanData& plan, const Criticality& criticality);

/// At most `count` of the tasks that are ever critical, most often first, equals in plan order.
std::vector<TaskShare> MostCritical(const std::vector<TaskShare>& tasks, std::size_t count);

}  // namespace refhost
