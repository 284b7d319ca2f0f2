#include "core/modPearsons.h"

#include <cmath>

#include "util/Checked.h"

namespace kestrel {

double ArrayMean(const std::vector<double>& values, std::size_t n) {
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += values.at(i);
    return Checked(Checked(sum) / static_cast<double>(n));
}

double ArrayStdDev(const std::vector<double>& values, std::size_t n, const double& mean) {
    if (n < 2) return 0;
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double deviation = values.at(i) - mean;
        sum += deviation * deviation;
    }
    return Checked(std::sqrt(Checked(sum) / static_cast<double>(n - 1)));
}

double ArrayPearson(const std::vector<double>& x, const std::vector<double>& y, std::size_t n,
                    bool xKnown, double& meanX, double& deviationX) {
    if (n <= 1) return 1;
    if (!xKnown) {
        meanX = ArrayMean(x, n);
        deviationX = ArrayStdDev(x, n, meanX);
    }
    const double meanY = ArrayMean(y, n);
    const double deviationY = ArrayStdDev(y, n, meanY);
    if (deviationX == 0 || deviationY == 0) return 0;
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += (y.at(i) - meanY) * (x.at(i) - meanX);
    const double covariance = Checked(sum) / static_cast<double>(n - 1);
    return Checked(covariance / Checked(deviationY * deviationX));
}

std::vector<double> CollectionToArray(const ImpactHistory& history, std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = history.At(i);
    return values;
}

double CollectionMean(const std::vector<double>& collection) {
    return ArrayMean(collection, collection.size());
}

double CollectionStdDev(const std::vector<double>& collection, const double& mean) {
    return ArrayStdDev(collection, collection.size(), mean);
}

double CollectionPearson(const std::vector<double>& x, const ImpactHistory& y, bool xKnown,
                         double& meanX, double& deviationX) {
    return ArrayPearson(x, CollectionToArray(y, x.size()), x.size(), xKnown, meanX, deviationX);
}

}  // namespace kestrel
