#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refhost/charts/FinishDistribution.h"

namespace refhost {

/// A finish and a cost to keep to.
struct CloudTarget {
    double finish = 0;  ///< day serial
    double cost = 0;
};

/// Finish against cost, over all iterations of an analysis: a cloud of cells, the darker the more
/// iterations lie there, in colour those that keep both targets. The targets are lines, with the
/// share of the iterations in each of the four corners that they make. `finish` (day serials) and
/// `cost` hold one value an iteration, at least one (std::invalid_argument).
kestrel::ui::ChartDrawing DrawCloud(const std::vector<double>& finish,
                                    const std::vector<double>& cost,
                                    const std::optional<CloudTarget>& target,
                                    const std::string& title, const DateFormatter& date, int width,
                                    int height);

}  // namespace refhost
