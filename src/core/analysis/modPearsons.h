#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "core/model/ImpactHistory.h"

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

/// Writes the first `count` elements to every `stride`-th place from `to`; std::out_of_range when
/// the history is shorter.
void CollectionToArray(const ImpactHistory& history, std::size_t count, double* to,
                       std::size_t stride);

double CollectionMean(const std::vector<double>& collection);
double CollectionStdDev(const std::vector<double>& collection, const double& mean);

/// A correlation in the making: sums that nobody has checked yet.
struct PearsonSums {
    double sum = 0;       ///< of y
    double squares = 0;   ///< of (y - mean of y)^2
    double products = 0;  ///< of (y - mean of y)(x - mean of x)

    /// ArrayPearson over n elements, every step checked.
    double Correlation(std::size_t n, double deviationX) const;
};

inline constexpr std::size_t kSideBySide = 4;

/// The sums of a project series, its mean known, with up to kSideBySide factors' histories, read at
/// the same positions; std::out_of_range for one that is shorter, unless it is empty. Sums run in
/// the order of the elements, so that each addition waits for the one before: four waits side by
/// side take no longer than one. `rows` is room to work in.
std::array<PearsonSums, kSideBySide> CollectionPearson(
    const std::vector<double>& x, std::span<const ImpactHistory* const> histories, double meanX,
    std::vector<double>& rows);

}  // namespace kestrel
