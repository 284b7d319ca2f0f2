#include "refhost/engine/Statistics.h"

#include <algorithm>
#include <cmath>

#include "core/analysis/modPearsons.h"

namespace refhost {

double Percentile(const std::vector<double>& ascending, double share) {
    const double position = static_cast<double>(ascending.size() - 1) * share;
    const auto below = static_cast<std::size_t>(position);
    if (below + 1 >= ascending.size()) return ascending.back();
    const double fraction = position - static_cast<double>(below);
    return ascending[below] + (ascending[below + 1] - ascending[below]) * fraction;
}

Summary Summarise(const std::vector<double>& values) {
    Summary summary;
    summary.mean = kestrel::CollectionMean(values);
    summary.sd = kestrel::CollectionStdDev(values, summary.mean);
    std::vector<double> ascending(values);
    std::sort(ascending.begin(), ascending.end());
    summary.p10 = Percentile(ascending, 0.10);
    summary.p50 = Percentile(ascending, 0.50);
    summary.p80 = Percentile(ascending, 0.80);
    summary.p90 = Percentile(ascending, 0.90);
    return summary;
}

}  // namespace refhost
