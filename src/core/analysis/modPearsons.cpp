#include "core/analysis/modPearsons.h"

#include <cmath>
#include <stdexcept>

#include "base/Checked.h"

namespace kestrel {

double ArrayMean(const std::vector<double>& values, std::size_t n) {
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += values.at(i);
    return Checked(Checked(sum) / static_cast<double>(n));
}

namespace {

double DeviationOf(double squares, std::size_t n) {
    return Checked(std::sqrt(Checked(squares) / static_cast<double>(n - 1)));
}

}  // namespace

double ArrayStdDev(const std::vector<double>& values, std::size_t n, const double& mean) {
    if (n < 2) return 0;
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double deviation = values.at(i) - mean;
        sum += deviation * deviation;
    }
    return DeviationOf(sum, n);
}

double ArrayPearson(const std::vector<double>& x, const std::vector<double>& y, std::size_t n,
                    bool xKnown, double& meanX, double& deviationX) {
    if (n <= 1) return 1;
    if (!xKnown) {
        meanX = ArrayMean(x, n);
        deviationX = ArrayStdDev(x, n, meanX);
    }
    PearsonSums sums;
    for (std::size_t i = 0; i < n; ++i) sums.sum += y.at(i);
    const double meanY = sums.sum / static_cast<double>(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double deviation = y[i] - meanY;
        sums.squares += deviation * deviation;
        sums.products += deviation * (x.at(i) - meanX);
    }
    return sums.Correlation(n, deviationX);
}

double PearsonSums::Correlation(std::size_t n, double deviationX) const {
    if (n <= 1) return 1;
    Checked(sum);
    const double deviationY = DeviationOf(squares, n);
    if (deviationX == 0 || deviationY == 0) return 0;
    const double covariance = Checked(products) / static_cast<double>(n - 1);
    return Checked(covariance / Checked(deviationY * deviationX));
}

double PearsonSums::Mean(std::size_t n) const {
    return Checked(Checked(sum) / static_cast<double>(n));
}

void CollectionToArray(const ImpactHistory& history, std::vector<SideBySide>& rows,
                       std::size_t column) {
    if (rows.size() > history.Count())
        throw std::out_of_range("a history is shorter than the series");
    auto value = history.Values().begin();
    for (std::size_t i = 0; i < rows.size(); ++value)
        for (std::int32_t visit = 0; visit < history.Visits() && i < rows.size(); ++visit, ++i)
            rows[i][column] = *value;
}

double CollectionMean(const std::vector<double>& collection) {
    return ArrayMean(collection, collection.size());
}

double CollectionStdDev(const std::vector<double>& collection, const double& mean) {
    return ArrayStdDev(collection, collection.size(), mean);
}

std::array<PearsonSums, kSideBySide> RowsPearson(const std::vector<double>& x,
                                                 const std::vector<SideBySide>& rows,
                                                 double meanX) {
    const std::size_t n = x.size();
    std::array<PearsonSums, kSideBySide> sums;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t k = 0; k < kSideBySide; ++k) sums[k].sum += rows[i][k];
    std::array<double, kSideBySide> means;
    for (std::size_t k = 0; k < kSideBySide; ++k) means[k] = sums[k].sum / static_cast<double>(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double deviationX = x[i] - meanX;
        for (std::size_t k = 0; k < kSideBySide; ++k) {
            const double deviation = rows[i][k] - means[k];
            sums[k].squares += deviation * deviation;
            sums[k].products += deviation * deviationX;
        }
    }
    return sums;
}

std::array<PearsonSums, kSideBySide> CollectionPearson(
    const std::vector<double>& x, std::span<const ImpactHistory* const> histories, double meanX,
    std::vector<SideBySide>& rows) {
    rows.assign(x.size(), {});
    for (std::size_t k = 0; k < histories.size(); ++k)
        if (histories[k]->Count() > 0) CollectionToArray(*histories[k], rows, k);
    return RowsPearson(x, rows, meanX);
}

}  // namespace kestrel
