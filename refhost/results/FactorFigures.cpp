#include "refhost/results/FactorFigures.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

#include "core/analysis/modPearsons.h"

namespace refhost {
namespace {

/// A result over all iterations, its statistics worked out once for all factors.
struct ResultSeries {
    explicit ResultSeries(const std::vector<double>& values)
        : samples(values),
          mean(kestrel::CollectionMean(values)),
          deviation(kestrel::CollectionStdDev(values, mean)) {}

    /// Sets the mean and the correlation of up to kSideBySide factors from their impacts.
    void Follow(const std::vector<kestrel::SideBySide>& impacts, std::span<FactorFigures> factors,
                double FactorFigures::*meanImpact, double FactorFigures::*correlation) const {
        if (impacts.size() != samples.size()) return;
        const auto sums = kestrel::RowsPearson(samples, impacts, mean);
        for (std::size_t k = 0; k < factors.size(); ++k) {
            factors[k].*meanImpact = sums[k].Mean(samples.size());
            factors[k].*correlation = sums[k].Correlation(samples.size(), deviation);
        }
    }

    const std::vector<double>& samples;
    double mean;
    double deviation;
};

}  // namespace

std::vector<FactorFigures> FiguresOf(const FactorTracker& factors, const AnalysisResults& results) {
    std::vector<FactorFigures> all(factors.Register().size());
    const ResultSeries finish(results.finish), cost(results.cost);
    for (std::size_t i = 0; i < all.size(); ++i) all[i].occurrences = factors.Occurrences()[i];
    for (std::size_t first = 0; first < all.size(); first += kestrel::kSideBySide) {
        const std::size_t table = first / kestrel::kSideBySide;
        const auto block =
            std::span(all).subspan(first, std::min(kestrel::kSideBySide, all.size() - first));
        finish.Follow(factors.DurationImpacts()[table], block, &FactorFigures::meanDurationImpact,
                      &FactorFigures::alignedDurSens);
        cost.Follow(factors.CostImpacts()[table], block, &FactorFigures::meanCostImpact,
                    &FactorFigures::alignedCostSens);
    }
    return all;
}

std::vector<std::size_t> RankedBy(const std::vector<FactorFigures>& figures,
                                  double FactorFigures::*correlation) {
    std::vector<std::size_t> order(figures.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        const double first = figures[a].*correlation, second = figures[b].*correlation;
        return first * first > second * second;
    });
    return order;
}

namespace {

/// Where nothing moves the result, its deviation and so the correlation is what rounding leaves; a
/// chart, which scales to the largest bar, would show that at full length.
double WithoutRounding(double correlation) {
    constexpr double kRounding = 1e-9;
    return std::abs(correlation) < kRounding ? 0 : correlation;
}

}  // namespace

FactorTracker::Factors WithAlignedSensitivities(const FactorTracker::Factors& factors,
                                                const std::vector<FactorFigures>& figures) {
    FactorTracker::Factors aligned;
    for (std::size_t i = 0; i < factors.size(); ++i) {
        aligned.push_back(std::make_shared<kestrel::clsRiskFactor>(*factors[i]));
        aligned.back()->dblDurSens = WithoutRounding(figures.at(i).alignedDurSens);
        aligned.back()->m_dCostSens = WithoutRounding(figures.at(i).alignedCostSens);
    }
    return aligned;
}

}  // namespace refhost
