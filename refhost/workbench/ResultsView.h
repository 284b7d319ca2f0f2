#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/engine/StoredResults.h"
#include "refhost/results/Prioritise.h"
#include "ui/controls/ChartDrawing.h"

/// What an analysis found, as its window shows it.
namespace refhost {

/// The results of the last analysis of a plan.
struct PlanResults : StoredResults {
    /// As it was analysed; of results that were opened with a plan that has changed since, the plan
    /// as it was opened.
    PlanData plan;
    bool planIsAnalysed = true;
};

/// The results that the plan was opened with, if any.
std::optional<PlanResults> ResultsOf(const LivePlan& plan);

/// "1000 iterations, seed 1: P50 2027-10-07, P80 2027-11-01".
std::string ShortText(const PlanResults& results);
/// "1000 iterations, seed 1, 2026-11-22 04:15" and what else is to be said of where they are from.
std::string OriginText(const PlanResults& results, bool upToDate);

/// One share for each task of the plan, 0 for tasks that the analysis did not know.
std::vector<double> CriticalityOf(const StoredResults& results, const PlanData& plan);

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
/// The finish and the cost of each percentile, and the chance to keep both.
ResultTable JointTable(const AnalysisResults& results);
/// What each factor costs by itself, the dearest first.
ResultTable FactorTable(const Priorities& priorities);
/// The ordinary tasks with their criticality, most often critical first, and when they finish.
ResultTable CriticalTaskTable(const PlanResults& results);

/// Histogram and cumulative curve, the curve without factors behind, the planned value marked.
kestrel::ui::ChartDrawing ResultDrawing(const PlanResults& results, Outcome measure, int width,
                                        int height);
/// The cloud of finish against cost, with the lines of a target that can be read.
kestrel::ui::ChartDrawing JointDrawing(const PlanResults& results, const std::string& finish,
                                       const std::string& cost, int width, int height);
/// The staircase of what each factor costs: with the single savings where there is room, with the
/// last steps in one where there is little.
kestrel::ui::ChartDrawing FactorDrawing(const Priorities& priorities, int width, int height);

/// "Chance to finish by then 41.0%, to cost no more 66.0%, both 35.0%", or what is wrong with a
/// target.
std::string TargetText(const AnalysisResults& results, const std::string& finish,
                       const std::string& cost);

}  // namespace refhost
