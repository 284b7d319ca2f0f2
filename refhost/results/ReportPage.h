#pragma once

#include <string>

#include "refhost/results/Prioritise.h"
#include "refhost/results/Report.h"

namespace refhost {

/// What the page tells of how the figures came about.
struct ReportAssumptions {
    bool percentages = false;    ///< the factors' impacts and likelihoods
    bool distributions = false;  ///< each task's three points
    bool assignments = false;    ///< each task's factors
};

struct ReportContents {
    const PlanData& plan;
    const Report& report;            ///< with the tasks' shares
    const AnalysisResults& results;  ///< with every factor
    const AnalysisResults& without;  ///< without any
    const Priorities& finish;        ///< what each factor costs in days
    const Priorities& cost;          ///< and in money
    ReportAssumptions assumptions;
};

/// The whole report as one HTML page that needs nothing outside itself: for a screen, a telephone,
/// A4 paper and a word processor. The same contents give the same bytes.
std::string ReportPage(const ReportContents& contents);

}  // namespace refhost
