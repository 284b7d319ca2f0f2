#include "refhost/results/FactorFigures.h"

#include <algorithm>
#include <numeric>

#include "core/analysis/modPearsons.h"

namespace refhost {
namespace {

/// A result over all iterations, its statistics worked out once for all factors.
struct ResultSeries {
    explicit ResultSeries(const std::vector<double>& values)
        : samples(values),
          mean(kestrel::CollectionMean(values)),
          deviation(kestrel::CollectionStdDev(values, mean)) {}

    double Aligned(const std::vector<double>& impacts) {
        if (impacts.size() < samples.size()) return 0;
        return kestrel::ArrayPearson(samples, impacts, samples.size(), true, mean, deviation);
    }

    const std::vector<double>& samples;
    double mean;
    double deviation;
};

}  // namespace

std::vector<FactorFigures> FiguresOf(const FactorTracker& factors, const AnalysisResults& results) {
    std::vector<FactorFigures> all(factors.Register().size());
    ResultSeries finish(results.finish);
    ResultSeries cost(results.cost);
    for (std::size_t i = 0; i < all.size(); ++i) {
        const std::vector<double>& durations = factors.DurationImpacts(i);
        const std::vector<double>& costs = factors.CostImpacts(i);
        all[i].occurrences = factors.Occurrences()[i];
        all[i].alignedDurSens = finish.Aligned(durations);
        all[i].alignedCostSens = cost.Aligned(costs);
        if (durations.empty()) continue;
        all[i].meanDurationImpact = kestrel::CollectionMean(durations);
        all[i].meanCostImpact = kestrel::CollectionMean(costs);
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

FactorTracker::Factors WithAlignedSensitivities(const FactorTracker::Factors& factors,
                                                const std::vector<FactorFigures>& figures) {
    FactorTracker::Factors aligned;
    for (std::size_t i = 0; i < factors.size(); ++i) {
        aligned.push_back(std::make_shared<kestrel::clsRiskFactor>(*factors[i]));
        aligned.back()->dblDurSens = figures.at(i).alignedDurSens;
        aligned.back()->m_dCostSens = figures.at(i).alignedCostSens;
    }
    return aligned;
}

}  // namespace refhost
