#pragma once

#include <functional>
#include <string>
#include <vector>

#include "refhost/charts/Distribution.h"
#include "ui/controls/ChartDrawing.h"

namespace refhost {

/// How a day serial is written on the chart.
using DateFormatter = std::function<std::string(double)>;

/// When the plan finishes, over all iterations of an analysis (Distribution.h). Bars are whole
/// days, weeks or more wide, parts of a day where all fall close together. `finish` holds day
/// serials, at least one (std::invalid_argument).
kestrel::ui::ChartDrawing FinishDistribution(std::vector<double> finish, const std::string& title,
                                             const DateFormatter& date, int width, int height,
                                             const DistributionContext& context = {});

/// The same as an SVG document.
std::string FinishDistributionSvg(const std::vector<double>& finish, const std::string& title,
                                  const DateFormatter& date, int width = 800, int height = 440);

/// What the plan costs, over all iterations, drawn alike.
kestrel::ui::ChartDrawing CostDistribution(std::vector<double> cost, const std::string& title,
                                           int width, int height,
                                           const DistributionContext& context = {});

}  // namespace refhost
