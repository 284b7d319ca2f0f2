#pragma once

#include <string>

#include "refhost/charts/Staircase.h"
#include "refhost/results/Prioritise.h"

/// What each factor costs, in the words of tables and charts.
namespace refhost {

/// "P80".
std::string PercentileName(double percentile);
/// A date with its time, or money.
std::string FigureText(Outcome outcome, double figure);
/// "13.1 days", "-2.0 days", "340,000".
std::string DifferenceText(Outcome outcome, double difference);
/// The name of a factor that was measured, and "4 - Name".
std::string FactorName(const Priorities& priorities, std::int32_t id);
std::string FactorLabel(const Priorities& priorities, std::int32_t id);

/// The sequence as a falling staircase from the percentile of today to the plan without factors
/// and the plan itself; one at a time as bars, the largest saving first.
Staircase PriorityStaircase(const Priorities& priorities);

}  // namespace refhost
