#pragma once

#include <optional>
#include <string>

#include "refhost/engine/Analysis.h"

namespace refhost {

/// A date and a sum to keep to, and the shares of the iterations that do: no later, no dearer,
/// both.
struct Target {
    Minute finish = 0;
    double cost = 0;
    double chanceFinish = 0;
    double chanceCost = 0;
    double chanceBoth = 0;
};

/// The chances of a target; what is not given is what the plan says. At least one iteration.
Target ChancesOf(const AnalysisResults& results, std::optional<Minute> finish,
                 std::optional<double> cost);

/// "2027-10-01T17:00", seconds or not, "T" or a blank; a date alone stands for its end. Nothing
/// for any other text.
std::optional<Minute> ReadTargetDate(std::string text);

}  // namespace refhost
