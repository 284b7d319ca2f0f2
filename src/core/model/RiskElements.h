#pragma once

#include <iterator>
#include <span>

#include "core/model/clsRiskFactor.h"

namespace kestrel {

/// The columns in which users edit factors: those of the editor's grid, in its order. Columns 1 to
/// 7 are percentages.
enum RiskColumn : int {
    kDescriptionColumn = 0,
    kDurMinColumn = 1,
    kDurLikelyColumn = 2,
    kDurMaxColumn = 3,
    kCostMinColumn = 4,
    kCostLikelyColumn = 5,
    kCostMaxColumn = 6,
    kLikelihoodColumn = 7,
    kCorrelatedToColumn = 8,
    kRiskColumns = 9,
};

/// One thing that a factor is made of, and where it stands.
struct RiskElement {
    const char* name;               ///< of the child of a `RiskFactor` in documents
    const char* heading;            ///< of its column; null for what users do not edit
    double clsRiskFactor::*figure;  ///< null for the description and the correlation
    bool required;                  ///< registers from before cost impacts lack all the others
};

/// In the order in which documents hold them.
inline constexpr RiskElement kRiskElements[] = {
    {"Name", "Description", nullptr, true},
    {"Minimum", "Dur Min", &clsRiskFactor::dblMin, true},
    {"MostLikely", "Dur Likely", &clsRiskFactor::dblML, true},
    {"Maximum", "Dur Max", &clsRiskFactor::dblMax, true},
    {"CostMinimum", "Cost Min", &clsRiskFactor::dblCostMin, false},
    {"CostMostLikely", "Cost Likely", &clsRiskFactor::dblCostML, false},
    {"CostMaximum", "Cost Max", &clsRiskFactor::dblCostMax, false},
    {"Probability", "Likelihood", &clsRiskFactor::dblProb, true},
    {"DurSens", nullptr, &clsRiskFactor::dblDurSens, false},
    {"CostSens", nullptr, &clsRiskFactor::m_dCostSens, false},
    {"CorrelatedTo", "Likelihood Correlated to", nullptr, false},
};

/// What stands in a column.
constexpr const RiskElement& ElementOfColumn(int column) {
    return column == kCorrelatedToColumn ? *std::rbegin(kRiskElements) : kRiskElements[column];
}

/// What stands in columns 1 to 7, and the two sensitivities behind them.
inline constexpr std::span<const RiskElement> kRiskPercentages{&kRiskElements[kDurMinColumn],
                                                               kLikelihoodColumn};
inline constexpr std::span<const RiskElement> kRiskFigures{&kRiskElements[kDurMinColumn],
                                                           kLikelihoodColumn + 2};

}  // namespace kestrel
