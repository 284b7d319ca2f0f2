#include <algorithm>
#include <array>
#include <span>

#include "core/analysis/modAnalysis.h"
#include "core/analysis/modPearsons.h"

namespace kestrel {
namespace {

/// A project series with its statistics, computed once for all factors.
struct ProjectSeries {
    explicit ProjectSeries(const std::vector<double>& values)
        : samples(values),
          mean(CollectionMean(values)),
          deviation(CollectionStdDev(values, mean)) {}

    using Histories = std::span<const ImpactHistory* const>;
    std::array<PearsonSums, kSideBySide> SumsWith(Histories histories) {
        return CollectionPearson(samples, histories, mean, rows);
    }
    double CorrelationWith(const ImpactHistory& history, const PearsonSums& sums) const {
        if (samples.empty() || history.Count() == 0) return 0;
        return sums.Correlation(samples.size(), deviation);
    }

    std::vector<SideBySide> rows;
    const std::vector<double>& samples;
    double mean;
    double deviation;
};

}  // namespace

void CalculateSensitivities(host::Application& application, AnalysisState& state) {
    application.PutBusy(true);
    ProjectSeries finish(state.ProjectFinishSamples);
    ProjectSeries cost(state.ProjectCostSamples);
    const std::span factors(state.factors);
    for (std::size_t first = 0; first < factors.size(); first += kSideBySide) {
        const auto block = factors.subspan(first, std::min(kSideBySide, factors.size() - first));
        std::vector<const ImpactHistory*> durations, costs;
        for (const auto& factor : block) {
            durations.push_back(&factor->m_colValues);
            costs.push_back(&factor->m_colValuesC);
        }
        const auto finishSums = finish.SumsWith(durations);
        const auto costSums = cost.SumsWith(costs);
        for (std::size_t k = 0; k < block.size(); ++k) {
            clsRiskFactor& factor = *block[k];
            application.PutStatusText(factor.strDescription);
            factor.dblDurSens = finish.CorrelationWith(factor.m_colValues, finishSums[k]);
            factor.m_dCostSens = cost.CorrelationWith(factor.m_colValuesC, costSums[k]);
        }
    }
    application.PutBusy(false);
}

}  // namespace kestrel
