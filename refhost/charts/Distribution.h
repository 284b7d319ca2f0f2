#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "refhost/charts/Histogram.h"
#include "ui/controls/ChartDrawing.h"

namespace refhost {

/// What is written on the chart of a distribution.
struct DistributionTexts {
    std::string title;
    std::string axis;      ///< what the values are: "Project finish"
    std::string curve;     ///< what the cumulative curve says: "Finished by then"
    std::string barWidth;  ///< "week"
    std::function<std::string(double)> value;
};

/// What else is drawn with a distribution.
struct DistributionContext {
    std::optional<double> planned;  ///< the value without any uncertainty: a mark of its own
    /// The values without the risk factors, ascending: their cumulative curve behind the other.
    std::vector<double> without;
};

/// How values of an analysis are distributed: a histogram, the cumulative curve over it, and the
/// values that 10, 50, 80 and 90 percent of the iterations do not exceed. At least one value
/// (std::invalid_argument).
kestrel::ui::ChartDrawing DrawDistribution(const std::vector<double>& ascending,
                                           const Histogram& histogram,
                                           const DistributionTexts& texts, int width, int height,
                                           const DistributionContext& context = {});

}  // namespace refhost
