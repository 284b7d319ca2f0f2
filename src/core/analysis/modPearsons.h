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

double CollectionMean(const std::vector<double>& collection);
double CollectionStdDev(const std::vector<double>& collection, const double& mean);

/// A correlation in the making: sums that nobody has checked yet.
struct PearsonSums {
    double sum = 0;       ///< of y
    double squares = 0;   ///< of (y - mean of y)^2
    double products = 0;  ///< of (y - mean of y)(x - mean of x)

    /// ArrayMean and ArrayPearson over n elements, every step checked.
    double Mean(std::size_t n) const;
    double Correlation(std::size_t n, double deviationX) const;
};

/// Elements at the same position of four series. Sums run in the order of the elements, so that
/// each addition waits for the one before: four waits side by side take no longer than one.
inline constexpr std::size_t kSideBySide = 4;
using SideBySide = std::array<double, kSideBySide>;

/// The sums of a series, its mean known, with the four of `rows`, at least as many.
std::array<PearsonSums, kSideBySide> RowsPearson(const std::vector<double>& x,
                                                 const std::vector<SideBySide>& rows, double meanX);

/// Writes the first `rows.size()` elements into a column; std::out_of_range when the history is
/// shorter.
void CollectionToArray(const ImpactHistory& history, std::vector<SideBySide>& rows,
                       std::size_t column);

/// RowsPearson with up to kSideBySide factors' histories, read at the same positions as the
/// project series; std::out_of_range for one that is shorter, unless it is empty. `rows` is room
/// to work in.
std::array<PearsonSums, kSideBySide> CollectionPearson(
    const std::vector<double>& x, std::span<const ImpactHistory* const> histories, double meanX,
    std::vector<SideBySide>& rows);

}  // namespace kestrel
