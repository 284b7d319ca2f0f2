#pragma once

#include <cstddef>
#include <vector>

#include "core/ImpactHistory.h"

/// Mean, sample standard deviation and Pearson's product-moment correlation. Sums run in the
/// order of the elements; every step is checked and raises ArithmeticError in place of a result
/// that is not finite. Nothing is rounded.
namespace kestrel {

/// Sum of the first n elements / n. ArithmeticError for n = 0.
double ArrayMean(const std::vector<double>& values, std::size_t n);

/// sqrt(sum((x - mean)^2) / (n - 1)) about the mean given; 0 for n < 2.
double ArrayStdDev(const std::vector<double>& values, std::size_t n, const double& mean);

/// Sample covariance of x and y / (standard deviation of y x standard deviation of x).
/// n <= 1 gives exactly 1, a series that never varies 0. With `xKnown` the mean and deviation
/// of x are taken as they stand, otherwise they are computed and stored in the arguments.
double ArrayPearson(const std::vector<double>& x, const std::vector<double>& y, std::size_t n,
                    bool xKnown, double& meanX, double& deviationX);

/// The first `count` elements; std::out_of_range when the history is shorter.
std::vector<double> CollectionToArray(const ImpactHistory& history, std::size_t count);

double CollectionMean(const std::vector<double>& collection);
double CollectionStdDev(const std::vector<double>& collection, const double& mean);

/// Correlation of a project series with a factor's history, read at the same positions.
double CollectionPearson(const std::vector<double>& x, const ImpactHistory& y, bool xKnown,
                         double& meanX, double& deviationX);

}  // namespace kestrel
