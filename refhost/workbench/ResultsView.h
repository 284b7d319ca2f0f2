#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/Analysis.h"
#include "refhost/results/Prioritise.h"
#include "ui/controls/ChartDrawing.h"

/// What an analysis found, as its window shows it.
namespace refhost {

/// The results of the last analysis of a plan.
struct PlanResults {
    PlanData plan;  ///< as it was analysed
    AnalysisSettings settings;
    Minute when = 0;                         ///< the user's date and time
    AnalysisResults results;                 ///< at least one iteration
    std::optional<AnalysisResults> without;  ///< any risk factor
    std::vector<double> criticality;         ///< one share a task, in plan order
    /// What each factor costs, once that has been asked for.
    std::optional<Priorities> finishCosts, costCosts;
};

struct ResultColumn {
    std::string heading;
    int width = 0;
    bool figure = false;  ///< stands at the right
};
struct ResultTable {
    std::vector<ResultColumn> columns;
    std::vector<std::vector<std::string>> rows;
};

/// The plan without uncertainty, the chance to keep to it, mean and spread, percentiles and the
/// contingency that each of them needs.
ResultTable DistributionTable(const AnalysisResults& results);
/// What each factor costs by itself, the dearest first.
ResultTable FactorTable(const Priorities& priorities);
/// The tasks and their criticality, most often critical first; never critical ones left out.
ResultTable CriticalTaskTable(const PlanResults& results);

/// Histogram and cumulative curve, the curve without factors behind, the planned value marked.
kestrel::ui::ChartDrawing ResultDrawing(const PlanResults& results, Outcome measure, int width,
                                        int height);
/// The staircase of what each factor costs: with the single savings where there is room, with the
/// last steps in one where there is little.
kestrel::ui::ChartDrawing FactorDrawing(const Priorities& priorities, int width, int height);

/// "Chance to finish by then 41.0%, to cost no more 66.0%, both 35.0%", or what is wrong with a
/// target.
std::string TargetText(const AnalysisResults& results, const std::string& finish,
                       const std::string& cost);

}  // namespace refhost
