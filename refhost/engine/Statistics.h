#pragma once

#include <vector>

namespace refhost {

/// Figures of one result over all iterations.
struct Summary {
    double mean = 0;
    double sd = 0;  ///< sample standard deviation; 0 for fewer than two values
    double p10 = 0;
    double p50 = 0;
    double p80 = 0;
    double p90 = 0;
};

/// Sums run in iteration order. At least one value.
Summary Summarise(const std::vector<double>& values);

/// Linear between order statistics: position (n - 1) x share from 0, share from 0 to 1.
double Percentile(const std::vector<double>& ascending, double share);

}  // namespace refhost
