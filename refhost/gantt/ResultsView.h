#pragma once

#include <string>
#include <vector>

#include "refhost/engine/Analysis.h"
#include "ui/controls/ChartDrawing.h"

/// What an analysis found, as its window shows it.
namespace refhost {

/// The results of the last analysis of a plan.
struct PlanResults {
    std::string planName;
    AnalysisSettings settings;
    AnalysisResults results;          ///< at least one iteration
    std::vector<double> criticality;  ///< one share a task, in plan order
};

struct ResultRow {
    std::string name;
    std::string finish;
    std::string cost;
};

/// The plan without uncertainty, the chance to keep to it, mean and spread, percentiles.
std::vector<ResultRow> ResultRows(const AnalysisResults& results);

enum class ResultMeasure { Finish, Cost };

/// Histogram and cumulative curve.
kestrel::ui::ChartDrawing ResultDrawing(const PlanResults& results, ResultMeasure measure,
                                        int width, int height);

}  // namespace refhost
